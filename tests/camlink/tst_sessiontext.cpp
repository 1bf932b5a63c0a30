#include "camlink/logic/tcSessionText.h"

#include <QTest>

class tst_SessionText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escaped_data();
    void escaped();
    void everyByteComesBack();
    void linesOfTheLog();
    void piecesJoinUntilALineIsWhole();
    void endlessLineIsCutButNotLost();
};

void tst_SessionText::escaped_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("plain") << QByteArray("<SROI 0 0 8 8>") << QByteArray("<SROI 0 0 8 8>");
    QTest::newRow("line ends") << QByteArray("a\r\n\t") << QByteArray("a\\r\\n\\t");
    QTest::newRow("backslash") << QByteArray("\\n") << QByteArray("\\\\n");
    QTest::newRow("no text") << QByteArray("\0\x01\x7F\xFF", 4)
                             << QByteArray("\\x00\\x01\\x7f\\xff");
}

void tst_SessionText::escaped()
{
    QFETCH(QByteArray, bytes);
    QTEST(tcSessionText::escaped(bytes), "text");
}

/// The bytes that a text of the log stands for.
static QByteArray unescaped(const QByteArray& acText)
{
    const QByteArray letters = "\\rnt";
    const QByteArray meanings = "\\\r\n\t";
    QByteArray bytes;
    for (int at = 0; at < acText.size(); ++at) {
        if (acText.at(at) != '\\') {
            bytes.append(acText.at(at));
        } else if (acText.at(++at) == 'x') {
            bytes.append(QByteArray::fromHex(acText.mid(at + 1, 2)));
            at += 2;
        } else {
            bytes.append(meanings.at(letters.indexOf(acText.at(at))));
        }
    }
    return bytes;
}

void tst_SessionText::everyByteComesBack()
{
    QByteArray all;
    for (int first = 0; first < 256; ++first)
        all.append(char(first)).append('\\').append(char(255 - first));
    QCOMPARE(unescaped(tcSessionText::escaped(all)), all);
}

void tst_SessionText::linesOfTheLog()
{
    const QDateTime when(QDate(2026, 11, 20), QTime(14, 3, 7, 125));
    QCOMPARE(tcSessionText::sent(when, "<VERS>\n"),
             QByteArray("2026-11-20 14:03:07.125 TX <VERS>\\n\n"));
    QCOMPARE(tcSessionText::received(when, "<VERS><ACK>\r\n"),
             QByteArray("2026-11-20 14:03:07.125 RX <VERS><ACK>\\r\\n\n"));
    QCOMPARE(tcSessionText::note(when, "open: %1\n"),
             QByteArray("2026-11-20 14:03:07.125 -- open: %1\\n\n"));
}

void tst_SessionText::piecesJoinUntilALineIsWhole()
{
    const QByteArray stream = "<A><ACK>\r\n<B><ACK>\r\nrest";
    for (int cut = 0; cut <= stream.size(); ++cut) {
        tcSessionLines lines;
        QList<QByteArray> whole = lines.append(stream.left(cut));
        whole += lines.append(stream.mid(cut));
        QCOMPARE(whole, (QList<QByteArray>{"<A><ACK>\r\n", "<B><ACK>\r\n"}));
        QCOMPARE(lines.takeRest(), QByteArray("rest"));
        QCOMPARE(lines.takeRest(), QByteArray());
    }
}

void tst_SessionText::endlessLineIsCutButNotLost()
{
    const QByteArray flood(3 * tcSessionLines::cLongest + 5, 'f');
    tcSessionLines lines;
    QByteArray joined;
    for (const QByteArray& line : lines.append(flood))
        joined += line;
    QCOMPARE(joined.size(), 3 * tcSessionLines::cLongest);
    QCOMPARE(joined + lines.takeRest(), flood);
}

QTEST_GUILESS_MAIN(tst_SessionText)
#include "tst_sessiontext.moc"

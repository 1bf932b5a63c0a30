#include "camlink/logic/tcReceivedText.h"

#include <QTest>

class tst_ReceivedText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneBlock_data();
    void oneBlock();
    void cutAnywhere_data();
    void cutAnywhere();
    void lineBreakCutBySilence();
    void newPortStartsAnew();
};

void tst_ReceivedText::oneBlock_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("<VERS><ACK><1>") << "<VERS><ACK><1>";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("U+0001 removed everywhere")
        << QByteArray("\x01<\x01\x01VERS>\x01", 9) << "<VERS>";
    QTest::newRow("up to the first NUL") << QByteArray("ab\0cd", 5) << "ab";
    QTest::newRow("no NUL within the block") << QByteArray(128, 'x') << QString(128, 'x');
    QTest::newRow("broken bytes") << QByteArray("a\xFF"
                                                "b")
                                  << QString("a") + QChar(QChar::ReplacementCharacter) + "b";
    QTest::newRow("line break kept") << QByteArray("a\r\nb") << "a\r\nb";
}

void tst_ReceivedText::oneBlock()
{
    QFETCH(QByteArray, block);
    tcReceivedText received;
    QTEST(received.append(block), "text");
}

void tst_ReceivedText::cutAnywhere_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("line ends") << QByteArray("one\r\ntwo\r\n\r\nthree")
                               << QStringList{"one", "two", "", "three"};
    QTest::newRow("characters of several bytes") << QByteArray("21.5 \xC2\xB0"
                                                               "C \xE2\x82\xAC")
                                                 << QStringList{QString::fromUtf8("21.5 °C €")};
}

/// What a view makes of text: carriage return, line feed and the pair are one line break each.
static QStringList shownLines(QString aText)
{
    aText.replace("\r\n", "\n").replace('\r', '\n');
    return aText.split('\n');
}

void tst_ReceivedText::cutAnywhere()
{
    QFETCH(QByteArray, bytes);
    for (int cut = 0; cut <= bytes.size(); ++cut) {
        tcReceivedText received;
        QStringList pieces{received.append(bytes.left(cut)), received.append(bytes.mid(cut))};
        // The view takes the pieces one by one, so a carriage return at the end of one is a
        // line break there.
        for (QString& piece : pieces) {
            piece.replace("\r\n", "\n");
            piece.replace('\r', '\n');
        }
        QTEST(shownLines(pieces.join(QString())), "lines");
    }
}

void tst_ReceivedText::lineBreakCutBySilence()
{
    // Blocks between the two halves that show nothing: what cameras put between replies, and
    // nothing before a NUL.
    tcReceivedText received;
    QCOMPARE(received.append("one\r"), QString("one\r"));
    QCOMPARE(received.append("\x01\x01"), QString());
    QCOMPARE(received.append(QByteArray(1, '\0')), QString());
    QCOMPARE(received.append("\ntwo"), QString("two"));
}

void tst_ReceivedText::newPortStartsAnew()
{
    tcReceivedText received;
    received.append("\r");
    received.append("\xC2");
    received.reset();
    QCOMPARE(received.append("\nA"), QString("\nA"));
}

QTEST_GUILESS_MAIN(tst_ReceivedText)
#include "tst_receivedtext.moc"

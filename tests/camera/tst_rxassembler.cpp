#include "camera/logic/tcReply.h"
#include "camera/logic/tcRxAssembler.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

namespace
{

QStringList drain(tcRxAssembler& arAssembler)
{
    QStringList replies;
    while (const auto reply = arAssembler.nextReply())
        replies.append(*reply);
    return replies;
}

/// The replies of pieces that arrive within one run, the unfinished one at its end included.
QStringList replies(const QStringList& acPieces)
{
    tcRxAssembler assembler;
    QStringList found;
    for (const QString& piece : acPieces) {
        assembler.add(piece);
        found += drain(assembler);
    }
    if (assembler.hasUnfinishedReply())
        found += assembler.takeUnfinishedReply();
    return found;
}

} // namespace

class tst_RxAssembler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streams_data();
    void streams();
    void cutAtEveryPosition_data() { streams_data(); }
    void cutAtEveryPosition();
    void cutAtEveryTwoPositions_data() { streams_data(); }
    void cutAtEveryTwoPositions();
    void oneCharacterAtATime_data() { streams_data(); }
    void oneCharacterAtATime();
    void lineEndAfterAReplyThatWasGivenAway_data();
    void lineEndAfterAReplyThatWasGivenAway();
    void restAfterAReplyThatWasGivenAwayIsNoReply();
    void junkIsReported();
    void tooLongALineIsDroppedWhole_data();
    void tooLongALineIsDroppedWhole();
    void longestLineIsKept();
    void megabyteOfJunkIsQuick_data();
    void megabyteOfJunkIsQuick();
    void clearForgetsEverything();
};

void tst_RxAssembler::streams_data()
{
    QTest::addColumn<QString>("stream");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("one reply") << "<A><ACK><500>\r\n" << QStringList{"<A><ACK><500>"};
    QTest::newRow("refused") << "<A><NACK>\r\n" << QStringList{"<A><NACK>"};
    QTest::newRow("two") << "<A><ACK>\r\n<B><ACK><1><2>\r\n"
                         << QStringList{"<A><ACK>", "<B><ACK><1><2>"};
    QTest::newRow("no line end yet")
        << "<A><ACK>\r\n<B><ACK><1>" << QStringList{"<A><ACK>", "<B><ACK><1>"};
    QTest::newRow("half a line end") << "<A><ACK>\r" << QStringList{"<A><ACK>"};
    QTest::newRow("empty lines") << "\r\n\r\n<A><ACK>\r\n\r\n" << QStringList{"<A><ACK>"};
    QTest::newRow("a line that is no reply swallows nothing")
        << "hello\r\n<A><ACK>\r\n<B>\r\n<C><ACK>\r\n"
        << QStringList{"<A><ACK>", "<C><ACK>"};
    QTest::newRow("start of a reply") << "<A><AC" << QStringList();
    QTest::newRow("text before a reply spoils its line") << "x<A><ACK>\r\n" << QStringList();
    QTest::newRow("junk with a lone line feed swallows nothing")
        << "x\n<A><ACK>\r\n<y>\n\n<B><ACK>\r\n"
        << QStringList{"<A><ACK>", "<B><ACK>"};
    QTest::newRow("lone line feed within the first field") << "<A\nB><ACK>\r\n"
                                                           << QStringList{"<A\nB><ACK>"};
    QTest::newRow("lone line feed behind a reply") << "<A><ACK>\n<1>\r\n"
                                                   << QStringList{"<A><ACK>\n<1>"};
    QTest::newRow("lone carriage returns") << "<A><ACK>\r<1>\r\r\n"
                                           << QStringList{"<A><ACK>\r<1>\r"};
    QTest::newRow("NULs and controls") << QString("<A><ACK><") + QChar(0) + QChar(1)
            + ">\r\n" << QStringList{QString("<A><ACK><") + QChar(0) + QChar(1) + ">"};
}

void tst_RxAssembler::streams()
{
    QFETCH(QString, stream);
    QTEST(replies({stream}), "expected");
}

void tst_RxAssembler::cutAtEveryPosition()
{
    QFETCH(QString, stream);
    QFETCH(QStringList, expected);
    for (int at = 0; at <= stream.size(); ++at)
        QCOMPARE(replies({stream.left(at), stream.mid(at)}), expected);
}

void tst_RxAssembler::cutAtEveryTwoPositions()
{
    QFETCH(QString, stream);
    QFETCH(QStringList, expected);
    for (int first = 0; first <= stream.size(); ++first) {
        for (int second = first; second <= stream.size(); ++second)
            QCOMPARE(replies({stream.left(first), stream.mid(first, second - first),
                              stream.mid(second)}),
                     expected);
    }
}

void tst_RxAssembler::oneCharacterAtATime()
{
    QFETCH(QString, stream);
    QStringList pieces;
    for (const QChar character : stream)
        pieces.append(character);
    QTEST(replies(pieces), "expected");
}

void tst_RxAssembler::lineEndAfterAReplyThatWasGivenAway_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("whole") << "<A><ACK>"
                           << "\r\n<B><ACK>\r\n";
    QTest::newRow("cut in two") << "<A><ACK>\r"
                                << "\n<B><ACK>\r\n";
    QTest::newRow("none") << "<A><ACK>"
                          << "\r\n<B><ACK>\r\n";
}

void tst_RxAssembler::lineEndAfterAReplyThatWasGivenAway()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    tcRxAssembler assembler;
    assembler.add(before);
    QCOMPARE(drain(assembler), QStringList());
    QVERIFY(assembler.hasUnfinishedReply());
    QCOMPARE(assembler.takeUnfinishedReply(), QStringLiteral("<A><ACK>"));
    QVERIFY(!assembler.hasUnfinishedLine());
    assembler.add(after);
    QCOMPARE(drain(assembler), QStringList{"<B><ACK>"});
    QVERIFY(!assembler.hasUnfinishedLine());
}

void tst_RxAssembler::restAfterAReplyThatWasGivenAwayIsNoReply()
{
    tcRxAssembler assembler;
    assembler.add("<A><ACK>");
    QCOMPARE(drain(assembler), QStringList());
    assembler.takeUnfinishedReply();
    assembler.add("<500>\r\n<B><ACK>\r\n");
    QCOMPARE(drain(assembler), QStringList{"<B><ACK>"});
}

void tst_RxAssembler::junkIsReported()
{
    QTest::ignoreMessage(QtDebugMsg, "No handler for \"hello\\n\"");
    QCOMPARE(replies({"hello\n"}), QStringList());
    QTest::ignoreMessage(QtDebugMsg, "No handler for \"%1 %s\\n\"");
    QCOMPARE(replies({"%1 %s\n\r\n"}), QStringList());
}

void tst_RxAssembler::tooLongALineIsDroppedWhole_data()
{
    QTest::addColumn<QString>("behind");
    QTest::newRow("a reply at its end") << "<A><ACK>\r\n";
    QTest::newRow("line end cut in two") << "\r|\n";
    QTest::newRow("more pieces") << "x|<A><ACK>|y\r\n";
    QTest::newRow("more megabytes") << QString(QString(tcRxAssembler::cMaxLine, 'z') + "\r\n");
}

void tst_RxAssembler::tooLongALineIsDroppedWhole()
{
    QFETCH(QString, behind);
    tcRxAssembler assembler;
    const QByteArray report = QStringLiteral("Dropping a line without end after %1 characters")
                                  .arg(tcRxAssembler::cMaxLine + 1)
                                  .toLatin1();
    QTest::ignoreMessage(QtDebugMsg, report.constData());
    assembler.add("<A><ACK>" + QString(tcRxAssembler::cMaxLine - 7, 'x'));
    QCOMPARE(drain(assembler), QStringList());
    QVERIFY(!assembler.hasUnfinishedReply());
    for (const QString& piece : behind.split('|')) {
        assembler.add(piece);
        QCOMPARE(drain(assembler), QStringList());
        QVERIFY(!assembler.hasUnfinishedReply());
    }
    assembler.add("<B><ACK>\r\n");
    QCOMPARE(drain(assembler), QStringList{"<B><ACK>"});
}

void tst_RxAssembler::longestLineIsKept()
{
    tcRxAssembler assembler;
    const QString line = "<A><ACK>" + QString(tcRxAssembler::cMaxLine - 8, 'x');
    assembler.add(line);
    QCOMPARE(drain(assembler), QStringList());
    assembler.add("\r\n");
    QCOMPARE(drain(assembler), QStringList{line});
}

void tst_RxAssembler::megabyteOfJunkIsQuick_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("letters") << "x";
    QTest::newRow("opening brackets") << "<";
    QTest::newRow("closing brackets") << ">";
    QTest::newRow("brackets and carriage returns") << "<\r";
    QTest::newRow("fields") << "<A>";
    QTest::newRow("refusals without end") << "<A><N";
    QTest::newRow("NUL") << QString(QChar(0));
}

/// In one piece and in pieces, with one look at what is unfinished after each.
void tst_RxAssembler::megabyteOfJunkIsQuick()
{
    QFETCH(QString, unit);
    const QString junk = unit.repeated(tcRxAssembler::cMaxLine / unit.size());
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(replies({junk, "\r\n<A><ACK>\r\n"}), QStringList{"<A><ACK>"});
    QStringList pieces;
    for (int at = 0; at < junk.size(); at += 16384)
        pieces.append(junk.mid(at, 16384));
    QCOMPARE(replies(pieces << "\r\n<A><ACK>\r\n"), QStringList{"<A><ACK>"});
    QVERIFY2(timer.elapsed() < 20000, "the cost grows faster than the text");
}

void tst_RxAssembler::clearForgetsEverything()
{
    tcRxAssembler assembler;
    assembler.add("<A><AC");
    QCOMPARE(drain(assembler), QStringList());
    QVERIFY(assembler.hasUnfinishedLine());
    assembler.clear();
    QVERIFY(!assembler.hasUnfinishedLine());
    assembler.add("K>\r\n<B><ACK>\r\n");
    QCOMPARE(drain(assembler), QStringList{"<B><ACK>"});
}

QTEST_GUILESS_MAIN(tst_RxAssembler)
#include "tst_rxassembler.moc"

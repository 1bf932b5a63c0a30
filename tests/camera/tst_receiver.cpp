#include "camera/tcReceiver.h"
#include "tests/support/tcFakeSerial.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace
{

const char* const cCount = "clGetNumBytesAvail";
const char* const cRead = "clSerialRead";

} // namespace

class tst_Receiver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aQuietRunPollsSixTimes();
    void pausesAreShortHoweverMuchOthersHaveToDo();
    void anUnfinishedLineBeginsTheCountAnew();
    void aCompleteLineDoesNot();
    void failingCountEndsTheRun();
    void failingReadEndsTheRun();
    void failureAfterTheFifthEmptyPollIsTraced_data();
    void failureAfterTheFifthEmptyPollIsTraced();
    void asksForWhatWaits();
    void fourGigabytesAnnounced();
    void readsOfNothingAreFew();
    void readsOfNothingCountInARow();
    void withoutAPortNothingHappens();

    void nestedRunDoesNothing();
    void closedInThePause();
    void closedByAReply();
    void reopenedWithTheSameReference();
    void destroyedInThePause();

    void slowHandlersGetASliceAtATime();
    void tricklingBytesAreLeftToGather();
    void unfinishedReplyIsNotCutByTheSlice();

    void everyPortionOfAReply();
    void replyCutBehindItsAckWaitsForTheRest();
    void replyWithoutLineEndIsHandledAtOnce();
    void failureBehindAReplyWithoutLineEnd();
    void lineEndInTheNextRun();
    void charactersCutInTwo();
    void bytesOfAllValues();
    void nothingOfAnEarlierPortIsLeft();

    void timeOfTheLastData();
    void silence();

private:
    /// On a busy computer the usual slice may be over before anything was read.
    static constexpr qint64 cLongSliceMs = 60'000;

    int polls() const { return line.callsOf(cCount).size(); }
    /// Before the poll of that number, counted from 1.
    void atPoll(int anNumber, const std::function<void()>& aAction);

    tcFakeSerial& line = tcFakeSerial::instance();
    tcSerialLink::tcRef ref = 0;
    QDateTime now{QDate(2024, 5, 17), QTime(12, 0)};
    std::unique_ptr<tcReceiver> receiver;
    QStringList replies;
    QByteArray bytes;
};

void tst_Receiver::init()
{
    line.reset();
    ref = tcSerialLink::open(0).ref;
    tcSerialLink::setBaudRate(ref);
    replies.clear();
    bytes.clear();
    receiver = std::make_unique<tcReceiver>(nullptr, [this] { return now; });
    receiver->setSlice(cLongSliceMs);
    connect(receiver.get(), &tcReceiver::replyReceived, this,
            [this](const QString& acLine) { replies.append(acLine); });
    connect(receiver.get(), &tcReceiver::bytesReceived, this,
            [this](const QByteArray& acBytes) { bytes.append(acBytes); });
    receiver->start(ref);
}

void tst_Receiver::cleanup()
{
    receiver.reset();
    line.onCall = nullptr;
    tcSerialLink::close(ref);
    QCOMPARE(line.misuse, QStringList());
}

void tst_Receiver::atPoll(int anNumber, const std::function<void()>& aAction)
{
    line.onCall = [this, anNumber, aAction](const tcFakeSerial::tcCall& acCall) {
        if (acCall.function == cCount && polls() == anNumber)
            aAction();
    };
}

void tst_Receiver::aQuietRunPollsSixTimes()
{
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 6);
    QCOMPARE(line.callsOf(cRead).size(), 0);
}

/// Five milliseconds each, in which a handler of one gets at most six turns.
void tst_Receiver::pausesAreShortHoweverMuchOthersHaveToDo()
{
    int turns = 0;
    int most = 0;
    QTimer others;
    connect(&others, &QTimer::timeout, this, [&] {
        QTest::qSleep(1);
        ++turns;
    });
    others.start(0);
    line.onCall = [&](const tcFakeSerial::tcCall&) {
        most = std::max(most, turns);
        turns = 0;
    };
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 6);
    most = std::max(most, turns);
    QVERIFY(most > 0);
    QVERIFY2(most <= 7, qPrintable(QString::number(most)));
}

void tst_Receiver::anUnfinishedLineBeginsTheCountAnew()
{
    atPoll(4, [this] { line.receive("<A"); });
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 3 + 1 + 6);
}

void tst_Receiver::aCompleteLineDoesNot()
{
    atPoll(4, [this] { line.receive("<A><ACK>\r\n"); });
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 3 + 1 + 3);
    QCOMPARE(replies, QStringList{"<A><ACK>"});
}

void tst_Receiver::failingCountEndsTheRun()
{
    line.receive("<A><ACK>\r\n");
    line.failing[cCount] = -10004;
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 1);
    line.failing.clear();
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<A><ACK>"});
}

void tst_Receiver::failingReadEndsTheRun()
{
    line.receive("<A><ACK>\r\n");
    line.failing[cRead] = -10006;
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 1);
    QCOMPARE(line.callsOf(cRead).size(), 1);
    QVERIFY(!receiver->lastRxTime().isValid());
    line.failing.clear();
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<A><ACK>"});
}

void tst_Receiver::failureAfterTheFifthEmptyPollIsTraced_data()
{
    QTest::addColumn<int>("failsAt");
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<bool>("traced");
    for (const char* call : {cCount, cRead}) {
        for (int poll = 1; poll <= 5; ++poll)
            QTest::addRow("%s at poll %d", call, poll) << poll << QByteArray(call) << false;
        QTest::addRow("%s at poll 6", call) << 6 << QByteArray(call) << true;
        QTest::addRow("%s never", call) << 99 << QByteArray(call) << false;
    }
}

void tst_Receiver::failureAfterTheFifthEmptyPollIsTraced()
{
    QFETCH(int, failsAt);
    QFETCH(QByteArray, call);
    QFETCH(bool, traced);
    static QStringList messages;
    messages.clear();
    atPoll(failsAt, [&] {
        line.failing[call] = -10006;
        line.receive("<A><ACK>\r\n"); // so that there is something to read
    });
    const QtMessageHandler before
        = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&,
                                    const QString& acText) { messages.append(acText); });
    receiver->run();
    qInstallMessageHandler(before);
    QCOMPARE(messages.filter("tcVexaK40::CheckRxData").filter("Nothing there...").size(),
             traced ? 1 : 0);
}

void tst_Receiver::asksForWhatWaits()
{
    line.receive(QByteArray(317, 'x'));
    receiver->run();
    QCOMPARE(line.callsOf(cRead).first().number, 317u);
    QCOMPARE(line.callsOf(cRead).first().timeoutMs, 200u);
    QCOMPARE(bytes, QByteArray(317, 'x'));
}

void tst_Receiver::fourGigabytesAnnounced()
{
    line.receive("<A><ACK>\r\n");
    line.availableCount = 0xFFFFFFFF;
    receiver->run(); // the read times out, as it must
    QCOMPARE(line.callsOf(cRead).first().number, 1024u * 1024u);
}

void tst_Receiver::readsOfNothingAreFew()
{
    line.availableCount = 7;
    line.partialStatus = 0;
    QVERIFY(receiver->run());
    QCOMPARE(line.callsOf(cRead).size(), 5);
    QVERIFY(!receiver->lastRxTime().isValid());
}

void tst_Receiver::readsOfNothingCountInARow()
{
    line.availableCount = 7;
    line.partialStatus = 0;
    line.onCall = [this](const tcFakeSerial::tcCall& acCall) {
        const int reads = line.callsOf(cRead).size();
        if (acCall.function == cRead && (reads == 5 || reads == 10))
            line.feedAtOnce("x");
    };
    QVERIFY(receiver->run());
    QCOMPARE(bytes, QByteArray("xx"));
    QCOMPARE(line.callsOf(cRead).size(), 4 + 1 + 4 + 1 + 5);
}

void tst_Receiver::withoutAPortNothingHappens()
{
    receiver->stop();
    QVERIFY(!receiver->run());
    QCOMPARE(polls(), 0);
}

void tst_Receiver::nestedRunDoesNothing()
{
    bool nested = true;
    QTimer::singleShot(0, this, [&] { nested = receiver->run(); });
    QVERIFY(receiver->run());
    QVERIFY(!nested);
    QCOMPARE(polls(), 6);
    QVERIFY(receiver->run());
}

void tst_Receiver::closedInThePause()
{
    QTimer::singleShot(0, this, [&] { receiver->stop(); });
    QVERIFY(!receiver->run());
    QCOMPARE(polls(), 1);
}

void tst_Receiver::closedByAReply()
{
    line.receive("<A><ACK>\r\n<B><ACK>\r\n<C><ACK>");
    connect(receiver.get(), &tcReceiver::replyReceived, this, [&] { receiver->stop(); });
    QVERIFY(!receiver->run());
    QCOMPARE(replies, QStringList{"<A><ACK>"});
    QCOMPARE(polls(), 1);
}

void tst_Receiver::reopenedWithTheSameReference()
{
    line.receive("<A><AC");
    QTimer::singleShot(0, this, [&] { receiver->start(ref); });
    QVERIFY(!receiver->run());
    line.receive("K>\r\n<B><ACK>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<B><ACK>"});
}

void tst_Receiver::destroyedInThePause()
{
    QTimer::singleShot(0, this, [&] { receiver.reset(); });
    tcReceiver* running = receiver.get();
    QVERIFY(!running->run());
    QCOMPARE(polls(), 1);
}

void tst_Receiver::slowHandlersGetASliceAtATime()
{
    QByteArray stream;
    QStringList expected;
    for (int i = 0; i < 12; ++i) {
        expected.append(QStringLiteral("<A %1><ACK>").arg(i));
        stream += expected.last().toLatin1() + "\r\n";
    }
    receiver->setSlice(tcReceiver::cSliceMs);
    connect(receiver.get(), &tcReceiver::replyReceived, this, [] { QTest::qSleep(20); });
    line.receive(stream);
    QVERIFY(receiver->run());
    QVERIFY2(replies.size() <= 2,
             "the slice of 20 ms is over with the second handler of 20 ms");
    for (int run = 0; run < 12 && replies.size() < 12; ++run)
        QVERIFY(receiver->run());
    QCOMPARE(replies, expected);
}

void tst_Receiver::tricklingBytesAreLeftToGather()
{
    const QByteArray reply = "<A><ACK><1234567>\r\n";
    QStringList expected;
    for (int i = 0; i < 60; ++i) {
        expected.append("<A><ACK><1234567>");
        for (const char byte : reply)
            line.receive(QByteArray(1, byte));
    }
    QVERIFY(receiver->run());
    QVERIFY(line.callsOf(cRead).size() <= 256);
    for (int run = 0; run < 200 && line.waiting() > 0; ++run)
        QVERIFY(receiver->run());
    QCOMPARE(replies, expected);
}

void tst_Receiver::unfinishedReplyIsNotCutByTheSlice()
{
    line.receive("<A><ACK>");
    for (int i = 0; i < 255; ++i)
        line.receive("x");
    line.receive("<500>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList());
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<A><ACK>" + QString(255, 'x') + "<500>"});
}

void tst_Receiver::everyPortionOfAReply()
{
    const QByteArray stream = "<GEXP><ACK><500>\r\n<B><NACK>\r\n";
    for (int first = 0; first <= stream.size(); ++first) {
        for (int second = first; second <= stream.size(); second += 3) {
            replies.clear();
            line.receive(stream.left(first));
            line.receive(stream.mid(first, second - first));
            line.receive(stream.mid(second));
            while (line.waiting() > 0)
                QVERIFY(receiver->run());
            QCOMPARE(replies, QStringList({"<GEXP><ACK><500>", "<B><NACK>"}));
        }
    }
}

/// The rest comes a little later, as it does from a line of 115200 baud.
void tst_Receiver::replyCutBehindItsAckWaitsForTheRest()
{
    line.receive("<GEXP><ACK>");
    QTimer::singleShot(8, Qt::PreciseTimer, this, [&] { line.receive("<500>\r\n"); });
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<GEXP><ACK><500>"});
}

void tst_Receiver::replyWithoutLineEndIsHandledAtOnce()
{
    line.receive("<GEXP><ACK><500>");
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<GEXP><ACK><500>"});
}

void tst_Receiver::failureBehindAReplyWithoutLineEnd()
{
    line.receive("<GEXP><ACK><500>");
    atPoll(2, [this] { line.failing[cCount] = -10006; });
    QVERIFY(receiver->run());
    QCOMPARE(polls(), 2);
    QCOMPARE(replies, QStringList{"<GEXP><ACK><500>"});
}

void tst_Receiver::lineEndInTheNextRun()
{
    line.receive("<A><ACK>\r");
    QVERIFY(receiver->run());
    line.receive("\n<B><ACK>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList({"<A><ACK>", "<B><ACK>"}));
}

void tst_Receiver::charactersCutInTwo()
{
    line.receive("<A><ACK><21 \xC2");
    line.receive("\xB0"
                 "C>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies,
             QStringList{QString::fromUtf8("<A><ACK><21 \xC2\xB0"
                                           "C>")});
}

void tst_Receiver::bytesOfAllValues()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    line.receive("<A><ACK><a" + QByteArray(1, '\0') + QByteArray(1, '\1') + "b>\r\n" + all
                 + "\r\n<B><ACK>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies,
             QStringList({QString("<A><ACK><a") + QChar(0) + QChar(1) + "b>", "<B><ACK>"}));
    QVERIFY(bytes.contains(all));
}

void tst_Receiver::nothingOfAnEarlierPortIsLeft()
{
    line.receive("<A><AC\xC2");
    QVERIFY(receiver->run());
    receiver->stop();
    receiver->start(ref);
    line.receive("K>\r\n<B><ACK>\r\n");
    QVERIFY(receiver->run());
    QCOMPARE(replies, QStringList{"<B><ACK>"});
}

void tst_Receiver::timeOfTheLastData()
{
    QVERIFY(!receiver->lastRxTime().isValid());
    QVERIFY(receiver->run());
    QVERIFY(!receiver->lastRxTime().isValid());
    line.receive("x");
    QVERIFY(receiver->run());
    QCOMPARE(receiver->lastRxTime(), now);
    now = now.addSecs(3);
    QVERIFY(receiver->run());
    QCOMPARE(receiver->lastRxTime(), now.addSecs(-3));
    receiver->start(ref);
    QVERIFY(!receiver->lastRxTime().isValid());
}

void tst_Receiver::silence()
{
    QVERIFY(!receiver->isSilent());
    now = now.addDays(1);
    QVERIFY2(!receiver->isSilent(), "nothing was ever received");
    line.receive("x");
    QVERIFY(receiver->run());
    now = now.addMSecs(5900);
    QVERIFY(!receiver->isSilent());
    now = now.addMSecs(100);
    QVERIFY(receiver->isSilent());
    receiver->start(ref);
    QVERIFY2(!receiver->isSilent(), "a reopened port begins anew");
}

QTEST_GUILESS_MAIN(tst_Receiver)
#include "tst_receiver.moc"

#include "tests/sim/tcBenchCamera.h"

#include <QTest>

/// Faults as they show at the host's end of the line.
class tst_CameraFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dropCarriesOutButDoesNotAnswer();
    void nackChangesNothing();
    void delay();
    void delayHoldsUpWhatFollows();
    void split();
    void corrupt();
    void flood();
    void floodUnreadStaysWithinBounds();
    void unplugAfterSeconds();
    void unplugAtReply();
    void stubbornModel();
    void faultOnTopOfTheModelsOwn();
};

void tst_CameraFaults::dropCarriesOutButDoesNotAnswer()
{
    tcBenchCamera camera("k20", "drop@2");
    QCOMPARE(camera.ask("<SBPP 1>"), QByteArray("<SBPP 1><ACK>\r\n"));
    QCOMPARE(camera.ask("<SBPP 4>"), QByteArray());
    QCOMPARE(camera.ask("<GBPP>"), QByteArray("<GBPP><ACK><4>\r\n"));
}

void tst_CameraFaults::nackChangesNothing()
{
    tcBenchCamera camera("k20", "nack@1");
    QCOMPARE(camera.ask("<SBPP 4>"), QByteArray("<SBPP 4><NACK>\r\n"));
    QCOMPARE(camera.ask("<GBPP>"), QByteArray("<GBPP><ACK><0>\r\n"));
}

void tst_CameraFaults::delay()
{
    tcBenchCamera camera("k20", "delay@1=500");
    camera.send("<STOP>\n");
    camera.now = 499 * tcBenchCamera::cMs;
    QCOMPARE(camera.receive(), QByteArray());
    camera.now = 503 * tcBenchCamera::cMs;
    QCOMPARE(camera.receive(), QByteArray("<STOP><ACK>\r\n"));
}

void tst_CameraFaults::delayHoldsUpWhatFollows()
{
    tcBenchCamera camera("k20", "delay@1=500");
    camera.send("<STOP>\n<STRT>\n");
    camera.now = 499 * tcBenchCamera::cMs;
    QCOMPARE(camera.receive(), QByteArray());
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.receive(), QByteArray("<STOP><ACK>\r\n<STRT><ACK>\r\n"));
}

void tst_CameraFaults::split()
{
    tcBenchCamera camera("k20", "split=300");
    QSet<int> places;
    const QByteArray reply = "<STOP><ACK>\r\n";
    for (int turn = 0; turn < 400; ++turn) {
        camera.send("<STOP>\n");
        camera.now += 100 * tcBenchCamera::cMs;
        const QByteArray head = camera.receive();
        QVERIFY(!head.isEmpty() && head.size() < reply.size());
        places.insert(head.size());
        camera.now += tcBenchCamera::cSecond;
        QCOMPARE(head + camera.receive(), reply);
    }
    QCOMPARE(places.size(), reply.size() - 1); // everywhere, inside the line end too
}

void tst_CameraFaults::corrupt()
{
    tcBenchCamera camera("k20", "corrupt/2");
    const QByteArray reply = "<STOP><ACK>\r\n";
    for (int turn = 1; turn <= 100; ++turn) {
        const QByteArray received = camera.ask("<STOP>");
        QCOMPARE(received.size(), reply.size());
        int wrong = 0;
        for (int at = 0; at < reply.size(); ++at)
            wrong += received.at(at) != reply.at(at) ? 1 : 0;
        QCOMPARE(wrong, turn % 2 == 0 ? 1 : 0);
    }
}

void tst_CameraFaults::flood()
{
    tcBenchCamera camera("k20", "flood@1=2");
    const QByteArray reply = "<STOP><ACK>\r\n";
    QVERIFY(camera.ask("<STOP>").startsWith(reply));
    camera.now += 3 * tcBenchCamera::cSecond;
    const QByteArray rest = camera.receive();
    QVERIFY2(rest.size() > 11000 && rest.size() < 12200,
             qPrintable(QString::number(rest.size())));
    QVERIFY(rest.contains("\r\n"));
    QCOMPARE(camera.ask("<STOP>"), reply); // and all is well again
}

void tst_CameraFaults::floodUnreadStaysWithinBounds()
{
    tcBenchCamera camera("k20", "flood@1=3600");
    camera.send("<STOP>\n");
    camera.now += 3600 * tcBenchCamera::cSecond;
    const size_t waiting = camera.sim.available(camera.now);
    QVERIFY(waiting >= tcCameraSim::cReceiveRoom);
    QVERIFY(waiting <= tcCameraSim::cReceiveRoom + 200);
}

void tst_CameraFaults::unplugAfterSeconds()
{
    tcBenchCamera camera("k20", "unplug=2.5");
    QCOMPARE(camera.ask("<STOP>"), QByteArray("<STOP><ACK>\r\n"));
    camera.now = 2499 * tcBenchCamera::cMs;
    QVERIFY(!camera.sim.unplugged(camera.now));
    QCOMPARE(camera.sim.nextEvent(camera.now), int64_t(2500) * tcBenchCamera::cMs);
    camera.now = 2500 * tcBenchCamera::cMs;
    QVERIFY(camera.sim.unplugged(camera.now));
    QCOMPARE(camera.sim.write(camera.now, "<STOP>\n", 7), size_t(0));
    QCOMPARE(camera.sim.nextEvent(camera.now), tcCameraSim::cNever);
}

void tst_CameraFaults::unplugAtReply()
{
    tcBenchCamera camera("k20", "unplug@2");
    camera.send("<STOP>\n<STRT>\n<STOP>\n");
    camera.now += tcBenchCamera::cSecond;
    QVERIFY(camera.sim.unplugged(camera.now));
    QVERIFY(!camera.sim.state().acquiring);
    QVERIFY(camera.receive().size() <= 13); // the first reply at the most
}

void tst_CameraFaults::stubbornModel()
{
    tcBenchCamera camera("stubborn");
    int refused = 0;
    int missing = 0;
    int wrong = 0;
    constexpr int cTurns = 1155; // each combination of its steps once
    for (int turn = 0; turn < cTurns; ++turn) {
        const QByteArray reply = camera.ask("<STOP>");
        missing += reply.isEmpty() ? 1 : 0;
        refused += reply == "<STOP><NACK>\r\n" ? 1 : 0;
        wrong += !reply.isEmpty() && reply != "<STOP><ACK>\r\n" && reply != "<STOP><NACK>\r\n";
    }
    QCOMPARE(missing, cTurns / 11);
    QVERIFY(refused > cTurns / 5 * 7 / 10 && refused < cTurns / 5);
    QVERIFY(wrong > cTurns / 7 * 8 / 10 && wrong <= cTurns / 7);
}

void tst_CameraFaults::faultOnTopOfTheModelsOwn()
{
    tcBenchCamera camera("stubborn", "drop@1");
    QCOMPARE(camera.ask("<STOP>"), QByteArray());
}

QTEST_GUILESS_MAIN(tst_CameraFaults)
#include "tst_camerafaults.moc"

#include "tests/sim/tcBenchCamera.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

class tst_CameraSim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelTable();
    void sensor_data();
    void sensor();
    void allTemperatures();
    void oneTemperature();
    void commandNeedsItsLineEnd();
    void carriageReturnEndsALineToo();
    void severalCommandsOnALine();
    void overlongLineIsNoise();
    void silentWhileItStartsAnew();
    void coolerSettlesOverTheLine();
    void repliesArePacedBothWays();
    void commandsOfAScriptAreAnsweredInTurn();
    void sameSeedSameBytes();
    void wrongBaudRateIsNoise();
    void purgeDropsWhatHasArrived();
    void transmitRoomIsBounded();
    void rubbishNeverHurts_data();
    void rubbishNeverHurts();
};

void tst_CameraSim::modelTable()
{
    QSet<QByteArray> keys;
    QSet<QByteArray> names;
    for (const tcCameraModel& model : tcCameraModels::all()) {
        keys.insert(model.key);
        names.insert(model.name);
        QVERIFY2(qstrlen(model.name) < 50, model.name);
        QCOMPARE(tcCameraModels::find(model.key), &model);
    }
    QCOMPARE(keys.size(), int(tcCameraModels::all().size()));
    QCOMPARE(names.size(), keys.size());
    QVERIFY(keys.size() >= 4);
    QVERIFY(!tcCameraModels::find("k99"));
}

void tst_CameraSim::sensor_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    const auto row = [](int anNumber, const char* acName, double anLow, double anHigh) {
        QTest::newRow(acName) << anNumber << anLow << anHigh;
    };
    row(1, "sensor temperature", 21.0, 35.0);
    row(2, "board temperature", 21.0, 40.0);
    row(3, "thermistor temperature", 21.0, 35.0);
    row(4, "ambient temperature", 21.0, 25.0);
    row(5, "relative humidity", 30.0, 42.0);
    row(6, "cooler current", 0.0, 0.0);
    row(7, "cooler voltage", 0.0, 0.0);
    row(8, "IVRESH", 12.0, 12.8);
    row(9, "I3P3V", 37.5, 38.5);
    row(10, "I3P0V", 21.0, 22.0);
    row(11, "I2P0V", 43.5, 44.5);
    row(12, "2P1V", 2.05, 2.15);
    row(13, "3V3RESH", 3.25, 3.35);
    row(14, "3P0V", 2.95, 3.05);
    row(15, "3P3V", 3.25, 3.35);
}

/// The value always has a decimal point and two decimals.
void tst_CameraSim::sensor()
{
    QFETCH(int, number);
    QFETCH(double, low);
    QFETCH(double, high);
    tcBenchCamera camera("k20-tec");
    camera.now = 60 * tcBenchCamera::cSecond;
    const QString reply
        = QString::fromLatin1(camera.ask("<SENS " + QByteArray::number(number) + '>'));
    const QRegularExpression pattern(
        QStringLiteral("^<SENS %1><ACK><(\\d+\\.\\d\\d)>\r\n$").arg(number));
    const QRegularExpressionMatch match = pattern.match(reply);
    QVERIFY2(match.hasMatch(), qPrintable(reply));
    const double value = match.captured(1).toDouble();
    QVERIFY2(value >= low && value <= high, qPrintable(reply));
}

void tst_CameraSim::allTemperatures()
{
    const QString temperature = QStringLiteral("<\\d+\\.\\d\\d>");
    tcBenchCamera cooled("k20-tec");
    QVERIFY(QRegularExpression("^<TEMP 0><ACK>(" + temperature + "){4}\r\n$")
                .match(QString::fromLatin1(cooled.ask("<TEMP 0>")))
                .hasMatch());
    tcBenchCamera basic("r60");
    QVERIFY(QRegularExpression("^<TEMP 0><ACK>(" + temperature + "){2}\r\n$")
                .match(QString::fromLatin1(basic.ask("<TEMP 0>")))
                .hasMatch());
}

void tst_CameraSim::oneTemperature()
{
    tcBenchCamera camera("k20-tec");
    for (const char* number : {"1", "2", "3", "4"}) {
        const QString reply
            = QString::fromLatin1(camera.ask(QByteArray("<TEMP ") + number + '>'));
        QVERIFY2(
            QRegularExpression("^<TEMP \\d><ACK><\\d+\\.\\d\\d>\r\n$").match(reply).hasMatch(),
            qPrintable(reply));
    }
}

void tst_CameraSim::commandNeedsItsLineEnd()
{
    tcBenchCamera camera("k20");
    camera.send("<STRT>");
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.receive(), QByteArray());
    QVERIFY(!camera.sim.state().acquiring);
    QCOMPARE(camera.ask(""), QByteArray("<STRT><ACK>\r\n"));
    QVERIFY(camera.sim.state().acquiring);
}

void tst_CameraSim::carriageReturnEndsALineToo()
{
    tcBenchCamera camera("k20");
    QCOMPARE(camera.ask("<STRT>\r"), QByteArray("<STRT><ACK>\r\n"));
}

void tst_CameraSim::severalCommandsOnALine()
{
    tcBenchCamera camera("k20");
    QCOMPARE(camera.ask("<STOP> <SBPP 9><STRT>"),
             QByteArray("<STOP><ACK>\r\n<SBPP 9><NACK>\r\n<STRT><ACK>\r\n"));
}

void tst_CameraSim::overlongLineIsNoise()
{
    tcBenchCamera camera("k20");
    QCOMPARE(camera.ask(QByteArray(300, 'x') + "<STRT>"), QByteArray());
    QCOMPARE(camera.ask("<STRT>"), QByteArray("<STRT><ACK>\r\n"));
}

void tst_CameraSim::silentWhileItStartsAnew()
{
    tcBenchCamera camera("k20");
    camera.send("<STRT>\n<RSET>\n<VERS>\n");
    camera.now += 300 * tcBenchCamera::cMs;
    QCOMPARE(camera.receive(), QByteArray("<STRT><ACK>\r\n<RSET><ACK>\r\n"));
    QVERIFY(!camera.sim.state().acquiring);
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.receive(), QByteArray()); // lost for good
    QCOMPARE(camera.ask("<STOP>"), QByteArray("<STOP><ACK>\r\n"));
}

void tst_CameraSim::coolerSettlesOverTheLine()
{
    tcBenchCamera camera("k20-tec", {}, 60.0); // a minute a second
    camera.ask("<STRT>");
    camera.now += 20 * tcBenchCamera::cSecond;
    const auto thermistor = [&] {
        const QByteArray reply = camera.ask("<SENS 3>");
        return reply.mid(14, reply.indexOf('>', 14) - 14).toDouble();
    };
    QVERIFY(thermistor() > 25.0);
    camera.ask("<STEC 18.5>");
    camera.ask("<FAN 1>");
    camera.ask("<COOL 1>");
    camera.now += 9 * tcBenchCamera::cSecond;
    const double settled = thermistor();
    QVERIFY2(qAbs(settled - 18.5) < 0.15, qPrintable(QString::number(settled)));
    const QByteArray current = camera.ask("<SENS 6>");
    QVERIFY2(current.mid(14, 4).toDouble() > 0.1, current.constData());
    QCOMPARE(camera.ask("<GTEC>"), QByteArray("<GTEC><ACK><ON><18.5>\r\n"));
}

/// Ten bits a byte at 115200 baud, there and back.
void tst_CameraSim::repliesArePacedBothWays()
{
    constexpr double cByteNs = 10e9 / 115200.0;
    tcBenchCamera camera("k20");
    QByteArray script;
    constexpr int cCommands = 200;
    for (int command = 0; command < cCommands; ++command)
        script += "<SEXP 500>\n";
    camera.send(script);
    const QByteArray reply = "<SEXP 500><ACK>\r\n";
    // The replies are longer than the commands, so the way back sets the pace.
    const double firstCommand = 11 * cByteNs;
    const double allReplies = cCommands * reply.size() * cByteNs;
    QByteArray received;
    int64_t last = 0;
    while (received.size() < cCommands * reply.size()) {
        const int64_t next = camera.sim.nextEvent(camera.now);
        QVERIFY(next != tcCameraSim::cNever);
        camera.now = next;
        const QByteArray bytes = camera.receive();
        QVERIFY(bytes.size() <= 1);
        if (!bytes.isEmpty())
            last = camera.now;
        received += bytes;
    }
    const double ratio = double(last) / (firstCommand + allReplies);
    QVERIFY2(ratio > 0.98 && ratio < 1.02, qPrintable(QString::number(ratio)));
    QCOMPARE(received, reply.repeated(cCommands));

    // Long commands, short replies: now the way there does.
    tcBenchCamera talked("k20");
    const QByteArray noise(100, '.');
    QByteArray longScript;
    for (int command = 0; command < cCommands; ++command)
        longScript += noise + "<STOP>\n";
    talked.send(longScript);
    const double allCommands = longScript.size() * cByteNs;
    talked.now = int64_t(allCommands * 0.98);
    const int early = talked.receive().size();
    QVERIFY(early < cCommands * 13);
    talked.now = int64_t(allCommands * 1.02);
    QCOMPARE(early + talked.receive().size(), cCommands * 13);
}

void tst_CameraSim::commandsOfAScriptAreAnsweredInTurn()
{
    tcBenchCamera camera("k20");
    camera.send("<SBPP 4>\n<GBPP>\n<SBPP 0>\n<GBPP>\n");
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.receive(),
             QByteArray("<SBPP 4><ACK>\r\n<GBPP><ACK><4>\r\n"
                        "<SBPP 0><ACK>\r\n<GBPP><ACK><0>\r\n"));
}

void tst_CameraSim::sameSeedSameBytes()
{
    const auto run = [](uint64_t anSeed) {
        tcBenchCamera camera("stubborn", "corrupt%20,drop%5", 1.0, anSeed);
        QByteArray all;
        for (int turn = 0; turn < 200; ++turn)
            all += camera.ask("<TEMP 0>");
        return all;
    };
    const QByteArray first = run(3);
    QVERIFY(!first.isEmpty());
    QCOMPARE(run(3), first);
    QVERIFY(run(4) != first);
}

void tst_CameraSim::wrongBaudRateIsNoise()
{
    tcBenchCamera camera("k20");
    camera.sim.setHostBaud(9600);
    QCOMPARE(camera.ask("<STRT>"), QByteArray());
    QVERIFY(!camera.sim.state().acquiring);
    camera.sim.setHostBaud(115200);
    QCOMPARE(camera.ask(""), QByteArray());
    QCOMPARE(camera.ask("<STRT>"), QByteArray("<STRT><ACK>\r\n"));
}

void tst_CameraSim::purgeDropsWhatHasArrived()
{
    tcBenchCamera camera("k20");
    camera.send("<STRT>\n");
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.sim.available(camera.now), size_t(13));
    camera.sim.purge(camera.now);
    QCOMPARE(camera.sim.available(camera.now), size_t(0));
}

void tst_CameraSim::transmitRoomIsBounded()
{
    tcBenchCamera camera("k20");
    const QByteArray block(100'000, '.');
    QCOMPARE(camera.sim.write(0, block.constData(), size_t(block.size())),
             tcCameraSim::cTransmitRoom);
    QCOMPARE(camera.sim.write(0, block.constData(), 1), size_t(0));
    QCOMPARE(camera.sim.writeRoom(tcBenchCamera::cSecond), size_t(11519)); // a second's worth
}

void tst_CameraSim::rubbishNeverHurts_data()
{
    QTest::addColumn<QByteArray>("model");
    for (const tcCameraModel& model : tcCameraModels::all())
        QTest::newRow(model.key) << QByteArray(model.key);
}

/// Pieces of commands, numbers and any bytes in any order: whatever is answered is whole, and
/// the camera still does what it is told.
void tst_CameraSim::rubbishNeverHurts()
{
    QFETCH(QByteArray, model);
    const QByteArrayList pieces{"<",     ">",           " ",     "\n",    "-",     "0",
                                "1",     "99999999999", "SROI ", "MROI",  "NROI ", "STEC ",
                                "SENS",  "24",          ".",     "POKE ", "GTEC",  "TEMP",
                                "SETP ", "RSET",        "PEEK",  "\r",    "\xff",  "\x01"};
    tcBenchCamera camera(model.constData());
    tcSeededRandom random(11);
    QByteArray received;
    for (int turn = 0; turn < 2000; ++turn) {
        QByteArray line;
        for (uint32_t piece = random.below(12); piece > 0; --piece)
            line += pieces.at(int(random.below(uint32_t(pieces.size()))));
        line += QByteArray(int(random.below(3)), '\0');
        received += camera.ask(line);
    }
    if (qstrlen(camera.sim.model().faults) > 0)
        return; // its replies are broken on purpose
    QVERIFY(received.endsWith("\r\n"));
    for (const QByteArray& reply : received.split('\n')) {
        const bool whole
            = reply.startsWith('<') && reply.endsWith(">\r") && reply.contains("ACK>");
        QVERIFY2(reply.isEmpty() || whole, reply.constData());
    }
    camera.now += tcBenchCamera::cSecond;
    QCOMPARE(camera.ask("\n<STOP>"), QByteArray("<STOP><ACK>\r\n"));
}

QTEST_GUILESS_MAIN(tst_CameraSim)
#include "tst_camerasim.moc"

#include "sim/replay/tcCameraReplay.h"
#include "tests/sim/tcBenchCamera.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace
{

constexpr int64_t cMs = 1'000'000;
constexpr unsigned cAllSensors = 0x7FFF;
constexpr const char* cHeader = "ms since epoch,Sensor Temperature ,Relative Humidity ,\n";

} // namespace

/// Chart files as readings of a virtual camera.
class tst_CameraReplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { mOpened = 0; }
    void readsWhatWasRecordedAtTheMoment();
    void beginsWithTheFirstQuestion();
    void speedShortensTheRecord();
    void lastValuesStay();
    void loops();
    void loopSkipsWholePasses();
    void loopOfASingleMoment();
    void longPauseIsCaughtUpWith();
    void namesOfTheSensors_data();
    void namesOfTheSensors();
    void formsOfFiles_data();
    void formsOfFiles();
    void gapsKeepTheLastValue();
    void refuses_data();
    void refuses();
    void refusesWhatIsNoFile();
    void tellsWhatItSkipped();
    void cameraAnswersWithTheRecord();
    void restOfTheCameraStaysTheModels();

private:
    std::unique_ptr<tcCameraReplay> open(const QByteArray& acContent, double anSpeed = 1,
                                         bool abLoop = false, unsigned anSensors = cAllSensors);
    static QString at(tcCameraReplay& arReplay, int anSensor, int64_t anMs);

    QTemporaryDir mFolder;
    int mOpened = 0;
    std::string mMessage;
};

std::unique_ptr<tcCameraReplay> tst_CameraReplay::open(const QByteArray& acContent,
                                                       double anSpeed, bool abLoop,
                                                       unsigned anSensors)
{
    QFile file(mFolder.filePath(QStringLiteral("chart%1.csv").arg(mOpened++)));
    if (!file.open(QIODevice::WriteOnly) || file.write(acContent) != acContent.size())
        qFatal("can't write %s", qPrintable(file.fileName()));
    file.close();
    const QByteArray name = QFile::encodeName(file.fileName());
    return tcCameraReplay::open({name.constData(), anSpeed, abLoop, anSensors}, mMessage);
}

QString tst_CameraReplay::at(tcCameraReplay& arReplay, int anSensor, int64_t anMs)
{
    const std::optional<double> value = arReplay.reading(anSensor, anMs * cMs);
    return value ? QString::number(*value) : QStringLiteral("none");
}

void tst_CameraReplay::readsWhatWasRecordedAtTheMoment()
{
    const auto replay = open(QByteArray(cHeader) + "1000,20,\n2000,,50\n3000,21,51\n");
    QVERIFY2(replay, mMessage.c_str());
    QCOMPARE(mMessage, std::string());
    QCOMPARE(at(*replay, 1, 0), QString("20"));
    QCOMPARE(at(*replay, 5, 0), QString("none")); // nothing was recorded of it yet
    QCOMPARE(at(*replay, 1, 999), QString("20"));
    QCOMPARE(at(*replay, 5, 1000), QString("50"));
    QCOMPARE(at(*replay, 1, 1999), QString("20"));
    QCOMPARE(at(*replay, 1, 2000), QString("21"));
    QCOMPARE(at(*replay, 5, 2000), QString("51"));
    for (const int sensor : {-1, 0, 2, 15, 16, 1000})
        QCOMPARE(at(*replay, sensor, 2000), QString("none"));
}

void tst_CameraReplay::beginsWithTheFirstQuestion()
{
    const auto replay = open(QByteArray(cHeader) + "1000,20,\n2000,21,\n");
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 3600000), QString("20"));
    QCOMPARE(at(*replay, 1, 3600999), QString("20"));
    QCOMPARE(at(*replay, 1, 3601000), QString("21"));
}

void tst_CameraReplay::speedShortensTheRecord()
{
    const auto replay = open(QByteArray(cHeader) + "0,20,\n100000,21,\n", 1000);
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 0), QString("20"));
    QCOMPARE(at(*replay, 1, 99), QString("20"));
    QCOMPARE(at(*replay, 1, 100), QString("21"));
}

void tst_CameraReplay::lastValuesStay()
{
    const auto replay = open(QByteArray(cHeader) + "0,20,50\n1000,21,\n");
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 0), QString("20"));
    QCOMPARE(at(*replay, 1, 1000000000), QString("21"));
    QCOMPARE(at(*replay, 5, 1000000000), QString("50"));
}

void tst_CameraReplay::loops()
{
    const auto replay = open(QByteArray(cHeader) + "0,20,\n500,,50\n1000,21,51\n", 1, true);
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 0), QString("20"));
    QCOMPARE(at(*replay, 1, 1000), QString("21")); // the last reading has its moment
    QCOMPARE(at(*replay, 1, 1001), QString("20"));
    QCOMPARE(at(*replay, 5, 1001), QString("none")); // as the first time
    QCOMPARE(at(*replay, 5, 1501), QString("50"));
    QCOMPARE(at(*replay, 1, 2001), QString("21"));
    QCOMPARE(at(*replay, 1, 2002), QString("20"));
}

void tst_CameraReplay::loopSkipsWholePasses()
{
    const auto replay = open(QByteArray(cHeader) + "0,20,\n1000,21,\n", 1000, true);
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 0), QString("20"));
    QCOMPARE(at(*replay, 1, 2'000'000'000), QString("20")); // a pass takes 2 ms
    QCOMPARE(at(*replay, 1, 2'000'000'001), QString("21"));
}

void tst_CameraReplay::loopOfASingleMoment()
{
    const auto replay = open(QByteArray(cHeader) + "5000,20,50\n", 1, true);
    QVERIFY(replay);
    for (const int64_t ms : {0, 1, 2, 1000000})
        QCOMPARE(at(*replay, 5, ms), QString("50"));
}

void tst_CameraReplay::longPauseIsCaughtUpWith()
{
    QByteArray content = cHeader;
    const int rows = 2 * tcReplay::cMaxPerStep + 100;
    for (int row = 0; row < rows; ++row)
        content += QByteArray::number(row) + ',' + QByteArray::number(row) + ",\n";
    const auto replay = open(content);
    QVERIFY(replay);
    QCOMPARE(at(*replay, 1, 0), QString("0"));
    QCOMPARE(at(*replay, 1, rows), QString::number(rows - 1));
}

void tst_CameraReplay::namesOfTheSensors_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("sensor");
    QTest::newRow("as the panel titles it") << "Sensor Temperature " << 1;
    QTest::newRow("without the blank") << "Sensor Temperature" << 1;
    QTest::newRow("board") << "Board Temperature " << 2;
    QTest::newRow("thermistor") << "Thermistor Temperature " << 3;
    QTest::newRow("ambient") << "Ambient Temperature " << 4;
    QTest::newRow("humidity") << "Relative Humidity " << 5;
    QTest::newRow("current") << "TEC Drive current " << 6;
    QTest::newRow("voltage") << "TEC Voltage " << 7;
    QTest::newRow("eighth") << "IVRESH " << 8;
    QTest::newRow("last") << "3P3V " << 15;
#ifdef TARVIK_CATALOGUES
    QTest::newRow("German") << "Sensortemperatur " << 1;
#endif
    QTest::newRow("other case") << "sensor temperature " << 0;
    QTest::newRow("more than the name") << "Sensor Temperature 2" << 0;
}

void tst_CameraReplay::namesOfTheSensors()
{
    QFETCH(QString, title);
    QFETCH(int, sensor);
    const auto replay = open("ms since epoch,Oven," + title.toLocal8Bit() + ",\n1000,400,20\n");
    QCOMPARE(replay != nullptr, sensor != 0);
    for (int other = 1; replay && other <= 15; ++other)
        QCOMPARE(at(*replay, other, 0), QString(other == sensor ? "20" : "none"));
}

void tst_CameraReplay::formsOfFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("saved, with a marker") << QByteArray(
        "ms since epoch,IVRESH ,\n1000,20.000\n2000,21.000\n\n#MARKER,1000.000,20.000,a\n");
    QTest::newRow("log") << QByteArray("TimeStamp,IVRESH ,\n1000,20.000\n2000,21.000\n");
    QTest::newRow("export") << QByteArray("time,IVRESH \n2026-01-01T00:00:01.000,20\n"
                                          "2026-01-01T00:00:02.000,21\n");
    QTest::newRow("Windows") << QByteArray("ms since epoch,IVRESH,\r\n1000,20\r\n2000,21\r\n");
    QTest::newRow("rows in disorder")
        << QByteArray("ms since epoch,IVRESH,\n2000,21\n1000,20\n");
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBFms since epoch,IVRESH,\n1000,20\n2000,21\n");
}

void tst_CameraReplay::formsOfFiles()
{
    QFETCH(QByteArray, content);
    const auto replay = open(content);
    QVERIFY2(replay, mMessage.c_str());
    QCOMPARE(at(*replay, 8, 0), QString("20"));
    QCOMPARE(at(*replay, 8, 1000), QString("21"));
}

void tst_CameraReplay::gapsKeepTheLastValue()
{
    const auto replay
        = open(QByteArray(cHeader) + "0,20,\n1000,nan,\n2000,inf,\n3000,1e300,\n4000,,\n");
    QVERIFY2(replay, mMessage.c_str());
    for (const int64_t ms : {0, 1000, 2000, 3000, 4000})
        QCOMPARE(at(*replay, 1, ms), QString("20"));
}

void tst_CameraReplay::refuses_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<double>("speed");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray good = QByteArray(cHeader) + "0,20,\n";
    const QByteArray speed = "a replay's speed is a whole number from 1 to 1000";
    QTest::newRow("too slow") << good << 0.99 << speed;
    QTest::newRow("too fast") << good << 1000.01 << speed;
    QTest::newRow("no whole number") << good << 1.5 << speed;
    QTest::newRow("no number") << good << qQNaN() << speed;
    const QByteArray columns = "not enough columns";
    QTest::newRow("empty") << QByteArray() << 1.0 << columns;
    QTest::newRow("one column") << QByteArray("time\n") << 1.0 << columns;
    const QByteArray none = "no readings of a sensor that this camera has";
    QTest::newRow("header alone") << QByteArray(cHeader) << 1.0 << none;
    QTest::newRow("no header") << QByteArray("1000,20\n") << 1.0 << none;
    QTest::newRow("of a sensor not fitted")
        << QByteArray("ms since epoch,TEC Voltage ,\n1000,20\n") << 1.0 << none;
    QTest::newRow("rubbish") << QByteArray("\0\1\2,\xFF\xFE\n,,,\n", 11) << 1.0 << none;
}

void tst_CameraReplay::refuses()
{
    QFETCH(QByteArray, content);
    QFETCH(double, speed);
    QFETCH(QByteArray, reason);
    QVERIFY(!open(content, speed, false, 0x0F));
    QCOMPARE(QByteArray::fromStdString(mMessage),
             QFile::encodeName(mFolder.filePath("chart0.csv")) + ": " + reason);
}

void tst_CameraReplay::refusesWhatIsNoFile()
{
    const QByteArray folder = QFile::encodeName(mFolder.path());
    QVERIFY(!tcCameraReplay::open({folder.constData(), 1, false, cAllSensors}, mMessage));
    QVERIFY2(mMessage.find(folder.constData()) == 0, mMessage.c_str());
    const QByteArray missing = folder + "/missing.csv";
    QVERIFY(!tcCameraReplay::open({missing.constData(), 1, false, cAllSensors}, mMessage));
    // The rest is said in the system's words.
    const QByteArray message = QByteArray::fromStdString(mMessage);
    QVERIFY2(message.startsWith(missing + ": ") && message.size() > missing.size() + 5,
             message);
#ifdef Q_OS_UNIX
    QVERIFY(!tcCameraReplay::open({"/dev/zero", 1, false, cAllSensors}, mMessage));
    QCOMPARE(mMessage, std::string("/dev/zero: not a file"));
#endif
}

void tst_CameraReplay::tellsWhatItSkipped()
{
    const auto replay = open(QByteArray(cHeader) + "0,20,\nyesterday,21,\n2000,warm,50\n");
    QVERIFY(replay);
    QVERIFY2(mMessage.find("skipped 1 rows and 1 fields, the first in line 3")
                 != std::string::npos,
             mMessage.c_str());
}

void tst_CameraReplay::cameraAnswersWithTheRecord()
{
    tcCameraSim::tcOptions options;
    const tcCameraModel& model = *tcCameraModels::find("k20-tec");
    options.replay
        = open(QByteArray(cHeader) + "0,91.126,-3.5\n10000,92,\n", 1, false, model.sensorBits);
    tcBenchCamera camera("k20-tec", options);
    camera.now = 3600 * tcBenchCamera::cSecond;
    QCOMPARE(camera.ask("<SENS 1>"), QByteArray("<SENS 1><ACK><91.13>\r\n"));
    QCOMPARE(camera.ask("<SENS 5>"), QByteArray("<SENS 5><ACK><-3.50>\r\n"));
    QCOMPARE(camera.ask("<TEMP 1>"), QByteArray("<TEMP 1><ACK><91.13>\r\n"));
    camera.now += 10 * tcBenchCamera::cSecond;
    QCOMPARE(camera.ask("<SENS 1>"), QByteArray("<SENS 1><ACK><92.00>\r\n"));
    QCOMPARE(camera.ask("<SENS 16>"), QByteArray("<SENS 16><NACK>\r\n"));
}

void tst_CameraReplay::restOfTheCameraStaysTheModels()
{
    tcCameraSim::tcOptions options;
    options.seed = 7;
    options.replay = open(QByteArray(cHeader) + "0,91,50\n");
    tcBenchCamera replaying("k20-tec", options);
    tcBenchCamera plain("k20-tec");
    for (const char* command :
         {"<VERS>", "<SENS 1>", "<SENS 2>", "<COOL 1>", "<SENS 5>", "<SENS 3>", "<SENS 8>"}) {
        const QByteArray recorded = replaying.ask(command);
        const QByteArray made = plain.ask(command);
        const bool inTheFile = recorded.contains("<91.00>") || recorded.contains("<50.00>");
        QVERIFY2(inTheFile || recorded == made, recorded + made);
        QCOMPARE(inTheFile,
                 command == QByteArray("<SENS 1>") || command == QByteArray("<SENS 5>"));
    }
}

QTEST_GUILESS_MAIN(tst_CameraReplay)
#include "tst_camerareplay.moc"

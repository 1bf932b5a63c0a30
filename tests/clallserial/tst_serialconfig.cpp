#include "clallserial/tcBackends.h"
#include "clallserial/tcSerialConfig.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

using teVirtual = tcSerialConfig::teVirtual;
using teTimeout = tcSerialConfig::teTimeout;

class tst_SerialConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void everyKey();
    void badValue_data();
    void badValue();
    void iniFile();
    void filesAndEnvironmentInTheirOrder();
    void namedFileTakesThePlaceOfBoth();
    void virtualCamerasOnlyWithoutAGrabber();
    void orderOfTheBackends();
};

void tst_SerialConfig::defaults()
{
    const tcSerialConfig config;
    QVERIFY(config.vendor);
    QVERIFY(config.vendorPath.empty());
    QVERIFY(config.hostScan);
    QVERIFY(config.hostPaths.empty());
    QVERIFY(config.virtualCameras == teVirtual::Auto);
    QVERIFY(config.models.empty());
    QCOMPARE(config.seed, uint64_t(1));
    QCOMPARE(config.replay, std::string());
    QVERIFY(!config.loop);
    QCOMPARE(config.speed, 1.0);
    QVERIFY(config.faults.empty());
    QVERIFY(config.timeout == teTimeout::Partial);
}

void tst_SerialConfig::everyKey()
{
    tcSerialConfig config;
    QVERIFY(config.set("vendor", "use", "off"));
    QVERIFY(!config.vendor);
    QVERIFY(config.set("vendor", "path", "/opt/grabber"));
    QCOMPARE(config.vendorPath, std::string("/opt/grabber"));
    QVERIFY(config.set("host", "scan", "off"));
    QVERIFY(!config.hostScan);
    QVERIFY(config.set("host", "paths", " COM7 , /dev/pts/3,,"));
    QCOMPARE(config.hostPaths, (std::vector<std::string>{"COM7", "/dev/pts/3"}));
    QVERIFY(config.set("virtual", "use", "on"));
    QVERIFY(config.virtualCameras == teVirtual::On);
    QVERIFY(config.set("virtual", "use", "off"));
    QVERIFY(config.virtualCameras == teVirtual::Off);
    QVERIFY(config.set("virtual", "use", "auto"));
    QVERIFY(config.virtualCameras == teVirtual::Auto);
    QVERIFY(config.set("virtual", "models", "k20,stubborn"));
    QCOMPARE(config.models, (std::vector<std::string>{"k20", "stubborn"}));
    QVERIFY(config.set("virtual", "seed", "42"));
    QCOMPARE(config.seed, uint64_t(42));
    QVERIFY(config.set("virtual", "speed", "2.5"));
    QCOMPARE(config.speed, 2.5);
    QVERIFY(config.set("virtual", "faults", "drop/10,delay=5"));
    QCOMPARE(config.faults, std::string("drop/10,delay=5"));
    QVERIFY(config.set("virtual", "replay", "/data/cooler of June.csv"));
    QCOMPARE(config.replay, std::string("/data/cooler of June.csv"));
    QVERIFY(config.set("virtual", "loop", "on"));
    QVERIFY(config.loop);
    QVERIFY(config.set("line", "timeout", "strict"));
    QVERIFY(config.timeout == teTimeout::Strict);
    QVERIFY(config.set("line", "timeout", "partial"));
    QVERIFY(config.timeout == teTimeout::Partial);
}

void tst_SerialConfig::badValue_data()
{
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char* acSection, const char* acKey, const char* acValue) {
        QTest::addRow("[%s] %s = %s", acSection, acKey, acValue)
            << QByteArray(acSection) << QByteArray(acKey) << QByteArray(acValue);
    };
    row("vendor", "use", "yes");
    row("host", "scan", "");
    row("virtual", "use", "maybe");
    row("virtual", "models", "k20,k99");
    row("virtual", "seed", "-1");
    row("virtual", "speed", "0");
    row("virtual", "speed", "10000.01");
    row("virtual", "faults", "explode");
    row("virtual", "loop", "twice");
    row("line", "timeout", "lenient");
    row("line", "baud", "9600");
    row("", "use", "on");
}

void tst_SerialConfig::badValue()
{
    QFETCH(QByteArray, section);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    tcSerialConfig config;
    QVERIFY(!config.set(section.toStdString(), key.toStdString(), value.toStdString()));
    QCOMPARE(config.speed, 1.0);
    QVERIFY(config.models.empty());
    QVERIFY(config.virtualCameras == teVirtual::Auto);
}

void tst_SerialConfig::iniFile()
{
    tcSerialConfig config;
    config.readIni("; a comment\r\n# another\r\n\r\n[virtual]\r\n  seed = 7  \r\nnonsense\r\n"
                   "speed=fast\r\n[host] ; the computer\npaths = /dev/pts/1, /dev/a#b ; "
                   "two\n[line]\ntimeout=strict",
                   "test.ini");
    QCOMPARE(config.seed, uint64_t(7));
    QCOMPARE(config.speed, 1.0);
    QCOMPARE(config.hostPaths, (std::vector<std::string>{"/dev/pts/1", "/dev/a#b"}));
    QVERIFY(config.timeout == teTimeout::Strict);
}

namespace
{

void writeFile(const QString& acPath, const char* acText)
{
    QFile file(acPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(acText) < 0)
        qFatal("can't write %s", qPrintable(acPath));
}

tcSerialConfig::tcLookup lookupIn(const QMap<QByteArray, QByteArray>& acVariables)
{
    return [acVariables](const char* acName) -> const char* {
        const auto found = acVariables.constFind(acName);
        return found == acVariables.constEnd() ? nullptr : found->constData();
    };
}

} // namespace

void tst_SerialConfig::filesAndEnvironmentInTheirOrder()
{
    QTemporaryDir own;
    QTemporaryDir user;
    writeFile(own.filePath(QStringLiteral("clallserial.ini")),
              "[virtual]\nseed=1\nspeed=1.5\nuse=off\n");
    writeFile(user.filePath(QStringLiteral("clallserial.ini")),
              "[virtual]\nseed=2\nspeed=2.5\n");
    QMap<QByteArray, QByteArray> variables{{"CLALLSERIAL_VIRTUAL_SEED", "3"},
                                           {"CLALLSERIAL_LINE_TIMEOUT", "strict"}};
#if defined(_WIN32)
    variables.insert("APPDATA", user.path().toLocal8Bit());
#else
    variables.insert("XDG_CONFIG_HOME", user.path().toLocal8Bit());
#endif
    const tcSerialConfig config
        = tcSerialConfig::load(own.path().toStdString(), lookupIn(variables));
    QVERIFY(config.virtualCameras == teVirtual::Off);
    QCOMPARE(config.speed, 2.5);
    QCOMPARE(config.seed, uint64_t(3));
    QVERIFY(config.timeout == teTimeout::Strict);
}

void tst_SerialConfig::namedFileTakesThePlaceOfBoth()
{
    QTemporaryDir own;
    writeFile(own.filePath(QStringLiteral("clallserial.ini")),
              "[virtual]\nseed=1\nspeed=1.5\n");
    const QString other = own.filePath(QStringLiteral("other.ini"));
    writeFile(other, "[virtual]\nseed=9\n");
    const tcSerialConfig config = tcSerialConfig::load(
        own.path().toStdString(), lookupIn({{"CLALLSERIAL_CONFIG", other.toLocal8Bit()}}));
    QCOMPARE(config.seed, uint64_t(9));
    QCOMPARE(config.speed, 1.0);
}

void tst_SerialConfig::virtualCamerasOnlyWithoutAGrabber()
{
    QTemporaryDir empty;
    tcSerialConfig config;
    config.hostScan = false;
    config.vendorPath = empty.path().toStdString();
    const auto manufacturers = [&] {
        QStringList names;
        for (const auto& backend : tcBackends::make(config, {})) {
            for (const auto& entry : backend->ports())
                names << QString::fromStdString(entry.manufacturer);
        }
        names.removeDuplicates();
        return names;
    };
    QCOMPARE(manufacturers(), QStringList{"Vexa Virtual"});
    config.virtualCameras = teVirtual::Off;
    QCOMPARE(manufacturers(), QStringList());
}

void tst_SerialConfig::orderOfTheBackends()
{
    tcSerialConfig config;
    config.vendor = false;
    config.hostScan = false;
    config.hostPaths = {"/dev/one", "/dev/two"};
    config.models = {"k40", "r60"};
    QStringList ids;
    for (const auto& backend : tcBackends::make(config, {})) {
        for (const auto& entry : backend->ports())
            ids << QString::fromStdString(entry.portId);
    }
    QCOMPARE(ids, (QStringList{"/dev/one", "/dev/two", "Virtual K40", "Virtual R60"}));
}

QTEST_GUILESS_MAIN(tst_SerialConfig)
#include "tst_serialconfig.moc"

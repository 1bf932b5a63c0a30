#include "camlink/clserial.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// The virtual cameras of the library that ships, told to read a chart file.
class tst_ReplayPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sensorsReadTheFile();
    void cameraWithoutTheSensorGoesOnByItself();

private:
    static hSerRef open(uint32_t anIndex);
    static QByteArray ask(hSerRef apPort, const QByteArray& acCommand);

    QTemporaryDir mFolder;
};

void tst_ReplayPort::initTestCase()
{
    const QString name = mFolder.filePath(QStringLiteral("cooler.csv"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("TimeStamp,Thermistor Temperature ,\n1700000000000,91.500\n1700000600000,92\n");
    file.close();
    qputenv("CLALLSERIAL_HOST_SCAN", "off");
    qputenv("CLALLSERIAL_VIRTUAL_MODELS", "k20-tec,r60");
    qputenv("CLALLSERIAL_VIRTUAL_REPLAY", QFile::encodeName(name));
    qputenv("CLALLSERIAL_VIRTUAL_SPEED", "1000");
}

hSerRef tst_ReplayPort::open(uint32_t anIndex)
{
    hSerRef port = nullptr;
    if (clSerialInit(anIndex, &port) != CL_ERR_NO_ERR
        || clSetBaudRate(port, CL_BAUDRATE_115200) != CL_ERR_NO_ERR)
        qFatal("can't open port %u", anIndex);
    return port;
}

QByteArray tst_ReplayPort::ask(hSerRef apPort, const QByteArray& acCommand)
{
    const QByteArray line = acCommand + '\n';
    auto size = static_cast<uint32_t>(line.size());
    if (clSerialWrite(apPort, const_cast<char*>(line.constData()), &size, 1000)
        != CL_ERR_NO_ERR)
        return {};
    QByteArray reply;
    while (!reply.endsWith('\n')) { // the test's own time-out ends a hopeless wait
        char byte = 0;
        uint32_t one = 1;
        if (clSerialRead(apPort, &byte, &one, 1000) == CL_ERR_NO_ERR)
            reply += byte;
    }
    return reply;
}

void tst_ReplayPort::sensorsReadTheFile()
{
    const hSerRef port = open(0);
    QByteArray reply = ask(port, "<SENS 3>");
    QCOMPARE(reply, QByteArray("<SENS 3><ACK><91.50>\r\n"));
    const QByteArray other = ask(port, "<SENS 2>");
    QVERIFY2(other.startsWith("<SENS 2><ACK><2"), other.constData());
    QTRY_COMPARE(ask(port, "<SENS 3>"), QByteArray("<SENS 3><ACK><92.00>\r\n")); // in 0.6 s
    clSerialClose(port);
    const hSerRef again = open(0);
    QCOMPARE(ask(again, "<SENS 3>"), QByteArray("<SENS 3><ACK><92.00>\r\n"));
    clSerialClose(again);
}

void tst_ReplayPort::cameraWithoutTheSensorGoesOnByItself()
{
    const hSerRef port = open(1);
    const QByteArray reply = ask(port, "<SENS 1>");
    QVERIFY2(reply.startsWith("<SENS 1><ACK><2"), reply.constData());
    clSerialClose(port);
}

QTEST_GUILESS_MAIN(tst_ReplayPort)
#include "tst_replayport.moc"

#include "clallserial/tcVirtualBackend.h"
#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraSim.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <thread>

using teTimeout = tcSerialConfig::teTimeout;

/// Virtual cameras behind the interface of a port, in real time.
class tst_VirtualBackend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { mConfig = tcSerialConfig(); }
    void namesFitThePanel();
    void onlyTheModelsAskedFor();
    void unknownKey();
    void answersACommand();
    void readOfExactlyWhatIsThere();
    void zeroBytes();
    void strictTimeout();
    void partialTimeout();
    void partialTimeoutWithNothing();
    void readPartialIsPartialWhateverTheConfiguration();
    void readReturnsAsSoonAsItCan();
    void baudRates();
    void silentAtTheWrongBaudRate();
    void flushDropsWhatArrived();
    void openingFindsNothingStale();
    void stateOutlivesClosing();
    void longWriteTimesOut();
    void unplugWhileOpen();
    void unplugWakesAReader();
    void interruptWakesAReader();
    void writesWhileAnotherThreadReads();
    void faultsOfTheConfiguration();
    void replayWithoutItsReader();
    void errorTexts();

private:
    std::unique_ptr<tcSerialPort> open(tcVirtualBackend& arBackend, const char* acKey);
    static void send(tcSerialPort& arPort, const QByteArray& acBytes);
    static void awaitBytes(tcSerialPort& arPort, uint32_t anCount);

    tcSerialConfig mConfig;
};

std::unique_ptr<tcSerialPort> tst_VirtualBackend::open(tcVirtualBackend& arBackend,
                                                       const char* acKey)
{
    int32_t status = -1;
    auto port = arBackend.open(acKey, status);
    if (!port || status != CL_ERR_NO_ERR || port->setBaudRate(CL_BAUDRATE_115200) != 0)
        qFatal("can't open %s", acKey);
    return port;
}

void tst_VirtualBackend::send(tcSerialPort& arPort, const QByteArray& acBytes)
{
    auto size = static_cast<uint32_t>(acBytes.size());
    QCOMPARE(arPort.write(acBytes.constData(), size, 100), CL_ERR_NO_ERR);
    QCOMPARE(size, uint32_t(acBytes.size()));
}

void tst_VirtualBackend::awaitBytes(tcSerialPort& arPort, uint32_t anCount)
{
    const auto available = [&] {
        uint32_t count = 0;
        arPort.available(count);
        return count;
    };
    QTRY_COMPARE(available(), anCount);
}

void tst_VirtualBackend::namesFitThePanel()
{
    tcVirtualBackend backend(mConfig);
    const auto entries = backend.ports();
    QCOMPARE(entries.size(), tcCameraModels::all().size());
    for (const auto& entry : entries) {
        QCOMPARE(entry.manufacturer, std::string("Vexa Virtual"));
        QVERIFY(entry.portId.size() < 50);
        QCOMPARE(entry.portId.rfind("Virtual ", 0), size_t(0));
    }
    QCOMPARE(entries[4].portId, std::string("Virtual K20 (Temp controlled)"));
}

void tst_VirtualBackend::onlyTheModelsAskedFor()
{
    mConfig.models = {"stubborn", "r60"};
    tcVirtualBackend backend(mConfig);
    QCOMPARE(backend.ports().size(), size_t(2));
    QCOMPARE(backend.ports()[0].portId, std::string("Virtual K20 (stubborn)"));
}

void tst_VirtualBackend::unknownKey()
{
    tcVirtualBackend backend(mConfig);
    int32_t status = 0;
    QVERIFY(!backend.open("k99", status));
    QCOMPARE(status, CL_ERR_INVALID_INDEX);
}

void tst_VirtualBackend::answersACommand()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    QByteArray reply(13, '\0');
    uint32_t size = 13;
    QCOMPARE(port->read(reply.data(), size, 5000), CL_ERR_NO_ERR);
    QCOMPARE(size, 13u);
    QCOMPARE(reply, QByteArray("<STOP><ACK>\r\n"));
}

void tst_VirtualBackend::readOfExactlyWhatIsThere()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    QByteArray reply(13, '\0');
    uint32_t size = 13;
    QCOMPARE(port->read(reply.data(), size, 0), CL_ERR_NO_ERR);
    QCOMPARE(reply, QByteArray("<STOP><ACK>\r\n"));
    awaitBytes(*port, 0);
}

void tst_VirtualBackend::zeroBytes()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    char byte = '#';
    uint32_t size = 0;
    QCOMPARE(port->read(&byte, size, 100), CL_ERR_NO_ERR);
    QCOMPARE(port->write(&byte, size, 100), CL_ERR_NO_ERR);
    QCOMPARE(size, 0u);
    QCOMPARE(byte, '#');
}

/// Nothing copied, the size as it was, and the bytes stay for later.
void tst_VirtualBackend::strictTimeout()
{
    mConfig.timeout = teTimeout::Strict;
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    QByteArray reply(128, '#');
    uint32_t size = 128;
    QCOMPARE(port->read(reply.data(), size, 5), CL_ERR_TIMEOUT);
    QCOMPARE(size, 128u);
    QCOMPARE(reply, QByteArray(128, '#'));
    awaitBytes(*port, 13);
}

void tst_VirtualBackend::partialTimeout()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    QByteArray reply(128, '#');
    uint32_t size = 128;
    QCOMPARE(port->read(reply.data(), size, 5), CL_ERR_TIMEOUT);
    QCOMPARE(size, 13u);
    QCOMPARE(reply, QByteArray("<STOP><ACK>\r\n") + QByteArray(115, '#'));
    awaitBytes(*port, 0);
}

void tst_VirtualBackend::partialTimeoutWithNothing()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    QElapsedTimer timer;
    timer.start();
    QByteArray reply(128, '#');
    uint32_t size = 128;
    QCOMPARE(port->read(reply.data(), size, 30), CL_ERR_TIMEOUT);
    QCOMPARE(size, 0u);
    QVERIFY(timer.elapsed() >= 29);
}

void tst_VirtualBackend::readPartialIsPartialWhateverTheConfiguration()
{
    mConfig.timeout = teTimeout::Strict;
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    QByteArray reply(128, '#');
    uint32_t size = 128;
    QCOMPARE(port->readPartial(reply.data(), size, 0), CL_ERR_TIMEOUT);
    QCOMPARE(size, 13u);
}

/// A time-out of an hour: the read ends with the last byte asked for.
void tst_VirtualBackend::readReturnsAsSoonAsItCan()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    char byte = '\0';
    uint32_t size = 1;
    QCOMPARE(port->read(&byte, size, 3'600'000), CL_ERR_NO_ERR);
    QCOMPARE(byte, '<');
}

void tst_VirtualBackend::baudRates()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    uint32_t codes = 0;
    QCOMPARE(port->supportedBaudRates(codes), CL_ERR_NO_ERR);
    QCOMPARE(codes, 0xFFu);
    for (uint32_t code = 1; code <= 128; code *= 2)
        QCOMPARE(port->setBaudRate(code), CL_ERR_NO_ERR);
    for (const uint32_t code : {0u, 3u, 17u, 256u, 115200u, 0x40000000u})
        QCOMPARE(port->setBaudRate(code), CL_ERR_BAUD_RATE_NOT_SUPPORTED);
}

/// As after opening, until the rate is set.
void tst_VirtualBackend::silentAtTheWrongBaudRate()
{
    tcVirtualBackend backend(mConfig);
    int32_t status = -1;
    const auto port = backend.open("k20", status);
    send(*port, "<STOP>\n");
    QByteArray reply(13, '\0');
    uint32_t size = 13;
    QCOMPARE(port->read(reply.data(), size, 50), CL_ERR_TIMEOUT);
    QCOMPARE(size, 0u);
    QCOMPARE(port->setBaudRate(CL_BAUDRATE_115200), CL_ERR_NO_ERR);
    send(*port, "\n<STOP>\n");
    size = 13;
    QCOMPARE(port->read(reply.data(), size, 5000), CL_ERR_NO_ERR);
}

void tst_VirtualBackend::flushDropsWhatArrived()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    QCOMPARE(port->flush(), CL_ERR_NO_ERR);
    uint32_t count = 1;
    QCOMPARE(port->available(count), CL_ERR_NO_ERR);
    QCOMPARE(count, 0u);
}

void tst_VirtualBackend::openingFindsNothingStale()
{
    tcVirtualBackend backend(mConfig);
    auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    awaitBytes(*port, 13);
    port.reset();
    port = open(backend, "k20");
    awaitBytes(*port, 0);
}

void tst_VirtualBackend::stateOutlivesClosing()
{
    tcVirtualBackend backend(mConfig);
    auto port = open(backend, "k20");
    send(*port, "<SEXP 77>\n");
    awaitBytes(*port, 16);
    port.reset();
    port = open(backend, "k20");
    send(*port, "<GEXP>\n");
    QByteArray reply(17, '\0');
    uint32_t size = 17;
    QCOMPARE(port->read(reply.data(), size, 5000), CL_ERR_NO_ERR);
    QCOMPARE(reply, QByteArray("<GEXP><ACK><77>\r\n"));
}

/// The driver's buffer takes so much at once; the rest goes as fast as the line.
void tst_VirtualBackend::longWriteTimesOut()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    const QByteArray block(1'000'000, '.'); // more than a minute on the line
    uint32_t size = 1'000'000;
    QCOMPARE(port->write(block.constData(), size, 50), CL_ERR_TIMEOUT);
    QVERIFY(size >= tcCameraSim::cTransmitRoom);
    QVERIFY(size < 1'000'000u);
}

void tst_VirtualBackend::unplugWhileOpen()
{
    mConfig.faults = "unplug@1";
    tcVirtualBackend backend(mConfig);
    auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    uint32_t count = 0;
    QTRY_COMPARE(port->available(count), CL_ERR_INVALID_REFERENCE);
    char byte = '\0';
    uint32_t size = 1;
    QCOMPARE(port->read(&byte, size, 1000), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->readPartial(&byte, size, 1000), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->write(&byte, size, 1000), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->flush(), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->setBaudRate(CL_BAUDRATE_115200), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->supportedBaudRates(count), CL_ERR_INVALID_REFERENCE);
    port.reset();
    int32_t status = 0;
    QVERIFY(!backend.open("k20", status));
    QCOMPARE(status, CL_ERR_PORT_IN_USE);
}

void tst_VirtualBackend::unplugWakesAReader()
{
    mConfig.faults = "unplug=0.05";
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    char byte = '\0';
    uint32_t size = 1;
    QCOMPARE(port->read(&byte, size, 3'600'000), CL_ERR_INVALID_REFERENCE);
}

void tst_VirtualBackend::interruptWakesAReader()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    std::atomic<int> status{0};
    std::thread reader([&] {
        char byte = '\0';
        uint32_t size = 1;
        status = port->read(&byte, size, 3'600'000);
    });
    port->interrupt(); // before or in the middle of the read: it ends
    reader.join();
    QCOMPARE(status.load(), CL_ERR_INVALID_REFERENCE);
}

void tst_VirtualBackend::writesWhileAnotherThreadReads()
{
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    constexpr int cTurns = 50;
    QByteArray all(13 * cTurns, '\0');
    int32_t status = -1;
    std::thread reader([&] {
        auto size = static_cast<uint32_t>(all.size());
        status = port->read(all.data(), size, 60'000);
    });
    for (int turn = 0; turn < cTurns; ++turn)
        send(*port, "<STOP>\n");
    reader.join();
    QCOMPARE(status, CL_ERR_NO_ERR);
    QCOMPARE(all, QByteArray("<STOP><ACK>\r\n").repeated(cTurns));
}

void tst_VirtualBackend::faultsOfTheConfiguration()
{
    mConfig.faults = "nack@1";
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<STOP>\n");
    QByteArray reply(14, '\0');
    uint32_t size = 14;
    QCOMPARE(port->read(reply.data(), size, 5000), CL_ERR_NO_ERR);
    QCOMPARE(reply, QByteArray("<STOP><NACK>\r\n"));
}

/// No reader of chart files lies beside this test: the camera goes on by itself.
void tst_VirtualBackend::replayWithoutItsReader()
{
    mConfig.replay = "/nowhere/cooler.csv";
    tcVirtualBackend backend(mConfig);
    const auto port = open(backend, "k20");
    send(*port, "<SENS 1>\n");
    awaitBytes(*port, 22);
    QByteArray reply(22, '\0');
    uint32_t size = 22;
    QCOMPARE(port->read(reply.data(), size, 100), CL_ERR_NO_ERR);
    QVERIFY2(reply.startsWith("<SENS 1><ACK><2") && reply.endsWith(">\r\n"), reply.constData());
}

void tst_VirtualBackend::errorTexts()
{
    tcVirtualBackend backend(mConfig);
    std::string text;
    QCOMPARE(backend.errorText("Vexa Virtual", -11000, text), CL_ERR_ERROR_NOT_FOUND);
    QCOMPARE(backend.errorText("Else", -11000, text), CL_ERR_MANU_DOES_NOT_EXIST);
}

QTEST_GUILESS_MAIN(tst_VirtualBackend)
#include "tst_virtualbackend.moc"

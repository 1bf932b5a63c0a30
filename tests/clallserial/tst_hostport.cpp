#include "clallserial/tcHostDevice.h"
#include "clallserial/tcHostPortBackend.h"
#include "sim/camera/tcPseudoTerminal.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>
#include <thread>

using teList = tcHostPortBackend::teList;
using teTimeout = tcSerialConfig::teTimeout;

/// The computer's own ports, with this test holding the far end of a pseudo-terminal.
class tst_HostPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listsTheNamedPorts();
    void scannedPortsLeaveOutTheNamedOnes();
    void longNamesKeepTheirEnd();
    void cannotBeOpened_data();
    void cannotBeOpened();
    void inUse();
    void refusedOpeningLeavesTheUserAlone();
    void bytesPassAsTheyAre();
    void strictTimeout();
    void partialTimeout();
    void readPartialIsPartialWhateverTheConfiguration();
    void baudRates();
    void flushDropsWhatArrived();
    void openingFindsNothingStale();
    void fullLineTimesOut();
    void unplugWhileOpen();
    void unplugWakesAReader();
    void interruptWakesAReader();
    void thousandOpenings();
    void twoThreads();
    void errorTexts();

private:
    std::unique_ptr<tcSerialPort> open(teTimeout aTimeout = teTimeout::Partial);
    void arrive(const QByteArray& acBytes);
    static void awaitBytes(tcSerialPort& arPort, uint32_t anCount);

    std::unique_ptr<tcPseudoTerminal> mFarEnd;
};

void tst_HostPort::init()
{
    mFarEnd = std::make_unique<tcPseudoTerminal>();
    QVERIFY2(mFarEnd->open(), mFarEnd->error().c_str());
}

void tst_HostPort::cleanup()
{
    mFarEnd.reset();
}

std::unique_ptr<tcSerialPort> tst_HostPort::open(teTimeout aTimeout)
{
    tcHostPortBackend backend(teList::Named, {mFarEnd->path()}, aTimeout);
    int32_t status = -1;
    auto port = backend.open(mFarEnd->path(), status);
    if (!port || status != CL_ERR_NO_ERR)
        qFatal("can't open %s", mFarEnd->path().c_str());
    return port;
}

void tst_HostPort::arrive(const QByteArray& acBytes)
{
    QCOMPARE(mFarEnd->write(acBytes.constData(), size_t(acBytes.size())),
             size_t(acBytes.size()));
}

void tst_HostPort::awaitBytes(tcSerialPort& arPort, uint32_t anCount)
{
    const auto available = [&] {
        uint32_t count = 0;
        arPort.available(count);
        return count;
    };
    QTRY_COMPARE(available(), anCount);
}

void tst_HostPort::listsTheNamedPorts()
{
    tcHostPortBackend backend(teList::Named, {"/dev/pts/7", "COM7"}, teTimeout::Partial);
    const auto entries = backend.ports();
    QCOMPARE(entries.size(), size_t(2)); // there or not
    QCOMPARE(entries[0].manufacturer, std::string("Serial port"));
    QCOMPARE(entries[0].portId, std::string("/dev/pts/7"));
    QCOMPARE(entries[1].key, std::string("COM7"));
}

void tst_HostPort::scannedPortsLeaveOutTheNamedOnes()
{
    tcHostPortBackend all(teList::Scanned, {}, teTimeout::Partial);
    const auto entries = all.ports();
    if (entries.empty())
        QSKIP("this computer reports no serial ports");
    tcHostPortBackend rest(teList::Scanned, {entries[0].key}, teTimeout::Partial);
    QCOMPARE(rest.ports().size(), entries.size() - 1);
}

void tst_HostPort::longNamesKeepTheirEnd()
{
    QCOMPARE(tcHostPortBackend::portId(std::string(49, 'x')), std::string(49, 'x'));
    const std::string shortened = tcHostPortBackend::portId(std::string(60, 'x') + "/camera");
    QCOMPARE(shortened.size(), size_t(49));
    QCOMPARE(shortened.substr(0, 4), std::string("...x"));
    QCOMPARE(shortened.substr(42), std::string("/camera"));
}

void tst_HostPort::cannotBeOpened_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("nothing there") << QByteArray("/no/such/port");
    QTest::newRow("no terminal") << QByteArray("/dev/null");
    QTest::newRow("a directory") << QByteArray("/tmp");
    QTest::newRow("no name") << QByteArray();
}

void tst_HostPort::cannotBeOpened()
{
    QFETCH(QByteArray, path);
    tcHostPortBackend backend(teList::Named, {path.toStdString()}, teTimeout::Partial);
    int32_t status = 0;
    QVERIFY(!backend.open(path.toStdString(), status));
    QCOMPARE(status, CL_ERR_PORT_IN_USE);
}

void tst_HostPort::inUse()
{
    const auto port = open();
    tcHostPortBackend backend(teList::Named, {mFarEnd->path()}, teTimeout::Partial);
    int32_t status = 0;
    QVERIFY(!backend.open(mFarEnd->path(), status));
    QCOMPARE(status, CL_ERR_PORT_IN_USE);
}

void tst_HostPort::refusedOpeningLeavesTheUserAlone()
{
    const auto port = open();
    arrive("reply");
    for (int attempt = 0; attempt < 3; ++attempt)
        QVERIFY(!tcHostDevices::openTerminal(mFarEnd->path()));
    awaitBytes(*port, 5);
}

/// Every byte value in both directions: nothing is translated, echoed or taken for a signal.
void tst_HostPort::bytesPassAsTheyAre()
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes.append(static_cast<char>(value));
    const auto port = open();
    arrive(bytes);
    awaitBytes(*port, 256);
    QByteArray received(256, '#');
    uint32_t size = 256;
    QCOMPARE(port->read(received.data(), size, 0), CL_ERR_NO_ERR);
    QCOMPARE(received, bytes);
    QCOMPARE(port->write(bytes.constData(), size, 1000), CL_ERR_NO_ERR);
    QCOMPARE(size, 256u);
    QByteArray sent;
    while (sent.size() < 256) {
        QVERIFY(mFarEnd->wait(20'000'000'000));
        QByteArray block(256, '\0');
        block.truncate(int(mFarEnd->read(block.data(), 256)));
        sent += block;
    }
    QCOMPARE(sent, bytes);
}

void tst_HostPort::strictTimeout()
{
    const auto port = open(teTimeout::Strict);
    arrive("hello");
    awaitBytes(*port, 5);
    QByteArray buffer(8, '#');
    uint32_t size = 8;
    QCOMPARE(port->read(buffer.data(), size, 10), CL_ERR_TIMEOUT);
    QCOMPARE(size, 8u);
    QCOMPARE(buffer, QByteArray(8, '#'));
    awaitBytes(*port, 5);
}

void tst_HostPort::partialTimeout()
{
    const auto port = open();
    arrive("hello");
    awaitBytes(*port, 5);
    QByteArray buffer(8, '#');
    uint32_t size = 8;
    QCOMPARE(port->read(buffer.data(), size, 10), CL_ERR_TIMEOUT);
    QCOMPARE(size, 5u);
    QCOMPARE(buffer, QByteArray("hello###"));
    QElapsedTimer timer;
    timer.start();
    size = 8;
    QCOMPARE(port->read(buffer.data(), size, 30), CL_ERR_TIMEOUT);
    QCOMPARE(size, 0u);
    QVERIFY(timer.elapsed() >= 29);
}

void tst_HostPort::readPartialIsPartialWhateverTheConfiguration()
{
    const auto port = open(teTimeout::Strict);
    arrive("hello");
    awaitBytes(*port, 5);
    QByteArray buffer(8, '#');
    uint32_t size = 8;
    QCOMPARE(port->readPartial(buffer.data(), size, 0), CL_ERR_TIMEOUT);
    QCOMPARE(size, 5u);
}

void tst_HostPort::baudRates()
{
    const auto port = open();
    uint32_t codes = 0;
    QCOMPARE(port->supportedBaudRates(codes), CL_ERR_NO_ERR);
    QCOMPARE(codes, 0xFFu);
    for (uint32_t code = 1; code <= 128; code *= 2)
        QCOMPARE(port->setBaudRate(code), CL_ERR_NO_ERR);
    for (const uint32_t code : {0u, 3u, 256u, 115200u})
        QCOMPARE(port->setBaudRate(code), CL_ERR_BAUD_RATE_NOT_SUPPORTED);
}

void tst_HostPort::flushDropsWhatArrived()
{
    const auto port = open();
    arrive("hello");
    awaitBytes(*port, 5);
    QCOMPARE(port->flush(), CL_ERR_NO_ERR);
    awaitBytes(*port, 0);
}

void tst_HostPort::openingFindsNothingStale()
{
    arrive("from yesterday");
    const auto port = open();
    arrive("now");
    awaitBytes(*port, 3);
}

/// Nobody reads at the far end: so much is taken, then the time is up.
void tst_HostPort::fullLineTimesOut()
{
    const auto port = open();
    const QByteArray block(1'000'000, '.');
    uint32_t size = 1'000'000;
    QCOMPARE(port->write(block.constData(), size, 50), CL_ERR_TIMEOUT);
    QVERIFY(size < 1'000'000u);
}

void tst_HostPort::unplugWhileOpen()
{
    auto port = open();
    mFarEnd.reset();
    uint32_t count = 0;
    QTRY_COMPARE(port->available(count), CL_ERR_INVALID_REFERENCE);
    char byte = '\0';
    uint32_t size = 1;
    QCOMPARE(port->read(&byte, size, 1000), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->write(&byte, size, 1000), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->flush(), CL_ERR_INVALID_REFERENCE);
    QCOMPARE(port->setBaudRate(CL_BAUDRATE_115200), CL_ERR_INVALID_REFERENCE);
    QElapsedTimer timer;
    timer.start();
    port.reset();
    QVERIFY(timer.elapsed() < 5000); // closing does not wait for a far end that is gone
}

void tst_HostPort::unplugWakesAReader()
{
    const auto port = open();
    std::atomic<int> status{0};
    std::thread reader([&] {
        char byte = '\0';
        uint32_t size = 1;
        status = port->read(&byte, size, 3'600'000);
    });
    mFarEnd.reset();
    reader.join();
    QCOMPARE(status.load(), CL_ERR_INVALID_REFERENCE);
}

void tst_HostPort::interruptWakesAReader()
{
    const auto port = open();
    std::atomic<int> status{0};
    std::thread reader([&] {
        char byte = '\0';
        uint32_t size = 1;
        status = port->read(&byte, size, 3'600'000);
    });
    port->interrupt();
    reader.join();
    QCOMPARE(status.load(), CL_ERR_INVALID_REFERENCE);
}

void tst_HostPort::thousandOpenings()
{
    for (int turn = 0; turn < 1000; ++turn)
        open().reset();
    const auto port = open(); // no handle was left behind
    arrive("x");
    awaitBytes(*port, 1);
}

void tst_HostPort::twoThreads()
{
    const auto port = open();
    constexpr int cBytes = 20'000;
    QByteArray received(cBytes, '\0');
    int32_t status = -1;
    std::thread reader([&] {
        uint32_t size = cBytes;
        status = port->read(received.data(), size, 60'000);
    });
    std::thread writer([&] {
        for (int turn = 0; turn < 100; ++turn) {
            uint32_t size = 7;
            port->write("<STOP>\n", size, 1000);
            uint32_t count = 0;
            port->available(count);
        }
    });
    int left = cBytes;
    while (left > 0) {
        const QByteArray block(qMin(left, 500), 'x');
        left -= int(mFarEnd->write(block.constData(), size_t(block.size())));
        std::this_thread::yield();
    }
    reader.join();
    writer.join();
    QCOMPARE(status, CL_ERR_NO_ERR);
    QCOMPARE(received, QByteArray(cBytes, 'x'));
}

void tst_HostPort::errorTexts()
{
    tcHostPortBackend backend(teList::Named, {}, teTimeout::Partial);
    std::string text;
    QCOMPARE(backend.errorText("Serial port", -11000, text), CL_ERR_ERROR_NOT_FOUND);
    QCOMPARE(backend.errorText("Else", -11000, text), CL_ERR_MANU_DOES_NOT_EXIST);
}

QTEST_GUILESS_MAIN(tst_HostPort)
#include "tst_hostport.moc"

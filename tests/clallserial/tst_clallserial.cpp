#include "camlink/clserial.h"

#include <QTest>

#include <array>
#include <thread>

/// The exported functions, linked as the panel links them, with virtual cameras behind them.
class tst_Clallserial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void virtualCamerasWithoutAGrabber();
    void nullPointers();
    void wrongReference();
    void closedTwice();
    void talk();
    void thousandOpenings();
    void threads();

private:
    static hSerRef open(uint32_t anIndex);
};

void tst_Clallserial::initTestCase()
{
    qputenv("CLALLSERIAL_HOST_SCAN", "off");
    qputenv("CLALLSERIAL_VIRTUAL_MODELS", "k20,k20-tec");
}

hSerRef tst_Clallserial::open(uint32_t anIndex)
{
    hSerRef ref = nullptr;
    if (clSerialInit(anIndex, &ref) != CL_ERR_NO_ERR
        || clSetBaudRate(ref, CL_BAUDRATE_115200) != CL_ERR_NO_ERR)
        qFatal("can't open port %u", anIndex);
    return ref;
}

void tst_Clallserial::virtualCamerasWithoutAGrabber()
{
    uint32_t count = 0;
    QCOMPARE(clGetNumPorts(&count), CL_ERR_NO_ERR);
    QCOMPARE(count, 2u);
    std::array<char, 50> maker{};
    std::array<char, 50> id{};
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(clGetPortInfo(1, maker.data(), &makerSize, id.data(), &idSize, &version),
             CL_ERR_NO_ERR);
    QCOMPARE(QByteArray(maker.data()), QByteArray("Vexa Virtual"));
    QCOMPARE(QByteArray(id.data()), QByteArray("Virtual K20 (Temp controlled)"));
}

void tst_Clallserial::nullPointers()
{
    const hSerRef ref = open(0);
    std::array<char, 50> text{};
    uint32_t size = 50;
    uint32_t version = 0;
    char* buffer = text.data();
    QCOMPARE(clGetNumPorts(nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(clGetPortInfo(0, nullptr, &size, buffer, &size, &version), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialInit(0, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(clGetNumBytesAvail(ref, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(clGetSupportedBaudRates(ref, nullptr), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialRead(ref, nullptr, &size, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialRead(ref, buffer, nullptr, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialReadEx(ref, nullptr, &size, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialReadEx(ref, buffer, nullptr, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialWrite(ref, nullptr, &size, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clSerialWrite(ref, buffer, nullptr, 0), CL_ERR_INVALID_PTR);
    QCOMPARE(clGetErrorText("x", 0, nullptr, &size), CL_ERR_INVALID_PTR);
    QCOMPARE(clGetErrorText("x", 0, buffer, nullptr), CL_ERR_INVALID_PTR);
    clSerialClose(ref);
}

void tst_Clallserial::wrongReference()
{
    int local = 0;
    for (hSerRef wrong : {hSerRef(nullptr), hSerRef(&local)}) {
        std::array<char, 8> bytes{};
        uint32_t size = 8;
        QCOMPARE(clSetBaudRate(wrong, CL_BAUDRATE_115200), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clGetSupportedBaudRates(wrong, &size), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clGetNumBytesAvail(wrong, &size), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clSerialRead(wrong, bytes.data(), &size, 0), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clSerialReadEx(wrong, bytes.data(), &size, 0), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clSerialWrite(wrong, bytes.data(), &size, 0), CL_ERR_INVALID_REFERENCE);
        QCOMPARE(clFlushPort(wrong), CL_ERR_INVALID_REFERENCE);
        clSerialClose(wrong);
    }
}

void tst_Clallserial::closedTwice()
{
    const hSerRef ref = open(0);
    clSerialClose(ref);
    clSerialClose(ref);
    uint32_t count = 0;
    QCOMPARE(clGetNumBytesAvail(ref, &count), CL_ERR_INVALID_REFERENCE);
}

void tst_Clallserial::talk()
{
    const hSerRef ref = open(0);
    hSerRef second = nullptr;
    QCOMPARE(clSerialInit(0, &second), CL_ERR_PORT_IN_USE);
    QByteArray command = "<STOP>\n";
    uint32_t size = 7;
    QCOMPARE(clSerialWrite(ref, command.data(), &size, 100), CL_ERR_NO_ERR);
    QByteArray reply(13, '\0');
    size = 13;
    QCOMPARE(clSerialRead(ref, reply.data(), &size, 5000), CL_ERR_NO_ERR);
    QCOMPARE(reply, QByteArray("<STOP><ACK>\r\n"));
    size = 13;
    QCOMPARE(clSerialReadEx(ref, reply.data(), &size, 5), CL_ERR_TIMEOUT);
    QCOMPARE(size, 0u);
    QCOMPARE(clFlushPort(ref), CL_ERR_NO_ERR);
    uint32_t codes = 0;
    QCOMPARE(clGetSupportedBaudRates(ref, &codes), CL_ERR_NO_ERR);
    QVERIFY((codes & CL_BAUDRATE_115200) != 0);
    clSerialClose(ref);
}

void tst_Clallserial::thousandOpenings()
{
    for (int turn = 0; turn < 1000; ++turn)
        clSerialClose(open(0));
}

/// A reader and a writer on one port, others that list, ask and open; then the port is closed
/// under the reader.
void tst_Clallserial::threads()
{
    const hSerRef ref = open(0);
    int32_t status = 0;
    std::thread reader([&] {
        while (status != CL_ERR_INVALID_REFERENCE) {
            std::array<char, 128> bytes{};
            uint32_t size = 128;
            status = clSerialRead(ref, bytes.data(), &size, 3'600'000);
        }
    });
    std::thread writer([&] {
        for (int turn = 0; turn < 50; ++turn) {
            QByteArray command = "<VERS>\n";
            uint32_t size = 7;
            clSerialWrite(ref, command.data(), &size, 100);
        }
    });
    std::thread other([] {
        for (int turn = 0; turn < 50; ++turn) {
            uint32_t count = 0;
            clGetNumPorts(&count);
            std::array<char, 256> text{};
            uint32_t size = 256;
            clGetErrorText("Vexa Virtual", CL_ERR_TIMEOUT, text.data(), &size);
            clSerialClose(open(1));
        }
    });
    writer.join();
    other.join();
    clSerialClose(ref);
    reader.join();
    QCOMPARE(status, CL_ERR_INVALID_REFERENCE);
}

QTEST_GUILESS_MAIN(tst_Clallserial)
#include "tst_clallserial.moc"

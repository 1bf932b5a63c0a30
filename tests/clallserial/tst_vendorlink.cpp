#include "camlink/clserial.h"

#include <QTest>

#include <array>

/// The shared library with a maker's library behind it, in a program that links the former:
/// both have functions of the same names.
class tst_VendorLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void grabberTakesThePlaceOfVirtualCameras();
    void longPortIdDoesNotFit();
    void makersStatusAndText();
    void namesDoNotGetMixedUp();
};

void tst_VendorLink::initTestCase()
{
    qputenv("CLALLSERIAL_VENDOR_PATH", MAKERS_DIRECTORY);
    qputenv("CLALLSERIAL_HOST_SCAN", "off");
}

void tst_VendorLink::grabberTakesThePlaceOfVirtualCameras()
{
    uint32_t count = 0;
    QCOMPARE(clGetNumPorts(&count), CL_ERR_NO_ERR);
    QCOMPARE(count, 4u);
    std::array<char, 50> maker{};
    std::array<char, 50> id{};
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(clGetPortInfo(0, maker.data(), &makerSize, id.data(), &idSize, &version),
             CL_ERR_NO_ERR);
    QCOMPARE(QByteArray(maker.data()), QByteArray("Fake Grabbers"));
    QCOMPARE(QByteArray(id.data()), QByteArray("Port A"));
    QCOMPARE(version, 3u);
}

void tst_VendorLink::longPortIdDoesNotFit()
{
    std::array<char, 50> maker{};
    std::array<char, 50> id{};
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(clGetPortInfo(1, maker.data(), &makerSize, id.data(), &idSize, &version),
             CL_ERR_BUFFER_TOO_SMALL);
    QCOMPARE(idSize, 301u);
}

void tst_VendorLink::makersStatusAndText()
{
    hSerRef ref = nullptr;
    QCOMPARE(clSerialInit(1, &ref), -11000);
    std::array<char, 2048> text{};
    uint32_t size = 2047;
    QCOMPARE(clGetErrorText("Fake Grabbers", -11000, text.data(), &size), CL_ERR_NO_ERR);
    QCOMPARE(QByteArray(text.data()), QByteArray("the maker's own words"));
    size = 2047;
    QCOMPARE(clGetErrorText("Nobody", -11000, text.data(), &size), CL_ERR_MANU_DOES_NOT_EXIST);
}

/// The maker's clSetBaudRate asks its own clGetNumBytesAvail, not ours.
void tst_VendorLink::namesDoNotGetMixedUp()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("the sanitizers' runtimes don't allow a library to prefer its own names");
#endif
    hSerRef ref = nullptr;
    QCOMPARE(clSerialInit(0, &ref), CL_ERR_NO_ERR);
    QCOMPARE(clSetBaudRate(ref, CL_BAUDRATE_115200), CL_ERR_NO_ERR);
    std::array<char, 8> bytes{"hello"};
    uint32_t size = 5;
    QCOMPARE(clSerialWrite(ref, bytes.data(), &size, 100), CL_ERR_NO_ERR);
    uint32_t count = 0;
    QCOMPARE(clGetNumBytesAvail(ref, &count), CL_ERR_NO_ERR);
    QCOMPARE(count, 5u);
    clSerialClose(ref);
    QCOMPARE(clGetNumBytesAvail(ref, &count), CL_ERR_INVALID_REFERENCE);
}

QTEST_GUILESS_MAIN(tst_VendorLink)
#include "tst_vendorlink.moc"

#include "clallserial/tcVendorBackend.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

/// Makers' libraries, against small ones of our own.
class tst_VendorBackend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void libraryNames_data();
    void libraryNames();
    void loadsWhatIsComplete();
    void saysWhatItSkips();
    void sameLibraryUnderTwoNamesOnce();
    void noSuchDirectory();
    void ports();
    void oldLibraryShowsItsFileName();
    void openReadWriteClose();
    void openRefused();
    void wrongKeys();
    void makersErrorText();
    void readPartial();
    void flushMayBeMissing();
};

namespace
{

const std::string cMakers = MAKERS_DIRECTORY;

std::unique_ptr<tcSerialPort> openFirst(tcVendorBackend& arBackend, const char* acManufacturer)
{
    for (const auto& entry : arBackend.ports()) {
        if (entry.manufacturer == acManufacturer) {
            int32_t status = -1;
            return arBackend.open(entry.key, status);
        }
    }
    return nullptr;
}

#if defined(_WIN32)
const char* const cOldName = "clserold.dll";
#else
const char* const cOldName = "clserold.so";
#endif

} // namespace

void tst_VendorBackend::libraryNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("good");
#if defined(_WIN32)
    const QByteArray suffix = ".dll";
#else
    const QByteArray suffix = ".so";
#endif
    QTest::newRow("plain") << "clserabc" + suffix << true;
    QTest::newRow("with lib") << "libclserme4" + suffix << true;
    QTest::newRow("capitals") << "libCLSerCOM" + suffix << true;
    QTest::newRow("two letters") << "clserab" + suffix << false;
    QTest::newRow("four letters") << "clserabcd" + suffix << false;
    QTest::newRow("ours") << "libclallserial" + suffix << false;
    QTest::newRow("version behind") << "clserabc" + suffix + ".1" << false;
    QTest::newRow("other suffix") << QByteArray("clserabc.txt") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void tst_VendorBackend::libraryNames()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, good);
    QCOMPARE(tcVendorBackend::isLibraryName(name.toStdString()), good);
}

void tst_VendorBackend::loadsWhatIsComplete()
{
    const tcVendorBackend backend(cMakers);
    QCOMPARE(backend.libraries(), size_t(2)); // the complete one and the old one
}

/// One line each on standard error: the one that is no library, the one that lacks a function.
void tst_VendorBackend::saysWhatItSkips()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("stderr.txt"));
    std::fflush(stderr);
    const int saved = dup(2);
    QVERIFY(std::freopen(path.toLocal8Bit().constData(), "w", stderr));
    {
        const tcVendorBackend backend(cMakers);
    }
    std::fflush(stderr);
    dup2(saved, 2);
    close(saved);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QByteArray text = file.readAll();
    QCOMPARE(text.count('\n'), 2);
    QVERIFY2(text.contains("clserbad"), text.constData());
    QVERIFY2(text.contains("can't be loaded: "), text.constData());
    QVERIFY2(text.contains("lacks the function clSerialRead\n"), text.constData());
}

void tst_VendorBackend::sameLibraryUnderTwoNamesOnce()
{
#if defined(_WIN32)
    QSKIP("no links");
#else
    QTemporaryDir directory;
    const QString library = QString::fromStdString(cMakers) + "/clserfak.so";
    QVERIFY(QFile::link(library, directory.filePath(QStringLiteral("clserone.so"))));
    QVERIFY(QFile::link(library, directory.filePath(QStringLiteral("libclsertwo.so"))));
    const tcVendorBackend one(directory.path().toStdString());
    QCOMPARE(one.libraries(), size_t(1));
#endif
}

void tst_VendorBackend::noSuchDirectory()
{
    tcVendorBackend backend("/no/such/directory");
    QCOMPARE(backend.libraries(), size_t(0));
    QVERIFY(backend.ports().empty());
}

void tst_VendorBackend::ports()
{
    tcVendorBackend backend(cMakers);
    const auto entries = backend.ports();
    QCOMPARE(entries.size(), size_t(4));
    QCOMPARE(entries[0].manufacturer, std::string("Fake Grabbers"));
    QCOMPARE(entries[0].portId, std::string("Port A"));
    QCOMPARE(entries[0].version, 3u);
    QCOMPARE(entries[1].portId, std::string(300, 'B')); // longer than was asked for at first
    QVERIFY(entries[0].key != entries[1].key);
}

void tst_VendorBackend::oldLibraryShowsItsFileName()
{
    tcVendorBackend backend(cMakers);
    const auto entries = backend.ports();
    QCOMPARE(entries[2].manufacturer, std::string(cOldName));
    QCOMPARE(entries[2].portId, std::string("Port 0"));
    QCOMPARE(entries[2].version, 2u);
}

void tst_VendorBackend::openReadWriteClose()
{
    tcVendorBackend backend(cMakers);
    const auto port = openFirst(backend, "Fake Grabbers");
    QVERIFY(port);
    QCOMPARE(port->setBaudRate(CL_BAUDRATE_115200), CL_ERR_NO_ERR);
    QCOMPARE(port->setBaudRate(1), CL_ERR_BAUD_RATE_NOT_SUPPORTED);
    uint32_t codes = 0;
    QCOMPARE(port->supportedBaudRates(codes), CL_ERR_NO_ERR);
    QCOMPARE(codes, 16u);
    uint32_t size = 5;
    QCOMPARE(port->write("hello", size, 100), CL_ERR_NO_ERR);
    uint32_t count = 0;
    QCOMPARE(port->available(count), CL_ERR_NO_ERR);
    QCOMPARE(count, 5u);
    QByteArray buffer(8, '#');
    size = 8;
    QCOMPARE(port->read(buffer.data(), size, 0), CL_ERR_TIMEOUT); // as strict as its maker
    QCOMPARE(size, 8u);
    size = 5;
    QCOMPARE(port->read(buffer.data(), size, 0), CL_ERR_NO_ERR);
    QCOMPARE(buffer, QByteArray("hello###"));
}

void tst_VendorBackend::openRefused()
{
    tcVendorBackend backend(cMakers);
    int32_t status = 0;
    QVERIFY(!backend.open(backend.ports()[1].key, status));
    QCOMPARE(status, -11000);
}

void tst_VendorBackend::wrongKeys()
{
    tcVendorBackend backend(cMakers);
    for (const char* key : {"", "x", "9 0", "0 x", "-1 0"}) {
        int32_t status = 0;
        QVERIFY2(!backend.open(key, status), key);
        QCOMPARE(status, CL_ERR_INVALID_INDEX);
    }
}

void tst_VendorBackend::makersErrorText()
{
    tcVendorBackend backend(cMakers);
    std::string text;
    QCOMPARE(backend.errorText("Fake Grabbers", -11000, text), CL_ERR_NO_ERR);
    QCOMPARE(text, std::string("the maker's own words"));
    QCOMPARE(backend.errorText(cOldName, -11000, text), CL_ERR_NO_ERR);
    QCOMPARE(backend.errorText("Fake Grabbers", -12000, text), CL_ERR_ERROR_NOT_FOUND);
    QCOMPARE(backend.errorText("Else", -11000, text), CL_ERR_MANU_DOES_NOT_EXIST);
}

void tst_VendorBackend::readPartial()
{
    tcVendorBackend backend(cMakers);
    const auto port = openFirst(backend, "Fake Grabbers");
    QVERIFY(port);
    uint32_t size = 5;
    QCOMPARE(port->write("hello", size, 100), CL_ERR_NO_ERR);
    QByteArray buffer(8, '#');
    size = 3;
    QCOMPARE(port->readPartial(buffer.data(), size, 1000), CL_ERR_NO_ERR);
    QCOMPARE(size, 3u);
    size = 8;
    QCOMPARE(port->readPartial(buffer.data() + 3, size, 10), CL_ERR_TIMEOUT);
    QCOMPARE(size, 2u);
    QCOMPARE(buffer, QByteArray("hello###"));
    size = 8;
    QCOMPARE(port->readPartial(buffer.data(), size, 0), CL_ERR_TIMEOUT);
    QCOMPARE(size, 0u);
}

void tst_VendorBackend::flushMayBeMissing()
{
    tcVendorBackend backend(cMakers);
    const auto port = openFirst(backend, "Fake Grabbers");
    uint32_t size = 5;
    QCOMPARE(port->write("hello", size, 100), CL_ERR_NO_ERR);
    QCOMPARE(port->flush(), CL_ERR_NO_ERR);
    uint32_t count = 1;
    QCOMPARE(port->available(count), CL_ERR_NO_ERR);
    QCOMPARE(count, 0u);
    const auto old = openFirst(backend, cOldName);
    QVERIFY(old);
    QCOMPARE(old->flush(), CL_ERR_FUNCTION_NOT_FOUND);
    QCOMPARE(old->supportedBaudRates(count), CL_ERR_NO_ERR);
    QCOMPARE(count, 0x1Fu);
}

QTEST_GUILESS_MAIN(tst_VendorBackend)
#include "tst_vendorbackend.moc"

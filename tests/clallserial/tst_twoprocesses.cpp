#include "camlink/clserial.h"

#include <QElapsedTimer>
#include <QLibrary>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <array>

#include <dlfcn.h>

/// The library in this process, the camera in another, a pseudo-terminal between them.
class tst_TwoProcesses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void portIsListedFirst();
    void scriptIsAnsweredInFull();
    void cameraGoesWhileOpen();
    void unloadsWithAPortOpen();

private:
    QByteArray startCamera(const QStringList& acArguments);
    hSerRef open();

    QTemporaryDir mDirectory;
    QProcess mCamera;
    QLibrary mLibrary{QStringLiteral(SERIAL_LIBRARY)};
    decltype(&clGetNumPorts) mGetNumPorts = nullptr;
    decltype(&clGetPortInfo) mGetPortInfo = nullptr;
    decltype(&clSerialInit) mSerialInit = nullptr;
    decltype(&clSerialClose) mSerialClose = nullptr;
    decltype(&clSetBaudRate) mSetBaudRate = nullptr;
    decltype(&clGetNumBytesAvail) mGetNumBytesAvail = nullptr;
    decltype(&clSerialRead) mSerialRead = nullptr;
    decltype(&clSerialWrite) mSerialWrite = nullptr;
};

QByteArray tst_TwoProcesses::startCamera(const QStringList& acArguments)
{
    mCamera.start(QStringLiteral(CAMERA_SIM_PROGRAM),
                  acArguments
                      + QStringList{"--link", mDirectory.filePath(QStringLiteral("camera"))});
    while (!mCamera.canReadLine() && mCamera.waitForReadyRead(20000)) { }
    return mCamera.readLine().trimmed();
}

void tst_TwoProcesses::initTestCase()
{
    qputenv("CLALLSERIAL_HOST_PATHS",
            mDirectory.filePath(QStringLiteral("camera")).toLocal8Bit());
    QVERIFY2(mLibrary.load(), qPrintable(mLibrary.errorString()));
    const auto resolve = [this](auto& arFunction, const char* acName) {
        arFunction
            = reinterpret_cast<std::decay_t<decltype(arFunction)>>(mLibrary.resolve(acName));
        QVERIFY2(arFunction, acName);
    };
    resolve(mGetNumPorts, "clGetNumPorts");
    resolve(mGetPortInfo, "clGetPortInfo");
    resolve(mSerialInit, "clSerialInit");
    resolve(mSerialClose, "clSerialClose");
    resolve(mSetBaudRate, "clSetBaudRate");
    resolve(mGetNumBytesAvail, "clGetNumBytesAvail");
    resolve(mSerialRead, "clSerialRead");
    resolve(mSerialWrite, "clSerialWrite");
}

void tst_TwoProcesses::cleanupTestCase()
{
    mCamera.terminate();
    mCamera.waitForFinished(20000);
}

hSerRef tst_TwoProcesses::open()
{
    uint32_t count = 0;
    hSerRef ref = nullptr;
    if (mGetNumPorts(&count) != 0 || mSerialInit(0, &ref) != 0
        || mSetBaudRate(ref, CL_BAUDRATE_115200) != 0)
        return nullptr;
    return ref;
}

void tst_TwoProcesses::portIsListedFirst()
{
    QVERIFY(!startCamera({"--model", "k20"}).isEmpty());
    uint32_t count = 0;
    QCOMPARE(mGetNumPorts(&count), CL_ERR_NO_ERR);
    QVERIFY(count >= 1);
    std::array<char, 50> maker{};
    std::array<char, 50> id{};
    uint32_t makerSize = 50;
    uint32_t idSize = 50;
    uint32_t version = 0;
    QCOMPARE(mGetPortInfo(0, maker.data(), &makerSize, id.data(), &idSize, &version),
             CL_ERR_NO_ERR);
    QCOMPARE(QByteArray(maker.data()), QByteArray("Serial port"));
    QVERIFY(QByteArray(id.data()).endsWith("/camera"));
}

/// A preset in one write, its replies read as they come.
void tst_TwoProcesses::scriptIsAnsweredInFull()
{
    const hSerRef ref = open();
    QVERIFY(ref);
    QByteArray script = "<STOP>\n<SCLK 6>\n<NROI 1>\n<SROI 336 112 1824 416>\n<SOMD 0>\n"
                        "<SBPP 4>\n<SEXP 500>\n<SFIT 0>\n<TRIG 0>\n<STRT>\n";
    QByteArray expected = script;
    expected.replace("\n", "<ACK>\r\n");
    auto size = static_cast<uint32_t>(script.size());
    QCOMPARE(mSerialWrite(ref, script.data(), &size, 100), CL_ERR_NO_ERR);
    QCOMPARE(size, uint32_t(script.size()));
    QByteArray received;
    QElapsedTimer timer;
    timer.start();
    while (received.size() < expected.size() && timer.elapsed() < 20000) {
        uint32_t waiting = 0;
        QCOMPARE(mGetNumBytesAvail(ref, &waiting), CL_ERR_NO_ERR);
        QByteArray block(int(waiting), '\0');
        QCOMPARE(mSerialRead(ref, block.data(), &waiting, 200), CL_ERR_NO_ERR);
        received += block;
    }
    QCOMPARE(received, expected);
    mSerialClose(ref);
}

void tst_TwoProcesses::cameraGoesWhileOpen()
{
    const hSerRef ref = open();
    QVERIFY(ref);
    mCamera.terminate();
    QVERIFY(mCamera.waitForFinished(20000));
    uint32_t waiting = 0;
    QTRY_COMPARE(mGetNumBytesAvail(ref, &waiting), CL_ERR_INVALID_REFERENCE);
    char byte = '\n';
    uint32_t size = 1;
    QCOMPARE(mSerialWrite(ref, &byte, &size, 100), CL_ERR_INVALID_REFERENCE);
    mSerialClose(ref);
    hSerRef again = nullptr;
    QCOMPARE(mSerialInit(0, &again), CL_ERR_PORT_IN_USE); // nothing at that path any more
    QVERIFY(!startCamera({"--model", "k20"}).isEmpty());
    QCOMPARE(mSerialInit(0, &again), CL_ERR_NO_ERR); // and there it is again
    mSerialClose(again);
}

/// The port is closed and nothing of the library stays behind, so it can be loaded anew.
void tst_TwoProcesses::unloadsWithAPortOpen()
{
    QVERIFY(open());
    QVERIFY(mLibrary.unload());
    QVERIFY(!dlopen(SERIAL_LIBRARY, RTLD_NOW | RTLD_NOLOAD));
    initTestCase();
    const hSerRef ref = open();
    QVERIFY(ref);
    mSerialClose(ref);
}

QTEST_GUILESS_MAIN(tst_TwoProcesses)
#include "tst_twoprocesses.moc"

#include "camlink/clserial.h"
#include "camlink/tcSerialLink.h"
#include "tests/support/tcFakeSerial.h"

#include <QTest>

#include <limits>
#include <type_traits>

/// What the typed wrapper passes to the library, and what it makes of any answer.
class tst_SerialLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void typesAreThoseOfTheStandard();
    void portTextShowsIndexMakerAndId();
    void placeholdersInNamesStayAsTheyAre();
    void namesAreAskedForWithFiftyBytes();
    void failingCountMeansNoPorts();
    void absurdCountIsBounded();
    void namesWithoutNulEndAtTheBuffer();
    void brokenBytesInNames();
    void failedPortInfoShowsEmptyTexts();
    void namesCountWhateverTheStatus();
    void openHandsTheReference();
    void openRefused_data();
    void openRefused();
    void openedWithoutAReferenceIsNotOpen();
    void closedReferenceZeroIsNotPassedOn();
    void baudRateIsTheStandardsCode();
    void readAsksForWhatItWasTold();
    void readIsBounded();
    void strictTimeoutShowsNothing();
    void partialTimeoutShowsWhatCame();
    void sizeBeyondTheBufferIsNotBelieved();
    void writePassesLengthAndTimeout();
    void everyCallFails();
    void errorTextIsAskedFromTheMaker();
    void errorTextOf2047BytesWithoutNul();
    void unknownErrorText();

private:
    tcSerialLink::tcRef openReady();
    tcFakeSerial& mFake = tcFakeSerial::instance();
};

void tst_SerialLink::init()
{
    mFake.reset();
}

tcSerialLink::tcRef tst_SerialLink::openReady()
{
    const tcSerialLink::tcRef ref = tcSerialLink::open(0).ref;
    tcSerialLink::setBaudRate(ref);
    return ref;
}

void tst_SerialLink::typesAreThoseOfTheStandard()
{
    QVERIFY((std::is_same_v<decltype(&clSerialRead),
                            int32_t(CLSERIAL_CC*)(void*, char*, uint32_t*, uint32_t)>));
    QVERIFY((std::is_same_v<decltype(&clSerialClose), void(CLSERIAL_CC*)(void*)>));
    QCOMPARE(sizeof(tcSerialLink::tcRef), sizeof(void*));
}

void tst_SerialLink::portTextShowsIndexMakerAndId()
{
    QCOMPARE((tcSerialLink::tcPortInfo{"Maker", "Port A"}.displayText(3)),
             QString("3 : Maker : Port A"));
}

void tst_SerialLink::placeholdersInNamesStayAsTheyAre()
{
    QCOMPARE((tcSerialLink::tcPortInfo{"%3 %2", "%1"}.displayText(0)),
             QString("0 : %3 %2 : %1"));
}

void tst_SerialLink::namesAreAskedForWithFiftyBytes()
{
    mFake.ports = {{"A", "a", 0}, {"B", "b", 0}};
    const auto ports = tcSerialLink::ports();
    QCOMPARE(ports.size(), 2);
    QCOMPARE(ports.at(1).manufacturer, QString("B"));
    QCOMPARE(ports.at(1).portId, QString("b"));
    const auto calls = mFake.callsOf("clGetPortInfo");
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.at(1).number, 1u);
    QCOMPARE(calls.at(1).timeoutMs, 50u); // the sizes handed in
    QCOMPARE(calls.at(1).secondRoom, 50u);
}

void tst_SerialLink::failingCountMeansNoPorts()
{
    mFake.ports = {{"A", "a", 0}};
    mFake.failing["clGetNumPorts"] = -10098;
    QVERIFY(tcSerialLink::ports().isEmpty());
}

void tst_SerialLink::absurdCountIsBounded()
{
    mFake.portCount = std::numeric_limits<quint32>::max();
    QCOMPARE(tcSerialLink::ports().size(), int(tcSerialLink::cMaxPorts));
}

void tst_SerialLink::namesWithoutNulEndAtTheBuffer()
{
    mFake.ports = {{QByteArray(80, 'm'), QByteArray(50, 'p'), 0}};
    const auto port = tcSerialLink::ports().at(0);
    QCOMPARE(port.manufacturer, QString(50, 'm'));
    QCOMPARE(port.portId, QString(50, 'p'));
}

void tst_SerialLink::brokenBytesInNames()
{
    mFake.ports = {{"Gr\xC3\xBC\xC3\x9F", "\xFF\xFE", 0}};
    const auto port = tcSerialLink::ports().at(0);
    QCOMPARE(port.manufacturer, QString::fromUtf8("Grüß"));
    QCOMPARE(port.portId, QString(2, QChar(QChar::ReplacementCharacter)));
}

void tst_SerialLink::failedPortInfoShowsEmptyTexts()
{
    mFake.ports = {{"A", "a", 0}, {"B", "b", -10001}};
    const auto ports = tcSerialLink::ports();
    QCOMPARE(ports.at(1).displayText(1), QString("1 :  : "));
}

void tst_SerialLink::namesCountWhateverTheStatus()
{
    // Some drivers complain about the room for a long name, and fill it.
    mFake.ports = {{QByteArray(60, 'm'), "a", -10001, true}};
    QCOMPARE(tcSerialLink::ports().at(0).displayText(0),
             QStringLiteral("0 : %1 : a").arg(QString(50, 'm')));
}

void tst_SerialLink::openHandsTheReference()
{
    const auto port = tcSerialLink::open(7);
    QCOMPARE(port.status, 0);
    QVERIFY(port.ref != 0);
    QCOMPARE(mFake.callsOf("clSerialInit").at(0).number, 7u);
    tcSerialLink::close(port.ref);
    QCOMPARE(mFake.openRefs(), 0);
    QCOMPARE(mFake.misuse, QStringList());
}

void tst_SerialLink::openRefused_data()
{
    QTest::addColumn<qint32>("status");
    QTest::newRow("in use") << -10003;
    QTest::newRow("maker's own code") << -12301;
}

void tst_SerialLink::openRefused()
{
    QFETCH(qint32, status);
    mFake.failing["clSerialInit"] = status;
    const auto port = tcSerialLink::open(0);
    QCOMPARE(port.status, status);
    QCOMPARE(port.ref, tcSerialLink::tcRef(0));
}

void tst_SerialLink::openedWithoutAReferenceIsNotOpen()
{
    mFake.openWithoutRef = true;
    const auto port = tcSerialLink::open(0);
    QCOMPARE(port.status, -10006);
    QCOMPARE(port.ref, tcSerialLink::tcRef(0));
}

void tst_SerialLink::closedReferenceZeroIsNotPassedOn()
{
    tcSerialLink::close(0);
    QVERIFY(mFake.calls.isEmpty());
}

void tst_SerialLink::baudRateIsTheStandardsCode()
{
    const auto port = tcSerialLink::open(0);
    QCOMPARE(tcSerialLink::setBaudRate(port.ref), 0);
    QCOMPARE(mFake.callsOf("clSetBaudRate").at(0).number, 16u);
    tcSerialLink::close(port.ref);
}

void tst_SerialLink::readAsksForWhatItWasTold()
{
    const auto ref = openReady();
    mFake.receive(QByteArray(200, 'r'));
    QCOMPARE(tcSerialLink::bytesAvailable(ref).bytes, 200u);
    QCOMPARE(tcSerialLink::read(ref, 128, 100).bytes, QByteArray(128, 'r'));
    const auto call = mFake.callsOf("clSerialRead").at(0);
    QCOMPARE(call.number, 128u);
    QCOMPARE(call.timeoutMs, 100u);
    tcSerialLink::close(ref);
}

void tst_SerialLink::readIsBounded()
{
    const auto ref = openReady();
    tcSerialLink::read(ref, std::numeric_limits<quint32>::max(), 200);
    QCOMPARE(mFake.callsOf("clSerialRead").at(0).number, tcSerialLink::cMaxRead);
    tcSerialLink::close(ref);
}

void tst_SerialLink::strictTimeoutShowsNothing()
{
    mFake.timeout = tcFakeSerial::teTimeout::Strict;
    const auto ref = openReady();
    mFake.receive("<VERS>");
    QCOMPARE(tcSerialLink::bytesAvailable(ref).bytes, 6u);
    const tcSerialLink::tcReadResult result = tcSerialLink::read(ref, 128, 100);
    QCOMPARE(result.status, -10004);
    QCOMPARE(result.size, 128u);
    QCOMPARE(result.bytes, QByteArray());
    QCOMPARE(mFake.waiting(), 6);
    tcSerialLink::close(ref);
    QCOMPARE(mFake.misuse, QStringList());
}

void tst_SerialLink::partialTimeoutShowsWhatCame()
{
    const auto ref = openReady();
    mFake.receive("<VERS>");
    tcSerialLink::bytesAvailable(ref);
    const auto result = tcSerialLink::read(ref, 128, 100);
    QCOMPARE(result.status, -10004);
    QCOMPARE(result.bytes, QByteArray("<VERS>"));
    tcSerialLink::close(ref);
}

void tst_SerialLink::sizeBeyondTheBufferIsNotBelieved()
{
    // A broken driver says it wrote more than it was given room for.
    const auto ref = openReady();
    mFake.receive("abc");
    tcSerialLink::bytesAvailable(ref);
    mFake.claimedReadSize = 4000000000u;
    QCOMPARE(tcSerialLink::read(ref, 3, 100).bytes, QByteArray("abc"));
    tcSerialLink::close(ref);
}

void tst_SerialLink::writePassesLengthAndTimeout()
{
    const auto ref = openReady();
    QCOMPARE(tcSerialLink::write(ref, QByteArray("a\0b", 3), 1000), 0);
    const auto call = mFake.callsOf("clSerialWrite").at(0);
    QCOMPARE(call.bytes, QByteArray("a\0b", 3));
    QCOMPARE(call.timeoutMs, 1000u);
    tcSerialLink::close(ref);
}

void tst_SerialLink::everyCallFails()
{
    const auto ref = openReady();
    for (const char* function :
         {"clSetBaudRate", "clGetNumBytesAvail", "clSerialRead", "clSerialWrite"})
        mFake.failing[function] = -10006;
    QCOMPARE(tcSerialLink::setBaudRate(ref), -10006);
    QCOMPARE(tcSerialLink::bytesAvailable(ref).status, -10006);
    const auto result = tcSerialLink::read(ref, 128, 100);
    QCOMPARE(result.status, -10006);
    QCOMPARE(result.bytes, QByteArray());
    QCOMPARE(tcSerialLink::write(ref, "x", 1), -10006);
    tcSerialLink::close(ref);
    QCOMPARE(mFake.openRefs(), 0);
}

void tst_SerialLink::errorTextIsAskedFromTheMaker()
{
    mFake.errorText = "Port is in use by Gr\xC3\xBC\xC3\x9F";
    QCOMPARE(tcSerialLink::errorText(QString::fromUtf8("Mäker"), -10003),
             QString::fromUtf8("Port is in use by Grüß"));
    const auto call = mFake.callsOf("clGetErrorText").at(0);
    QCOMPARE(call.bytes, QByteArray("M\xC3\xA4ker"));
    QCOMPARE(qint32(call.number), -10003);
    QCOMPARE(call.timeoutMs, 2047u); // the size handed in
}

void tst_SerialLink::errorTextOf2047BytesWithoutNul()
{
    mFake.errorText = QByteArray(5000, 'e');
    mFake.errorTextWithoutNul = true;
    QCOMPARE(tcSerialLink::errorText("M", -1), QString(2047, 'e'));
}

void tst_SerialLink::unknownErrorText()
{
    mFake.failing["clGetErrorText"] = -10007;
    QCOMPARE(tcSerialLink::errorText("M", -12301), QString("Unknown error code -12301"));
}

QTEST_GUILESS_MAIN(tst_SerialLink)
#include "tst_seriallink.moc"

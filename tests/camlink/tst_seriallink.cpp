#include "camlink/tcSerialLink.h"
#include "tests/support/tcFakeSerial.h"

#include <QTest>

class tst_SerialLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { tcFakeSerial::instance().reset(); }
    void strictTimeoutShowsNothing();
};

void tst_SerialLink::strictTimeoutShowsNothing()
{
    tcFakeSerial& fake = tcFakeSerial::instance();
    fake.timeout = tcFakeSerial::teTimeout::Strict;
    const tcSerialLink::tcOpened port = tcSerialLink::open(0);
    QCOMPARE(port.status, 0);
    tcSerialLink::setBaudRate(port.ref);
    fake.receive("<VERS>");
    QCOMPARE(tcSerialLink::bytesAvailable(port.ref).bytes, 6u);
    const tcSerialLink::tcReadResult result = tcSerialLink::read(port.ref, 128, 100);
    QCOMPARE(result.status, -10004);
    QCOMPARE(result.size, 128u);
    QCOMPARE(result.bytes, QByteArray());
    QCOMPARE(fake.waiting(), 6);
    tcSerialLink::close(port.ref);
    QCOMPARE(fake.misuse, QStringList());
}

QTEST_GUILESS_MAIN(tst_SerialLink)
#include "tst_seriallink.moc"

#include "clallserial/tcBackends.h"
#include "clallserial/tcPortTable.h"
#include "clallserial/tcSerialConfig.h"

#include <QTest>

class tst_VirtualBackend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersACommand();
};

void tst_VirtualBackend::answersACommand()
{
    tcSerialConfig config;
    config.vendor = false;
    config.hostScan = false;
    tcPortTable table(tcBackends::make(config, {}));
    uint32_t count = 0;
    QCOMPARE(table.count(&count), 0);
    QCOMPARE(count, 9u);
    hSerRef ref = nullptr;
    QCOMPARE(table.open(3, &ref), 0);
    QByteArray reply(64, '\0');
    uint32_t size = 64;
    const int32_t status = table.use(ref, [&](tcSerialPort& arPort) {
        uint32_t written = 7;
        arPort.setBaudRate(CL_BAUDRATE_115200);
        arPort.write("<STOP>\n", written, 100);
        return arPort.read(reply.data(), size, 100);
    });
    QCOMPARE(status, CL_ERR_TIMEOUT);
    QCOMPARE(reply.left(int(size)), QByteArray("<STOP><ACK>\r\n"));
    table.close(ref);
}

QTEST_GUILESS_MAIN(tst_VirtualBackend)
#include "tst_virtualbackend.moc"

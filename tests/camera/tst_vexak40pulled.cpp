#include "tests/camera/tcVirtualRig.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

/// A camera whose cable is pulled while the panel keeps it alive.
class tst_VexaK40Pulled : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tcVirtualRig::chooseFaults("unplug@3"); }
    void keepAliveClosesAfterTheSilence();
};

void tst_VexaK40Pulled::keepAliveClosesAfterTheSilence()
{
    tcVirtualRig rig("Virtual K20 (Temp controlled)");
    QSignalSpy closing(&rig.panel, &tcVexaK40::requestClosePort);
    rig.send("VERS");
    QTRY_VERIFY(rig.lastReply().startsWith("<VERS><ACK>"));
    rig.find<QPushButton>("keepAlivePB")->setChecked(true);
    QTRY_VERIFY(rig.lastReply().startsWith("<TEMP 0><ACK>"));
    QElapsedTimer silence;
    silence.start();
    QTRY_COMPARE_WITH_TIMEOUT(closing.size(), 1, 30000);
    QVERIFY2(silence.elapsed() >= 5500, qPrintable(QString::number(silence.elapsed())));
    QCOMPARE(rig.ref, tcSerialLink::tcRef(0));
    QVERIFY(rig.log().endsWith(
        ": Timeout .. no data from camera in > 5 seconds... closing connection"));
    const QString log = rig.log();
    QTest::qWait(1500); // Keep Alive is still checked, but there is no port
    QCOMPARE(rig.log(), log);
    QCOMPARE(closing.size(), 1);
}

QTEST_MAIN(tst_VexaK40Pulled)
#include "tst_vexak40pulled.moc"

#include "sim/camera/tcPacedLine.h"

#include <QTest>

class tst_PacedLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void byteTime_data();
    void byteTime();
    void bytesFollowEachOther();
    void holdPauses();
    void takesInOrder();
    void purgeLeavesWhatIsOnItsWay();
};

void tst_PacedLine::byteTime_data()
{
    QTest::addColumn<uint>("baud");
    QTest::addColumn<qint64>("ns");
    QTest::newRow("9600") << 9600u << qint64(1'041'667);
    QTest::newRow("115200") << 115200u << qint64(86'806);
    QTest::newRow("921600") << 921600u << qint64(10'851);
}

void tst_PacedLine::byteTime()
{
    QFETCH(uint, baud);
    QFETCH(qint64, ns);
    tcPacedLine line(baud);
    line.send(1000, 'x');
    QCOMPARE(line.frontArrival(), 1000 + ns);
    QCOMPARE(line.arrived(1000 + ns - 1), size_t(0));
    QCOMPARE(line.arrived(1000 + ns), size_t(1));
}

void tst_PacedLine::bytesFollowEachOther()
{
    tcPacedLine line(115200);
    for (int byte = 0; byte < 11520; ++byte)
        line.send(0, 'x');
    QVERIFY(qAbs(line.freeAt() - 1'000'000'000) < 10'000); // one second for 115200 bits
    QCOMPARE(line.arrived(500'000'000), size_t(5759));
    QCOMPARE(line.nextArrival(line.freeAt()), tcPacedLine::cNever);
}

void tst_PacedLine::holdPauses()
{
    tcPacedLine line(115200);
    line.send(0, 'a');
    line.hold(1'000'000);
    line.send(0, 'b');
    QCOMPARE(line.arrived(999'999), size_t(1));
    QCOMPARE(line.nextArrival(999'999), int64_t(1'086'806));
}

void tst_PacedLine::takesInOrder()
{
    tcPacedLine line(115200);
    for (const char byte : {'a', 'b', 'c'})
        line.send(0, byte);
    QCOMPARE(line.take(), 'a');
    QCOMPARE(line.take(), 'b');
    QCOMPARE(line.queued(), size_t(1));
}

void tst_PacedLine::purgeLeavesWhatIsOnItsWay()
{
    tcPacedLine line(115200);
    line.send(0, 'a');
    line.send(0, 'b');
    line.purge(100'000);
    QCOMPARE(line.queued(), size_t(1));
    QCOMPARE(line.take(), 'b');
    QCOMPARE(line.frontArrival(), tcPacedLine::cNever);
}

QTEST_GUILESS_MAIN(tst_PacedLine)
#include "tst_pacedline.moc"

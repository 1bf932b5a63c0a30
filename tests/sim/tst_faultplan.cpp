#include "sim/camera/tcFaultPlan.h"

#include <QTest>

class tst_FaultPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void understood_data();
    void understood();
    void notUnderstood_data();
    void notUnderstood();
    void triggers();
    void percentage();
    void valuesAndTheirDefaults();
    void faultsAddUp();
    void emptyPlanDoesNothing();
};

void tst_FaultPlan::understood_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char* text : {"", " , ", "nack", "drop/10", "drop@3", "corrupt%50", "delay",
                             "delay=300", "delay/4=0.5", "split@1=20", "flood", "flood@2=1.5",
                             "unplug=30", "unplug@7", " nack/5 , delay/4=300,drop/11 "})
        QTest::newRow(text) << QByteArray(text);
}

void tst_FaultPlan::understood()
{
    QFETCH(QByteArray, text);
    std::string error;
    QVERIFY(tcFaultPlan::parse(text.toStdString(), 1, error).has_value());
    QCOMPARE(error, std::string());
}

void tst_FaultPlan::notUnderstood_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("named");
    const auto row = [](const char* acText, const char* acNamed) {
        QTest::newRow(acText) << QByteArray(acText) << QByteArray(acNamed);
    };
    row("explode", "explode");
    row("drop/0", "drop/0");
    row("drop/", "drop/");
    row("drop/x", "drop/x");
    row("drop@-1", "drop@-1");
    row("drop%101", "drop%101");
    row("drop=3", "drop=3"); // takes no value
    row("delay=", "delay=");
    row("delay=x", "delay=x");
    row("delay=-1", "delay=-1");
    row("delay=1000001", "delay=1000001");
    row("nack/5, delay=soon ,drop", "delay=soon");
}

void tst_FaultPlan::notUnderstood()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, named);
    std::string error;
    QVERIFY(!tcFaultPlan::parse(text.toStdString(), 1, error).has_value());
    QCOMPARE(QByteArray::fromStdString(error), named);
}

void tst_FaultPlan::triggers()
{
    std::string error;
    tcFaultPlan plan = *tcFaultPlan::parse("nack@2,drop/3,corrupt", 1, error);
    for (int reply = 1; reply <= 9; ++reply) {
        const tcFaultAction action = plan.next();
        QCOMPARE(action.nack, reply == 2);
        QCOMPARE(action.drop, reply % 3 == 0);
        QVERIFY(action.corrupt);
        QVERIFY(!action.unplug);
    }
}

void tst_FaultPlan::percentage()
{
    std::string error;
    tcFaultPlan plan = *tcFaultPlan::parse("drop%30", 5, error);
    int drops = 0;
    for (int reply = 0; reply < 10000; ++reply)
        drops += plan.next().drop ? 1 : 0;
    QVERIFY2(drops > 2800 && drops < 3200, qPrintable(QString::number(drops)));
}

void tst_FaultPlan::valuesAndTheirDefaults()
{
    constexpr int64_t cMs = 1'000'000;
    std::string error;
    tcFaultPlan given = *tcFaultPlan::parse("delay=1.5,split=20,flood=0.25", 1, error);
    const tcFaultAction action = given.next();
    QCOMPARE(action.delayNs, int64_t(1'500'000));
    QCOMPARE(action.splitNs, 20 * cMs);
    QCOMPARE(action.floodNs, 250 * cMs);
    tcFaultPlan defaults = *tcFaultPlan::parse("delay,split,flood", 1, error);
    const tcFaultAction standard = defaults.next();
    QCOMPARE(standard.delayNs, 200 * cMs);
    QCOMPARE(standard.splitNs, 50 * cMs);
    QCOMPARE(standard.floodNs, 1000 * cMs);
    QVERIFY(!defaults.unplugAtNs());
    QCOMPARE(*tcFaultPlan::parse("unplug=30", 1, error)->unplugAtNs(), 30'000 * cMs);
}

void tst_FaultPlan::faultsAddUp()
{
    std::string error;
    tcFaultPlan plan = *tcFaultPlan::parse("delay=100,delay/2=50", 1, error);
    QCOMPARE(plan.next().delayNs, int64_t(100'000'000));
    QCOMPARE(plan.next().delayNs, int64_t(150'000'000));
}

void tst_FaultPlan::emptyPlanDoesNothing()
{
    tcFaultPlan plan;
    const tcFaultAction action = plan.next();
    QVERIFY(!action.nack && !action.drop && !action.corrupt && !action.unplug);
    QCOMPARE(action.delayNs + action.splitNs + action.floodNs, int64_t(0));
}

QTEST_GUILESS_MAIN(tst_FaultPlan)
#include "tst_faultplan.moc"

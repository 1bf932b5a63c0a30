#include "sim/camera/tcThermalModel.h"

#include <QTest>

class tst_ThermalModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAtRoomTemperature();
    void acquiringWarms();
    void settles_data();
    void settles();
    void settlesAgainAfterTheLoadChanges();
    void warmsUpWhenCoolingEnds();
    void withoutCoolerCoolingDoesNothing();
    void fanCoolsTheHousing();
    void coolerReadingsFollowTheDrive();
    void noiseIsSmallAndSeeded();
    void stepsDoNotMatter();
    void yearsPassInNoTime();
};

void tst_ThermalModel::startsAtRoomTemperature()
{
    tcThermalModel model(1, true);
    QCOMPARE(model.plateC(), 22.0);
}

void tst_ThermalModel::acquiringWarms()
{
    tcThermalModel idle(1, false);
    tcThermalModel busy(1, false);
    tcThermalModel::tcInputs inputs;
    idle.advance(1800, inputs);
    inputs.acquiring = true;
    busy.advance(1800, inputs);
    QVERIFY(idle.plateC() > 25.0);
    QVERIFY(busy.plateC() > idle.plateC() + 1.0);
    QVERIFY(busy.plateC() < 45.0);
}

void tst_ThermalModel::settles_data()
{
    QTest::addColumn<double>("setPoint");
    QTest::addColumn<bool>("fan");
    QTest::newRow("24 with the fan") << 24.0 << true;
    QTest::newRow("24 without") << 24.0 << false;
    QTest::newRow("10 with the fan") << 10.0 << true;
    QTest::newRow("lowest with the fan") << 0.0 << true;
    QTest::newRow("heating to 35") << 35.0 << true;
    QTest::newRow("highest") << 40.0 << false;
}

/// From a warm camera: within a tenth of a degree after ten minutes, and it stays there.
void tst_ThermalModel::settles()
{
    QFETCH(double, setPoint);
    QFETCH(bool, fan);
    tcThermalModel model(1, true);
    tcThermalModel::tcInputs inputs;
    inputs.acquiring = true;
    inputs.fan = fan;
    model.advance(1800, inputs);
    inputs.cooling = true;
    inputs.setPointC = setPoint;
    const double before = model.plateC();
    model.advance(20, inputs);
    QVERIFY(qAbs(model.plateC() - before) < 5.0); // heat takes its time
    model.advance(580, inputs);
    for (int minute = 0; minute < 60; ++minute) {
        QVERIFY2(qAbs(model.plateC() - setPoint) < 0.1,
                 qPrintable(QString::number(model.plateC())));
        model.advance(60, inputs);
    }
}

void tst_ThermalModel::settlesAgainAfterTheLoadChanges()
{
    tcThermalModel model(1, true);
    tcThermalModel::tcInputs inputs{false, true, true, 20.0};
    model.advance(900, inputs);
    inputs.acquiring = true;
    model.advance(600, inputs);
    QVERIFY(qAbs(model.plateC() - 20.0) < 0.1);
}

void tst_ThermalModel::warmsUpWhenCoolingEnds()
{
    tcThermalModel model(1, true);
    tcThermalModel::tcInputs inputs{true, true, true, 10.0};
    model.advance(900, inputs);
    inputs.cooling = false;
    model.advance(3600, inputs);
    QVERIFY(model.plateC() > 22.0);
}

void tst_ThermalModel::withoutCoolerCoolingDoesNothing()
{
    tcThermalModel plain(1, false);
    tcThermalModel same(1, false);
    plain.advance(900, {true, true, false, 5.0});
    same.advance(900, {true, false, false, 5.0});
    QCOMPARE(plain.plateC(), same.plateC());
}

void tst_ThermalModel::fanCoolsTheHousing()
{
    tcThermalModel still(1, true);
    tcThermalModel blown(1, true);
    still.advance(3600, {true, false, false, 25.0});
    blown.advance(3600, {true, false, true, 25.0});
    QVERIFY(still.reading(2) > blown.reading(2) + 2.0);
}

void tst_ThermalModel::coolerReadingsFollowTheDrive()
{
    tcThermalModel model(1, true);
    QCOMPARE(model.reading(6), 0.0);
    QCOMPARE(model.reading(7), 0.0);
    model.advance(10, {true, true, true, 0.0});
    QVERIFY(model.reading(6) > 1.9); // full drive
    QVERIFY(model.reading(7) > 4.5);
    model.advance(1200, {true, true, true, 15.0});
    QVERIFY(model.reading(6) > 0.05 && model.reading(6) < 1.5);
}

void tst_ThermalModel::noiseIsSmallAndSeeded()
{
    tcThermalModel one(9, true);
    tcThermalModel two(9, true);
    tcThermalModel other(10, true);
    bool differs = false;
    for (int turn = 0; turn < 1000; ++turn) {
        const double value = one.reading(1);
        QVERIFY(qAbs(value - 22.75) < 0.08);
        QCOMPARE(two.reading(1), value);
        differs = differs || other.reading(1) != value;
    }
    QVERIFY(differs);
    QCOMPARE(one.reading(0), 0.0);
    QCOMPARE(one.reading(16), 0.0);
}

void tst_ThermalModel::stepsDoNotMatter()
{
    tcThermalModel coarse(1, true);
    tcThermalModel fine(1, true);
    const tcThermalModel::tcInputs inputs{true, true, true, 18.0};
    coarse.advance(64, inputs);
    for (int step = 0; step < 64 * 1024; ++step)
        fine.advance(1.0 / 1024, inputs); // a power of two, so that the sum is exact
    QCOMPARE(fine.plateC(), coarse.plateC());
}

void tst_ThermalModel::yearsPassInNoTime()
{
    const tcThermalModel::tcInputs inputs{true, true, true, 18.0};
    tcThermalModel day(1, true);
    tcThermalModel years(1, true);
    day.advance(86400, inputs);
    years.advance(1e9, inputs);
    QCOMPARE(years.plateC(), day.plateC());
    QVERIFY(qAbs(years.plateC() - 18.0) < 0.1);
}

QTEST_GUILESS_MAIN(tst_ThermalModel)
#include "tst_thermalmodel.moc"

#include "stripchart/logic/tcAxisMath.h"

#include <QtTest>

#include <cmath>

using namespace tcAxisMath;

namespace
{
constexpr double cMax = std::numeric_limits<double>::max();
constexpr double cInf = std::numeric_limits<double>::infinity();
constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

tcExtent extentOf(const QVector<double>& acValues)
{
    tcExtent extent;
    for (const double value : acValues)
        extent.add(value);
    return extent;
}

bool near(double anOne, double anOther)
{
    return std::abs(anOne - anOther) <= 1e-12 * std::max(1.0, std::abs(anOther));
}
} // namespace

class tst_AxisMath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueFit_data();
    void valueFit();
    void timeFit_data();
    void timeFit();
    void precision_data();
    void precision();
    void elevenTicksEndAtTheEnds();
    void ticksHitZeroExactly();
    void minorTicksStandBetweenTheMajorOnes();
    void threeTicksAreSmallestMiddleLargest();
    void spanWindow_data();
    void spanWindow();
    void timeStep_data();
    void timeStep();
    void labelStride_data();
    void labelStride();
    void rangesThatNoAxisCanShow();
};

void tst_AxisMath::valueFit_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<bool>("spread");
    using V = QVector<double>;
    QTest::newRow("tidy step of five") << V{3.2, 47.9} << 0.0 << 50.0 << false;
    QTest::newRow("constant 20, no rounding step") << V{20.0, 20.0} << 19.98 << 20.02 << true;
    QTest::newRow("equal in practice")
        << V{1.0, 1.0 + 4e-13} << 0.999 << (1.0 + 4e-13) * 1.001 << true;
    QTest::newRow("not quite equal") << V{1.0, 1.0 + 4e-12} << 1.0 << 1.0 + 4e-12 << false;
    QTest::newRow("hardly different") << V{1.0, 1.0 + 1e-10} << 1.0 << 1.0 + 1e-10 << false;
    QTest::newRow("one value") << V{20.0} << 19.98 << 20.02 << true;
    QTest::newRow("all below zero ends at zero") << V{-8.0, -3.0} << -8.0 << 0.0 << false;
    QTest::newRow("rounded outward below zero") << V{-3.3, 6.7} << -4.0 << 7.0 << false;
    QTest::newRow("exact ends stay") << V{0.0, 50.0} << 0.0 << 50.0 << false;
    QTest::newRow("small range") << V{20.01, 20.055} << 20.01 << 20.055 << false;
    QTest::newRow("NaN and infinities are passed over")
        << V{cNaN, 3.2, cInf, 47.9, -cInf} << 0.0 << 50.0 << false;
    QTest::newRow("constant zero has no range") << V{0.0} << 0.0 << 0.0 << true;
    QTest::newRow("widest values stay as they are")
        << V{-1e308, 1e308} << -1e308 << 1e308 << false;
}

void tst_AxisMath::valueFit()
{
    QFETCH(QVector<double>, values);
    QFETCH(double, from);
    QFETCH(double, to);
    const tcFit fit = tcAxisMath::valueFit(extentOf(values));
    QVERIFY2(near(fit.range.from, from), qPrintable(QString::number(fit.range.from, 'g', 17)));
    QVERIFY2(near(fit.range.to, to), qPrintable(QString::number(fit.range.to, 'g', 17)));
    QTEST(fit.spread, "spread");
}

void tst_AxisMath::timeFit_data()
{
    QTest::addColumn<QVector<double>>("times");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<bool>("spread");
    using V = QVector<double>;
    QTest::newRow("whole milliseconds") << V{1000.4, 2000.6} << 1000.0 << 2001.0 << false;
    QTest::newRow("equal times") << V{1e6, 1e6} << 999000.0 << 1001000.0 << true;
    QTest::newRow("backward times") << V{5000.0, 2000.0, 7000.0} << 2000.0 << 7000.0 << false;
}

void tst_AxisMath::timeFit()
{
    QFETCH(QVector<double>, times);
    const tcFit fit = tcAxisMath::timeFit(extentOf(times));
    QTEST(fit.range.from, "from");
    QTEST(fit.range.to, "to");
    QTEST(fit.spread, "spread");
}

void tst_AxisMath::precision_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("decimals");
    QTest::newRow("0.5") << 0.5 << 2;
    QTest::newRow("1") << 1.0 << 2;
    QTest::newRow("9.99") << 9.99 << 2;
    QTest::newRow("10") << 10.0 << 3;
    QTest::newRow("100") << 100.0 << 4;
    QTest::newRow("1000") << 1000.0 << 5;
    QTest::newRow("100000, seven clamped to five") << 100000.0 << 5;
    QTest::newRow("0.05") << 0.05 << 3;
    QTest::newRow("0.005") << 0.005 << 4;
    QTest::newRow("0.0000001") << 1e-7 << 5;
}

void tst_AxisMath::precision()
{
    QFETCH(double, width);
    QTEST(tcAxisMath::precision({0.0, width}), "decimals");
}

void tst_AxisMath::elevenTicksEndAtTheEnds()
{
    const QVector<double> ticks = elevenTicks({10.0, 50.0});
    QCOMPARE(ticks.size(), 11);
    for (int i = 0; i < 11; ++i)
        QVERIFY(near(ticks.at(i), 10.0 + i * 4.0));
    QCOMPARE(elevenTicks({0.1, 0.7}).last(), 0.7);
}

// What is left by rounding would be labelled: 3.46945e-18, or -0.000.
void tst_AxisMath::ticksHitZeroExactly()
{
    for (const tcRange range : {tcRange{-0.03, 0.27}, tcRange{-0.07, 0.03}, tcRange{-2.1, 4.9},
                                tcRange{-0.7, 0.7}, tcRange{-999.0, 999.0}}) {
        int zeros = 0;
        for (const double tick : elevenTicks(range)) {
            QVERIFY2(tick == 0.0 || std::abs(tick) > 1e-4, qPrintable(QString::number(tick)));
            zeros += tick == 0.0 && !std::signbit(tick) ? 1 : 0;
        }
        QCOMPARE(zeros, 1);
    }
}

void tst_AxisMath::minorTicksStandBetweenTheMajorOnes()
{
    const QVector<double> ticks = minorTicks({0.0, 50.0});
    QCOMPARE(ticks.size(), 40);
    QCOMPARE(ticks.mid(0, 5), (QVector<double>{1.0, 2.0, 3.0, 4.0, 6.0}));
}

void tst_AxisMath::threeTicksAreSmallestMiddleLargest()
{
    QCOMPARE(threeTicks({-3.0, 8.0}), (QVector<double>{-3.0, 2.5, 8.0}));
}

void tst_AxisMath::spanWindow_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<double>("axisEnd");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<qint64>("spanMs");
    QTest::newRow("ends now") << 10 << 0.0 << 989500.0 << 1000500.0 << qint64(10000);
    QTest::newRow("ends with the axis")
        << 10 << 1002000.5 << 991500.5 << 1002500.5 << qint64(10000);
    QTest::newRow("one second") << 1 << 0.0 << 998950.0 << 1000050.0 << qint64(1000);
    QTest::newRow("a day") << 86400 << 0.0 << 1e6 - 86.4e6 * 1.05 << 1e6 + 4.32e6
                           << qint64(86400000);
}

void tst_AxisMath::spanWindow()
{
    QFETCH(int, seconds);
    QFETCH(double, axisEnd);
    const tcSpanWindow window = tcAxisMath::spanWindow(seconds, 1000000, axisEnd);
    QTEST(window.range.from, "from");
    QTEST(window.range.to, "to");
    QTEST(window.spanMs, "spanMs");
}

void tst_AxisMath::timeStep_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<int>("steps");
    QTest::addColumn<double>("step");
    QTest::newRow("1 s") << 1000.0 << 8 << 200.0;
    QTest::newRow("10 s") << 10000.0 << 8 << 2000.0;
    QTest::newRow("a minute") << 60000.0 << 8 << 10000.0;
    QTest::newRow("two minutes") << 120000.0 << 8 << 15000.0;
    QTest::newRow("an hour") << 3.6e6 << 8 << 600000.0;
    QTest::newRow("a day") << 86.4e6 << 8 << 3.0 * 3.6e6;
    QTest::newRow("a day, many steps") << 86.4e6 << 24 << 3.6e6;
    QTest::newRow("a month") << 30.0 * 86.4e6 << 8 << 0.0;
    QTest::newRow("no span") << 0.0 << 8 << 1.0;
    QTest::newRow("no steps") << 1000.0 << 0 << 1000.0;
}

void tst_AxisMath::timeStep()
{
    QFETCH(double, span);
    QFETCH(int, steps);
    QTEST(tcAxisMath::timeStep(span, steps), "step");
}

void tst_AxisMath::labelStride_data()
{
    QTest::addColumn<int>("ticks");
    QTest::addColumn<double>("length");
    QTest::addColumn<int>("stride");
    QTest::newRow("room for all") << 11 << 200.0 << 1;
    QTest::newRow("every second") << 11 << 120.0 << 2;
    QTest::newRow("every fifth") << 11 << 50.0 << 5;
    QTest::newRow("the ends only") << 11 << 20.0 << 10;
    QTest::newRow("no length yet") << 11 << 0.0 << 10;
    QTest::newRow("a prime number of gaps") << 8 << 40.0 << 7;
    QTest::newRow("one tick") << 1 << 10.0 << 1;
}

void tst_AxisMath::labelStride()
{
    QFETCH(int, ticks);
    QFETCH(double, length);
    QTEST(tcAxisMath::labelStride(ticks, length, 15.0), "stride");
}

void tst_AxisMath::rangesThatNoAxisCanShow()
{
    QVERIFY((tcRange{0.0, 1.0}).isValid());
    QVERIFY(!(tcRange{1.0, 1.0}).isValid());
    QVERIFY(!(tcRange{2.0, 1.0}).isValid());
    QVERIFY(!(tcRange{0.0, cInf}).isValid());
    QVERIFY(!(tcRange{cNaN, 1.0}).isValid());
    QVERIFY(!(tcRange{cMax, 0.0}).isValid());
}

QTEST_APPLESS_MAIN(tst_AxisMath)
#include "tst_axismath.moc"

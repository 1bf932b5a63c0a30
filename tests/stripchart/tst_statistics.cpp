#include "stripchart/logic/tcStatistics.h"

#include <QPointF>
#include <QtTest>

#include <cmath>
#include <limits>

namespace
{
constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();
constexpr double cNow = 1700000000000.0;

tcStatistics sumUp(const QVector<QPointF>& acReadings)
{
    tcStatistics sums;
    for (const QPointF& reading : acReadings)
        sums.add(reading.x(), reading.y());
    return sums;
}

bool isNear(double anActual, double anExpected, double anError)
{
    return std::abs(anActual - anExpected) <= anError;
}
} // namespace

class tst_Statistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownValues();
    void noReading();
    void oneReading();
    void equalTimesHaveNoSlope();
    void nothingButNumbersCounts();
    void negativeValues();
    void slopeIsPerMinute();
    void smallScatterOnLargeNumbers();
    void slopeOfNoisyReadingsOfToday();
};

void tst_Statistics::knownValues()
{
    const tcStatistics sums
        = sumUp({{0, 2}, {1, 4}, {2, 4}, {3, 4}, {4, 5}, {5, 5}, {6, 7}, {7, 9}});
    QCOMPARE(sums.count(), 8);
    QCOMPARE(sums.smallest(), 2.0);
    QCOMPARE(sums.largest(), 9.0);
    QCOMPARE(sums.mean(), 5.0);
    // 32 divided by 7, not by 8.
    QCOMPARE(sums.deviation(), std::sqrt(32.0 / 7.0));
    // 34 / 42 for each millisecond.
    QCOMPARE(sums.slopePerMinute(), 34.0 / 42.0 * 60000.0);
}

void tst_Statistics::noReading()
{
    const tcStatistics sums;
    QCOMPARE(sums.count(), 0);
    QVERIFY(std::isnan(sums.smallest()));
    QVERIFY(std::isnan(sums.largest()));
    QVERIFY(std::isnan(sums.mean()));
    QVERIFY(std::isnan(sums.deviation()));
    QVERIFY(std::isnan(sums.slopePerMinute()));
}

void tst_Statistics::oneReading()
{
    const tcStatistics sums = sumUp({{cNow, 21.5}});
    QCOMPARE(sums.count(), 1);
    QCOMPARE(sums.smallest(), 21.5);
    QCOMPARE(sums.largest(), 21.5);
    QCOMPARE(sums.mean(), 21.5);
    QVERIFY(std::isnan(sums.deviation()));
    QVERIFY(std::isnan(sums.slopePerMinute()));
}

void tst_Statistics::equalTimesHaveNoSlope()
{
    const tcStatistics sums = sumUp({{cNow, 1}, {cNow, 2}, {cNow, 3}});
    QCOMPARE(sums.deviation(), 1.0);
    QVERIFY(std::isnan(sums.slopePerMinute()));
}

void tst_Statistics::nothingButNumbersCounts()
{
    const tcStatistics sums
        = sumUp({{0, 1}, {1, cNan}, {2, cInfinity}, {3, -cInfinity}, {cNan, 50}, {4, 3}});
    QCOMPARE(sums.count(), 2);
    QCOMPARE(sums.smallest(), 1.0);
    QCOMPARE(sums.largest(), 3.0);
    QCOMPARE(sums.mean(), 2.0);
}

void tst_Statistics::negativeValues()
{
    const tcStatistics sums = sumUp({{0, -5}, {1, -3}});
    QCOMPARE(sums.smallest(), -5.0);
    QCOMPARE(sums.largest(), -3.0);
    QCOMPARE(sums.mean(), -4.0);
}

void tst_Statistics::slopeIsPerMinute()
{
    tcStatistics sums;
    for (int i = 0; i < 1000; ++i)
        sums.add(cNow + i * 100.0, 20.0 - 0.25 * i * 100.0 / 60000.0);
    QVERIFY(isNear(sums.slopePerMinute(), -0.25, 1e-9));
}

void tst_Statistics::smallScatterOnLargeNumbers()
{
    tcStatistics sums;
    for (int i = 0; i < 100000; ++i)
        sums.add(cNow + i, 1e9 + (i % 2 == 0 ? 0.5 : -0.5));
    QVERIFY(isNear(sums.mean(), 1e9, 1e-4));
    QVERIFY(isNear(sums.deviation(), 0.5, 1e-4));
}

void tst_Statistics::slopeOfNoisyReadingsOfToday()
{
    tcStatistics sums;
    for (int i = 0; i < 6000; ++i)
        sums.add(cNow + i * 10.0, i / 6000.0 + (i % 2 == 0 ? 0.1 : -0.1));
    QVERIFY(isNear(sums.slopePerMinute(), 1.0, 1e-3));
}

QTEST_GUILESS_MAIN(tst_Statistics)
#include "tst_statistics.moc"

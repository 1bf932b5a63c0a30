#include "stripchart/logic/tcLimitWatch.h"

#include <QVector>
#include <QtTest>

#include <limits>

using teState = tcLimitWatch::teState;
Q_DECLARE_METATYPE(tcLimits)

namespace
{
constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();
const tcLimits cBoth{10.0, 20.0, 1.0};
const tcLimits cUpper{std::nullopt, 20.0, 1.0};
const tcLimits cLower{10.0, std::nullopt, 1.0};
const tcLimits cOff;
const tcLimits cNoHysteresis{10.0, 20.0, -3.0};
const tcLimits cWide{10.0, 20.0, 50.0};
} // namespace

class tst_LimitWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void states_data();
    void states();
    void noiseAboutALimitIsOneCrossing();
    void offByDefault();
};

void tst_LimitWatch::states_data()
{
    QTest::addColumn<tcLimits>("limits");
    QTest::addColumn<QVector<double>>("readings");
    QTest::addColumn<int>("state");
    const auto row = [](const char* apName, const tcLimits& acLimits,
                        const QVector<double>& acReadings, teState aeState) {
        QTest::newRow(apName) << acLimits << acReadings << static_cast<int>(aeState);
    };
    row("inside", cBoth, {15}, teState::Inside);
    row("on the upper limit", cBoth, {20}, teState::Inside);
    row("on the lower limit", cBoth, {10}, teState::Inside);
    row("above", cBoth, {20.001}, teState::Above);
    row("below", cBoth, {9.999}, teState::Below);
    row("not yet back from above", cBoth, {21, 19.5}, teState::Above);
    row("just back from above", cBoth, {21, 19}, teState::Inside);
    row("not yet back from below", cBoth, {9, 10.5}, teState::Below);
    row("just back from below", cBoth, {9, 11}, teState::Inside);
    row("right across, downwards", cBoth, {21, 9}, teState::Below);
    row("right across, upwards", cBoth, {9, 21}, teState::Above);
    row("back inside before it is near the limit again", cBoth, {21, 18, 19.5},
        teState::Inside);
    row("no number is no return", cBoth, {21, cNan}, teState::Above);
    row("no number is no crossing", cBoth, {15, cNan}, teState::Inside);
    row("infinity is no reading", cBoth, {15, cInfinity}, teState::Inside);
    row("only an upper limit", cUpper, {-1e9}, teState::Inside);
    row("only a lower limit", cLower, {1e9}, teState::Inside);
    row("no limits", cOff, {1e9, -1e9}, teState::Inside);
    row("hysteresis below zero is none", cNoHysteresis, {21, 20}, teState::Inside);
    row("hysteresis wider than the limits", cWide, {21, 9}, teState::Below);
}

void tst_LimitWatch::states()
{
    QFETCH(tcLimits, limits);
    QFETCH(QVector<double>, readings);
    tcLimitWatch watch;
    watch.setLimits(limits);
    for (const double reading : qAsConst(readings))
        watch.add(reading);
    QTEST(static_cast<int>(watch.state()), "state");
}

void tst_LimitWatch::noiseAboutALimitIsOneCrossing()
{
    tcLimitWatch watch;
    watch.setLimits(cBoth);
    int crossings = 0;
    for (int i = 0; i < 1000; ++i)
        crossings += watch.add(20.0 + (i % 2 == 0 ? 0.4 : -0.4)) ? 1 : 0;
    QCOMPARE(crossings, 1);
}

void tst_LimitWatch::offByDefault()
{
    QVERIFY(tcLimits().isOff());
}

QTEST_GUILESS_MAIN(tst_LimitWatch)
#include "tst_limitwatch.moc"

#include "stripchart/tcMinMaxLines.h"
#include "tests/stripchart/tcChartProbe.h"

#include <QAbstractEventDispatcher>
#include <QScopeGuard>
#include <QtTest>
#include <qwt_plot_grid.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

#include <cmath>
#include <limits>
#include <thread>

class tst_ChartUpdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void readingForNobody_data();
    void readingForNobody();
    void readingReachesItsCurve();
    void readingsAreDrawnOnceAPass();
    void unknownKeysAtFullRateCostNoPainting();
    void hiddenChartIsNotPainted();
    void minimisedChartIsNotPainted();
    void readingsOfOtherThreadsArrive();
    void tickScrollsOneIntervalAhead();
    void tickWithSpanZeroDoesNotScroll();
    void pausedChartStandsStill();
    void clockStepsBackAnHourAndForwardADay();
    void spanChange_data();
    void spanChange();
    void spanChangeKeepsAnAxisEndAheadOfTheClock();
    void sampleCountReachesAllAttachedCurves();
    void clearSamplesEmptiesCurvesAndMinMax();
    void clearSamplesReachesAllAttachedCurves();
    void resetDetachesFiledCurves();
    void resumeFeedGoesBackToLive();
    void lowChartHidesTheTimes();
    void heightIsLoggedWhenLowAndAskedFor();
    void lowChartHasThreeLabels_data();
    void lowChartHasThreeLabels();
    void removedCurveLeavesPlotAndTable();
    void destroyedCurveLeavesPlotTableAndLegend();
    void detachedCurveLeavesTheTable();
    void chartDestroyedBeforeItsCurves();
    void strangeSamplesAreBorne_data();
    void strangeSamplesAreBorne();
    void timerTicks();
    void timerIsCoarse();
    void showLegendTogglesBothBoxes();
};

void tst_ChartUpdates::readingForNobody_data()
{
    QTest::addColumn<bool>("knownKey");
    QTest::addColumn<int>("index");
    QTest::newRow("unknown key") << false << 2;
    QTest::newRow("negative index") << true << -1;
    QTest::newRow("index too large") << true << 3;
    QTest::newRow("null slot") << true << 0;
}

void tst_ChartUpdates::readingForNobody()
{
    QFETCH(bool, knownKey);
    QFETCH(int, index);
    tcChartProbe probe;
    const auto a = probe.curve("A", 2);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->updateData(knownKey ? key : QUuid::createUuid(), index, 1000, 1.0);
    QCOMPARE(a->dataSize(), std::size_t(0));
    QCOMPARE(probe.plot->itemList(tcStripCurve::cRtti).size(), 1);
}

void tst_ChartUpdates::readingReachesItsCurve()
{
    tcChartProbe probe;
    const auto a = probe.curve("A", 0);
    const auto b = probe.curve("B", 1);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->addCurve(b.get(), key);
    probe.chart->updateData(key, 1, 1234, 5.5);
    QCOMPARE(a->dataSize(), std::size_t(0));
    QCOMPARE(b->sample(0), QPointF(1234.0, 5.5));
}

void tst_ChartUpdates::readingsAreDrawnOnceAPass()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    probe.settle();
    tcPaintCounter counter(probe.plot->canvas());
    for (int i = 0; i < 500; ++i)
        probe.chart->updateData(key, 0, probe.now + i, i);
    QCOMPARE(counter.count, 0);
    QTRY_COMPARE(counter.count, 1);
    probe.chart->updateData(key, 0, probe.now + 501, 1.0);
    QTRY_COMPARE(counter.count, 2);
}

void tst_ChartUpdates::unknownKeysAtFullRateCostNoPainting()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    probe.show();
    probe.settle();
    tcPaintCounter counter(probe.plot->canvas());
    for (int i = 0; i < 20000; ++i)
        probe.chart->updateData(QUuid::createUuid(), i % 7 - 2, i, i);
    QTest::qWait(50);
    QCOMPARE(counter.count, 0);
    QCOMPARE(a->dataSize(), std::size_t(0));
}

void tst_ChartUpdates::hiddenChartIsNotPainted()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    probe.chart->hide();
    tcPaintCounter counter(probe.plot->canvas());
    for (int i = 0; i < 10; ++i) {
        probe.chart->updateData(key, 0, probe.now + i, i);
        probe.chart->tick();
        QTest::qWait(5);
    }
    QCOMPARE(counter.count, 0);
    probe.chart->show();
    QTRY_VERIFY(counter.count > 0);
}

void tst_ChartUpdates::minimisedChartIsNotPainted()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    probe.chart->showMinimized();
    QTRY_VERIFY(probe.chart->isMinimized());
    probe.settle();
    tcPaintCounter counter(probe.plot->canvas());
    for (int i = 0; i < 10; ++i) {
        probe.chart->updateData(key, 0, probe.now + i, i);
        QTest::qWait(5);
    }
    QCOMPARE(counter.count, 0);
    probe.chart->showNormal();
    QTRY_VERIFY(counter.count > 0);
}

void tst_ChartUpdates::readingsOfOtherThreadsArrive()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    tcStripChart* chart = probe.chart.get();
    std::thread source([chart, key] {
        for (int i = 0; i < 300; ++i) {
            const qint64 time = tcChartProbe::cNow + i;
            QMetaObject::invokeMethod(chart, "updateData", Qt::QueuedConnection,
                                      Q_ARG(QUuid, key), Q_ARG(int, 0), Q_ARG(qint64, time),
                                      Q_ARG(double, i));
            std::this_thread::yield();
        }
    });
    const auto ended = qScopeGuard([&source] { source.join(); });
    QTRY_COMPARE(a->dataSize(), std::size_t(300));
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_ChartUpdates::tickScrollsOneIntervalAhead()
{
    tcChartProbe probe;
    probe.chart->tick();
    const double end = static_cast<double>(probe.now + 1000);
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(end - 10000.0, end));
    const auto* grid
        = static_cast<QwtPlotGrid*>(probe.plot->itemList(QwtPlotItem::Rtti_PlotGrid).first());
    QCOMPARE(grid->xScaleDiv(), probe.plot->axisScaleDiv(QwtPlot::xBottom));
    probe.now += 1000;
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom).maxValue(), end + 1000.0);
}

void tst_ChartUpdates::tickWithSpanZeroDoesNotScroll()
{
    tcChartProbe probe;
    probe.chart->setSpanMs(0);
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(0.0, 100.0));
}

void tst_ChartUpdates::pausedChartStandsStill()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->tick();
    const QwtInterval before = probe.shown(QwtPlot::xBottom);
    probe.action("actionPause_Updates")->setChecked(true);
    QVERIFY(probe.chart->isPaused());
    probe.now += 5000;
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom), before);
    QVERIFY(probe.chart->isUpdating());
    probe.chart->updateData(key, 0, probe.now, 1.0);
    QCOMPARE(a->dataSize(), std::size_t(1));
    probe.action("actionPause_Updates")->setChecked(false);
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom).maxValue(), before.maxValue() + 5000.0);
}

void tst_ChartUpdates::clockStepsBackAnHourAndForwardADay()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    for (const qint64 step : {0LL, -3600000LL, 86400000LL}) {
        probe.now += step;
        probe.chart->updateData(key, 0, probe.now, 20.0);
        probe.chart->tick();
        const double end = static_cast<double>(probe.now + 1000);
        QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(end - 10000.0, end));
        QVERIFY(!probe.chart->grab().isNull());
    }
    QCOMPARE(a->dataSize(), std::size_t(3));
}

void tst_ChartUpdates::spanChange_data()
{
    QTest::addColumn<int>("seconds");
    QTest::newRow("1 s") << 1;
    QTest::newRow("60 s") << 60;
    QTest::newRow("86400 s") << 86400;
}

void tst_ChartUpdates::spanChange()
{
    QFETCH(int, seconds);
    tcChartProbe probe;
    probe.show();
    probe.child<QSpinBox>("spinBoxSpanSec")->setValue(seconds);
    const double width = seconds * 1000.0;
    const double end = static_cast<double>(probe.now);
    QCOMPARE(probe.shown(QwtPlot::xBottom),
             QwtInterval(end - width - width / 20.0, end + width / 20.0));
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(end + 1000.0 - width, end + 1000.0));
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_ChartUpdates::spanChangeKeepsAnAxisEndAheadOfTheClock()
{
    tcChartProbe probe;
    const double end = static_cast<double>(probe.now) + 60000.0;
    probe.chart->setXRange(end - 5000.0, end);
    probe.child<QSpinBox>("spinBoxSpanSec")->setValue(20);
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(end - 21000.0, end + 1000.0));
}

void tst_ChartUpdates::sampleCountReachesAllAttachedCurves()
{
    tcChartProbe probe;
    const auto three = probe.curve("three", 3);
    const auto zero = probe.curve("zero", 0);
    const QUuid key = probe.chart->addCurve(three.get());
    probe.chart->addCurve(zero.get(), key);
    probe.child<QSpinBox>("spinBoxSamples")->setValue(300);
    QCOMPARE(three->sampleCount(), 300);
    QCOMPARE(zero->sampleCount(), 300);
}

void tst_ChartUpdates::clearSamplesEmptiesCurvesAndMinMax()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->showMinMax(true);
    probe.chart->updateData(key, 0, 1000, 5.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 5.0);
    probe.action("actionClear_Samples")->trigger();
    QCOMPARE(a->dataSize(), std::size_t(0));
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 1.7976931348623157e308);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), 2.2250738585072014e-308);
}

void tst_ChartUpdates::clearSamplesReachesAllAttachedCurves()
{
    tcChartProbe probe;
    const auto three = probe.curve("three", 3);
    const auto zero = probe.curve("zero", 0);
    const QUuid key = probe.chart->addCurve(three.get());
    probe.chart->addCurve(zero.get(), key);
    three->addSample(1000, 5.0);
    zero->addSample(1000, 6.0);
    probe.chart->clearSamples();
    QCOMPARE(three->dataSize(), std::size_t(0)); // no longer filed, but still on the plot
    QCOMPARE(zero->dataSize(), std::size_t(0));
}

void tst_ChartUpdates::resetDetachesFiledCurves()
{
    tcChartProbe probe;
    const auto three = probe.curve("three", 3);
    const auto zero = probe.curve("zero", 0);
    const QUuid key = probe.chart->addCurve(three.get());
    probe.chart->addCurve(zero.get(), key);
    probe.chart->resetData();
    QVERIFY(!zero->plot());
    QCOMPARE(three->plot(), probe.plot); // no longer filed, so left alone
    QVERIFY(probe.chart->curves().isEmpty());
}

void tst_ChartUpdates::resumeFeedGoesBackToLive()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    probe.chart->stopUpdates();
    QVERIFY(!probe.chart->isUpdating());
    probe.child<QSpinBox>("spinBoxSamples")->setEnabled(false);
    probe.child<QToolButton>("toolButton_Load")
        ->setDefaultAction(probe.action("actionResume_Feed"));
    probe.action("actionResume_Feed")->trigger();
    QVERIFY(probe.chart->isUpdating());
    QVERIFY(!a->plot());
    QVERIFY(probe.child<QSpinBox>("spinBoxSamples")->isEnabled());
    QCOMPARE(probe.child<QToolButton>("toolButton_Load")->defaultAction(),
             probe.action("actionLoad_from_File"));
}

void tst_ChartUpdates::heightIsLoggedWhenLowAndAskedFor()
{
    tcChartProbe probe;
    probe.show(QSize(600, 400));
    static QStringList lines;
    lines.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& acLine) { lines << acLine; });
    const auto logged = [&probe](int anVerbosity, int anHeight) {
        lines.clear();
        probe.chart->setVerbosity(anVerbosity);
        probe.chart->resize(600, anHeight);
        return lines.filter("Height below minimum").size();
    };
    const int lowUnasked = logged(0, 200);
    const int highAsked = logged(1, 350);
    const int lowAsked = logged(1, 210);
    qInstallMessageHandler(before);
    QCOMPARE(lowUnasked, 0);
    QCOMPARE(highAsked, 0);
    QCOMPARE(lowAsked, 1);
}

void tst_ChartUpdates::lowChartHidesTheTimes()
{
    tcChartProbe probe;
    probe.show(QSize(600, 250));
    QVERIFY(probe.action("actionShow_X_Axis")->isChecked());
    probe.chart->setVerbosity(1);
    probe.chart->setChartName("Sensors");
    QTest::ignoreMessage(QtDebugMsg, "\"Sensors\" Height below minimum, hiding X axis");
    probe.chart->resize(600, 249);
    QCOMPARE(probe.chart->height(), 249);
    QVERIFY(!probe.action("actionShow_X_Axis")->isChecked());
    QVERIFY(!probe.plot->axisScaleDraw(QwtPlot::xBottom)
                 ->hasComponent(QwtAbstractScaleDraw::Labels));
    probe.chart->resize(600, 400);
    QVERIFY(!probe.action("actionShow_X_Axis")->isChecked());
}

void tst_ChartUpdates::lowChartHasThreeLabels_data()
{
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("0 to 100") << 0.0 << 100.0;
    QTest::newRow("10 to 50") << 10.0 << 50.0;
    QTest::newRow("uneven") << -3.7 << 8.13;
    QTest::newRow("narrow") << 19.98 << 20.02;
}

void tst_ChartUpdates::lowChartHasThreeLabels()
{
    QFETCH(double, from);
    QFETCH(double, to);
    tcChartProbe probe;
    probe.show();
    probe.chart->setYRange(0, from, to);
    probe.chart->resize(600, 249);
    QCOMPARE(probe.ticks(QwtPlot::yLeft), (QList<double>{from, from + (to - from) / 2.0, to}));
    probe.chart->resize(600, 500);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(from, to));
    // Again at steps that the axis itself finds tidy, not where they stood before.
    const QwtScaleDiv tidy
        = QwtLinearScaleEngine().divideScale(from, to, probe.plot->axisMaxMajor(QwtPlot::yLeft),
                                             probe.plot->axisMaxMinor(QwtPlot::yLeft));
    QCOMPARE(probe.ticks(QwtPlot::yLeft), tidy.ticks(QwtScaleDiv::MajorTick));
    QVERIFY(probe.ticks(QwtPlot::yLeft).size() > 3);
}

void tst_ChartUpdates::removedCurveLeavesPlotAndTable()
{
    tcChartProbe probe;
    const auto a = probe.curve("A", 0);
    const auto b = probe.curve("B", 1);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->addCurve(b.get(), key);
    probe.chart->removeCurve(b.get());
    QVERIFY(!b->plot());
    QCOMPARE(probe.chart->curves(), QVector<tcStripCurve*>{a.get()});
    probe.chart->removeCurves(key);
    QVERIFY(!a->plot());
    QVERIFY(probe.chart->curves().isEmpty());
    probe.chart->removeCurve(nullptr);
    probe.chart->updateData(key, 0, 1, 1.0);
    QCOMPARE(a->dataSize(), std::size_t(0));
}

void tst_ChartUpdates::destroyedCurveLeavesPlotTableAndLegend()
{
    tcChartProbe probe;
    auto a = probe.curve("A", 0);
    const auto b = probe.curve("B", 1);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->addCurve(b.get(), key);
    probe.show();
    a.reset();
    QCOMPARE(probe.chart->curve(key, 0), nullptr);
    QCOMPARE(probe.chart->curves(), QVector<tcStripCurve*>{b.get()});
    probe.chart->updateData(key, 0, 1000, 1.0);
    probe.chart->updateData(key, 1, 1000, 1.0);
    probe.chart->tick();
    probe.chart->updateTitle("");
    QTRY_COMPARE(probe.legend->findChildren<QwtLegendLabel*>().size(), 1);
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_ChartUpdates::detachedCurveLeavesTheTable()
{
    tcChartProbe probe;
    auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    a->detach();
    a.reset();
    probe.chart->updateData(key, 0, 1000, 1.0);
    QVERIFY(probe.chart->curves().isEmpty());
}

void tst_ChartUpdates::chartDestroyedBeforeItsCurves()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    probe.chart->updateData(key, 0, 1000, 1.0);
    probe.chart.reset();
    QVERIFY(!a->plot());
    a->addSample(2000, 2.0);
    QCOMPARE(a->dataSize(), std::size_t(2));
}

void tst_ChartUpdates::strangeSamplesAreBorne_data()
{
    QTest::addColumn<QVector<QPointF>>("samples");
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double t = static_cast<double>(tcChartProbe::cNow);
    using V = QVector<QPointF>;
    QTest::newRow("none") << V{};
    QTest::newRow("one") << V{{t, 20.0}};
    QTest::newRow("NaN") << V{{t, nan}, {t + 1, 20.0}, {t + 2, nan}};
    QTest::newRow("only NaN") << V{{t, nan}};
    QTest::newRow("infinities") << V{{t, inf}, {t + 1, -inf}, {t + 2, 20.0}};
    QTest::newRow("1e308") << V{{t, 1e308}, {t + 1, -1e308}};
    QTest::newRow("equal times") << V{{t, 1.0}, {t, 2.0}, {t, 3.0}};
    QTest::newRow("backward times") << V{{t, 1.0}, {t - 500, 2.0}, {t - 900, 3.0}};
    QTest::newRow("time at zero") << V{{0.0, 1.0}, {t, 2.0}};
}

void tst_ChartUpdates::strangeSamplesAreBorne()
{
    QFETCH(QVector<QPointF>, samples);
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const QUuid key = probe.chart->addCurve(a.get());
    probe.show();
    probe.chart->showMinMax(true);
    for (const QPointF& sample : samples)
        probe.chart->updateData(key, 0, static_cast<qint64>(sample.x()), sample.y());
    QCOMPARE(a->dataSize(), static_cast<std::size_t>(samples.size()));
    probe.action("actionAutoScale_Y")->trigger();
    probe.action("actionAutoScale_X")->trigger();
    probe.chart->tick();
    for (const int axis : {QwtPlot::yLeft, QwtPlot::xBottom}) {
        QVERIFY(std::isfinite(probe.shown(axis).minValue()));
        QVERIFY(std::isfinite(probe.shown(axis).maxValue()));
        QVERIFY(probe.shown(axis).width() > 0.0);
    }
    QVERIFY(!probe.chart->grab().isNull());
    const auto again = probe.curve("B", 1);
    for (const QPointF& sample : samples)
        again->addSample(static_cast<qint64>(sample.x()), sample.y());
    probe.chart->addCurve(again.get(), key);
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_ChartUpdates::timerTicks()
{
    tcChartProbe probe;
    QTRY_COMPARE(probe.shown(QwtPlot::xBottom).maxValue(),
                 static_cast<double>(probe.now + 1000));
}

void tst_ChartUpdates::timerIsCoarse()
{
    tcChartProbe probe;
    const auto timers
        = QAbstractEventDispatcher::instance()->registeredTimers(probe.chart.get());
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().interval, 1000);
    QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
}

void tst_ChartUpdates::showLegendTogglesBothBoxes()
{
    tcChartProbe probe;
    probe.chart->showLegend(false);
    QVERIFY(probe.child<QWidget>("groupBoxLegend")->isHidden());
    QVERIFY(probe.child<QWidget>("groupBoxAxes")->isHidden());
    probe.chart->showLegend(true);
    QVERIFY(!probe.child<QWidget>("groupBoxLegend")->isHidden());
    QVERIFY(!probe.child<QWidget>("groupBoxAxes")->isHidden());
}

QTEST_MAIN(tst_ChartUpdates)
#include "tst_chartupdates.moc"

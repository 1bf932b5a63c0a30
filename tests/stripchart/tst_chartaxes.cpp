#include "stripchart/PrecisionScaleDraw.h"
#include "stripchart/TimeScaleDraw.h"
#include "stripchart/tcStripMarker.h"
#include "tests/stripchart/tcChartProbe.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QtTest>
#include <qwt_plot_grid.h>
#include <qwt_scale_widget.h>

#include <cmath>
#include <limits>

namespace
{
QwtPlotGrid* gridOf(const tcChartProbe& acProbe)
{
    return static_cast<QwtPlotGrid*>(
        acProbe.plot->itemList(QwtPlotItem::Rtti_PlotGrid).first());
}

int precisionOf(const tcChartProbe& acProbe)
{
    return static_cast<PrecisionScaleDraw*>(acProbe.plot->axisScaleDraw(QwtPlot::yLeft))
        ->precision();
}
} // namespace

class tst_ChartAxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeLabels();
    void valueLabels();
    void scaleDrawsOfTheAxes();
    void boxesOfTheAxes();
    void boxesApplyTheAxis_data();
    void boxesApplyTheAxis();
    void rangeWithoutWidthIsIgnored();
    void checkedAutoscaleActionStopsTheBoxes_data();
    void checkedAutoscaleActionStopsTheBoxes();
    void gridFollowsTheLeftAxis();
    void autoscaleActionsAreNotCheckable();
    void fitY_data();
    void fitY();
    void fitYCountsVisibleCurvesOfItsAxisOnly();
    void fitYWithoutCurvesChangesNothing();
    void fitYOfEqualValuesIsLogged();
    void fitsAreNotLoggedUnlessAskedFor();
    void fitX();
    void fitXIsShownAtOnce();
    void fitXIgnoresTheRightAxis();
    void fitXOfEqualTimesIsLogged();
    void fitXEndsAtTheDataWhenTheSpanChanges();
    void zoomResultSetsTheLeftAxis();
    void zoomResultFromZeroIsIgnored();
    void zoomResultFromNearZeroIsTaken();
    void copiedLimits();
    void assignedCurveMakesTheAxisVisible();
    void rightRangeMakesTheAxisVisible();
    void showXAxisTogglesTheLabels();
    void showMsTogglesMilliseconds();
    void labelsOnALowAxisDontTouch_data();
    void labelsOnALowAxisDontTouch();
    void narrowChartKeepsACanvas();
    void timeRangeWithoutWidthIsIgnored();
    void timesStandAtRoundSteps_data();
    void timesStandAtRoundSteps();
};

void tst_ChartAxes::timeLabels()
{
    TimeScaleDraw draw;
    QVERIFY(!draw.showMilliseconds());
    QCOMPARE(draw.label(1700000000123.0).text(), QString("23:13:20"));
    const double width = draw.labelSize(QFont(), 1700000000123.0).width();
    draw.setShowMilliseconds(true);
    QCOMPARE(draw.label(1700000000123.0).text(), QString("23:13:20.123"));
    QVERIFY(draw.labelSize(QFont(), 1700000000123.0).width() > width); // drawn anew
}

void tst_ChartAxes::valueLabels()
{
    PrecisionScaleDraw draw;
    QCOMPARE(draw.precision(), 3);
    QCOMPARE(draw.label(12.34567).text(), QString("12.346"));
    const double width = draw.labelSize(QFont(), 12.34567).width();
    draw.setPrecision(2);
    QCOMPARE(draw.label(-0.5).text(), QString("-0.50"));
    QVERIFY(draw.labelSize(QFont(), 12.34567).width() < width); // drawn anew
}

void tst_ChartAxes::scaleDrawsOfTheAxes()
{
    tcChartProbe probe;
    auto* bottom = probe.plot->axisScaleDraw(QwtPlot::xBottom);
    QVERIFY(dynamic_cast<TimeScaleDraw*>(bottom));
    QCOMPARE(bottom->labelRotation(), -50.0);
    QCOMPARE(bottom->labelAlignment(), Qt::AlignLeft | Qt::AlignBottom);
    QVERIFY(dynamic_cast<PrecisionScaleDraw*>(probe.plot->axisScaleDraw(QwtPlot::yLeft)));
    QCOMPARE(precisionOf(probe), 3);
}

void tst_ChartAxes::boxesOfTheAxes()
{
    tcChartProbe probe;
    for (const char* name : {"doubleSpinBoxYMin", "doubleSpinBoxYMax", "doubleSpinBoxY2Min",
                             "doubleSpinBoxY2Max"}) {
        QCOMPARE(probe.box(name)->decimals(), 4);
        QCOMPARE(probe.box(name)->minimum(), -999.0);
        QCOMPARE(probe.box(name)->maximum(), 9999999999.0);
    }
    QCOMPARE(probe.shown(QwtPlot::yLeft),
             QwtInterval(probe.box("doubleSpinBoxYMin")->value(),
                         probe.box("doubleSpinBoxYMax")->value()));
}

void tst_ChartAxes::boxesApplyTheAxis_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::addColumn<int>("precision");
    QTest::newRow("left, 10 to 50") << 0 << 10.0 << 50.0 << 3;
    QTest::newRow("left, half a unit") << 0 << 20.0 << 20.5 << 2;
    QTest::newRow("left, wide") << 0 << 0.0 << 100000.0 << 5;
    QTest::newRow("right sets the left precision too") << 1 << 0.0 << 1000.0 << 5;
}

void tst_ChartAxes::boxesApplyTheAxis()
{
    QFETCH(int, axis);
    QFETCH(double, from);
    QFETCH(double, to);
    tcChartProbe probe;
    probe.box(axis ? "doubleSpinBoxY2Min" : "doubleSpinBoxYMin")->setValue(from);
    probe.box(axis ? "doubleSpinBoxY2Max" : "doubleSpinBoxYMax")->setValue(to);
    const int plotAxis = axis ? QwtPlot::yRight : QwtPlot::yLeft;
    QCOMPARE(probe.shown(plotAxis), QwtInterval(from, to));
    const QList<double> ticks = probe.ticks(plotAxis);
    QCOMPARE(ticks.size(), 11);
    for (int i = 0; i < 11; ++i)
        QCOMPARE(ticks.at(i), from + i * (to - from) / 10.0);
    // What the minor grid is drawn at: none is left from before.
    QCOMPARE(probe.plot->axisScaleDiv(plotAxis).ticks(QwtScaleDiv::MinorTick).size(), 40);
    QVERIFY(probe.plot->axisScaleDiv(plotAxis).ticks(QwtScaleDiv::MediumTick).isEmpty());
    QTEST(precisionOf(probe), "precision");
}

void tst_ChartAxes::rangeWithoutWidthIsIgnored()
{
    tcChartProbe probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    const int precision = precisionOf(probe);
    probe.box("doubleSpinBoxYMax")->setValue(10.0);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
    probe.box("doubleSpinBoxYMax")->setValue(5.0);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
    QCOMPARE(precisionOf(probe), precision);
    probe.chart->setYRange(0, 7.0, 7.0);
    QCOMPARE(probe.box("doubleSpinBoxYMax")->value(), 5.0);
    probe.chart->setYRange(0, 0.0, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
}

void tst_ChartAxes::checkedAutoscaleActionStopsTheBoxes_data()
{
    QTest::addColumn<int>("axis");
    QTest::newRow("left") << 0;
    QTest::newRow("right") << 1;
}

void tst_ChartAxes::checkedAutoscaleActionStopsTheBoxes()
{
    QFETCH(int, axis);
    tcChartProbe probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    probe.chart->setYRange(1, 10.0, 50.0);
    QAction* action = probe.action(axis ? "actionAutoScale_Y2" : "actionAutoScale_Y");
    action->setCheckable(true);
    action->setChecked(true);
    probe.box("doubleSpinBoxYMax")->setValue(80.0);
    probe.box("doubleSpinBoxY2Max")->setValue(80.0);
    QCOMPARE(probe.shown(QwtPlot::yLeft).maxValue(), axis ? 80.0 : 50.0);
    QCOMPARE(probe.shown(QwtPlot::yRight).maxValue(), axis ? 50.0 : 80.0);
}

void tst_ChartAxes::gridFollowsTheLeftAxis()
{
    tcChartProbe probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    QCOMPARE(gridOf(probe)->yScaleDiv(), probe.plot->axisScaleDiv(QwtPlot::yLeft));
}

void tst_ChartAxes::autoscaleActionsAreNotCheckable()
{
    tcChartProbe probe;
    QVERIFY(!probe.action("actionAutoScale_Y")->isCheckable());
    QVERIFY(!probe.action("actionAutoScale_Y2")->isCheckable());
}

void tst_ChartAxes::fitY_data()
{
    QTest::addColumn<QVector<double>>("values");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    using V = QVector<double>;
    QTest::newRow("rounded outward") << V{3.2, 20.0, 47.9} << 0.0 << 50.0;
    QTest::newRow("constant") << V{20.0, 20.0} << 19.98 << 20.02;
    QTest::newRow("one value") << V{20.0} << 19.98 << 20.02;
    QTest::newRow("all below zero ends at zero") << V{-8.0, -3.0} << -8.0 << 0.0;
    QTest::newRow("wider than the boxes") << V{-1e308, 1e308} << -999.0 << 9999999999.0;
}

void tst_ChartAxes::fitY()
{
    QFETCH(QVector<double>, values);
    QFETCH(double, from);
    QFETCH(double, to);
    for (const int axis : {0, 1}) {
        tcChartProbe probe;
        const auto a = probe.curve("A");
        probe.chart->addCurve(a.get());
        probe.chart->assignAxis(a.get(), axis);
        for (const double value : values)
            a->addSample(1000, value);
        probe.action(axis ? "actionAutoScale_Y2" : "actionAutoScale_Y")->trigger();
        QCOMPARE(probe.shown(axis ? QwtPlot::yRight : QwtPlot::yLeft).minValue(), from);
        QCOMPARE(probe.shown(axis ? QwtPlot::yRight : QwtPlot::yLeft).maxValue(), to);
        QCOMPARE(probe.box(axis ? "doubleSpinBoxY2Min" : "doubleSpinBoxYMin")->value(), from);
        QCOMPARE(probe.box(axis ? "doubleSpinBoxY2Max" : "doubleSpinBoxYMax")->value(), to);
    }
}

void tst_ChartAxes::fitYCountsVisibleCurvesOfItsAxisOnly()
{
    tcChartProbe probe;
    const auto a = probe.curve("A", 0);
    const auto hidden = probe.curve("hidden", 1);
    const auto right = probe.curve("right", 2);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->addCurve(hidden.get(), key);
    probe.chart->addCurve(right.get(), key);
    probe.chart->assignAxis(right.get(), 1);
    a->addSample(1000, 3.2);
    a->addSample(1000, 47.9);
    hidden->addSample(1000, 900.0);
    hidden->setVisible(false);
    right->addSample(1000, 800.0);
    probe.action("actionAutoScale_Y")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 50.0));
}

void tst_ChartAxes::fitYWithoutCurvesChangesNothing()
{
    tcChartProbe probe;
    const QwtInterval before = probe.shown(QwtPlot::yLeft);
    probe.action("actionAutoScale_Y")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), before);
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    probe.action("actionAutoScale_Y")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), before);
}

void tst_ChartAxes::fitYOfEqualValuesIsLogged()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(1000, 20.0);
    probe.chart->setVerbosity(1);
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression("Y min == yMax\\.\\.\\. using ymin= "
                                            "19\\.98 ymax= 20\\.02"));
    probe.action("actionAutoScale_Y")->trigger();
}

void tst_ChartAxes::fitsAreNotLoggedUnlessAskedFor()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(1000000, 20.0);
    static int lines;
    lines = 0;
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++lines; });
    probe.action("actionAutoScale_Y")->trigger();
    probe.action("actionAutoScale_X")->trigger();
    qInstallMessageHandler(before);
    QCOMPARE(lines, 0);
}

void tst_ChartAxes::fitX()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(2000000, 1.0);
    a->addSample(1000000, 1.0);
    probe.action("actionAutoScale_X")->trigger();
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(1000000.0, 2000000.0));
    QCOMPARE(probe.child<QSpinBox>("spinBoxSpanSec")->value(), 1000);
    QCOMPARE(gridOf(probe)->xScaleDiv(), probe.plot->axisScaleDiv(QwtPlot::xBottom));
}

void tst_ChartAxes::fitXIsShownAtOnce()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(1000000, 1.0);
    a->addSample(2000000, 1.0);
    probe.action("actionAutoScale_X")->trigger();
    probe.show();
    probe.settle();
    a->clear();
    a->addSample(1500000, 1.0);
    a->addSample(2500000, 1.0); // as wide as before: the span box has nothing to tell
    tcPaintCounter counter(probe.plot->canvas());
    probe.action("actionAutoScale_X")->trigger();
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(1500000.0, 2500000.0));
    QTRY_VERIFY(counter.count > 0);
}

void tst_ChartAxes::fitXIgnoresTheRightAxis()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    probe.chart->assignAxis(a.get(), 1);
    a->addSample(1000000, 1.0);
    a->addSample(2000000, 1.0);
    const QwtInterval before = probe.shown(QwtPlot::xBottom);
    probe.action("actionAutoScale_X")->trigger();
    QCOMPARE(probe.shown(QwtPlot::xBottom), before);
}

void tst_ChartAxes::fitXOfEqualTimesIsLogged()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(1000000, 1.0);
    probe.chart->setVerbosity(1);
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression("X min == X Max\\.\\.\\. using xmin= "
                                            "999000 xmax= 1\\.001e\\+06"));
    probe.action("actionAutoScale_X")->trigger();
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(999000.0, 1001000.0));
}

void tst_ChartAxes::fitXEndsAtTheDataWhenTheSpanChanges()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(probe.now - 7500, 1.0);
    a->addSample(probe.now, 1.0);
    QVERIFY(probe.child<QSpinBox>("spinBoxSpanSec")->value() != 7);
    probe.action("actionAutoScale_X")->trigger();
    QCOMPARE(probe.child<QSpinBox>("spinBoxSpanSec")->value(), 7);
    QCOMPARE(probe.shown(QwtPlot::xBottom).maxValue(), static_cast<double>(probe.now));
    QCOMPARE(probe.shown(QwtPlot::xBottom).width(), 7500.0);
}

void tst_ChartAxes::zoomResultSetsTheLeftAxis()
{
    tcChartProbe probe;
    probe.chart->zoomed(QRectF(QPointF(5.0, 40.0), QPointF(9.0, 20.0)));
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(20.0, 40.0));
    QCOMPARE(probe.box("doubleSpinBoxYMin")->value(), 20.0);
    QCOMPARE(probe.box("doubleSpinBoxYMax")->value(), 40.0);
    QCOMPARE(probe.ticks(QwtPlot::yLeft).size(), 11);
}

void tst_ChartAxes::zoomResultFromZeroIsIgnored()
{
    tcChartProbe probe;
    const QwtInterval before = probe.shown(QwtPlot::yLeft);
    probe.chart->zoomed(QRectF(0.0, 20.0, 9.0, 20.0));
    QCOMPARE(probe.shown(QwtPlot::yLeft), before);
}

void tst_ChartAxes::zoomResultFromNearZeroIsTaken()
{
    tcChartProbe probe;
    probe.chart->zoomed(QRectF(QPointF(0.5, 20.0), QPointF(9.0, 30.0)));
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(20.0, 30.0));
}

void tst_ChartAxes::copiedLimits()
{
    tcChartProbe probe;
    probe.plot->setAxisScale(QwtPlot::yLeft, 12.5, 17.25);
    probe.plot->setAxisScale(QwtPlot::yRight, -4.0, 8.0);
    probe.plot->updateAxes();
    probe.child<QPushButton>("pushButton_getYLimits")->click();
    QCOMPARE(probe.box("doubleSpinBoxYMin")->value(), 12.5);
    QCOMPARE(probe.box("doubleSpinBoxYMax")->value(), 17.25);
    QCOMPARE(probe.box("doubleSpinBoxY2Min")->value(), -4.0);
    QCOMPARE(probe.box("doubleSpinBoxY2Max")->value(), 8.0);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(12.5, 17.25));
    QVERIFY(!probe.plot->axisEnabled(QwtPlot::yRight));
}

void tst_ChartAxes::assignedCurveMakesTheAxisVisible()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    a->addSample(1000, 10.0);
    tcStripPointMarker follower("f");
    follower.setCurve(a.get());
    probe.chart->assignAxis(a.get(), 1);
    QVERIFY(probe.plot->axisEnabled(QwtPlot::yRight));
    QCOMPARE(a->yAxis(), int(QwtPlot::yRight));
    QCOMPARE(follower.yAxis(), int(QwtPlot::yRight));
    probe.chart->assignAxis(a.get(), 0);
    QCOMPARE(a->yAxis(), int(QwtPlot::yLeft));
    QCOMPARE(follower.yAxis(), int(QwtPlot::yLeft));
    probe.chart->assignAxis(nullptr, 1);
}

void tst_ChartAxes::rightRangeMakesTheAxisVisible()
{
    tcChartProbe probe;
    probe.chart->setYRange(1, 0.0, 100.0);
    QVERIFY(probe.plot->axisEnabled(QwtPlot::yRight));
    QCOMPARE(probe.shown(QwtPlot::yRight), QwtInterval(0.0, 100.0));
    QCOMPARE(probe.ticks(QwtPlot::yRight).size(), 11);
}

void tst_ChartAxes::showXAxisTogglesTheLabels()
{
    tcChartProbe probe;
    probe.show();
    probe.settle();
    auto* draw = probe.plot->axisScaleDraw(QwtPlot::xBottom);
    const int withLabels = probe.plot->axisWidget(QwtPlot::xBottom)->height();
    probe.child<QToolButton>("toolButton_showX")->click();
    QVERIFY(!draw->hasComponent(QwtAbstractScaleDraw::Labels));
    QVERIFY(!probe.action("actionShow_X_Axis")->isChecked());
    QTRY_VERIFY(probe.plot->axisWidget(QwtPlot::xBottom)->height() < withLabels);
    probe.action("actionShow_X_Axis")->setChecked(true);
    QVERIFY(draw->hasComponent(QwtAbstractScaleDraw::Labels));
    QVERIFY(probe.child<QToolButton>("toolButton_showX")->isChecked());
    QTRY_COMPARE(probe.plot->axisWidget(QwtPlot::xBottom)->height(), withLabels);
}

void tst_ChartAxes::showMsTogglesMilliseconds()
{
    tcChartProbe probe;
    probe.show();
    probe.settle();
    auto* draw = static_cast<TimeScaleDraw*>(probe.plot->axisScaleDraw(QwtPlot::xBottom));
    const int withoutMs = probe.plot->axisWidget(QwtPlot::xBottom)->height();
    probe.action("actionShow_ms")->setChecked(true);
    QVERIFY(draw->showMilliseconds());
    QVERIFY(probe.child<QToolButton>("toolButton_showMs")->isChecked());
    QTRY_VERIFY(probe.plot->axisWidget(QwtPlot::xBottom)->height() > withoutMs);
    probe.child<QToolButton>("toolButton_showMs")->click();
    QVERIFY(!draw->showMilliseconds());
    QVERIFY(!probe.action("actionShow_ms")->isChecked());
}

void tst_ChartAxes::labelsOnALowAxisDontTouch_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<int>("height");
    for (const int axis : {0, 1})
        for (const int height : {160, 250, 300, 600})
            QTest::addRow("axis %d, %d high", axis, height) << axis << height;
}

// Rows of the axis with ink in them come in runs, one a label: each run is one text high.
void tst_ChartAxes::labelsOnALowAxisDontTouch()
{
    QFETCH(int, axis);
    QFETCH(int, height);
    constexpr int ticksWidth = 14; // with the backbone, on the side of the canvas
    tcChartProbe probe;
    QFont large = probe.chart->font();
    large.setPixelSize(28);
    probe.plot->setAxisFont(axis ? QwtPlot::yRight : QwtPlot::yLeft, large);
    probe.show(QSize(700, height));
    probe.chart->setYRange(axis, 10.0, 50.0);
    QCoreApplication::processEvents();
    QWidget* scale = probe.plot->axisWidget(axis ? QwtPlot::yRight : QwtPlot::yLeft);
    const QImage image = scale->grab().toImage();
    const int from = axis ? ticksWidth : 0;
    const int to = axis ? image.width() : image.width() - ticksWidth;
    const QRgb paper = image.pixel(axis ? image.width() - 1 : 0, image.height() / 2 + 3);
    int run = 0;
    int longest = 0;
    for (int y = 0; y < image.height(); ++y) {
        bool ink = false;
        for (int x = from; x < to; ++x)
            ink = ink || image.pixel(x, y) != paper;
        run = ink ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    QVERIFY(longest > 0);
    const int textHeight = QFontMetrics(scale->font()).height();
    QVERIFY2(longest <= textHeight, qPrintable(QString::number(longest)));
}

// The left panel gives way, and is scrolled sideways then.
void tst_ChartAxes::narrowChartKeepsACanvas()
{
    tcChartProbe probe;
    probe.chart->setYRange(1, 0.0, 100.0);
    probe.show(QSize(800, 500));
    const auto* panel = probe.child<QScrollArea>("scrollAreaLeft");
    QVERIFY(!panel->horizontalScrollBar()->isVisible());
    QVERIFY(panel->viewport()->width() >= panel->widget()->minimumSizeHint().width());
    probe.show(QSize(400, 250));
    QCOMPARE(probe.chart->size(), QSize(400, 250));
    QVERIFY2(probe.plot->canvas()->width() >= 90,
             qPrintable(QString::number(probe.plot->canvas()->width())));
    QVERIFY(panel->horizontalScrollBar()->isVisible());
    QCOMPARE(panel->horizontalScrollBar()->maximum() + panel->viewport()->width(),
             panel->widget()->width());
    probe.show(QSize(800, 500));
    QVERIFY(!panel->horizontalScrollBar()->isVisible());
    // A width that the operator chose stays.
    auto* splitter = probe.child<QSplitter>("splitter");
    QWidget* handle = splitter->handle(1);
    const QPoint grip = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, grip);
    const QPoint to = grip + QPoint(40, 0);
    QMouseEvent drag(QEvent::MouseMove, to, handle->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(handle, &drag);
    QTest::mouseRelease(handle, Qt::LeftButton);
    const int chosen = splitter->sizes().first();
    QVERIFY(chosen > panel->widget()->minimumSizeHint().width() + 30);
    probe.child<QToolButton>("toolButtonMarkers")->setText("A text of its own length...");
    QCoreApplication::processEvents();
    QCOMPARE(splitter->sizes().first(), chosen);
}

void tst_ChartAxes::timeRangeWithoutWidthIsIgnored()
{
    tcChartProbe probe;
    const QwtInterval before = probe.shown(QwtPlot::xBottom);
    probe.chart->setXRange(5.0, 5.0);
    probe.chart->setXRange(6.0, 5.0);
    probe.chart->setXRange(0.0, std::numeric_limits<double>::infinity());
    QCOMPARE(probe.shown(QwtPlot::xBottom), before);
}

void tst_ChartAxes::timesStandAtRoundSteps_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("span");
    QTest::addColumn<double>("step");
    QTest::newRow("400 wide, a minute") << 400 << 60 << 30000.0;
    QTest::newRow("1200 wide, a minute") << 1200 << 60 << 10000.0;
    QTest::newRow("3800 wide, a minute") << 3800 << 60 << 5000.0;
    QTest::newRow("1200 wide, an hour") << 1200 << 3600 << 600000.0;
}

void tst_ChartAxes::timesStandAtRoundSteps()
{
    QFETCH(int, width);
    QFETCH(int, span);
    QFETCH(double, step);
    tcChartProbe probe;
    probe.action("actionShow_Left")->setChecked(false);
    probe.show(QSize(width, 500));
    probe.chart->setSpanMs(span * 1000);
    probe.chart->tick();
    const QList<double> ticks = probe.ticks(QwtPlot::xBottom);
    QVERIFY(ticks.size() >= 2);
    for (int i = 1; i < ticks.size(); ++i)
        QCOMPARE(ticks.at(i) - ticks.at(i - 1), step);
    QCOMPARE(std::fmod(ticks.first(), step), 0.0);
}

QTEST_MAIN(tst_ChartAxes)
#include "tst_chartaxes.moc"

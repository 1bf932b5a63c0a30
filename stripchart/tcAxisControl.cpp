#include "stripchart/tcAxisControl.h"

#include "stripchart/PrecisionScaleDraw.h"
#include "stripchart/TimeScaleDraw.h"
#include "stripchart/TimeScaleEngine.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "ui_StripChart.h"

#include <QDebug>
#include <QSignalBlocker>
#include <qwt_plot_grid.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>

using tcAxisMath::tcRange;

namespace
{
constexpr int cLeft = 0;
constexpr int cLabelRotation = -50;
constexpr int cTimeFontPixels = 9;
constexpr int cMaxSpanS = 86400;
constexpr int cPixelsPerTime = 110; ///< of the plot's width, for each labelled time
constexpr int cFewestTimes = 3;
constexpr int cMostTimes = 24;

int plotAxis(int anAxis)
{
    return anAxis == cLeft ? QwtPlot::yLeft : QwtPlot::yRight;
}
} // namespace

tcAxisControl::tcAxisControl(Ui::StripChart& arForm, QwtPlotGrid& arGrid)
    : mForm(arForm)
    , mPlot(*arForm.qwtPlot)
    , mGrid(arGrid)
    , mTimeDraw(new TimeScaleDraw)
    , mPrecisionDraw(new PrecisionScaleDraw)
{
    mPlot.setAxisScaleEngine(QwtPlot::xBottom, new TimeScaleEngine);
    mPlot.setAxisScale(QwtPlot::xBottom, 0.0, 100.0);
    mPlot.setAxisScaleDraw(QwtPlot::xBottom, mTimeDraw);
    mPlot.setAxisLabelRotation(QwtPlot::xBottom, cLabelRotation);
    mPlot.setAxisLabelAlignment(QwtPlot::xBottom, Qt::AlignLeft | Qt::AlignBottom);
    QFont font = mPlot.axisFont(QwtPlot::xBottom);
    font.setPixelSize(cTimeFontPixels);
    mPlot.setAxisFont(QwtPlot::xBottom, font);
    mPlot.setAxisScaleDraw(QwtPlot::yLeft, mPrecisionDraw);
    mPlot.setAxisScaleDraw(QwtPlot::yRight, new ThinScaleDraw);
    mPlot.setAxisScale(QwtPlot::yRight, boxes(1).min.value(), boxes(1).max.value());
    showRange(cLeft, rangeOfBoxes(cLeft)); // with the decimals of a scale that nobody set
    // As designed: the span in ms meets the range that a fresh box has, and so shows 99.
    mForm.spinBoxSpanSec->setValue(static_cast<int>(mSpanMs));
    mForm.spinBoxSpanSec->setRange(1, cMaxSpanS);
    mForm.spinBoxSamples->setRange(100, 100000);
    mForm.spinBoxSamples->setValue(1000);
    connectActions();
}

void tcAxisControl::connectActions()
{
    connect(mForm.actionAutoScale_X, &QAction::triggered, this, &tcAxisControl::fitX);
    connect(mForm.actionAutoScale_Y, &QAction::triggered, this, [this] { fitY(0, nullptr); });
    connect(mForm.actionAutoScale_Y2, &QAction::triggered, this, [this] { fitY(1, nullptr); });
    connect(mForm.pushButton_getYLimits, &QAbstractButton::clicked, this,
            &tcAxisControl::copyLimitsToBoxes);
}

void tcAxisControl::changeSpan(int anSeconds, qint64 anNowMs)
{
    const auto window = tcAxisMath::spanWindow(anSeconds, anNowMs,
                                               mPlot.axisInterval(QwtPlot::xBottom).maxValue());
    mSpanMs = window.spanMs;
    setXRange(window.range.from, window.range.to);
    mPlot.replot();
}

void tcAxisControl::setXRange(double anFrom, double anTo)
{
    if (!tcRange{anFrom, anTo}.isValid())
        return;
    mPlot.setAxisMaxMajor(QwtPlot::xBottom,
                          qBound(cFewestTimes, mPlot.width() / cPixelsPerTime, cMostTimes));
    mPlot.setAxisScale(QwtPlot::xBottom, anFrom, anTo);
    mPlot.updateAxes();
    mGrid.setXDiv(mPlot.axisScaleDiv(QwtPlot::xBottom));
}

void tcAxisControl::includeTimesOf(const tcStripCurve& acCurve)
{
    const QRectF area = acCurve.boundingRect();
    if (area.width() < 0.0 || area.height() < 0.0)
        return;
    const QwtInterval shown = mPlot.axisInterval(QwtPlot::xBottom);
    setXRange(std::min(shown.minValue(), area.left()),
              std::max(shown.maxValue(), area.right()));
}

void tcAxisControl::scrollTo(qint64 anEndMs)
{
    if (mHeld)
        return;
    setXRange(static_cast<double>(anEndMs - mSpanMs), static_cast<double>(anEndMs));
}

void tcAxisControl::applyBoxes(int anAxis)
{
    if (isAutomatic(anAxis))
        return;
    const tcRange range = rangeOfBoxes(anAxis);
    if (!range.isValid())
        return;
    showRange(anAxis, range);
    mPrecisionDraw->setPrecision(tcAxisMath::precision(range));
    mPlot.replot();
}

void tcAxisControl::showRange(int anAxis, const tcRange& acRange)
{
    const int axis = plotAxis(anAxis);
    QwtScaleDiv division = mPlot.axisScaleDiv(axis);
    division.setInterval(acRange.from, acRange.to);
    division.setTicks(QwtScaleDiv::MajorTick, tcAxisMath::elevenTicks(acRange).toList());
    division.setTicks(QwtScaleDiv::MediumTick, {});
    division.setTicks(QwtScaleDiv::MinorTick, tcAxisMath::minorTicks(acRange).toList());
    mPlot.enableAxis(axis);
    mPlot.setAxisScaleDiv(axis, division);
    // As designed: of either axis. The next update gives the grid the left one's again.
    mGrid.setYDiv(division);
}

void tcAxisControl::setYRange(int anAxis, double anFrom, double anTo)
{
    if (!tcRange{anFrom, anTo}.isValid())
        return;
    const tcBoxes limits = boxes(anAxis);
    {
        const QSignalBlocker minBlocker(limits.min);
        const QSignalBlocker maxBlocker(limits.max);
        limits.min.setValue(anFrom);
        limits.max.setValue(anTo);
    }
    applyBoxes(anAxis);
}

void tcAxisControl::copyLimitsToBoxes()
{
    for (const int axis : {0, 1}) {
        const QwtInterval shown = mPlot.axisInterval(plotAxis(axis));
        const tcBoxes limits = boxes(axis);
        const QSignalBlocker minBlocker(limits.min);
        const QSignalBlocker maxBlocker(limits.max);
        limits.min.setValue(shown.minValue());
        limits.max.setValue(shown.maxValue());
    }
}

void tcAxisControl::fitY(int anAxis, const tcStripCurve* apCurve)
{
    tcAxisMath::tcExtent extent;
    bool found = false;
    for (const tcStripCurve* curve : visibleCurves(anAxis)) {
        if (apCurve && curve != apCurve)
            continue;
        found = true;
        double lowest = 0.0;
        double highest = 0.0;
        if (!curve->finiteYRange(&lowest, &highest))
            continue;
        extent.add(lowest);
        extent.add(highest);
    }
    const tcAxisMath::tcFit fit = tcAxisMath::valueFit(extent);
    if (fit.spread)
        logSpread("Y min == yMax... using", "ymin=", "ymax=", fit.range);
    if (found && fit.range.to > fit.range.from)
        setYRange(anAxis, fit.range.from, fit.range.to);
}

void tcAxisControl::fitX()
{
    tcAxisMath::tcExtent extent;
    bool found = false;
    for (const tcStripCurve* curve : visibleCurves(cLeft)) {
        found = true;
        double earliest = 0.0;
        double latest = 0.0;
        if (!curve->finiteXRange(&earliest, &latest))
            continue;
        extent.add(earliest);
        extent.add(latest);
    }
    const tcAxisMath::tcFit fit = tcAxisMath::timeFit(extent);
    if (fit.spread)
        logSpread("X min == X Max... using", "xmin=", "xmax=", fit.range);
    if (!found || !fit.range.isValid())
        return;
    // The box first: it sets a window of its own, with margins.
    mForm.spinBoxSpanSec->setValue(static_cast<int>(
        std::min((fit.range.to - fit.range.from) / 1000.0, static_cast<double>(cMaxSpanS))));
    setXRange(fit.range.from, fit.range.to);
    mPlot.replot();
}

void tcAxisControl::takeZoom(const QRectF& acRect)
{
    // The zoomer's first base stands at zero, long before any reading.
    if (acRect.left() == 0.0)
        return;
    setYRange(cLeft, std::min(acRect.top(), acRect.bottom()),
              std::max(acRect.top(), acRect.bottom()));
}

void tcAxisControl::assign(tcStripCurve& arCurve, int anAxis)
{
    const int axis = plotAxis(anAxis);
    mPlot.enableAxis(axis);
    arCurve.setYAxis(axis);
    const QVector<tcStripMarker*> followers = arCurve.markers();
    for (tcStripMarker* marker : followers)
        marker->setYAxis(axis);
    mPlot.replot();
}

void tcAxisControl::fitHeight(bool abLow)
{
    const QwtInterval shown = mPlot.axisInterval(QwtPlot::yLeft);
    const tcRange range{shown.minValue(), shown.maxValue()};
    if (abLow)
        mPlot.setAxisScaleDiv(
            QwtPlot::yLeft,
            QwtScaleDiv(range.from, range.to, {}, {}, tcAxisMath::threeTicks(range).toList()));
    else
        mPlot.setAxisScale(QwtPlot::yLeft, range.from, range.to, 0.0);
    mPlot.replot();
}

void tcAxisControl::showTimeLabels(bool abOn)
{
    mTimeDraw->enableComponent(QwtAbstractScaleDraw::Labels, abOn);
    measureTimeLabels();
}

void tcAxisControl::showMilliseconds(bool abOn)
{
    mTimeDraw->setShowMilliseconds(abOn);
    measureTimeLabels();
}

void tcAxisControl::measureTimeLabels()
{
    // The scale widget measures itself anew only when it is told something of its own.
    mPlot.axisWidget(QwtPlot::xBottom)->setLabelRotation(cLabelRotation);
    mPlot.updateLayout();
    mPlot.replot();
}

tcAxisControl::tcBoxes tcAxisControl::boxes(int anAxis) const
{
    if (anAxis == cLeft)
        return {*mForm.doubleSpinBoxYMin, *mForm.doubleSpinBoxYMax};
    return {*mForm.doubleSpinBoxY2Min, *mForm.doubleSpinBoxY2Max};
}

tcRange tcAxisControl::rangeOfBoxes(int anAxis) const
{
    const tcBoxes limits = boxes(anAxis);
    return {limits.min.value(), limits.max.value()};
}

bool tcAxisControl::isAutomatic(int anAxis) const
{
    // As designed: neither action is checkable, so neither is ever checked.
    const QAction* action
        = anAxis == cLeft ? mForm.actionAutoScale_Y : mForm.actionAutoScale_Y2;
    return action->isChecked();
}

QVector<const tcStripCurve*> tcAxisControl::visibleCurves(int anAxis) const
{
    QVector<const tcStripCurve*> curves;
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (const QwtPlotItem* item : items)
        if (item->isVisible() && item->yAxis() == plotAxis(anAxis))
            curves.append(static_cast<const tcStripCurve*>(item));
    return curves;
}

void tcAxisControl::logSpread(const char* apText, const char* apMin, const char* apMax,
                              const tcRange& acRange) const
{
    if (mVerbosity >= 1)
        qDebug() << mPlot.window()->windowTitle() << apText << apMin << acRange.from << apMax
                 << acRange.to;
}

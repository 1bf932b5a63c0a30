#include "stripchart/tcMinMaxLines.h"

#include "stripchart/tcStripCurve.h"

#include <QPainter>
#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <algorithm>
#include <limits>

namespace
{
constexpr double cAboveAll = std::numeric_limits<double>::max();
// As designed: the smallest positive double, not the most negative one, so the line of the
// highest value never goes below zero.
constexpr double cBelowAll = std::numeric_limits<double>::min();
const QColor cUnfollowedColor(200, 200, 200);

void prepare(tcStripLineMarker& arLine, double anValue, QwtPlot& arPlot)
{
    arLine.setLinePen(cUnfollowedColor, 0.0, Qt::DotLine);
    QwtText label;
    label.setColor(Qt::white);
    arLine.setLabel(label);
    arLine.setYValue(anValue);
    arLine.setVisible(false);
    arLine.attach(&arPlot);
}

bool hasValues(const tcStripCurve& acCurve)
{
    double lowest = 0.0;
    double highest = 0.0;
    return acCurve.finiteYRange(&lowest, &highest);
}
} // namespace

void tcExtremeLine::draw(QPainter* apPainter, const QwtScaleMap& acXMap,
                         const QwtScaleMap& acYMap, const QRectF& acCanvas) const
{
    if (yValue() >= std::min(acYMap.s1(), acYMap.s2())
        && yValue() <= std::max(acYMap.s1(), acYMap.s2()))
        tcStripLineMarker::draw(apPainter, acXMap, acYMap, acCanvas);
}

void tcExtremeLine::drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                              const QPointF& acAt) const
{
    QPointF at = acAt;
    if (mLower && mLower->isVisible() && plot()) {
        const double room = label().textSize(apPainter->font()).height() + spacing();
        at.setY(clearOfLower(at.y(), room, acCanvas));
    }
    tcStripLineMarker::drawLabel(apPainter, acCanvas, at);
}

/// Where the label is to hang from instead of anY.
double tcExtremeLine::clearOfLower(double anY, double anRoom, const QRectF& acCanvas) const
{
    const double lower = plot()->canvasMap(mLower->yAxis()).transform(mLower->yValue());
    // The label below hangs from its line, or stands on it where the canvas ends.
    const double taken = lower + anRoom > acCanvas.bottom() ? lower - anRoom : lower;
    if (lower < anY || taken - anY >= anRoom)
        return anY;
    const double above = std::min(anY, taken) - anRoom - spacing();
    return above >= acCanvas.top() ? above : taken + anRoom;
}

tcMinMaxLines::tcMinMaxLines(QwtPlot& arPlot)
    : mMin(QStringLiteral("Min:")), mMax(QStringLiteral("Max:"))
{
    prepare(mMin, cAboveAll, arPlot);
    prepare(mMax, cBelowAll, arPlot);
    mMax.keepClearOf(mMin);
}

void tcMinMaxLines::toExtremes()
{
    mMin.setYValue(cAboveAll);
    mMax.setYValue(cBelowAll);
}

void tcMinMaxLines::refresh()
{
    const tcStripCurve* low = mMin.curve();
    if (low && hasValues(*low)) {
        const double now = mMin.yValue() == 0.0 ? low->minYValue() : mMin.yValue();
        mMin.setYValueWithLabel(std::min(now, low->minYValue()));
    }
    const tcStripCurve* high = mMax.curve();
    if (high && hasValues(*high))
        mMax.setYValueWithLabel(std::max(high->maxYValue(), mMax.yValue()));
}

void tcMinMaxLines::widen(const tcStripCurve& acCurve)
{
    if ((!mMin.isVisible() && !mMax.isVisible()) || !hasValues(acCurve))
        return;
    // As designed: the curve that received the reading, and no new label.
    if (mMin.isVisible())
        mMin.setYValue(std::min(mMin.yValue(), acCurve.minYValue()));
    if (mMax.isVisible())
        mMax.setYValue(std::max(mMax.yValue(), acCurve.maxYValue()));
}

void tcMinMaxLines::follow(tcStripCurve* apCurve)
{
    mMin.setCurve(apCurve);
    mMax.setCurve(apCurve);
}

void tcMinMaxLines::setShown(bool abOn)
{
    mShown = abOn;
    mMin.setVisible(abOn);
    mMax.setVisible(abOn);
}

void tcMinMaxLines::keepHidden()
{
    if (!mShown)
        setShown(false);
}

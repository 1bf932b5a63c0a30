#include "stripchart/tcStripCurve.h"

#include "stripchart/logic/tcCurveColors.h"
#include "stripchart/logic/tcWideRegisters.h"
#include "stripchart/tcColumnPainter.h"
#include "stripchart/tcCurveNotifier.h"
#include "stripchart/tcCurveSeries.h"
#include "stripchart/tcStripMarker.h"

#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace
{

tcPixelMap pixels(const QwtScaleMap& acMap)
{
    const double range = acMap.s2() - acMap.s1();
    return {acMap.s1(), acMap.p1(), range == 0.0 ? 1.0 : (acMap.p2() - acMap.p1()) / range};
}

bool give(const tcExtent& acExtent, double* apLowest, double* apHighest)
{
    if (acExtent.isEmpty())
        return false;
    if (apLowest)
        *apLowest = acExtent.lowest;
    if (apHighest)
        *apHighest = acExtent.highest;
    return true;
}

} // namespace

tcStripCurve::tcStripCurve(int anIndex)
    : mIndex(anIndex)
    , mSamples(std::make_shared<tcLockedSamples>())
    , mNotifier(std::make_unique<tcCurveNotifier>([this] { itemChanged(); }))
{
    setRenderHint(QwtPlotItem::RenderAntialiased);
    setData(new tcCurveSeries(mSamples));
}

tcStripCurve::~tcStripCurve()
{
    const QVector<tcStripMarker*> followers = mMarkers;
    for (tcStripMarker* marker : followers)
        marker->setCurve(nullptr);
    // While the curve is still whole: leaving the plot updates its legend.
    detach();
}

QColor tcStripCurve::stripCurveColor(int anIndex)
{
    return tcCurveColors::at(anIndex);
}

void tcStripCurve::addSample(qint64 anMsSinceEpoch, double anValue)
{
    {
        const std::lock_guard<std::mutex> lock(mSamples->mutex);
        mSamples->store.append(static_cast<double>(anMsSinceEpoch), anValue);
    }
    samplesChanged();
}

void tcStripCurve::addSamples(const double* apTimes, const double* apValues, int anCount)
{
    if (anCount <= 0)
        return;
    {
        const std::lock_guard<std::mutex> lock(mSamples->mutex);
        mSamples->store.append(apTimes, apValues, anCount);
    }
    samplesChanged();
}

void tcStripCurve::clear()
{
    {
        const std::lock_guard<std::mutex> lock(mSamples->mutex);
        mSamples->store.clear();
    }
    samplesChanged();
}

void tcStripCurve::setSampleCount(int anCount)
{
    {
        const std::lock_guard<std::mutex> lock(mSamples->mutex);
        if (anCount == mSamples->store.capacity())
            return;
        mSamples->store.setCapacity(anCount);
    }
    samplesChanged();
}

int tcStripCurve::sampleCount() const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    return mSamples->store.capacity();
}

/// With no lock held: an automatic replot asks for the samples in the same breath.
void tcStripCurve::samplesChanged()
{
    mNotifier->notify();
}

void tcStripCurve::setVisible(bool abOn)
{
    QwtPlotItem::setVisible(abOn);
    for (tcStripMarker* marker : qAsConst(mMarkers))
        marker->setVisible(abOn);
}

void tcStripCurve::addMarker(tcStripMarker* apMarker)
{
    if (!mMarkers.contains(apMarker))
        mMarkers.append(apMarker);
}

void tcStripCurve::removeMarker(tcStripMarker* apMarker)
{
    mMarkers.removeAll(apMarker);
}

int tcStripCurve::copySamples(int anFirst, int anCount, double* apTimes, double* apValues) const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    return mSamples->store.copy(anFirst, anCount, apTimes, apValues);
}

qint64 tcStripCurve::copyAddedSince(qint64 anSeen, std::vector<double>& arTimes,
                                    std::vector<double>& arValues) const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    mSamples->store.copyAppendedSince(anSeen, arTimes, arValues);
    return mSamples->store.appended();
}

bool tcStripCurve::finiteYRange(double* apLowest, double* apHighest) const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    return give(mSamples->store.valueExtent(), apLowest, apHighest);
}

bool tcStripCurve::finiteXRange(double* apEarliest, double* apLatest) const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    return give(mSamples->store.timeExtent(), apEarliest, apLatest);
}

double tcStripCurve::minYValue() const
{
    double lowest = 1.0;
    finiteYRange(&lowest, nullptr);
    return lowest;
}

double tcStripCurve::maxYValue() const
{
    double highest = -1.0;
    finiteYRange(nullptr, &highest);
    return highest;
}

/// Lines on whole pixels of linear axes. Anything else is drawn sample by sample.
bool tcStripCurve::isPlainLine(QPainter* apPainter, const QwtScaleMap& acX,
                               const QwtScaleMap& acY) const
{
    return QwtPainter::roundingAlignment(apPainter) && !acX.transformation()
        && !acY.transformation() && !testCurveAttribute(Fitted)
        && (brush().style() == Qt::NoBrush || brush().color().alpha() == 0);
}

void tcStripCurve::drawLines(QPainter* apPainter, const QwtScaleMap& acX,
                             const QwtScaleMap& acY, const QRectF& acCanvas, int anFrom,
                             int anTo) const
{
    tcWideRegisters::release();
    if (!isPlainLine(apPainter, acX, acY)) {
        QwtPlotCurve::drawLines(apPainter, acX, acY, acCanvas, anFrom, anTo);
        return;
    }
    const int reach = tcColumnPainter::reach(*apPainter);
    tcColumnReduction reduction(pixels(acX), pixels(acY),
                                static_cast<int>(std::floor(acCanvas.left())) - reach,
                                static_cast<int>(std::ceil(acCanvas.right())) + reach);
    {
        const std::lock_guard<std::mutex> lock(mSamples->mutex);
        const tcSampleStore& store = mSamples->store;
        reduction.add(store, std::max(anFrom, 0), std::min(anTo + 1, store.size()));
    }
    tcColumnPainter(*apPainter, acCanvas).paint(reduction.columns());
}

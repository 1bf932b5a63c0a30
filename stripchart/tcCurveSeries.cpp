#include "stripchart/tcCurveSeries.h"

tcCurveSeries::tcCurveSeries(std::shared_ptr<tcLockedSamples> apSamples)
    : mSamples(std::move(apSamples))
{
}

std::size_t tcCurveSeries::size() const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    return static_cast<std::size_t>(mSamples->store.size());
}

QPointF tcCurveSeries::sample(std::size_t anIndex) const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    const tcSampleStore& store = mSamples->store;
    if (anIndex >= static_cast<std::size_t>(store.size()))
        return {};
    const int index = static_cast<int>(anIndex);
    return {store.time(index), store.value(index)};
}

QRectF tcCurveSeries::boundingRect() const
{
    const std::lock_guard<std::mutex> lock(mSamples->mutex);
    const tcExtent times = mSamples->store.timeExtent();
    const tcExtent values = mSamples->store.valueExtent();
    if (times.isEmpty() || values.isEmpty())
        return {1.0, 1.0, -2.0, -2.0};
    return {times.lowest, values.lowest, times.highest - times.lowest,
            values.highest - values.lowest};
}

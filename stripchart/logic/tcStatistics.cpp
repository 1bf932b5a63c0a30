#include "stripchart/logic/tcStatistics.h"

#include <cmath>

namespace
{
constexpr double cNone = std::numeric_limits<double>::quiet_NaN();
constexpr double cMsPerMinute = 60000.0;
} // namespace

void tcStatistics::add(double anTimeMs, double anValue)
{
    if (!std::isfinite(anTimeMs) || !std::isfinite(anValue))
        return;
    ++mCount;
    mSmallest = std::fmin(mSmallest, anValue); // a NaN gives way to the number
    mLargest = std::fmax(mLargest, anValue);
    const auto count = static_cast<double>(mCount);
    const double timeOff = anTimeMs - mMeanTime;
    const double valueOff = anValue - mMeanValue;
    mMeanTime += timeOff / count;
    mMeanValue += valueOff / count;
    mTimeSquares += timeOff * (anTimeMs - mMeanTime);
    mValueSquares += valueOff * (anValue - mMeanValue);
    mProducts += timeOff * (anValue - mMeanValue);
}

double tcStatistics::mean() const
{
    return mCount > 0 ? mMeanValue : cNone;
}

double tcStatistics::deviation() const
{
    return mCount > 1 ? std::sqrt(mValueSquares / static_cast<double>(mCount - 1)) : cNone;
}

double tcStatistics::slopePerMinute() const
{
    return mTimeSquares > 0.0 ? mProducts / mTimeSquares * cMsPerMinute : cNone;
}

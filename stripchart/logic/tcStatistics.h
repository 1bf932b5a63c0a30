#pragma once

#include <QtGlobal>

#include <limits>

/// Sums up readings as they come, in one pass and without adding large squares, so that small
/// scatter on large numbers (times since 1970 above all) is not lost to rounding.
class tcStatistics
{
public:
    /// Passes over a reading whose time or value is no finite number. Time in ms.
    void add(double anTimeMs, double anValue);

    qint64 count() const { return mCount; }
    /// NaN when there are no readings, as with all below that have nothing to tell.
    double smallest() const { return mSmallest; }
    double largest() const { return mLargest; }
    double mean() const;
    /// Of a sample: divided by count - 1, so there is none for a single reading.
    double deviation() const;
    /// Of the straight line with the least squares; none when all readings are of one time.
    double slopePerMinute() const;

private:
    qint64 mCount = 0;
    double mSmallest = std::numeric_limits<double>::quiet_NaN();
    double mLargest = std::numeric_limits<double>::quiet_NaN();
    double mMeanTime = 0.0;
    double mMeanValue = 0.0;
    double mTimeSquares = 0.0; ///< of the distances from the mean
    double mValueSquares = 0.0;
    double mProducts = 0.0;
};

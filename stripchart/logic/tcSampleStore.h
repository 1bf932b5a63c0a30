#pragma once

#include "stripchart/logic/tcSampleColumn.h"

#include <algorithm>
#include <deque>
#include <vector>

/// The bounded samples of one curve: times in milliseconds since the epoch and values, oldest
/// first. What is drawn is as long as the shorter of the two. Not thread-safe.
class tcSampleStore
{
public:
    static constexpr int cDefaultCapacity = 100;

    /// Drops the oldest time and value when there are more values than the capacity, then adds
    /// the new ones.
    void append(double anTime, double anValue);
    void append(const double* apTimes, const double* apValues, int anCount); ///< as one by one
    void clear();

    int capacity() const { return mCapacity; }
    /// A larger capacity changes nothing that is held. A smaller one cuts the newest times
    /// beyond it or pads the times with zeros up to it. Negative counts mean 0.
    void setCapacity(int anCapacity);

    int size() const { return std::min(mTimes.size(), mValues.size()); }
    double time(int anIndex) const { return mTimes.at(anIndex); }
    double value(int anIndex) const { return mValues.at(anIndex); }
    const tcSampleColumn& times() const { return mTimes; }
    const tcSampleColumn& values() const { return mValues; }

    /// Over the samples drawn.
    tcExtent timeExtent() const;
    tcExtent valueExtent() const;

    /// Fills both arrays, either of which may be null; returns how many samples there were.
    int copy(int anFirst, int anCount, double* apTimes, double* apValues) const;

    /// Index of the first sample after anIndex whose time is below that of its predecessor (or
    /// no number), size() when there is none: times ascend from anIndex up to there.
    int nextStepBack(int anIndex) const;
    /// Index of the first sample from anIndex on whose time or value is no finite number, at
    /// most size().
    int nextGap(int anIndex) const;

    /// Samples appended so far, whatever became of them.
    long long appended() const { return mAppended; }
    /// The samples appended after the first anSeen, as far as they are still held, oldest
    /// first. Each value comes with the time it was appended with, where what is drawn may pair
    /// others since the capacity was lowered.
    void copyAppendedSince(long long anSeen, std::vector<double>& arTimes,
                           std::vector<double>& arValues) const;

    std::size_t bytes() const;

private:
    void addTime(double anTime);
    void addAtOnce(const double* apTimes, const double* apValues, int anCount);
    void dropOldest();

    tcSampleColumn mTimes;
    tcSampleColumn mValues;
    int mCapacity = cDefaultCapacity;
    long long mAppended = 0;
    int mPaired = 0; ///< newest times and values that belong together, while both are held
    long long mDropped = 0;           ///< times dropped so far
    std::deque<long long> mStepsBack; ///< of times, counted from the first one ever
};

#include "stripchart/logic/tcSampleStore.h"

#include <algorithm>

namespace
{

/// Negated so that a time that is no number counts as a step back, before and after it.
bool isStepBack(double anBefore, double anTime)
{
    return !(anTime >= anBefore);
}

} // namespace

void tcSampleStore::append(double anTime, double anValue)
{
    // As designed: looked at before the sample is added and strictly greater, so a full curve
    // holds one sample more than its capacity, and only one is dropped each time.
    if (mValues.size() > mCapacity)
        dropOldest();
    addTime(anTime);
    mValues.append(anValue);
    ++mAppended;
    mPaired = std::min(mPaired + 1, size());
}

void tcSampleStore::append(const double* apTimes, const double* apValues, int anCount)
{
    // None of these drops another.
    const long long room = std::max(mCapacity + 1LL - mValues.size(), 0LL);
    const auto atOnce = static_cast<int>(std::min<long long>(anCount, room));
    if (atOnce > 0)
        addAtOnce(apTimes, apValues, atOnce);
    for (int i = atOnce; i < anCount; ++i)
        append(apTimes[i], apValues[i]);
}

/// Where all are known to fit.
void tcSampleStore::addAtOnce(const double* apTimes, const double* apValues, int anCount)
{
    const long long first = mDropped + mTimes.size();
    if (mTimes.size() > 0 && isStepBack(mTimes.at(mTimes.size() - 1), apTimes[0]))
        mStepsBack.push_back(first);
    for (int i = 1; i < anCount; ++i) {
        if (isStepBack(apTimes[i - 1], apTimes[i]))
            mStepsBack.push_back(first + i);
    }
    mTimes.append(apTimes, anCount);
    mValues.append(apValues, anCount);
    mAppended += anCount;
    mPaired = std::min(mPaired + anCount, size());
}

void tcSampleStore::addTime(double anTime)
{
    const int count = mTimes.size();
    if (count > 0 && isStepBack(mTimes.at(count - 1), anTime))
        mStepsBack.push_back(mDropped + count);
    mTimes.append(anTime);
}

void tcSampleStore::dropOldest()
{
    mValues.dropFirst();
    if (mTimes.size() == 0)
        return;
    mTimes.dropFirst();
    ++mDropped;
    if (!mStepsBack.empty() && mStepsBack.front() <= mDropped)
        mStepsBack.pop_front();
}

void tcSampleStore::clear()
{
    mTimes.clear();
    mValues.clear();
    mStepsBack.clear();
    mPaired = 0;
}

void tcSampleStore::setCapacity(int anCapacity)
{
    const int capacity = std::max(anCapacity, 0);
    if (capacity == mCapacity)
        return;
    // As designed: only the times follow a smaller capacity, the values keep their number.
    if (capacity < mCapacity) {
        if (mTimes.size() != capacity)
            mPaired = 0;
        while (mTimes.size() < capacity)
            addTime(0.0);
        mTimes.resize(capacity);
        while (!mStepsBack.empty() && mStepsBack.back() >= mDropped + capacity)
            mStepsBack.pop_back();
    }
    mCapacity = capacity;
}

tcExtent tcSampleStore::timeExtent() const
{
    return mTimes.size() == size() ? mTimes.extent() : mTimes.extent(0, size());
}

tcExtent tcSampleStore::valueExtent() const
{
    return mValues.size() == size() ? mValues.extent() : mValues.extent(0, size());
}

int tcSampleStore::copy(int anFirst, int anCount, double* apTimes, double* apValues) const
{
    const int first = std::max(anFirst, 0);
    const int count = std::min(anCount, size() - first);
    if (count <= 0)
        return 0;
    if (apTimes)
        mTimes.copy(first, count, apTimes);
    if (apValues)
        mValues.copy(first, count, apValues);
    return count;
}

void tcSampleStore::copyAppendedSince(long long anSeen, std::vector<double>& arTimes,
                                      std::vector<double>& arValues) const
{
    const int wanted = static_cast<int>(std::min<long long>(mAppended - anSeen, size()));
    arTimes.resize(static_cast<std::size_t>(std::max(wanted, 0)));
    arValues.resize(arTimes.size());
    if (wanted <= 0)
        return;
    // Times and values start together, drop together, and end together since they last parted.
    const int paired = std::min(wanted, mPaired);
    const int older = wanted - paired;
    const int first = size() - mPaired - older;
    mTimes.copy(first, older, arTimes.data());
    mValues.copy(first, older, arValues.data());
    mTimes.copy(mTimes.size() - paired, paired, arTimes.data() + older);
    mValues.copy(mValues.size() - paired, paired, arValues.data() + older);
}

int tcSampleStore::nextStepBack(int anIndex) const
{
    const auto step
        = std::upper_bound(mStepsBack.begin(), mStepsBack.end(), mDropped + anIndex);
    if (step == mStepsBack.end())
        return size();
    return static_cast<int>(std::min<long long>(*step - mDropped, size()));
}

int tcSampleStore::nextGap(int anIndex) const
{
    return std::min({mTimes.nextGap(anIndex), mValues.nextGap(anIndex), size()});
}

std::size_t tcSampleStore::bytes() const
{
    return mTimes.bytes() + mValues.bytes() + mStepsBack.size() * sizeof(long long);
}

#include "stripchart/logic/tcRowMerge.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

constexpr qint64 cNoTime = std::numeric_limits<qint64>::max();
constexpr double cTimeLimit = 9223372036854775808.0; ///< 2^63

/// Whole milliseconds; what does not fit becomes the nearest that does.
qint64 wholeMs(double anTime)
{
    if (anTime >= cTimeLimit)
        return cNoTime;
    if (anTime < -cTimeLimit)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(anTime);
}

/// Also false with a time that is no number.
bool ascends(const double* apTimes, qint64 anCount)
{
    for (qint64 i = 1; i < anCount; ++i) {
        if (!(apTimes[i] >= apTimes[i - 1]))
            return false;
    }
    return anCount == 0 || !std::isnan(apTimes[0]);
}

} // namespace

tcRowMerge::tcRowMerge(const std::vector<tcColumnView>& acColumns)
    : mCursors(acColumns.size())
    , mHeads(acColumns.size(), cNoTime)
    , mRow(acColumns.size(), nullptr)
{
    for (size_t i = 0; i < acColumns.size(); ++i) {
        tcCursor& cursor = mCursors[i];
        cursor.times = acColumns[i].times;
        cursor.values = acColumns[i].values;
        cursor.left = acColumns[i].count;
        if (!ascends(cursor.times, cursor.left))
            sort(cursor);
        if (cursor.left > 0)
            mHeads[i] = wholeMs(*cursor.times);
        mNextTime = std::min(mNextTime, mHeads[i]);
        mTotal += cursor.left;
    }
    mLeft = mTotal;
}

void tcRowMerge::sort(tcCursor& arCursor)
{
    std::vector<qint64> order(static_cast<size_t>(arCursor.left));
    std::iota(order.begin(), order.end(), qint64(0));
    const double* times = arCursor.times;
    // What is no number belongs to no row.
    order.erase(std::remove_if(order.begin(), order.end(),
                               [times](qint64 anIndex) { return std::isnan(times[anIndex]); }),
                order.end());
    std::stable_sort(order.begin(), order.end(),
                     [times](qint64 anA, qint64 anB) { return times[anA] < times[anB]; });
    arCursor.ownTimes.reserve(order.size());
    arCursor.ownValues.reserve(order.size());
    for (const qint64 index : order) {
        arCursor.ownTimes.push_back(arCursor.times[index]);
        arCursor.ownValues.push_back(arCursor.values[index]);
    }
    arCursor.times = arCursor.ownTimes.data();
    arCursor.values = arCursor.ownValues.data();
    arCursor.left = static_cast<qint64>(order.size());
}

bool tcRowMerge::next()
{
    if (mLeft == 0)
        return false;
    mTime = mNextTime;
    qint64 nextTime = cNoTime;
    const size_t count = mCursors.size();
    qint64* heads = mHeads.data();
    const double** row = mRow.data();
    for (size_t i = 0; i < count; ++i) {
        row[i] = nullptr;
        if (heads[i] == mTime)
            row[i] = take(mCursors[i], heads[i]);
        nextTime = std::min(nextTime, heads[i]);
    }
    mNextTime = nextTime;
    return true;
}

const double* tcRowMerge::take(tcCursor& arCursor, qint64& arHead)
{
    const double* value = nullptr;
    // The largest time also stands for "none left", hence the second look.
    while (arHead == mTime && arCursor.left > 0) {
        value = arCursor.values++;
        ++arCursor.times;
        --arCursor.left;
        --mLeft;
        arHead = arCursor.left > 0 ? wholeMs(*arCursor.times) : cNoTime;
    }
    return value;
}

#include "stripchart/logic/tcColumnReduction.h"

#include "stripchart/logic/tcColumnReader.h"
#include "stripchart/logic/tcSampleStore.h"

#include <utility>

namespace
{

/// First index in [anFirst, anEnd) whose time is not before (abAfter: is after) anTime.
int firstFrom(const tcSampleStore& acStore, int anFirst, int anEnd, double anTime, bool abAfter)
{
    int count = anEnd - anFirst;
    while (count > 0) {
        const int half = count / 2;
        const double time = acStore.time(anFirst + half);
        if (abAfter ? time <= anTime : time < anTime) {
            anFirst += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return anFirst;
}

} // namespace

tcColumnReduction::tcColumnReduction(const tcPixelMap& acX, const tcPixelMap& acY, int anLeft,
                                     int anRight)
    : mX(acX)
    , mY(acY)
    , mEarliest(std::min(acX.numberAt(anLeft - 1), acX.numberAt(anRight + 1)))
    , mLatest(std::max(acX.numberAt(anLeft - 1), acX.numberAt(anRight + 1)))
    , mWidth(std::max(anRight - anLeft, 1))
{
}

void tcColumnReduction::add(const tcSampleStore& acStore, int anFirst, int anEnd)
{
    mMerge = (anEnd - anFirst) / cPlainPerPixel > mWidth;
    mJoined = false;
    mColumns.reserve(mColumns.size()
                     + static_cast<std::size_t>(std::min(anEnd - anFirst, mWidth + 4)));
    while (anFirst < anEnd) {
        const int end = std::min(acStore.nextStepBack(anFirst), anEnd);
        addAscending(acStore, anFirst, end);
        anFirst = end;
    }
}

/// Lines from one side of the window to the other cross it: of what lies outside, the ends and
/// the samples next to the window are enough to find them all.
void tcColumnReduction::addAscending(const tcSampleStore& acStore, int anFirst, int anEnd)
{
    const int from = firstFrom(acStore, anFirst, anEnd, mEarliest, false);
    const int to = firstFrom(acStore, from, anEnd, mLatest, true);
    const auto addOutside
        = [&](int anIndex) { addSample(acStore.time(anIndex), acStore.value(anIndex)); };
    if (from - anFirst > 1)
        addOutside(anFirst);
    if (from > anFirst)
        addOutside(from - 1);
    addVisible(acStore, from, to);
    if (to < anEnd)
        addOutside(to);
    if (anEnd - to > 1)
        addOutside(anEnd - 1);
}

void tcColumnReduction::addVisible(const tcSampleStore& acStore, int anFirst, int anEnd)
{
    tcColumnReader times(acStore.times());
    tcColumnReader values(acStore.values());
    while (anFirst < anEnd) {
        const int gap = std::min(acStore.nextGap(anFirst), anEnd);
        if (gap > anFirst) {
            const int count = gap - anFirst;
            const int width = std::abs(mX.at(times.at(gap - 1)) - mX.at(times.at(anFirst))) + 1;
            if (count / cPlainPerPixel > width) {
                addDense(times, values, anFirst, gap);
            } else {
                for (int i = anFirst; i < gap; ++i)
                    addSample(times.at(i), values.at(i));
            }
        }
        if (gap < anEnd)
            mJoined = false;
        anFirst = gap + 1;
    }
}

void tcColumnReduction::addDense(tcColumnReader& arTimes, tcColumnReader& arValues, int anFirst,
                                 int anEnd)
{
    int guess = cPlainPerPixel;
    int nextX = mX.at(arTimes.at(anFirst));
    while (anFirst < anEnd) {
        const int x = nextX;
        const int end = columnEnd(arTimes, x, anFirst, anEnd, guess, nextX);
        // One more here and there, as where columns are no whole number of samples wide, is
        // found sooner from the usual number than from the last one.
        if (std::abs(end - anFirst - guess) > 1)
            guess = end - anFirst;
        // On the way from memory while this column is summed up.
        arTimes.expect(end + guess);
        arValues.expectExtent(end + guess);
        addColumn(arValues, x, anFirst, end);
        anFirst = end;
    }
}

void tcColumnReduction::addColumn(tcColumnReader& arValues, int anX, int anFirst, int anEnd)
{
    const double firstValue = arValues.at(anFirst);
    const double lastValue = arValues.at(anEnd - 1);
    const tcExtent extent = arValues.extent(anFirst, anEnd);
    const int first = mY.at(firstValue);
    const int last = mY.at(lastValue);
    // Where the line only rises or only falls its ends are the extremes.
    const auto place = [&](double anExtreme) {
        return anExtreme == firstValue ? first
            : anExtreme == lastValue   ? last
                                       : mY.at(anExtreme);
    };
    const int low = place(extent.lowest);
    const int high = place(extent.highest);
    put(anX, first, std::min(low, high), std::max(low, high), last);
}

/// End of the samples in the first one's pixel column anX. Columns of a steady feed hold about
/// the same number, so the search starts where the last one ended. Where the next column lies
/// comes back in arNextX, unchanged behind the last one.
int tcColumnReduction::columnEnd(tcColumnReader& arTimes, int anX, int anFirst, int anEnd,
                                 int anGuess, int& arNextX) const
{
    // The last sample found outside is the one that the next column begins with.
    const auto inside = [&](int anIndex) {
        const int x = mX.at(arTimes.at(anIndex));
        if (x != anX)
            arNextX = x;
        return x == anX;
    };
    int low = anFirst;                             // inside
    int high = std::min(anFirst + anGuess, anEnd); // outside, once the loops below are done
    int step = 1;
    if (high < anEnd && inside(high)) {
        do {
            low = high;
            high = std::min(high + step, anEnd);
            step *= 2;
        } while (high < anEnd && inside(high));
    } else {
        while (high - step > low && !inside(high - step)) {
            high -= step;
            step *= 2;
        }
        low = std::max(high - step, low);
    }
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (inside(middle) ? low : high) = middle;
    }
    return high;
}

void tcColumnReduction::addSample(double anTime, double anValue)
{
    if (!std::isfinite(anTime) || !std::isfinite(anValue)) {
        mJoined = false;
        return;
    }
    const int y = mY.at(anValue);
    put(mX.at(anTime), y, y, y, y);
}

/// Written where it stays: a record that is put together elsewhere and then copied waits for
/// its own parts to be stored, column after column.
void tcColumnReduction::put(int anX, int anFirst, int anTop, int anBottom, int anLast)
{
    const bool joined = std::exchange(mJoined, true);
    if (mMerge && joined && mColumns.back().x == anX) {
        tcPixelColumn& same = mColumns.back();
        same.top = std::min(same.top, anTop);
        same.bottom = std::max(same.bottom, anBottom);
        same.last = anLast;
        return;
    }
    tcPixelColumn& column = mColumns.emplace_back();
    column.x = anX;
    column.first = anFirst;
    column.top = anTop;
    column.bottom = anBottom;
    column.last = anLast;
    column.joined = joined;
}

#include "stripchart/logic/tcSampleColumn.h"

void tcSampleColumn::append(double anValue)
{
    const int place = (mOffset + mSize) % cBlockSize;
    if (place == 0)
        addBlock();
    tcEntry& last = mBlocks.back();
    tcExtent& run = last.block->runs[place / cRunSize];
    tcExtent& group = last.block->groups[place / cGroupSize];
    if (place % cRunSize == 0)
        run = tcExtent::none();
    if (place % cGroupSize == 0)
        group = tcExtent::none();
    last.block->numbers[place] = anValue;
    if (std::isfinite(anValue)) {
        const tcExtent extent{anValue, anValue};
        run.unite(extent);
        group.unite(extent);
        last.all.unite(extent);
    } else {
        mGaps.push_back(mDropped + mSize);
    }
    ++mSize;
}

/// Whole runs of finite numbers at once, all others one by one.
void tcSampleColumn::append(const double* apNumbers, int anCount)
{
    const double* end = apNumbers + anCount;
    while (apNumbers < end) {
        const bool begun = (mOffset + mSize) % cRunSize != 0;
        if (begun || end - apNumbers < cRunSize || !allFinite(apNumbers)) {
            append(*apNumbers++);
            continue;
        }
        appendRun(apNumbers);
        apNumbers += cRunSize;
    }
}

void tcSampleColumn::appendRun(const double* apRun)
{
    const int place = (mOffset + mSize) % cBlockSize;
    if (place == 0)
        addBlock();
    tcEntry& last = mBlocks.back();
    std::copy_n(apRun, cRunSize, last.block->numbers + place);
    const tcExtent run = ofFinite(apRun, cRunSize);
    last.block->runs[place / cRunSize] = run;
    tcExtent& group = last.block->groups[place / cGroupSize];
    if (place % cGroupSize == 0)
        group = tcExtent::none();
    group.unite(run);
    last.all.unite(run);
    mSize += cRunSize;
}

bool tcSampleColumn::allFinite(const double* apRun)
{
    // Without a way out of the loop, so that it looks at several numbers at a time.
    bool finite = true;
    for (int i = 0; i < cRunSize; ++i)
        finite &= std::isfinite(apRun[i]);
    return finite;
}

void tcSampleColumn::addBlock()
{
    tcEntry entry;
    if (mSpare.empty()) {
        entry.block.reset(new tcBlock);
    } else {
        entry.block = std::move(mSpare.back());
        mSpare.pop_back();
    }
    if (!mBlocks.empty())
        mBehind.unite(mBlocks.back().all);
    mBlocks.push_back(std::move(entry));
    if (mTurn == 0)
        turn();
}

void tcSampleColumn::dropFirst()
{
    if (mSize == 0)
        return;
    --mSize;
    ++mOffset;
    ++mDropped;
    if (!mGaps.empty() && mGaps.front() < mDropped)
        mGaps.pop_front();
    if (mOffset < cBlockSize && mSize > 0)
        return;
    mSpare.push_back(std::move(mBlocks.front().block));
    mBlocks.pop_front();
    mOffset = 0;
    if (mTurn > 0)
        --mTurn;
    if (mTurn == 0)
        turn();
}

/// Sums up from the last block but one to the first. It happens again when as many blocks as
/// were summed up have been dropped, so its cost spreads over them.
void tcSampleColumn::turn()
{
    mBehind = tcExtent::none();
    mTurn = mBlocks.empty() ? 0 : mBlocks.size() - 1;
    tcExtent sum = tcExtent::none();
    for (std::size_t i = mTurn; i > 0; --i) {
        sum.unite(mBlocks[i - 1].all);
        mBlocks[i - 1].onward = sum;
    }
}

void tcSampleColumn::resize(int anCount)
{
    if (anCount < mSize)
        cut(std::max(anCount, 0));
    while (mSize < anCount)
        append(0.0);
}

void tcSampleColumn::cut(int anCount)
{
    if (anCount == 0) {
        clear();
        return;
    }
    mSize = anCount;
    while (!mGaps.empty() && mGaps.back() >= mDropped + mSize)
        mGaps.pop_back();
    const int last = mOffset + mSize - 1;
    mBlocks.resize(static_cast<std::size_t>(last / cBlockSize) + 1);
    const int end = last % cBlockSize + 1;
    tcEntry& entry = mBlocks.back();
    tcExtent& run = entry.block->runs[(end - 1) / cRunSize];
    run = tcExtent::none();
    for (int i = (end - 1) / cRunSize * cRunSize; i < end; ++i)
        run.add(entry.block->numbers[i]);
    const int group = (end - 1) / cGroupSize;
    entry.block->groups[group] = within(*entry.block, group * cGroupSize, end, false);
    entry.all = within(*entry.block, 0, end, false);
    turn();
}

void tcSampleColumn::clear()
{
    for (tcEntry& entry : mBlocks)
        mSpare.push_back(std::move(entry.block));
    mBlocks.clear();
    mGaps.clear();
    mOffset = 0;
    mSize = 0;
    turn();
}

// Those two are asked for every pixel column of a frame, where the calls alone are felt:
// inline.

/// Of numbers that are all finite, in two strands that the processor follows side by side.
inline tcExtent tcSampleColumn::ofFinite(const double* apNumbers, int anCount)
{
    tcExtent even = tcExtent::none();
    tcExtent odd = tcExtent::none();
    int i = 0;
    for (; i + 1 < anCount; i += 2) {
        even.unite({apNumbers[i], apNumbers[i]});
        odd.unite({apNumbers[i + 1], apNumbers[i + 1]});
    }
    if (i < anCount)
        even.unite({apNumbers[i], apNumbers[i]});
    even.unite(odd);
    return even;
}

inline tcExtent tcSampleColumn::ofRuns(const tcBlock& acBlock, int anFirst, int anEnd)
{
    const auto sum = [](const tcExtent* apExtents, int anFrom, int anTo) {
        tcExtent result = tcExtent::none();
        for (int i = anFrom; i < anTo; ++i)
            result.unite(apExtents[i]);
        return result;
    };
    const int firstGroup = (anFirst + cGroupRuns - 1) / cGroupRuns;
    const int endGroup = anEnd / cGroupRuns;
    if (firstGroup >= endGroup)
        return sum(acBlock.runs, anFirst, anEnd);
    tcExtent result = sum(acBlock.runs, anFirst, firstGroup * cGroupRuns);
    result.unite(sum(acBlock.groups, firstGroup, endGroup));
    result.unite(sum(acBlock.runs, endGroup * cGroupRuns, anEnd));
    return result;
}

tcExtent tcSampleColumn::within(const tcBlock& acBlock, int anFirst, int anEnd, bool abFinite)
{
    const auto numbers = [&](int anFrom, int anTo) {
        if (abFinite)
            return ofFinite(acBlock.numbers + anFrom, anTo - anFrom);
        tcExtent result = tcExtent::none();
        for (int i = anFrom; i < anTo; ++i)
            result.add(acBlock.numbers[i]);
        return result;
    };
    const int firstRun = (anFirst + cRunSize - 1) / cRunSize;
    const int endRun = anEnd / cRunSize;
    if (firstRun >= endRun)
        return numbers(anFirst, anEnd);
    tcExtent result = numbers(anFirst, firstRun * cRunSize);
    result.unite(ofRuns(acBlock, firstRun, endRun));
    result.unite(numbers(endRun * cRunSize, anEnd));
    return result;
}

tcExtent tcSampleColumn::extent() const
{
    if (mSize == 0)
        return tcExtent::none();
    const tcEntry& first = mBlocks.front();
    if (mBlocks.size() == 1)
        return within(*first.block, mOffset, mOffset + mSize, mGaps.empty());
    tcExtent result
        = mOffset == 0 ? first.all : within(*first.block, mOffset, cBlockSize, mGaps.empty());
    if (mTurn > 1)
        result.unite(mBlocks[1].onward);
    result.unite(mBehind);
    result.unite(mBlocks.back().all);
    return result;
}

tcExtent tcSampleColumn::extent(int anFirst, int anCount) const
{
    tcExtent result = tcExtent::none();
    int place = mOffset + anFirst;
    const int end = place + anCount;
    while (place < end) {
        const int start = place % cBlockSize;
        const int count = std::min(cBlockSize - start, end - place);
        const tcEntry& entry = mBlocks[static_cast<std::size_t>(place / cBlockSize)];
        if (count == cBlockSize)
            result.unite(entry.all);
        else
            result.unite(within(*entry.block, start, start + count, mGaps.empty()));
        place += count;
    }
    return result;
}

const double* tcSampleColumn::stretch(int anIndex, int& arCount) const
{
    const int place = mOffset + anIndex;
    arCount = std::min(cBlockSize - place % cBlockSize, mSize - anIndex);
    return mBlocks[static_cast<std::size_t>(place / cBlockSize)].block->numbers
        + place % cBlockSize;
}

void tcSampleColumn::copy(int anFirst, int anCount, double* apNumbers) const
{
    int done = 0;
    while (done < anCount) {
        int count = 0;
        const double* numbers = stretch(anFirst + done, count);
        count = std::min(count, anCount - done);
        std::copy_n(numbers, count, apNumbers + done);
        done += count;
    }
}

int tcSampleColumn::nextGap(int anIndex) const
{
    const auto gap = std::lower_bound(mGaps.begin(), mGaps.end(), mDropped + anIndex);
    return gap == mGaps.end() ? mSize : static_cast<int>(*gap - mDropped);
}

std::size_t tcSampleColumn::bytes() const
{
    return (mBlocks.size() + mSpare.size()) * sizeof(tcBlock) + mBlocks.size() * sizeof(tcEntry)
        + mGaps.size() * sizeof(long long);
}

#pragma once

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <memory>
#include <vector>

/// Lowest and highest of some numbers. NaN and infinities do not count: they have no place on
/// an axis.
struct tcExtent
{
    double lowest;
    double highest;

    static tcExtent none()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        return {infinity, -infinity};
    }
    bool isEmpty() const { return lowest > highest; }
    void add(double anValue)
    {
        if (std::isfinite(anValue))
            unite({anValue, anValue});
    }
    void unite(const tcExtent& acOther)
    {
        lowest = std::min(lowest, acOther.lowest);
        highest = std::max(highest, acOther.highest);
    }
};

/// A long row of numbers that grows at its end and shrinks at its start.
///
/// Kept in blocks that never move, each with the extents of its runs of 16 numbers and of
/// groups of 8 runs, so that appending, dropping and the extent of the whole cost the same
/// however long the row is, and the extent of any stretch is found without looking at every
/// number. Not thread-safe.
class tcSampleColumn
{
public:
    static constexpr int cBlockSize = 1024;
    static constexpr int cRunSize = 16;
    static constexpr int cGroupRuns = 8;

    int size() const { return mSize; }
    double at(int anIndex) const ///< anIndex in [0, size)
    {
        const auto place = static_cast<unsigned>(mOffset + anIndex);
        return mBlocks[place / cBlockSize].block->numbers[place % cBlockSize];
    }

    void append(double anValue);
    void append(const double* apNumbers, int anCount); ///< as one by one, but faster
    void dropFirst();                                  ///< nothing happens to an empty row
    void resize(int anCount);                          ///< cuts at the end or pads with zeros
    void clear(); ///< the memory is kept for what comes next

    tcExtent extent() const;
    tcExtent extent(int anFirst, int anCount) const;
    void copy(int anFirst, int anCount, double* apNumbers) const;

    /// Index of the first number from anIndex on that is NaN or infinite, size() when none is.
    int nextGap(int anIndex) const;

    /// The numbers from anIndex to the end of their block, one after the other; their count
    /// comes back in arCount. Valid until the next change.
    const double* stretch(int anIndex, int& arCount) const;

    std::size_t bytes() const; ///< memory taken, spare blocks included

private:
    friend class tcColumnReader;
    static constexpr int cGroupSize = cGroupRuns * cRunSize;

    /// Begins with a cache line, and so does each of its parts that are read together.
    struct alignas(64) tcBlock
    {
        double numbers[cBlockSize];
        tcExtent runs[cBlockSize / cRunSize];
        tcExtent groups[cBlockSize / cGroupSize];
    };
    struct tcEntry
    {
        std::unique_ptr<tcBlock> block;
        tcExtent all = tcExtent::none();    ///< of the block, dropped numbers included
        tcExtent onward = tcExtent::none(); ///< of the block and those up to mTurn
    };

    static tcExtent ofFinite(const double* apNumbers, int anCount);
    static bool allFinite(const double* apRun);
    void appendRun(const double* apRun);
    static tcExtent ofRuns(const tcBlock& acBlock, int anFirst, int anEnd);
    /// abFinite: none of the numbers is NaN or infinite, which saves looking.
    static tcExtent within(const tcBlock& acBlock, int anFirst, int anEnd, bool abFinite);
    void addBlock();
    void turn();
    void cut(int anCount);

    std::deque<tcEntry> mBlocks;
    std::vector<std::unique_ptr<tcBlock>> mSpare;
    int mOffset = 0; ///< place of the first number in the first block
    int mSize = 0;
    /// The blocks before this one know their extent onward. Those from it on, the last one left
    /// out, are summed up in mBehind. Dropped numbers are found in the first block only, and
    /// that one is never part of mBehind.
    std::size_t mTurn = 0;
    tcExtent mBehind = tcExtent::none();
    long long mDropped = 0;      ///< numbers dropped so far
    std::deque<long long> mGaps; ///< NaN and infinities, counted from the first number ever
};

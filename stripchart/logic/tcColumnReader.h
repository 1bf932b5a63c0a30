#pragma once

#include "stripchart/logic/tcSampleColumn.h"

#include <limits>

/// Reads a column of more numbers than fit into the processor's caches: without looking up the
/// block of each number, and with a way to ask early for what is read next, so that most of the
/// wait for memory passes while something else is done. Valid until the column changes.
class tcColumnReader
{
public:
    explicit tcColumnReader(const tcSampleColumn& acColumn) : mColumn(acColumn) { }

    double at(int anIndex) ///< anIndex in [0, size)
    {
        if (static_cast<unsigned>(anIndex - mStart) >= cBlockSize)
            enter(anIndex);
        return mBlock->numbers[anIndex - mStart];
    }

    /// Of the numbers [anFirst, anEnd), all of them finite.
    tcExtent extent(int anFirst, int anEnd);

    /// Has the number at anIndex on its way here; nothing happens when there is none.
    void expect(int anIndex) const;
    /// The same for all that extent() looks at around anIndex.
    void expectExtent(int anIndex) const;

private:
    static constexpr int cBlockSize = tcSampleColumn::cBlockSize;
    static constexpr int cRunSize = tcSampleColumn::cRunSize;
    static constexpr int cGroupRuns = tcSampleColumn::cGroupRuns;

    void enter(int anIndex);

    const tcSampleColumn& mColumn;
    const tcSampleColumn::tcBlock* mBlock = nullptr;  ///< the one read last
    int mStart = std::numeric_limits<int>::min() / 2; ///< index of its first place
};

#include "stripchart/logic/tcColumnReader.h"

namespace
{

void fetch(const void* apPlace)
{
#ifdef __GNUC__
    __builtin_prefetch(apPlace);
#else
    (void)apPlace;
#endif
}

/// Of items that fill two cache lines at most.
template <class Item>
void fetch(const Item* apItems, int anCount)
{
    fetch(apItems);
    fetch(apItems + anCount - 1);
}

} // namespace

void tcColumnReader::enter(int anIndex)
{
    const int place = mColumn.mOffset + anIndex;
    mBlock = mColumn.mBlocks[static_cast<std::size_t>(place / cBlockSize)].block.get();
    mStart = anIndex - place % cBlockSize;
}

tcExtent tcColumnReader::extent(int anFirst, int anEnd)
{
    if (static_cast<unsigned>(anFirst - mStart) < cBlockSize && anEnd - mStart <= cBlockSize)
        return tcSampleColumn::within(*mBlock, anFirst - mStart, anEnd - mStart, true);
    return mColumn.extent(anFirst, anEnd - anFirst);
}

// Not in the header: compilers drop calls of a function that they see do nothing but fetch.

void tcColumnReader::expect(int anIndex) const
{
    if (anIndex >= mColumn.size())
        return;
    const int place = mColumn.mOffset + anIndex;
    const auto block = static_cast<std::size_t>(place / cBlockSize);
    fetch(mColumn.mBlocks[block].block->numbers + place % cBlockSize);
}

void tcColumnReader::expectExtent(int anIndex) const
{
    if (anIndex >= mColumn.size())
        return;
    const int place = mColumn.mOffset + anIndex;
    const auto index = static_cast<std::size_t>(place / cBlockSize);
    const tcSampleColumn::tcBlock& block = *mColumn.mBlocks[index].block;
    const int run = place % cBlockSize / cRunSize;
    fetch(block.numbers + run * cRunSize, cRunSize);
    fetch(block.runs + run / cGroupRuns * cGroupRuns, cGroupRuns);
    fetch(block.groups, cBlockSize / tcSampleColumn::cGroupSize);
}

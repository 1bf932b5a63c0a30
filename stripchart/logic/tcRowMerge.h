#pragma once

#include <QtGlobal>

#include <limits>
#include <vector>

/// The samples of one curve for as long as a file is written. Not owned.
struct tcColumnView
{
    const double* times = nullptr; ///< ms since the epoch
    const double* values = nullptr;
    qint64 count = 0;
};

/// Samples of many curves as rows, one for each time stamp (in whole milliseconds) in ascending
/// order. Of two samples of one curve with the same time stamp the later one stands.
///
/// Each curve has a cursor, so nothing is copied unless a curve's own times go backwards.
class tcRowMerge
{
public:
    /// The arrays must outlive the merge and stay as they are.
    explicit tcRowMerge(const std::vector<tcColumnView>& acColumns);

    bool next(); ///< on to the next row; false after the last
    qint64 time() const { return mTime; }
    /// One entry for each curve, null where it has no sample at this time.
    const std::vector<const double*>& values() const { return mRow; }

    qint64 done() const { return mTotal - mLeft; } ///< samples used up
    qint64 total() const { return mTotal; }

private:
    struct tcCursor
    {
        const double* times = nullptr;
        const double* values = nullptr;
        qint64 left = 0;
        std::vector<double> ownTimes; ///< filled only for a curve that had to be sorted
        std::vector<double> ownValues;
    };

    static void sort(tcCursor& arCursor);
    const double* take(tcCursor& arCursor, qint64& arHead);

    std::vector<tcCursor> mCursors;
    std::vector<qint64> mHeads; ///< time of each cursor's next sample
    std::vector<const double*> mRow;
    qint64 mTime = 0;
    qint64 mNextTime = std::numeric_limits<qint64>::max();
    qint64 mTotal = 0;
    qint64 mLeft = 0;
};

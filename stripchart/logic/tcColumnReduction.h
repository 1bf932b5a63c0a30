#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

class tcColumnReader;
class tcSampleStore;

/// A linear scale: where a number lies on the canvas, in whole pixels.
struct tcPixelMap
{
    double number; ///< any number of the scale
    double pixel;  ///< and its place
    double factor; ///< pixels per unit, negative where the scale runs the other way

    /// Rounded as the plot rounds. Whatever lies far outside is brought to the border of what
    /// can be painted; NaN too.
    int at(double anNumber) const
    {
        const double place = pixel + (anNumber - number) * factor + 0.5;
        // Where canvases are, cutting off is rounding down.
        if (place >= 0.0 && place < cFarthest)
            return static_cast<int>(place);
        if (!(place > -cFarthest))
            return static_cast<int>(-cFarthest);
        return static_cast<int>(std::floor(std::min(place, cFarthest)));
    }
    double numberAt(double anPixel) const { return number + (anPixel - pixel) / factor; }

    /// Far outside any canvas, yet with room for sums of two in an int.
    static constexpr double cFarthest = 1e9;
};

/// What one pixel column shows of consecutive samples that fall into it, as pixels from the
/// top: where the line enters, its upper and lower end, where it leaves.
struct tcPixelColumn
{
    int x;
    int first;
    int top;
    int bottom;
    int last;
    bool joined; ///< a line leads here from the column before
};

/// Reduces the samples of a curve to what can be seen of them: at most one record per pixel
/// column and pass over it, whatever the order of the samples. Drawn as lines the records give
/// the pixels that all samples would give.
///
/// Where times ascend, only samples within the window and its neighbours are looked at, and
/// columns of many samples are summed up from the store's own sums. Samples without a place on
/// an axis leave a gap.
class tcColumnReduction
{
public:
    /// Up to this many samples per pixel column each one is kept as it is.
    static constexpr int cPlainPerPixel = 4;

    /// anLeft and anRight: pixels between which something may be seen, lines' width included.
    tcColumnReduction(const tcPixelMap& acX, const tcPixelMap& acY, int anLeft, int anRight);

    /// Adds the samples [anFirst, anEnd).
    void add(const tcSampleStore& acStore, int anFirst, int anEnd);

    const std::vector<tcPixelColumn>& columns() const { return mColumns; }

private:
    void addAscending(const tcSampleStore& acStore, int anFirst, int anEnd);
    void addVisible(const tcSampleStore& acStore, int anFirst, int anEnd);
    void addDense(tcColumnReader& arTimes, tcColumnReader& arValues, int anFirst, int anEnd);
    void addColumn(tcColumnReader& arValues, int anX, int anFirst, int anEnd);
    void addSample(double anTime, double anValue);
    void put(int anX, int anFirst, int anTop, int anBottom, int anLast);
    int columnEnd(tcColumnReader& arTimes, int anX, int anFirst, int anEnd, int anGuess,
                  int& arNextX) const;

    tcPixelMap mX;
    tcPixelMap mY;
    double mEarliest;
    double mLatest;
    int mWidth;
    bool mMerge = false;  ///< samples of one column that follow each other become one record
    bool mJoined = false; ///< the next record continues the line
    std::vector<tcPixelColumn> mColumns;
};

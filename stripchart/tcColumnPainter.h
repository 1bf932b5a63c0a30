#pragma once

#include "stripchart/logic/tcColumnReduction.h"

#include <QPointF>
#include <QRectF>

#include <vector>

class QPainter;

/// Paints the pixel columns of a curve with the painter's pen: as lines, and as bars where the
/// line goes up and down so often that column after column is filled.
class tcColumnPainter
{
public:
    /// acCanvas: what may be seen, in the painter's pixels.
    tcColumnPainter(QPainter& arPainter, const QRectF& acCanvas);

    /// Pixels left and right of the canvas from which the pen reaches into it.
    static int reach(const QPainter& acPainter);

    void paint(const std::vector<tcPixelColumn>& acColumns);

private:
    struct tcBar
    {
        int x;
        int top;
        int bottom;
    };

    void findBars(const std::vector<tcPixelColumn>& acColumns);
    void addLine(const std::vector<tcPixelColumn>& acColumns, std::size_t anIndex,
                 bool abBarBefore);
    void addTurns(const tcPixelColumn& acColumn);
    void addBar(const tcPixelColumn& acColumn, const tcPixelColumn* apBefore, bool abBarBefore);
    void addPoint(double anX, double anY);
    void endLine();
    void paintBars();
    template <class Rect>
    std::vector<Rect> barRects() const;
    void setInk(const tcBar& acBar, QRect& arRect) const;
    void setInk(const tcBar& acBar, QRectF& arRect) const;

    QPainter& mPainter;
    QRect mClip;
    bool mSolid; ///< ink over ink shows no more than once
    bool mSoft;  ///< antialiased
    bool mThin;  ///< the line is one pixel of the device wide
    int mFull;   ///< excess from which a column counts as filled
    std::vector<QPointF> mLine;
    QPointF mStep;            ///< between the last two points of the line
    std::vector<char> mIsBar; ///< of each column
    std::vector<tcBar> mBars;
};

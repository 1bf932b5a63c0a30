#pragma once

#include "stripchart/logic/tcColumnReduction.h"

#include <QPolygonF>
#include <QRect>
#include <QVector>

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

    void addLine(const tcPixelColumn& acColumn, const tcPixelColumn* apBarBefore);
    void addBar(const tcPixelColumn& acColumn, const tcPixelColumn* apBefore, bool abBarBefore);
    void addPoint(int anX, int anY);
    void endLine();
    void paintBars();
    void fill(const QVector<QRectF>& acBars);
    QRectF inked(const tcBar& acBar, bool abAntialiased) const;

    QPainter& mPainter;
    QRectF mClip;
    bool mHairline; ///< the line is drawn pixel by pixel
    QPolygonF mLine;
    QVector<tcBar> mBars;
};

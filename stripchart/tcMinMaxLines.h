#pragma once

#include "stripchart/tcStripMarker.h"

class QwtPlot;
class tcStripCurve;

/// A line that is drawn only where the axis reaches it: at the largest double the painter would
/// lose its place and draw along the edge.
class tcExtremeLine : public tcStripLineMarker
{
public:
    using tcStripLineMarker::tcStripLineMarker;

    void draw(QPainter* apPainter, const QwtScaleMap& acXMap, const QwtScaleMap& acYMap,
              const QRectF& acCanvas) const override;
    /// The label stands above this line where it would lie on that of the line below, as it
    /// does while a curve hardly moves; at the top, below that. acLower outlives this.
    void keepClearOf(const tcExtremeLine& acLower) { mLower = &acLower; }

protected:
    void drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                   const QPointF& acAt) const override;

private:
    double clearOfLower(double anY, double anRoom, const QRectF& acCanvas) const;

    const tcExtremeLine* mLower = nullptr; ///< not owned
};

/// The two lines at the lowest and the highest value of the curve that they follow.
class tcMinMaxLines
{
public:
    /// Both stand on the plot, hidden; arPlot outlives them.
    explicit tcMinMaxLines(QwtPlot& arPlot);

    /// Puts both where no value has been yet: at the largest double and at the smallest
    /// positive one.
    void toExtremes();
    /// Widens both by the extent of the followed curve and writes their labels.
    void refresh();
    /// Widens what is visible by the extent of a curve that received a reading, whichever curve
    /// is followed. Labels follow with the next refresh().
    void widen(const tcStripCurve& acCurve);

    void follow(tcStripCurve* apCurve);
    bool isFollowing() const { return mMin.curve() != nullptr; }

    void setShown(bool abOn);
    bool isShown() const { return mShown; }
    /// Showing a curve shows what follows it; lines that are off go away again.
    void keepHidden();

    const tcStripMarker& minLine() const { return mMin; }
    const tcStripMarker& maxLine() const { return mMax; }

private:
    tcExtremeLine mMin;
    tcExtremeLine mMax;
    bool mShown = false;
};

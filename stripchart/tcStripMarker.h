#pragma once

#include <qwt_plot_marker.h>

class tcStripCurve;

/// A marker of the strip chart. It may follow a curve, whose visibility, value axis and colour
/// it takes; it does not own it. For the GUI thread only.
class tcStripMarker : public QwtPlotMarker
{
public:
    explicit tcStripMarker(const QString& acName);
    ~tcStripMarker() override;

    QString name() const { return mName; }
    void setName(const QString& acName) { mName = acName; }

    tcStripCurve* curve() const { return mCurve; }
    /// Follows another curve, or none with null. Leaving a curve sets the Y value to 0.
    virtual void setCurve(tcStripCurve* apCurve);

    /// The label becomes the name and the value with three decimals, in its font and colour.
    void setYValueWithLabel(double anY);
    /// The same with both coordinates.
    void setPointWithLabel(const QPointF& acPoint);
    /// The label becomes the operator's text, in the font of all such texts.
    void setText(const QString& acText, const QColor& acColor);

private:
    void setLabelText(const QString& acText);

    QString mName;
    tcStripCurve* mCurve = nullptr; ///< not owned
};

/// A horizontal line across the canvas. Its label, which hangs below it, stands above a line so
/// near to the bottom that it would be cut off: set points like to be where an axis ends.
class tcStripLineMarker : public tcStripMarker
{
public:
    explicit tcStripLineMarker(const QString& acName);

protected:
    void drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                   const QPointF& acAt) const override;
};

/// A point that the operator placed. Its label stands to the right above it, and moves to the
/// left or below where the canvas would cut it off: the newest readings are at its edge.
class tcStripPointMarker : public tcStripMarker
{
public:
    static constexpr int cSymbolPixels = 9;

    explicit tcStripPointMarker(const QString& acName);

    void setSymbolColor(const QColor& acColor); ///< shows a symbol

protected:
    void drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                   const QPointF& acAt) const override;
};

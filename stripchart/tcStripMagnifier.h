#pragma once

#include <qwt_plot_magnifier.h>

/// Zooms the value axis with the wheel, about the point under the mouse, which comes to the
/// middle of the canvas, and with Plus and Minus about the middle.
class tcStripMagnifier : public QwtPlotMagnifier
{
    Q_OBJECT

public:
    /// Belongs to the canvas.
    explicit tcStripMagnifier(QWidget* apCanvas);

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

    /// Moves what is shown by so many pixels, on the axes that the magnifier is enabled for.
    void pan(int anDx, int anDy);

protected:
    /// Stops before an axis becomes too narrow or too wide for numbers.
    void rescale(double anFactor) override;

private:
    bool zoomByKey(const QKeyEvent& acEvent); ///< true when it was one of its keys
    void panAxis(int anAxis, int anDx, int anDy);
};

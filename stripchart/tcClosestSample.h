#pragma once

#include <QPointF>

class QPoint;
class QwtPlot;
class tcStripCurve;

/// The sample of a visible curve that is drawn nearest to a position.
struct tcClosestSample
{
    tcStripCurve* curve = nullptr; ///< null when there is no sample; not owned
    QPointF sample;
    double distance = 0.0; ///< pixels

    /// acPos in pixels of the canvas.
    static tcClosestSample find(const QwtPlot& acPlot, const QPoint& acPos);
};

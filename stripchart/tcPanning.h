#pragma once

#include <QCursor>
#include <QObject>
#include <QPoint>
#include <qwt_scale_div.h>

class QKeyEvent;
class QMouseEvent;
class QwtPlot;
class tcAxisControl;
class tcPlotTools;
class tcReplotRequest;

/// Moves what the plot shows: by the middle button, dragged, and by the arrow keys a tenth of
/// the view at once, on the time axis and the left axis. The time axis then stands still, while
/// readings go on, until the view is given back.
///
/// A middle click without a drag is left to the other tools.
class tcPanning : public QObject
{
    Q_OBJECT

public:
    /// All outlive it.
    tcPanning(QwtPlot& arPlot, tcAxisControl& arAxes, tcPlotTools& arTools,
              tcReplotRequest& arReplot);

    bool isMoved() const { return mMoved; }
    /// Shows again what was shown before the first move and before any zoom.
    void giveBack();
    /// Lets the time axis scroll again and leaves the rest as it is.
    void release();

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

Q_SIGNALS:
    void changed(); ///< moved, or given back

private:
    bool press(const QMouseEvent& acEvent);
    bool move(const QMouseEvent& acEvent);
    bool letGo(const QMouseEvent& acEvent);
    bool key(const QKeyEvent& acEvent);
    void pan(const QPointF& acPixels);
    void hold();

    QwtPlot& mPlot;
    tcAxisControl& mAxes;
    tcPlotTools& mTools;
    tcReplotRequest& mReplot;
    QwtScaleDiv mTimes; ///< before the first move
    QwtScaleDiv mValues;
    QPoint mFrom; ///< of the drag, at its last step
    QCursor mPointer;
    bool mPressed = false;
    bool mDragging = false;
    bool mMoved = false;
    bool mWasZoomed = false; ///< at the first move
};

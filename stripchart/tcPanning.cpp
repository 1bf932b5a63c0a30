#include "stripchart/tcPanning.h"

#include "stripchart/tcAxisControl.h"
#include "stripchart/tcPlotTools.h"
#include "stripchart/tcReplotRequest.h"

#include <QApplication>
#include <QKeyEvent>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

namespace
{
constexpr double cKeyPart = 0.1; ///< of the view, for each press of an arrow key

tcAxisMath::tcRange shifted(const QwtPlot& acPlot, int anAxis, double anPixels)
{
    const QwtScaleMap map = acPlot.canvasMap(anAxis);
    const QwtScaleDiv& shown = acPlot.axisScaleDiv(anAxis);
    const double way = anPixels * (map.s2() - map.s1()) / (map.p2() - map.p1());
    return {shown.lowerBound() - way, shown.upperBound() - way};
}
} // namespace

tcPanning::tcPanning(QwtPlot& arPlot, tcAxisControl& arAxes, tcPlotTools& arTools,
                     tcReplotRequest& arReplot)
    : mPlot(arPlot), mAxes(arAxes), mTools(arTools), mReplot(arReplot)
{
    mPlot.canvas()->installEventFilter(this);
}

void tcPanning::giveBack()
{
    const bool zoomed = mTools.isZoomed();
    if (zoomed)
        mTools.zoomOut();
    if (!mMoved)
        return;
    // What a move began from while zoomed in is of no use to anyone any more.
    if (!mWasZoomed) {
        mAxes.setXRange(mTimes.lowerBound(), mTimes.upperBound());
        if (zoomed) // which left its numbers in the boxes of the left panel
            mAxes.setYRange(0, mValues.lowerBound(), mValues.upperBound());
        else
            mPlot.setAxisScaleDiv(QwtPlot::yLeft, mValues);
    }
    release();
}

void tcPanning::release()
{
    if (!mMoved)
        return;
    mMoved = false;
    mAxes.setHeld(false);
    mReplot.request();
    Q_EMIT changed();
}

bool tcPanning::eventFilter(QObject* apObject, QEvent* apEvent)
{
    switch (apEvent->type()) {
    case QEvent::MouseButtonPress:
        return press(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::MouseMove:
        return mPressed && move(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::MouseButtonRelease:
        return mPressed && letGo(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::KeyPress:
        return key(*static_cast<QKeyEvent*>(apEvent));
    default:
        return QObject::eventFilter(apObject, apEvent);
    }
}

bool tcPanning::press(const QMouseEvent& acEvent)
{
    // Not in the middle of a rectangle that the zoomer draws.
    if (acEvent.button() != Qt::MiddleButton || acEvent.buttons() != Qt::MiddleButton)
        return false;
    mPressed = true;
    mDragging = false;
    mFrom = acEvent.pos();
    return false;
}

bool tcPanning::move(const QMouseEvent& acEvent)
{
    if (!acEvent.buttons().testFlag(Qt::MiddleButton)) {
        mPressed = false; // released where nobody told us
        return false;
    }
    const QPoint way = acEvent.pos() - mFrom;
    if (!mDragging) {
        if (way.manhattanLength() < QApplication::startDragDistance())
            return false;
        mDragging = true;
        mPointer = mPlot.canvas()->cursor();
        mPlot.canvas()->setCursor(Qt::ClosedHandCursor);
    }
    mFrom = acEvent.pos();
    pan(way);
    return true;
}

bool tcPanning::letGo(const QMouseEvent& acEvent)
{
    if (acEvent.button() != Qt::MiddleButton)
        return mDragging;
    mPressed = false;
    if (!mDragging)
        return false;
    mDragging = false;
    mPlot.canvas()->setCursor(mPointer);
    return true;
}

bool tcPanning::key(const QKeyEvent& acEvent)
{
    if ((acEvent.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier
        || QApplication::mouseButtons() != Qt::NoButton)
        return false;
    const QSizeF step = QSizeF(mPlot.canvas()->size()) * cKeyPart;
    switch (acEvent.key()) {
    case Qt::Key_Left:
        pan({step.width(), 0.0});
        return true;
    case Qt::Key_Right:
        pan({-step.width(), 0.0});
        return true;
    case Qt::Key_Up:
        pan({0.0, step.height()});
        return true;
    case Qt::Key_Down:
        pan({0.0, -step.height()});
        return true;
    default:
        return false;
    }
}

/// The curves move by so many pixels.
void tcPanning::pan(const QPointF& acPixels)
{
    hold();
    const tcAxisMath::tcRange times = shifted(mPlot, QwtPlot::xBottom, acPixels.x());
    const tcAxisMath::tcRange values = shifted(mPlot, QwtPlot::yLeft, acPixels.y());
    // The boxes of the left panel keep what the operator set, which comes back later.
    if (acPixels.y() != 0.0 && values.isValid())
        mPlot.setAxisScale(QwtPlot::yLeft, values.from, values.to);
    mAxes.setXRange(times.from, times.to);
    // At once: the next step may come before the plot is drawn.
    mPlot.updateAxes();
    mReplot.request();
}

void tcPanning::hold()
{
    if (mMoved)
        return;
    mMoved = true;
    mWasZoomed = mTools.isZoomed();
    mTimes = mPlot.axisScaleDiv(QwtPlot::xBottom);
    mValues = mPlot.axisScaleDiv(QwtPlot::yLeft);
    mAxes.setHeld(true);
    Q_EMIT changed();
}

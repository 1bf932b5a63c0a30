#include "stripchart/tcMeasuringCursors.h"

#include "stripchart/tcCursorItem.h"
#include "stripchart/tcReplotRequest.h"

#include <QKeyEvent>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

namespace
{
constexpr double cReach = 4.0; ///< pixels to either side of a line that grab it
constexpr int cShiftStep = 10;
} // namespace

tcMeasuringCursors::tcMeasuringCursors(QwtPlot& arPlot, tcReplotRequest& arReplot)
    : mPlot(arPlot), mReplot(arReplot), mItem(std::make_unique<tcCursorItem>())
{
}

tcMeasuringCursors::~tcMeasuringCursors() = default;

void tcMeasuringCursors::setShown(bool abOn)
{
    if (abOn == mShown)
        return;
    mShown = abOn;
    mDragged = -1;
    mItem->choose(-1);
    QWidget* canvas = mPlot.canvas();
    if (abOn) {
        const QwtInterval times = mPlot.axisInterval(QwtPlot::xBottom);
        for (int cursor = 0; cursor < tcCursorItem::cCount; ++cursor)
            mItem->setTime(cursor, times.minValue() + times.width() * (cursor + 1) / 3.0);
        mItem->attach(&mPlot);
        mHadTracking = canvas->hasMouseTracking();
        canvas->setMouseTracking(true);
        canvas->installEventFilter(this);
    } else {
        mItem->detach();
        canvas->removeEventFilter(this);
        canvas->setMouseTracking(mHadTracking);
        setGrip(false);
    }
    mReplot.request();
    Q_EMIT changed();
}

QPair<double, double> tcMeasuringCursors::span() const
{
    return mItem->span();
}

bool tcMeasuringCursors::eventFilter(QObject* apObject, QEvent* apEvent)
{
    switch (apEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent*>(apEvent));
    case QEvent::KeyPress:
        return key(*static_cast<QKeyEvent*>(apEvent));
    default:
        return QObject::eventFilter(apObject, apEvent);
    }
}

bool tcMeasuringCursors::press(const QMouseEvent& acEvent)
{
    if (mDragged >= 0)
        return true; // another button in the middle of a drag
    if (acEvent.button() != Qt::LeftButton || acEvent.modifiers() != Qt::NoModifier)
        return false;
    mDragged = cursorAt(acEvent.pos().x());
    choose(mDragged);
    return mDragged >= 0;
}

bool tcMeasuringCursors::move(const QMouseEvent& acEvent)
{
    if (mDragged >= 0) {
        moveTo(mDragged, acEvent.pos().x());
        return true;
    }
    if (acEvent.buttons() == Qt::NoButton)
        setGrip(cursorAt(acEvent.pos().x()) >= 0);
    return false;
}

bool tcMeasuringCursors::release(const QMouseEvent& acEvent)
{
    if (mDragged < 0)
        return false;
    if (acEvent.button() == Qt::LeftButton)
        mDragged = -1;
    return true;
}

bool tcMeasuringCursors::key(const QKeyEvent& acEvent)
{
    const int digit = acEvent.key() - Qt::Key_1;
    const bool plain = (acEvent.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && mDragged < 0 && digit >= 0 && digit < tcCursorItem::cCount) {
        choose(digit);
        return true;
    }
    const int chosen = mItem->chosen();
    if (chosen < 0)
        return false;
    if (acEvent.key() == Qt::Key_Escape) {
        choose(-1);
        return true;
    }
    if (acEvent.key() != Qt::Key_Left && acEvent.key() != Qt::Key_Right)
        return false;
    const int step = acEvent.modifiers().testFlag(Qt::ShiftModifier) ? cShiftStep : 1;
    const double x = mPlot.transform(QwtPlot::xBottom, mItem->time(chosen));
    moveTo(chosen, x + (acEvent.key() == Qt::Key_Left ? -step : step));
    return true;
}

int tcMeasuringCursors::cursorAt(int anX) const
{
    int nearest = -1;
    double reach = cReach;
    for (int cursor = 0; cursor < tcCursorItem::cCount; ++cursor) {
        const double x = mPlot.transform(QwtPlot::xBottom, mItem->time(cursor));
        const double distance = std::abs(x - anX);
        if (distance > reach)
            continue;
        nearest = cursor;
        reach = distance;
    }
    return nearest;
}

void tcMeasuringCursors::choose(int anCursor)
{
    if (anCursor == mItem->chosen())
        return;
    mItem->choose(anCursor);
    mReplot.request();
}

void tcMeasuringCursors::moveTo(int anCursor, double anX)
{
    const double x = qBound(0.0, anX, mPlot.canvas()->width() - 1.0);
    mItem->setTime(anCursor, mPlot.canvasMap(QwtPlot::xBottom).invTransform(x));
    mReplot.request();
    Q_EMIT changed();
}

void tcMeasuringCursors::setGrip(bool abOn)
{
    if (abOn == mGrip)
        return;
    mGrip = abOn;
    if (abOn) {
        mPointer = mPlot.canvas()->cursor();
        mPlot.canvas()->setCursor(Qt::SplitHCursor);
    } else {
        mPlot.canvas()->setCursor(mPointer);
    }
}

#include "stripchart/tcReplotRequest.h"

#include <QEvent>
#include <QWidget>
#include <qwt_plot.h>

namespace
{
constexpr int cShortestIntervalMs = 16;
} // namespace

tcReplotRequest::tcReplotRequest(QwtPlot& arPlot) : mPlot(arPlot)
{
    mTimer.setSingleShot(true);
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &tcReplotRequest::replot);
    mPlot.installEventFilter(this);
}

void tcReplotRequest::request()
{
    if (mTimer.isActive() || mMissed)
        return;
    if (!isSeen()) {
        mMissed = true;
        mPlot.window()->installEventFilter(this);
        return;
    }
    const qint64 passed = mSinceReplot.isValid() ? mSinceReplot.elapsed() : cShortestIntervalMs;
    mTimer.start(
        static_cast<int>(qBound<qint64>(0, cShortestIntervalMs - passed, cShortestIntervalMs)));
}

bool tcReplotRequest::eventFilter(QObject* apObject, QEvent* apEvent)
{
    const bool mayBeSeen
        = apEvent->type() == QEvent::Show || apEvent->type() == QEvent::WindowStateChange;
    if (mMissed && mayBeSeen) {
        mMissed = false;
        // The event comes before the state it tells of is complete.
        mTimer.start(0);
    }
    return QObject::eventFilter(apObject, apEvent);
}

void tcReplotRequest::replot()
{
    if (!isSeen()) {
        mMissed = true;
        mPlot.window()->installEventFilter(this);
        return;
    }
    mSinceReplot.start();
    mPlot.replot();
}

bool tcReplotRequest::isSeen() const
{
    return mPlot.isVisible() && !mPlot.window()->isMinimized();
}

#include "stripchart/tcCurveNotifier.h"

#include <QCoreApplication>
#include <QThread>

tcCurveNotifier::tcCurveNotifier(std::function<void()> acAction) : mAction(std::move(acAction))
{
    if (QCoreApplication::instance())
        moveToThread(QCoreApplication::instance()->thread());
    connect(this, &tcCurveNotifier::changedElsewhere, this, &tcCurveNotifier::deliver,
            Qt::QueuedConnection);
}

void tcCurveNotifier::notify()
{
    if (QThread::currentThread() == thread())
        mAction();
    else if (!mPending.exchange(true))
        Q_EMIT changedElsewhere();
}

void tcCurveNotifier::deliver()
{
    // Before the action, so that a sample added meanwhile asks again.
    mPending = false;
    mAction();
}

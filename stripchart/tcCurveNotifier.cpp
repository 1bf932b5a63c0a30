#include "stripchart/tcCurveNotifier.h"

#include <QCoreApplication>
#include <QThread>

tcCurveNotifier::tcCurveNotifier(std::function<void()> acAction) : mAction(std::move(acAction))
{
    if (QCoreApplication::instance())
        moveToThread(QCoreApplication::instance()->thread());
}

void tcCurveNotifier::notify()
{
    if (QThread::currentThread() == thread())
        mAction();
    else if (!mPending.exchange(true))
        QMetaObject::invokeMethod(this, &tcCurveNotifier::deliver, Qt::QueuedConnection);
}

void tcCurveNotifier::deliver()
{
    // Before the action, so that a sample added meanwhile asks again.
    mPending = false;
    mAction();
}

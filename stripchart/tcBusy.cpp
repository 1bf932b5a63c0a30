#include "stripchart/tcBusy.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QWindow>

namespace
{

constexpr int cSteps = 1000;

/// All of them, the operator's input too. A timer that lets others work without that input, as
/// reading a camera's line does, leaves the rest of the round without it, and what has come
/// from the window system by then asleep. Hence another round, woken, and without timers: one
/// that takes longer than its interval would be due again and be first again.
void runEvents()
{
    QApplication::processEvents();
    QAbstractEventDispatcher::instance()->wakeUp();
    QApplication::processEvents(QEventLoop::X11ExcludeTimers);
}

} // namespace

tcBusy::tcBusy(QWidget& arWindow, const QString& acText, Qt::CursorShape anCursor)
    : mWindow(&arWindow), mText(acText)
{
    QApplication::setOverrideCursor(anCursor);
    mSinceStart.start();
    mSinceLook.start();
}

tcBusy::~tcBusy()
{
    QApplication::restoreOverrideCursor();
}

bool tcBusy::step(qint64 anDone, qint64 anTotal)
{
    if (!mWindow)
        return false;
    if (mSinceLook.elapsed() < cLookMs)
        return !mDialog || !mDialog->wasCanceled();
    if (!mDialog && mSinceStart.elapsed() >= cShowMs)
        showDialog();
    if (mDialog) {
        mDialog->setMaximum(anTotal > 0 ? cSteps : 0);
        mDialog->setValue(anTotal > 0 ? static_cast<int>(anDone * cSteps / anTotal) : 0);
        runEvents();
    } else {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    mSinceLook.restart();
    return mWindow && (!mDialog || !mDialog->wasCanceled());
}

void tcBusy::showDialog()
{
    // No parent: it must not go with a window that somebody deletes meanwhile.
    mDialog = std::make_unique<QProgressDialog>();
    mDialog->setWindowTitle(mWindow->windowTitle());
    auto* label = new QLabel(mText);
    label->setTextFormat(Qt::PlainText); // the name of a file
    label->setAlignment(Qt::AlignCenter);
    mDialog->setLabel(label);
    mDialog->setWindowModality(Qt::ApplicationModal);
    mDialog->setAutoReset(false);
    mDialog->setMinimumDuration(0);
    // Which costs it the place in the middle of that window and in front of it.
    const QWidget& window = *mWindow->window();
    mDialog->winId();
    mDialog->windowHandle()->setTransientParent(window.windowHandle());
    mDialog->move(window.frameGeometry().center() - mDialog->rect().center());
    mDialog->show();
}

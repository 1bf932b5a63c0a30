#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class QProgressDialog;

/// Keeps the window alive through long work in the GUI thread: another cursor at once, and what
/// takes longer than a second shows its progress and can be cancelled. Both end with the
/// object.
///
/// While it works, events run: timers, readings and painting at all times, the operator's input
/// only for the progress dialog, which is modal. So nobody starts anything else meanwhile, but
/// timers may do anything; step() tells when they did away with the window.
class tcBusy
{
public:
    static constexpr int cLookMs = 50;   ///< between two rounds of events
    static constexpr int cShowMs = 1000; ///< work shorter than this shows no progress

    tcBusy(QWidget& arWindow, const QString& acText, Qt::CursorShape anCursor);
    ~tcBusy();
    Q_DISABLE_COPY(tcBusy)

    /// Called as often as one likes. False when cancelled or when the window is gone.
    bool step(qint64 anDone, qint64 anTotal);

private:
    void showDialog();

    QPointer<QWidget> mWindow;
    QString mText;
    QElapsedTimer mSinceStart;
    QElapsedTimer mSinceLook;
    std::unique_ptr<QProgressDialog> mDialog;
};

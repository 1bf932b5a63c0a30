#pragma once

#include <QObject>

#include <atomic>
#include <functional>

/// Carries "the samples changed" to the GUI thread: at once when it comes from there, otherwise
/// through the event loop, many changes as one.
class tcCurveNotifier : public QObject
{
    Q_OBJECT

public:
    /// acAction runs in the GUI thread, never after the notifier is gone.
    explicit tcCurveNotifier(std::function<void()> acAction);

    void notify(); ///< from any thread, with no lock held

Q_SIGNALS:
    void changedElsewhere(); ///< from another thread than the GUI's

private:
    void deliver();

    std::function<void()> mAction;
    std::atomic<bool> mPending{false};
};

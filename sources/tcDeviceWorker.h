#pragma once

#include "sources/tcWorkerLink.h"

#include <QElapsedTimer>
#include <QRunnable>

#include <functional>
#include <memory>

/// A device loop on the global thread pool, which can be stopped, deleted and survived while a
/// driver call hangs.
///
/// The pool waits for its threads when the program quits, for ever if need be. Therefore the
/// loop has a thread of its own, and the pool's thread only stands guard until the loop has
/// ended or is let go. A loop that is let go finishes on its own memory, whenever its driver
/// returns, and reaches nobody.
///
/// start(), requestStop() and stop() belong to the GUI thread. Held by shared pointers: the
/// pool's thread holds one of its own for as long as it needs the worker.
class tcDeviceWorker : public QRunnable, public std::enable_shared_from_this<tcDeviceWorker>
{
public:
    ~tcDeviceWorker() override;

    /// Hands the worker to the pool, whose limit rises by one while the worker is there, so
    /// that more loops than processor cores can run. Nothing happens if it is there already.
    void start();
    /// Asks the loop to end, and does not wait: whoever stops several asks all of them first,
    /// so that their seconds are one and the same.
    void requestStop();
    /// Asks the loop to end and waits for it, at most until about a second after it was first
    /// asked, in which the event loop runs. False when the loop is stuck; it is let go then. A
    /// worker that no thread has begun with is not waited for. The caller holds a pointer of
    /// its own during the call.
    bool stop();
    tcWorkerLink& link() { return *mLink; }

    void run() override; ///< on the pool's thread

protected:
    explicit tcDeviceWorker(std::shared_ptr<tcWorkerLink> aLink);

    /// The loop. It owns what it touches and knows nothing of the worker, which may be gone
    /// before it ends; it looks at the link's stop flag after whatever may have hung.
    virtual std::function<void()> loop() const = 0;

    const std::shared_ptr<tcWorkerLink> mLink;

private:
    bool waitFinished();

    QElapsedTimer mSinceAsked; ///< to end

    // Under a lock common to all workers.
    std::shared_ptr<tcDeviceWorker> mSelf; ///< of the pool, until a thread of it takes over
    bool mInPool = false;
    bool mLetGo = false; ///< its loop may still run somewhere, so it never starts again
};

#pragma once

#include "sources/tcDataSource.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

/// All that a device loop and its owner have in common, kept alive by both. The loop touches
/// nothing else of the owner's, so it may outlive the sources, the worker and the application
/// object when a driver keeps it.
///
/// Thread-safe. A loop that serves several channels has one slot for each.
class tcWorkerLink
{
public:
    explicit tcWorkerLink(size_t anSlots = 1) : mSources(anSlots, nullptr) { }

    // The owner's side.

    /// Who emits what the slot receives; null for nobody. Returns who did so until now. Once
    /// this returns, the loop no longer uses the former one.
    tcDataSource* setSource(size_t anSlot, tcDataSource* apSource)
    {
        const std::lock_guard lock(mSourcesMutex);
        return std::exchange(mSources.at(anSlot), apSource);
    }
    bool wasStarted() const { return mStarted != 0; }
    /// Ready for a run; called before the worker is handed to the pool, so that a request to
    /// stop that comes before the loop begins is not lost.
    void restart()
    {
        change([this] {
            mStarted = 1;
            mStopRequested = 0;
            mFinished = 0;
            mEnded = false;
        });
    }
    void requestStop()
    {
        change([this] { mStopRequested = 1; });
    }
    bool isFinished() const { return mFinished != 0; }
    /// As isFinished(), after waiting for it no longer than this.
    bool waitFinished(int anMs)
    {
        std::unique_lock lock(mMutex);
        return mChanged.wait_for(lock, std::chrono::milliseconds(anMs),
                                 [this] { return isFinished(); });
    }
    /// Nobody waits for the loop any longer, and it must end as soon as it can.
    void letGo()
    {
        change([this] {
            mStopRequested = 1;
            mLetGo = true;
        });
    }

    // The loop's side.

    bool stopRequested() const { return mStopRequested != 0; }
    /// Waits this long, less when asked to stop.
    void pause(int anMs)
    {
        std::unique_lock lock(mMutex);
        mChanged.wait_for(lock, std::chrono::milliseconds(anMs),
                          [this] { return stopRequested(); });
    }
    /// False if the slot is empty. The source can't go away while it emits.
    bool emitReading(size_t anSlot, qint64 anMsSinceEpoch, double anValue)
    {
        const std::lock_guard lock(mSourcesMutex);
        tcDataSource* source = mSources.at(anSlot);
        if (source)
            Q_EMIT source->tempReading(anMsSinceEpoch, anValue);
        return source != nullptr;
    }
    bool emitMessage(size_t anSlot, const QString& acText)
    {
        const std::lock_guard lock(mSourcesMutex);
        tcDataSource* source = mSources.at(anSlot);
        if (source)
            Q_EMIT source->message(acText);
        return source != nullptr;
    }
    bool hasSource(size_t anSlot) const
    {
        const std::lock_guard lock(mSourcesMutex);
        return mSources.at(anSlot) != nullptr;
    }
    /// The loop has released its instrument. A loop may end without saying so.
    void setFinished()
    {
        change([this] { mFinished = 1; });
    }
    /// The last thing that its thread does.
    void setEnded()
    {
        change([this] { mEnded = true; });
    }

    // The pool thread's side.

    /// Waits until the loop has ended, or returns false once it is let go.
    bool waitEnded()
    {
        std::unique_lock lock(mMutex);
        mChanged.wait(lock, [this] { return mEnded || mLetGo; });
        return mEnded;
    }

private:
    template <class tChange>
    void change(tChange aChange)
    {
        const std::lock_guard lock(mMutex);
        aChange();
        mChanged.notify_all();
    }

    /// Recursive, so that a receiver connected directly may take its source out of its slot.
    mutable std::recursive_mutex mSourcesMutex;
    std::vector<tcDataSource*> mSources; ///< not owned

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::atomic<qint32> mStarted = 0;
    std::atomic<qint32> mStopRequested = 0;
    std::atomic<qint32> mFinished = 0;
    bool mEnded = false;
    bool mLetGo = false;
};

#pragma once

#include <condition_variable>
#include <mutex>

/// Holds up whoever passes while it is shut: a driver that hangs.
class tcGate
{
public:
    void shut()
    {
        const std::lock_guard lock(mMutex);
        mShut = true;
    }
    void open()
    {
        const std::lock_guard lock(mMutex);
        mShut = false;
        mChanged.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(mMutex);
        ++mInside;
        mChanged.wait(lock, [this] { return !mShut; });
        --mInside;
    }
    int inside()
    {
        const std::lock_guard lock(mMutex);
        return mInside;
    }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mShut = false;
    int mInside = 0;
};

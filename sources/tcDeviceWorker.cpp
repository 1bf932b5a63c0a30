#include "sources/tcDeviceWorker.h"

#include <QCoreApplication>
#include <QDebug>
#include <QThreadPool>

#include <system_error>
#include <thread>
#include <utility>

namespace
{

constexpr qint64 cStopChecks = 10;
constexpr int cStopCheckMs = 100;
constexpr int cStopSliceMs = 10; ///< how long the window may stand still meanwhile

/// Guards what the workers and the pool's threads have in common. One for all of them: that of
/// a worker could go away with it.
std::mutex& common()
{
    static auto* mutex = new std::mutex;
    return *mutex;
}

/// The limit is read and written back, so changes of ours must not overlap.
void changePoolLimit(int anBy)
{
    const std::lock_guard lock(common());
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(pool->maxThreadCount() + anBy);
}

} // namespace

tcDeviceWorker::tcDeviceWorker(std::shared_ptr<tcWorkerLink> aLink) : mLink(std::move(aLink))
{
    setAutoDelete(false);
}

tcDeviceWorker::~tcDeviceWorker() = default;

void tcDeviceWorker::start()
{
    {
        const std::lock_guard lock(common());
        if (mInPool || mLetGo)
            return;
        mInPool = true;
        mSelf = shared_from_this();
        mLink->restart();
        mSinceAsked.invalidate();
    }
    changePoolLimit(1);
    QThreadPool::globalInstance()->start(this);
}

void tcDeviceWorker::requestStop()
{
    if (!mSinceAsked.isValid())
        mSinceAsked.start();
    mLink->requestStop();
}

bool tcDeviceWorker::stop()
{
    {
        const std::lock_guard lock(common());
        // A loop that ended without finishing is waited for like one that is stuck.
        if (!mInPool && (mLink->isFinished() || !mLink->wasStarted()))
            return true;
    }
    requestStop();
    if (QThreadPool::globalInstance()->tryTake(this)) {
        changePoolLimit(-1);
        mLink->setFinished();
        const std::lock_guard lock(common());
        mInPool = false;
        mSelf.reset(); // never the last one: whoever calls holds one
        return true;
    }
    if (waitFinished())
        return true;
    {
        const std::lock_guard lock(common());
        mLetGo = true;
    }
    mLink->letGo();
    return false;
}

bool tcDeviceWorker::waitFinished()
{
    for (qint64 check = 1 + mSinceAsked.elapsed() / cStopCheckMs; !mLink->isFinished();
         ++check) {
        if (check >= cStopChecks)
            return false;
        QElapsedTimer elapsed;
        elapsed.start();
        while (!mLink->waitFinished(cStopSliceMs) && !elapsed.hasExpired(cStopCheckMs))
            QCoreApplication::processEvents(QEventLoop::AllEvents, cStopCheckMs);
    }
    return true;
}

void tcDeviceWorker::run()
{
    std::shared_ptr<tcDeviceWorker> self;
    {
        const std::lock_guard lock(common());
        self = std::move(mSelf);
    }
    try {
        std::thread thread([link = mLink, body = loop()] {
            body();
            link->setEnded();
        });
        // Joined rather than merely seen to end: then nothing of it is left when the pool is
        // done and the program tears itself down.
        if (mLink->waitEnded())
            thread.join();
        else
            thread.detach();
    } catch (const std::system_error& error) { // out of threads
        qWarning() << "Unable to start a device loop:" << error.what();
        mLink->setFinished();
    }
    changePoolLimit(-1);
    const std::lock_guard lock(common());
    mInPool = false;
}

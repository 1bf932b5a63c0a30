#include "sources/tcPicoTC08MonWorker.h"

#include "sources/logic/tcTC08Channel.h"

#include <QDateTime>
#include <QDebug>

#include <array>
#include <cmath>

namespace
{

/// The loop's own memory: it outlives everything else when the driver hangs.
class tcLoop
{
public:
    tcLoop(std::shared_ptr<tcWorkerLink> aLink, const tcTC08Calls& acCalls, qint32 anPeriodMs)
        : mLink(std::move(aLink)), mCalls(acCalls), mPeriodMs(anPeriodMs)
    {
    }

    void operator()()
    {
        const QStringList missing = mCalls.missing();
        if (!missing.isEmpty()) {
            qWarning() << "PICO TC08: the driver lacks" << missing;
        } else {
            // As designed: a loop without a unit ends, but not as one that finished.
            if (!openUnit())
                return;
            setUp();
            while (!mLink->stopRequested()) {
                readOnce();
                mLink->pause(mPeriodMs);
            }
        }
        mLink->setFinished(); // the unit stays open: drivers have been seen to fail in closing
    }

private:
    bool openUnit()
    {
        mHandle = mCalls.openUnit();
        if (mHandle != -1) // as designed: 0, no unit found, is taken for a handle
            return true;
        if (!mLink->stopRequested())
            qWarning() << "Unable to open USB device... error (" << mCalls.lastError(0) << ")";
        return false;
    }

    void setUp()
    {
        // Any of these may hang, and nobody wants the rest if it was stopped meanwhile.
        if (!mLink->stopRequested())
            mCalls.setMains(mHandle, USBTC08_MAINS_60HZ);
        for (qint16 channel = 0; channel < tcTC08Channel::cCount; ++channel) {
            if (!mLink->stopRequested())
                mCalls.setChannel(mHandle, channel, USBTC08_TYPE_K);
        }
        if (mLink->stopRequested())
            return;
        const qint32 intervalMs = mCalls.minimumIntervalMs(mHandle);
        if (!mLink->stopRequested())
            qDebug() << "Conversion time: " << intervalMs;
    }

    void readOnce()
    {
        // As designed: zeroed, and the result ignored, so a unit that fails reads 0.
        std::array<float, tcTC08Channel::cCount> temperatures{};
        qint16 overflow = 0;
        mCalls.getSingle(mHandle, temperatures.data(), &overflow, USBTC08_UNITS_CENTIGRADE);
        for (size_t channel = 0; channel < temperatures.size(); ++channel) {
            if (mLink->stopRequested())
                return;
            // A channel without a thermocouple may come back as no number at all.
            const bool usable = std::isfinite(temperatures[channel]);
            const bool flagged = tcTC08Channel::overflowed(overflow, int(channel));
            if (flagged || (!usable && mLink->hasSource(channel)))
                qWarning() << "PICO TC08: Overflow on ch:" << channel;
            else if (usable)
                mLink->emitReading(channel, QDateTime::currentMSecsSinceEpoch(),
                                   double(temperatures[channel]));
        }
    }

    const std::shared_ptr<tcWorkerLink> mLink;
    const tcTC08Calls mCalls;
    const qint32 mPeriodMs;
    qint16 mHandle = 0;
};

} // namespace

tcPicoTC08MonWorker::tcPicoTC08MonWorker(const tcTC08Calls& acCalls, qint32 anPeriodMs)
    : tcDeviceWorker(std::make_shared<tcWorkerLink>(size_t(tcTC08Channel::cCount)))
    , mCalls(acCalls)
    , mPeriodMs(anPeriodMs)
{
}

std::function<void()> tcPicoTC08MonWorker::loop() const
{
    return tcLoop(mLink, mCalls, mPeriodMs);
}

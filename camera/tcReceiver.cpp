#include "camera/tcReceiver.h"

#include "camera/logic/tcSilence.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QPointer>
#include <QTextCodec>
#include <QTimer>

namespace
{

constexpr int cRetries = 5; ///< empty polls before the last one of a run
constexpr int cEventTimeMs = 5;
constexpr quint32 cReadTimeoutMs = 200;
/// At a rate that never leaves a poll empty, a run would read byte by byte until its slice is
/// over; it pauses instead and lets the bytes gather.
constexpr int cReadsPerRun = 256;
constexpr int cEmptyReads = 5; ///< in a row, from a driver that announces bytes it hasn't

} // namespace

tcReceiver::tcReceiver(QObject* apParent, tcClock aClock)
    : QObject(apParent), mClock(std::move(aClock))
{
}

void tcReceiver::start(tcSerialLink::tcRef aRef)
{
    stop();
    mRef = aRef;
    mDecoder.reset(QTextCodec::codecForLocale()->makeDecoder());
    mLastRxTime = {};
}

void tcReceiver::stop()
{
    ++mOpening;
    mRef = 0;
    mAssembler.clear();
}

bool tcReceiver::isSilent() const
{
    return tcSilence::isSilent(mLastRxTime, mClock());
}

bool tcReceiver::run()
{
    if (mRunning || mRef == 0)
        return false;
    const QPointer<tcReceiver> alive(this);
    mRunning = true;
    const teEnd end = loop();
    if (!alive)
        return false;
    mRunning = false;
    // The camera pauses behind what reads as a reply: the operator gets it without a line end.
    if (end == teEnd::Drained || end == teEnd::Failed)
        emitUnfinishedReply();
    // Only a call that fails right after the fifth empty poll leaves the count here.
    if (end == teEnd::Failed && mRetries == 0)
        qDebug() << "tcVexaK40::CheckRxData"
                 << "Nothing there...";
    return end != teEnd::Closed;
}

tcReceiver::teEnd tcReceiver::loop()
{
    mRetries = cRetries;
    mReads = 0;
    mEmptyReads = 0;
    mSlice.start();
    // What an earlier run had no time for comes before anything new.
    if (!emitReplies())
        return mRef == 0 ? teEnd::Closed : teEnd::Paused;
    while (true) {
        const tcSerialLink::tcAvailable waiting = tcSerialLink::bytesAvailable(mRef);
        if (waiting.status == 0 && waiting.bytes > 0) {
            teEnd end = teEnd::Drained;
            if (!readOnce(waiting.bytes, end))
                return end;
            continue;
        }
        if (!letOthersWork())
            return teEnd::Closed;
        if (waiting.status != 0)
            return teEnd::Failed;
        if (mRetries-- == 0)
            return teEnd::Drained;
    }
}

bool tcReceiver::readOnce(quint32 anWaiting, teEnd& areEnd)
{
    const tcSerialLink::tcReadResult read = tcSerialLink::read(mRef, anWaiting, cReadTimeoutMs);
    areEnd = teEnd::Failed;
    if (read.status != 0)
        return false;
    areEnd = teEnd::Drained;
    if (read.bytes.isEmpty())
        return ++mEmptyReads < cEmptyReads;
    mEmptyReads = 0;
    ++mReads;
    const int opening = mOpening;
    mLastRxTime = mClock();
    mAssembler.add(mDecoder->toUnicode(read.bytes));
    Q_EMIT bytesReceived(read.bytes);
    const bool goOn = mOpening == opening && emitReplies();
    areEnd = mOpening == opening ? teEnd::Paused : teEnd::Closed;
    if (goOn && mAssembler.hasUnfinishedLine())
        mRetries = cRetries;
    return goOn && !isOver();
}

/// Hands on all complete replies; false when the slice was over or the port closed before.
bool tcReceiver::emitReplies()
{
    const int opening = mOpening;
    while (const std::optional<QString> reply = mAssembler.nextReply()) {
        Q_EMIT replyReceived(*reply);
        if (mOpening != opening || isOver())
            return false;
    }
    return true;
}

void tcReceiver::emitUnfinishedReply()
{
    if (mAssembler.hasUnfinishedReply())
        Q_EMIT replyReceived(mAssembler.takeUnfinishedReply());
}

bool tcReceiver::isOver() const
{
    return mReads >= cReadsPerRun || mSlice.hasExpired(mSliceMs);
}

/// False when the run must not go on: the port is not the same any more, or nothing is.
bool tcReceiver::letOthersWork()
{
    const QPointer<tcReceiver> alive(this);
    const int opening = mOpening;
    if (mAssembler.hasUnfinishedReply()) {
        // The rest of a reply is worth the whole time, not only as long as others have work.
        QEventLoop loop;
        QTimer::singleShot(cEventTimeMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    } else {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, cEventTimeMs);
    }
    return alive && mOpening == opening;
}

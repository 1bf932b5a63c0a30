#pragma once

#include "camera/logic/tcRxAssembler.h"
#include "camlink/tcSerialLink.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTextDecoder>

#include <functional>
#include <memory>

/// Polls the line of an open port, turns what comes into replies and knows how long the camera
/// has been silent. Lives on the GUI thread.
///
/// A run lets other handlers work between its polls: they may write, close the port, open
/// another or destroy this object. Input of the operator waits for the main loop meanwhile, so
/// that no dialog opens on top of a run and holds it up.
class tcReceiver : public QObject
{
    Q_OBJECT

public:
    using tcClock = std::function<QDateTime()>;

    /// A camera that floods can't keep the window waiting longer.
    static constexpr qint64 cSliceMs = 20;

    explicit tcReceiver(QObject* apParent = nullptr,
                        tcClock aClock = &QDateTime::currentDateTime);

    /// How long a run may go on while there is something to do; cSliceMs at first.
    void setSlice(qint64 anMs) { mSliceMs = anMs; }

    /// Begins anew with an open port: nothing pending, nothing received.
    void start(tcSerialLink::tcRef aRef);
    /// Forgets the port; harmless without one.
    void stop();

    /// Reads what the camera sent, until it pauses or the time slice is over; the next run goes
    /// on. Returns whether the port is still the one that the run began with: false too without
    /// a port and inside another run, where nothing is done.
    bool run();

    /// The camera has sent something since start(), but nothing for too long.
    bool isSilent() const;
    /// Invalid until something was received.
    QDateTime lastRxTime() const { return mLastRxTime; }

Q_SIGNALS:
    void bytesReceived(const QByteArray& acBytes);
    void replyReceived(const QString& acLine);

private:
    enum class teEnd
    {
        Drained, ///< nothing more came
        Paused,  ///< more is to come; the next run takes it
        Failed,  ///< the driver refused
        Closed,  ///< the port was closed meanwhile, perhaps this object destroyed
    };

    teEnd loop();
    /// Whether reading goes on; areEnd says why it does not.
    bool readOnce(quint32 anWaiting, teEnd& areEnd);
    bool emitReplies();
    void emitUnfinishedReply();
    bool letOthersWork();
    bool isOver() const;

    tcClock mClock;
    qint64 mSliceMs = cSliceMs;
    tcRxAssembler mAssembler;
    std::unique_ptr<QTextDecoder> mDecoder; ///< carries characters that were cut in two
    QDateTime mLastRxTime;
    QElapsedTimer mSlice; ///< since the run began
    tcSerialLink::tcRef mRef = 0;
    int mOpening = 0; ///< counts start() and stop(): a later port may have the same reference
    int mRetries = 0;
    int mReads = 0;      ///< of this run
    int mEmptyReads = 0; ///< in a row
    bool mRunning = false;
};

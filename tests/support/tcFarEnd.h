#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <thread>

/// The far end of a serial line, where a camera would be: sees every byte that the panel sends
/// and says whatever the test wants. On a pseudo-terminal; needs Linux.
class tcFarEnd
{
public:
    tcFarEnd();
    ~tcFarEnd();
    tcFarEnd(const tcFarEnd&) = delete;
    tcFarEnd& operator=(const tcFarEnd&) = delete;

    bool isValid() const { return mFile >= 0 && mWatch >= 0; }
    QString path() const { return mPath; } ///< what the panel opens

    /// All that has come since the last forget().
    QByteArray received();
    void forget() { mReceived.clear(); }
    void send(const QByteArray& acBytes);

    /// Sends the line again and again, as fast as it is taken, until told otherwise.
    void startFlood(const QByteArray& acLine);
    void stopFlood();

    /// The rate that the panel set the line to; 0 for one that is not of interest.
    int baud() const;
    /// How often the line was taken up and hung up since the beginning.
    int opens();
    int closes();

private:
    void lookAtLine();

    int mFile = -1;
    int mWatch = -1;
    int mOpens = 0;
    int mCloses = 0;
    QString mPath;
    QByteArray mReceived;
    std::atomic<bool> mFlooding{false};
    std::thread mFlood;
};

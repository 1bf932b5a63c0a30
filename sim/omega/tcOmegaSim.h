#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

/// A serial thermometer at the far end of a pseudo-terminal. It answers each "c" line with a
/// temperature from a seed and the clock, or misbehaves as told.
///
/// Serves on a thread of its own; every operation is thread-safe. Plugged in from the start.
class tcOmegaSim
{
public:
    explicit tcOmegaSim(uint32_t anSeed = 1);
    tcOmegaSim(const tcOmegaSim&) = delete;
    tcOmegaSim& operator=(const tcOmegaSim&) = delete;
    ~tcOmegaSim();

    /// The port to open, a path; empty while unplugged. Another one after each plugging in.
    std::string portName() const;
    /// A soft link that names the port for as long as it is plugged in, whichever it is. False
    /// if something else is there or it can't be made.
    bool setLink(const std::string& acPath);

    /// Carries out one line; false if it is not understood.
    ///
    ///   temp T          this temperature from now on; "temp auto" ends it
    ///   reply TEXT      exactly this instead, with \r, \n, \xHH and \\ in it
    ///   silence         no reply
    ///   garbage         bytes that are no reply
    ///   split N MS      N bytes of the reply, a pause, then the rest
    ///   late MS         the reply only after this time
    ///   echo            the request, then the reply
    ///   flood N         N lines for each request
    ///   normal          an end to all of these
    ///   unplug, plug    takes the port away, and makes one
    bool command(const std::string& acLine);

    std::string received() const; ///< all bytes, the newest 64 KiB of them
    int requests() const;         ///< "c" lines since the start

private:
    using tcClock = std::chrono::steady_clock;

    struct tcAnswer
    {
        tcClock::time_point due; ///< not in whole ms: no answer may come early
        std::string bytes;
    };

    bool plug();
    void unplug();
    void wake();
    void serve();
    void take(const char* acBytes, size_t anCount, tcClock::time_point aNow);
    void answer(tcClock::time_point aNow);
    std::string reply(tcClock::time_point aNow) const;
    int sendDue(tcClock::time_point aNow);
    bool makeLink();
    void dropLink();

    mutable std::mutex mMutex;
    std::thread mThread;
    bool mEnd = false;
    int mWakePipe[2] = {-1, -1};
    int mMaster = -1;
    int mSlave = -1; ///< held open, so that the far end's coming and going is not noticed
    std::string mPort;
    std::string mLink;
    std::string mLine; ///< begun, not yet ended
    std::string mReceived;
    int mRequests = 0;
    std::deque<tcAnswer> mAnswers;

    uint32_t mSeed;
    std::optional<double> mTemperature;
    std::optional<std::string> mReply;
    bool mGarbage = false;
    bool mEcho = false;
    int mSplitAt = 0;
    int mSplitMs = 0;
    int mLateMs = 0;
    int mLines = 1;
};

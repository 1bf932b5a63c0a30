#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>

/// One direction of a serial line: each byte takes ten bits, one after the other, and is there
/// when its last bit has passed. Times in ns since any fixed moment.
class tcPacedLine
{
public:
    static constexpr int64_t cNever = std::numeric_limits<int64_t>::max();

    explicit tcPacedLine(uint32_t anBaud) { setBaud(anBaud); }

    /// For the bytes sent from now on.
    void setBaud(uint32_t anBaud);

    /// The byte starts at anNow, or when the line is free.
    void send(int64_t anNow, char aByte);
    /// Nothing starts before this time.
    void hold(int64_t anUntil);
    int64_t freeAt() const { return mFreeAt; }

    size_t arrived(int64_t anNow) const;            ///< bytes that have passed by now
    size_t queued() const { return mBytes.size(); } ///< passed or not
    /// Only when something has arrived.
    char take();
    int64_t frontArrival() const { return mBytes.empty() ? cNever : mBytes.front().arrival; }
    /// Arrival of the first byte that has not passed yet; cNever if all have.
    int64_t nextArrival(int64_t anNow) const;
    /// Throws away what has arrived.
    void purge(int64_t anNow);

private:
    struct tcByte
    {
        int64_t arrival;
        char byte;
    };

    std::deque<tcByte> mBytes; ///< in the order of their arrival
    int64_t mByteNs = 0;
    int64_t mFreeAt = 0;
};

#include "sim/camera/tcPacedLine.h"

#include <algorithm>

void tcPacedLine::setBaud(uint32_t anBaud)
{
    constexpr int64_t cBitsNs = 10'000'000'000; // ten bits at one baud
    const int64_t baud = std::max<uint32_t>(anBaud, 1);
    mByteNs = (cBitsNs + baud / 2) / baud;
}

void tcPacedLine::send(int64_t anNow, char aByte)
{
    mFreeAt = std::max(mFreeAt, anNow) + mByteNs;
    mBytes.push_back({mFreeAt, aByte});
}

void tcPacedLine::hold(int64_t anUntil)
{
    mFreeAt = std::max(mFreeAt, anUntil);
}

size_t tcPacedLine::arrived(int64_t anNow) const
{
    const auto later = std::upper_bound(
        mBytes.begin(), mBytes.end(), anNow,
        [](int64_t anTime, const tcByte& acByte) { return anTime < acByte.arrival; });
    return static_cast<size_t>(later - mBytes.begin());
}

char tcPacedLine::take()
{
    const char byte = mBytes.front().byte;
    mBytes.pop_front();
    return byte;
}

int64_t tcPacedLine::nextArrival(int64_t anNow) const
{
    const size_t passed = arrived(anNow);
    return passed < mBytes.size() ? mBytes[passed].arrival : cNever;
}

void tcPacedLine::purge(int64_t anNow)
{
    mBytes.erase(mBytes.begin(), mBytes.begin() + static_cast<int64_t>(arrived(anNow)));
}

#include "sim/omega/tcOmegaSim.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace
{

constexpr size_t cMaxReceived = 64 * 1024;
constexpr double cPi = 3.14159265358979323846;

/// "\r", "\n", "\xHH" and "\\" to what they stand for.
std::string unescaped(const std::string& acText)
{
    std::string bytes;
    for (size_t at = 0; at < acText.size(); ++at) {
        if (acText[at] != '\\' || at + 1 == acText.size()) {
            bytes += acText[at];
            continue;
        }
        const char kind = acText[++at];
        if (kind == 'x' && at + 2 < acText.size()) {
            bytes += char(std::strtol(acText.substr(at + 1, 2).c_str(), nullptr, 16));
            at += 2;
        } else {
            bytes += kind == 'r' ? '\r' : kind == 'n' ? '\n' : kind;
        }
    }
    return bytes;
}

} // namespace

tcOmegaSim::tcOmegaSim(uint32_t anSeed) : mSeed(anSeed)
{
    if (pipe2(mWakePipe, O_NONBLOCK | O_CLOEXEC) != 0)
        std::perror("thermometer: pipe");
    plug();
    mThread = std::thread([this] { serve(); });
}

tcOmegaSim::~tcOmegaSim()
{
    {
        const std::lock_guard lock(mMutex);
        mEnd = true;
    }
    wake();
    mThread.join();
    unplug();
    close(mWakePipe[0]);
    close(mWakePipe[1]);
}

std::string tcOmegaSim::portName() const
{
    const std::lock_guard lock(mMutex);
    return mPort;
}

bool tcOmegaSim::setLink(const std::string& acPath)
{
    const std::lock_guard lock(mMutex);
    dropLink();
    mLink = acPath;
    return makeLink();
}

bool tcOmegaSim::makeLink()
{
    if (mLink.empty() || mPort.empty())
        return true;
    // A link left behind by one that was killed leads nowhere or to some terminal; replace it.
    char target[2] = {};
    if (readlink(mLink.c_str(), target, sizeof target) >= 0)
        ::unlink(mLink.c_str());
    return symlink(mPort.c_str(), mLink.c_str()) == 0;
}

void tcOmegaSim::dropLink()
{
    if (mLink.empty() || mPort.empty())
        return;
    std::string target(mPort.size() + 1, '\0');
    const ssize_t size = readlink(mLink.c_str(), target.data(), target.size());
    if (size >= 0 && target.compare(0, size_t(size), mPort) == 0)
        ::unlink(mLink.c_str());
}

bool tcOmegaSim::plug()
{
    const std::lock_guard lock(mMutex);
    if (mMaster >= 0)
        return true;
    mMaster = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (mMaster < 0 || grantpt(mMaster) != 0 || unlockpt(mMaster) != 0) {
        std::perror("thermometer: pseudo-terminal");
        return false;
    }
    mPort = ptsname(mMaster);
    mSlave = open(mPort.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    tcgetattr(mSlave, &raw);
    cfmakeraw(&raw);
    tcsetattr(mSlave, TCSANOW, &raw);
    mLine.clear();
    return makeLink();
}

void tcOmegaSim::unplug()
{
    const std::lock_guard lock(mMutex);
    if (mMaster < 0)
        return;
    dropLink();
    close(mSlave);
    close(mMaster);
    mSlave = mMaster = -1;
    mPort.clear();
    mAnswers.clear();
}

void tcOmegaSim::wake()
{
    const char any = 0;
    if (write(mWakePipe[1], &any, 1) != 1)
        return; // full, so it wakes anyway
}

void tcOmegaSim::serve()
{
    for (;;) {
        pollfd watched[2] = {{mWakePipe[0], POLLIN, 0}, {-1, POLLIN, 0}};
        int waitMs = -1;
        {
            const std::lock_guard lock(mMutex);
            if (mEnd)
                return;
            watched[1].fd = mMaster;
            waitMs = sendDue(tcClock::now());
        }
        if (::poll(watched, 2, waitMs) < 0)
            continue;
        char bytes[512];
        while (read(mWakePipe[0], bytes, sizeof bytes) > 0) { }
        const std::lock_guard lock(mMutex);
        if (mMaster < 0 || mMaster != watched[1].fd)
            continue;
        const ssize_t count = read(mMaster, bytes, sizeof bytes);
        if (count > 0)
            take(bytes, size_t(count), tcClock::now());
    }
}

/// Returns how long until the next answer is due, -1 if there is none.
int tcOmegaSim::sendDue(tcClock::time_point aNow)
{
    while (!mAnswers.empty() && mAnswers.front().due <= aNow) {
        const std::string bytes = mAnswers.front().bytes;
        mAnswers.pop_front();
        // What does not fit is lost, as on a line without flow control.
        if (mMaster >= 0 && write(mMaster, bytes.data(), bytes.size()) < 0)
            break;
    }
    if (mAnswers.empty())
        return -1;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(mAnswers.front().due - aNow);
    return int(std::max<int64_t>(0, wait.count()));
}

void tcOmegaSim::take(const char* acBytes, size_t anCount, tcClock::time_point aNow)
{
    mReceived.append(acBytes, anCount);
    if (mReceived.size() > cMaxReceived)
        mReceived.erase(0, mReceived.size() - cMaxReceived);
    for (size_t at = 0; at < anCount; ++at) {
        if (acBytes[at] == '\n') {
            if (mLine == "c\r")
                answer(aNow);
            mLine.clear();
        } else if (mLine.size() < 16) {
            mLine += acBytes[at];
        }
    }
}

void tcOmegaSim::answer(tcClock::time_point aNow)
{
    ++mRequests;
    std::string bytes;
    for (int line = 0; line < mLines; ++line)
        bytes += reply(aNow);
    if (mEcho)
        bytes.insert(0, "c\r\n");
    if (bytes.empty())
        return;
    const size_t first = mSplitAt > 0 ? std::min(bytes.size(), size_t(mSplitAt)) : bytes.size();
    const auto due = aNow + std::chrono::milliseconds(mLateMs);
    mAnswers.push_back({due, bytes.substr(0, first)});
    if (first < bytes.size())
        mAnswers.push_back({due + std::chrono::milliseconds(mSplitMs), bytes.substr(first)});
}

std::string tcOmegaSim::reply(tcClock::time_point aNow) const
{
    if (mReply)
        return *mReply;
    if (mGarbage)
        return std::string("\x80\xff\0#?\x1b~\r\xfe\n", 10);
    const double phase = double(mSeed % 97) / 97.0;
    const double seconds = std::chrono::duration<double>(aNow.time_since_epoch()).count();
    const double natural = 24.0 + 2.0 * std::sin(2 * cPi * (seconds / 240.0 + phase))
        + 0.15 * std::sin(seconds * 1.7 + phase);
    char text[32];
    std::snprintf(text, sizeof text, ">%.1f\r\n", mTemperature.value_or(natural));
    return text;
}

bool tcOmegaSim::command(const std::string& acLine)
{
    std::istringstream words(acLine);
    std::string verb;
    words >> verb;
    if (verb == "unplug" || verb == "plug") {
        const bool done = verb == "unplug" ? (unplug(), true) : plug();
        wake();
        return done;
    }
    const std::lock_guard lock(mMutex);
    if (verb == "normal") {
        mTemperature.reset();
        mReply.reset();
        mGarbage = mEcho = false;
        mSplitAt = mSplitMs = mLateMs = 0;
        mLines = 1;
        return true;
    }
    if (verb == "temp") {
        double value = 0;
        std::string word;
        const bool isNumber = bool(words >> value);
        words.clear();
        const bool isAuto = !isNumber && words >> word && word == "auto";
        mTemperature = isNumber ? std::optional<double>(value) : std::nullopt;
        return isNumber || isAuto;
    }
    if (verb == "reply") {
        mReply = acLine.size() > 6 ? unescaped(acLine.substr(6)) : std::string();
        return true;
    }
    if (verb == "silence") {
        mReply = "";
        return true;
    }
    if (verb == "garbage" || verb == "echo") {
        (verb == "echo" ? mEcho : mGarbage) = true;
        return true;
    }
    if (verb == "split")
        return bool(words >> mSplitAt >> mSplitMs) && mSplitAt > 0 && mSplitMs >= 0;
    if (verb == "late")
        return bool(words >> mLateMs) && mLateMs >= 0;
    if (verb == "flood")
        return bool(words >> mLines) && mLines >= 0;
    return false;
}

std::string tcOmegaSim::received() const
{
    const std::lock_guard lock(mMutex);
    return mReceived;
}

int tcOmegaSim::requests() const
{
    const std::lock_guard lock(mMutex);
    return mRequests;
}

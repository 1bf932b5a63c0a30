#include "tests/support/tcFarEnd.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace
{

constexpr int cWaitMs = 20;

/// Until all is written; gives up when told, or when nobody takes anything.
void writeAll(int anFile, const QByteArray& acBytes, const std::atomic<bool>* apGoOn)
{
    int done = 0;
    while (done < acBytes.size() && (!apGoOn || *apGoOn)) {
        const ssize_t count
            = write(anFile, acBytes.constData() + done, size_t(acBytes.size() - done));
        if (count > 0) {
            done += static_cast<int>(count);
            continue;
        }
        pollfd room{anFile, POLLOUT, 0};
        if (poll(&room, 1, cWaitMs) > 0 && (room.revents & POLLHUP) != 0)
            return;
    }
}

} // namespace

tcFarEnd::tcFarEnd()
{
    mFile = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    const char* name = nullptr;
    if (mFile < 0 || grantpt(mFile) != 0 || unlockpt(mFile) != 0 || !(name = ptsname(mFile)))
        return;
    mPath = QString::fromLatin1(name);
    fcntl(mFile, F_SETFL, O_NONBLOCK);
    termios raw{};
    tcgetattr(mFile, &raw);
    cfmakeraw(&raw);
    tcsetattr(mFile, TCSANOW, &raw);
    mWatch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (mWatch >= 0)
        inotify_add_watch(mWatch, name, IN_OPEN | IN_CLOSE);
}

tcFarEnd::~tcFarEnd()
{
    stopFlood();
    if (mWatch >= 0)
        close(mWatch);
    if (mFile >= 0)
        close(mFile);
}

QByteArray tcFarEnd::received()
{
    std::array<char, 4096> block{};
    for (;;) {
        const ssize_t count = read(mFile, block.data(), block.size());
        if (count <= 0)
            return mReceived;
        mReceived.append(block.data(), static_cast<int>(count));
    }
}

void tcFarEnd::send(const QByteArray& acBytes)
{
    writeAll(mFile, acBytes, nullptr);
}

int tcFarEnd::baud() const
{
    termios line{};
    return tcgetattr(mFile, &line) == 0 && cfgetospeed(&line) == B115200 ? 115200 : 0;
}

void tcFarEnd::startFlood(const QByteArray& acLine)
{
    mFlooding = true;
    mFlood = std::thread([this, acLine] {
        while (mFlooding)
            writeAll(mFile, acLine, &mFlooding);
    });
}

void tcFarEnd::stopFlood()
{
    mFlooding = false;
    if (mFlood.joinable())
        mFlood.join();
}

void tcFarEnd::lookAtLine()
{
    alignas(inotify_event) std::array<char, 4096> block{};
    for (;;) {
        const ssize_t count = read(mWatch, block.data(), block.size());
        if (count <= 0)
            return;
        for (ssize_t at = 0; at < count;) {
            const auto* event = reinterpret_cast<const inotify_event*>(&block[size_t(at)]);
            mOpens += (event->mask & IN_OPEN) != 0 ? 1 : 0;
            mCloses += (event->mask & IN_CLOSE) != 0 ? 1 : 0;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
}

int tcFarEnd::opens()
{
    lookAtLine();
    return mOpens;
}

int tcFarEnd::closes()
{
    lookAtLine();
    return mCloses;
}

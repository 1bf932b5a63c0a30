#include "sim/camera/tcPseudoTerminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace
{

constexpr int64_t cNsPerSecond = 1'000'000'000;

std::string target(const std::string& acLink)
{
    std::array<char, 4096> text{};
    const ssize_t length = readlink(acLink.c_str(), text.data(), text.size() - 1);
    return length < 0 ? std::string() : std::string(text.data(), static_cast<size_t>(length));
}

timespec toTimespec(int64_t anNs)
{
    timespec time{};
    time.tv_sec = static_cast<time_t>(anNs / cNsPerSecond);
    time.tv_nsec = static_cast<decltype(time.tv_nsec)>(anNs % cNsPerSecond);
    return time;
}

} // namespace

tcPseudoTerminal::~tcPseudoTerminal()
{
    if (!mLink.empty() && target(mLink) == mPath)
        unlink(mLink.c_str());
    if (mFile >= 0)
        close(mFile);
}

bool tcPseudoTerminal::fail(const std::string& acWhat)
{
    mError = acWhat + ": " + std::strerror(errno);
    return false;
}

bool tcPseudoTerminal::open()
{
    mFile = posix_openpt(O_RDWR | O_NOCTTY);
    if (mFile < 0 || grantpt(mFile) != 0 || unlockpt(mFile) != 0)
        return fail("no pseudo-terminal");
    const char* name = ptsname(mFile);
    if (!name)
        return fail("no name for the pseudo-terminal");
    mPath = name;
    // Bytes pass as they are in both directions, also for a program that sets nothing up.
    termios settings{};
    if (tcgetattr(mFile, &settings) != 0)
        return fail(mPath);
    cfmakeraw(&settings);
    cfsetispeed(&settings, B115200);
    cfsetospeed(&settings, B115200);
    if (tcsetattr(mFile, TCSANOW, &settings) != 0 || fcntl(mFile, F_SETFL, O_NONBLOCK) != 0
        || fcntl(mFile, F_SETFD, FD_CLOEXEC) != 0)
        return fail(mPath);
    return true;
}

bool tcPseudoTerminal::link(const std::string& acPath)
{
    struct stat info
    {
    };
    if (lstat(acPath.c_str(), &info) == 0 && S_ISLNK(info.st_mode))
        unlink(acPath.c_str());
    if (symlink(mPath.c_str(), acPath.c_str()) != 0)
        return fail(acPath);
    mLink = acPath;
    return true;
}

bool tcPseudoTerminal::wait(int64_t anNs)
{
    const timespec time = toTimespec(std::max<int64_t>(anNs, 0));
    pollfd entry{mFile, POLLIN, 0};
    const int count = ppoll(&entry, 1, &time, nullptr);
    if (count <= 0)
        return false;
    mConnected = (entry.revents & POLLHUP) == 0;
    if ((entry.revents & POLLIN) != 0)
        return true;
    if (!mConnected) // the hang-up is reported at once, again and again
        nanosleep(&time, nullptr);
    return false;
}

size_t tcPseudoTerminal::read(char* apBuffer, size_t anSize)
{
    const ssize_t count = ::read(mFile, apBuffer, anSize);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

size_t tcPseudoTerminal::write(const char* acBytes, size_t anSize)
{
    const ssize_t count = ::write(mFile, acBytes, anSize);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

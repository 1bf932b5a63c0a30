#include "clallserial/tcHostDevice.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tcHostDevices
{
namespace
{

struct tcBaudRow
{
    uint32_t baud;
    speed_t speed;
};

constexpr std::array<tcBaudRow, 8> cBauds{{
    {9600, B9600},
    {19200, B19200},
    {38400, B38400},
    {57600, B57600},
    {115200, B115200},
    {230400, B230400},
    {460800, B460800},
    {921600, B921600},
}};

constexpr int cLeaveMs = 200; // for the last command to get out before the port closes

class tcTerminalDevice : public tcHostDevice
{
public:
    explicit tcTerminalDevice(int anFile) : mFile(anFile) { }

    ~tcTerminalDevice() override
    {
        if (mOurs)
            letGo();
        close(mFile);
    }

    /// False if it is no terminal or another program has it.
    bool setUp()
    {
        termios settings{};
        mOurs = flock(mFile, LOCK_EX | LOCK_NB) == 0;
        if (!mOurs || tcgetattr(mFile, &settings) != 0 || ioctl(mFile, TIOCEXCL) != 0)
            return false;
        cfmakeraw(&settings);
        settings.c_cflag |= CLOCAL | CREAD;
        settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
        // One byte at least, so that "nothing there" and "gone" differ.
        settings.c_cc[VMIN] = 1;
        settings.c_cc[VTIME] = 0;
        cfsetispeed(&settings, B9600);
        cfsetospeed(&settings, B9600);
        return tcsetattr(mFile, TCSANOW, &settings) == 0 && flush();
    }

    bool setBaud(uint32_t anBaud) override
    {
        const auto row
            = std::find_if(cBauds.begin(), cBauds.end(),
                           [=](const tcBaudRow& acRow) { return acRow.baud == anBaud; });
        termios settings{};
        if (row == cBauds.end() || tcgetattr(mFile, &settings) != 0)
            return false;
        cfsetispeed(&settings, row->speed);
        cfsetospeed(&settings, row->speed);
        return tcsetattr(mFile, TCSANOW, &settings) == 0;
    }

    int read(char* apBuffer, size_t anSize) override
    {
        const ssize_t count = ::read(mFile, apBuffer, anSize);
        if (count > 0)
            return static_cast<int>(count);
        return count < 0 && isPassing(errno) ? 0
                                             : -1; // the end of a terminal is its going away
    }

    int write(const char* acBytes, size_t anSize) override
    {
        const ssize_t count = ::write(mFile, acBytes, anSize);
        if (count >= 0)
            return static_cast<int>(count);
        return isPassing(errno) ? 0 : -1;
    }

    bool flush() override { return tcflush(mFile, TCIOFLUSH) == 0; }

    void pause(int anMs) override
    {
        pollfd entry{mFile, POLLIN, 0};
        poll(&entry, 1, anMs);
    }

private:
    static bool isPassing(int anError)
    {
        return anError == EAGAIN || anError == EWOULDBLOCK || anError == EINTR;
    }

    void letGo()
    {
        int waiting = 0;
        for (int ms = 0; ms < cLeaveMs && ioctl(mFile, TIOCOUTQ, &waiting) == 0 && waiting > 0;
             ++ms)
            usleep(1000);
        tcflush(mFile, TCIOFLUSH); // else the system might wait for half a minute
        ioctl(mFile, TIOCNXCL);
    }

    int mFile;          ///< owned
    bool mOurs = false; ///< else another program's, whose bytes are none of our business
};

} // namespace

/// Which of the many terminal devices is a port, only the serial port library knows.
std::vector<std::string> scanTerminals()
{
    return {};
}

std::unique_ptr<tcHostDevice> openTerminal(const std::string& acPath)
{
    const int file = ::open(acPath.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return nullptr;
    if (!isatty(file)) {
        close(file);
        return nullptr;
    }
    auto device = std::make_unique<tcTerminalDevice>(file);
    if (!device->setUp())
        return nullptr;
    return device;
}

} // namespace tcHostDevices

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A serial port of this computer, open as 8 data bits, no parity, 1 stop bit, no handshake, at
/// 9600 baud at first. Nothing here waits but pause(), and that alone may run beside other
/// calls.
class tcHostDevice
{
public:
    virtual ~tcHostDevice() = default;

    virtual bool setBaud(uint32_t anBaud) = 0;
    /// Bytes read or written, 0 if that would mean waiting, -1 if the port has gone.
    virtual int read(char* apBuffer, size_t anSize) = 0;
    virtual int write(const char* acBytes, size_t anSize) = 0;
    /// Throws away what waits in both directions.
    virtual bool flush() = 0;
    /// Returns after anMs at the latest; sooner if something arrives.
    virtual void pause(int anMs) = 0;
};

namespace tcHostDevices
{

/// Names of the serial ports that the computer reports.
std::vector<std::string> scan();

/// Null if it can't be opened. Names that only the operating system knows, such as those of
/// pseudo-terminals, will do as well.
std::unique_ptr<tcHostDevice> open(const std::string& acName);

/// The same by the operating system's own means; not every system lists its ports by itself.
std::vector<std::string> scanTerminals();
std::unique_ptr<tcHostDevice> openTerminal(const std::string& acName);

} // namespace tcHostDevices

#include "clallserial/tcHostDevice.h"

// Built in place of the serial port library where that is missing: the operating system's own
// means do most of it.

namespace tcHostDevices
{

std::vector<std::string> scan()
{
    return scanTerminals();
}

std::unique_ptr<tcHostDevice> open(const std::string& acName)
{
    return openTerminal(acName);
}

} // namespace tcHostDevices

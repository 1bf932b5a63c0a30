#pragma once

#include "tests/sources/tcGate.h"

#include <dlfcn.h>
#include <termios.h>

/// Serial ports whose driver hangs while they are set up, as some do whose far end is away. To
/// be included once per program: it takes the place of the system's own function.
namespace tcHangingPort
{

/// Never destroyed: somebody may still hang in it when the process ends.
inline tcGate& gate()
{
    static auto* one = new tcGate;
    return *one;
}

} // namespace tcHangingPort

extern "C" int tcsetattr(int anFile, int anWhen, const termios* apSettings) noexcept
{
    using tcFunction = int (*)(int, int, const termios*);
    static const auto real = reinterpret_cast<tcFunction>(dlsym(RTLD_NEXT, "tcsetattr"));
    tcHangingPort::gate().pass();
    return real(anFile, anWhen, apSettings);
}

#pragma once

#include "tests/sources/tcGate.h"

#include <mutex>
#include <vector>

#include <dlfcn.h>
#include <termios.h>

/// Serial ports whose driver hangs while they are set up, as some do whose far end is away, and
/// each setting that was asked of them: a pseudo-terminal keeps but a part of it. To be
/// included once per program: it takes the place of the system's own function.
namespace tcHangingPort
{

/// Never destroyed: somebody may still hang in it when the process ends.
inline tcGate& gate()
{
    static auto* one = new tcGate;
    return *one;
}

inline std::mutex& settingsMutex()
{
    static auto* one = new std::mutex;
    return *one;
}

inline std::vector<termios>& allSettings()
{
    static auto* one = new std::vector<termios>;
    return *one;
}

/// Those asked for since they were taken last, oldest first.
inline std::vector<termios> takeSettings()
{
    const std::lock_guard lock(settingsMutex());
    std::vector<termios> taken;
    taken.swap(allSettings());
    return taken;
}

} // namespace tcHangingPort

extern "C" int tcsetattr(int anFile, int anWhen, const termios* apSettings) noexcept
{
    using tcFunction = int (*)(int, int, const termios*);
    static const auto real = reinterpret_cast<tcFunction>(dlsym(RTLD_NEXT, "tcsetattr"));
    tcHangingPort::gate().pass();
    {
        const std::lock_guard lock(tcHangingPort::settingsMutex());
        tcHangingPort::allSettings().push_back(*apSettings);
    }
    return real(anFile, anWhen, apSettings);
}

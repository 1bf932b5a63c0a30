#include "clallserial/tcReplayLoader.h"

#include "clallserial/tcDynamicLibrary.h"
#include "clallserial/tcOwnDirectory.h"

#include <array>
#include <cstdio>
#include <string>

namespace
{

#if defined(_WIN32)
// Windows wants its own separator here.
constexpr const char* cLibrary = "\\vexa-replay.dll";
#else
constexpr const char* cLibrary = "/vexa-replay.so";
#endif

} // namespace

std::shared_ptr<tcSensorReplay> tcReplayLoader::open(const tcSensorReplayRequest& acRequest)
{
    std::array<char, 1024> message{};
    std::string error = "its reader is another one";
    tcSensorReplay* replay = nullptr;
    void* library = tcDynamicLibrary::load(tcOwnDirectory() + cLibrary, error);
    void* function
        = library ? tcDynamicLibrary::symbol(library, "vexaOpenSensorReplay") : nullptr;
    if (function) {
        replay = reinterpret_cast<tcOpenSensorReplay*>(function)(&acRequest, message.data(),
                                                                 message.size());
        error = message.data();
    } else {
        error = std::string(acRequest.file) + " can't be replayed: " + error;
    }
    if (!error.empty())
        std::fprintf(stderr, "clallserial: %s\n", error.c_str());
    return std::shared_ptr<tcSensorReplay>(replay);
}

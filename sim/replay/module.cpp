#include "sim/replay/tcCameraReplay.h"

#include <cstdio>

#if defined(_WIN32)
#define REPLAY_EXPORT __declspec(dllexport)
#else
#define REPLAY_EXPORT __attribute__((visibility("default")))
#endif

/// What the serial library loads; a tcOpenSensorReplay.
extern "C" REPLAY_EXPORT tcSensorReplay*
vexaOpenSensorReplay(const tcSensorReplayRequest* acpRequest, char* apMessage, size_t anSize)
{
    std::string message;
    std::unique_ptr<tcSensorReplay> replay = tcCameraReplay::open(*acpRequest, message);
    std::snprintf(apMessage, anSize, "%s", message.c_str());
    return replay.release();
}

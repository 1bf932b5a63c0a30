#pragma once

#include "sim/camera/tcSensorReplay.h"

#include <memory>

/// Replays for virtual cameras, from the library beside this one that can read chart files.
namespace tcReplayLoader
{

/// Null if there is none; what there is to say stands on standard error.
std::shared_ptr<tcSensorReplay> open(const tcSensorReplayRequest& acRequest);

} // namespace tcReplayLoader

#pragma once

#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraState.h"
#include "sim/camera/tcSensorReplay.h"
#include "sim/camera/tcThermalModel.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The camera's command language: what each command changes and answers.
namespace tcCameraCommands
{

/// Value fields of an accepted command, often none; no list at all for a refused one.
using tcFields = std::optional<std::vector<std::string>>;

/// What a command works on.
struct tcContext
{
    const tcCameraModel& model;
    tcCameraState& state;
    tcThermalModel& thermal;          ///< already at the command's time
    tcSensorReplay* replay = nullptr; ///< its readings go before those of the model
    int64_t time = 0;
};

/// Carries one command out, given without its brackets: "SROI 0 0 2048 1088". Unknown commands,
/// wrong numbers of arguments, values out of bounds and what the model has not got are refused
/// and change nothing.
tcFields execute(std::string_view acCommand, const tcContext& acContext);

/// The command that makes the camera start anew.
bool isReset(std::string_view acCommand);

} // namespace tcCameraCommands

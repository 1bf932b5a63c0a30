#pragma once

#include "camlink/logic/tcPreset.h"
#include "camlink/logic/teCmvType.h"

/// The presets that come with the program.
namespace tcPresetTables
{

struct tcTable
{
    const tcPreset* first;
    int count;

    const tcPreset* begin() const { return first; }
    const tcPreset* end() const { return first + count; }
};

/// The table of the sensor type; any other value has that of the large sensors.
tcTable of(teCmvType aeType);

} // namespace tcPresetTables

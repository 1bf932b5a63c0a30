#pragma once

#include "camlink/logic/teCmvType.h"

#include <QString>

/// What a sensor type is called; the names are keys of files too, so nobody translates them.
namespace tcCmvNames
{

/// Camera model with this sensor: in the camera list, and as the panel's settings group.
QString displayName(teCmvType aeType);
/// Its presets in presets.ini; empty for a value that is no sensor type.
QString presetArray(teCmvType aeType);

} // namespace tcCmvNames

#pragma once

#include <Qt>

/// Colours that tell the curves of one source apart.
namespace tcCurveColors
{

constexpr int cCount = 15;

/// The colour at anIndex, starting over after cCount.
Qt::GlobalColor at(int anIndex);

} // namespace tcCurveColors

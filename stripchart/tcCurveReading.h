#pragma once

#include "stripchart/logic/tcStatistics.h"

#include <optional>

class tcStripCurve;

/// Reads off the samples of a curve as they are now; other threads may add to it meanwhile.
namespace tcCurveReading
{
/// Interpolated; see tcMeasure::valueAt().
std::optional<double> valueAt(const tcStripCurve& acCurve, double anTimeMs);

/// Of the samples in [anFromMs, anToMs]. Looks at every sample of the curve.
tcStatistics statistics(const tcStripCurve& acCurve, double anFromMs, double anToMs);
} // namespace tcCurveReading

#pragma once

#include <QString>

/// Texts of a point of a chart.
namespace tcPointText
{

/// "x,y", both in fixed notation with anDecimals decimals.
QString pair(double anX, double anY, int anDecimals = 3);

/// The local clock time of milliseconds since the epoch, to the millisecond below.
QString clock(double anMsSinceEpoch);
/// "x,y" of a reading: its clock time and its value with three decimals.
QString timed(double anMsSinceEpoch, double anValue);

} // namespace tcPointText

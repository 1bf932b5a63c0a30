#pragma once

#include <QString>

/// Texts of a point of a chart.
namespace tcPointText
{

/// "x,y", both in fixed notation with anDecimals decimals.
QString pair(double anX, double anY, int anDecimals = 3);

} // namespace tcPointText

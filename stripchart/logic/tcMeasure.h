#pragma once

#include <QPointF>
#include <QString>

#include <functional>
#include <optional>

/// What is read off curves: values between samples, and the texts of what was measured.
namespace tcMeasure
{
/// The value on the straight line between the samples before and after anTimeMs, as the curve
/// is drawn. Nothing before the first sample, after the last one, and beside one that is no
/// finite number.
///
/// acSample gives the time and value of the samples 0 to anCount - 1; some twenty of them are
/// looked at, however many there are. Where the clock was put back, it is one of the times that
/// passed twice.
std::optional<double> valueAt(int anCount, const std::function<QPointF(int)>& acSample,
                              double anTimeMs);

/// Three decimals, or four digits where these would show none or too many; a dash for NaN.
QString valueText(double anValue);
/// The same with a plus sign before what grew.
QString changeText(double anValue);
/// "12.345 s", "3:05.000 min", "2:03:05.000 h".
QString durationText(qint64 anMs);
} // namespace tcMeasure

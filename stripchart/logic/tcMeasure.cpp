#include "stripchart/logic/tcMeasure.h"

#include <cmath>

namespace
{
constexpr double cManyDigits = 1e7;
constexpr double cFewDigits = 0.01;
constexpr qint64 cMsPerMinute = 60000;
constexpr qint64 cMsPerHour = 3600000;

std::optional<double> ifFinite(double anValue)
{
    if (!std::isfinite(anValue))
        return std::nullopt;
    return anValue;
}
} // namespace

std::optional<double>
tcMeasure::valueAt(int anCount, const std::function<QPointF(int)>& acSample, double anTimeMs)
{
    if (anCount < 1)
        return std::nullopt;
    QPointF before = acSample(0);
    QPointF after = acSample(anCount - 1);
    if (anTimeMs == after.x())
        return ifFinite(after.y());
    // Said so that a NaN is no end either.
    if (!(before.x() <= anTimeMs && anTimeMs < after.x()))
        return std::nullopt;
    int first = 0;
    int last = anCount - 1;
    while (last - first > 1) {
        const int middle = first + (last - first) / 2;
        const QPointF sample = acSample(middle);
        if (sample.x() <= anTimeMs) {
            first = middle;
            before = sample;
        } else {
            last = middle;
            after = sample;
        }
    }
    if (anTimeMs == before.x())
        return ifFinite(before.y());
    const double part = (anTimeMs - before.x()) / (after.x() - before.x());
    return ifFinite(before.y() + part * (after.y() - before.y()));
}

QString tcMeasure::valueText(double anValue)
{
    if (std::isnan(anValue))
        return QStringLiteral("\u2013");
    const double size = std::abs(anValue);
    if (size >= cManyDigits || (size < cFewDigits && size > 0.0))
        return QString::number(anValue, 'g', 4);
    return QString::number(anValue, 'f', 3);
}

QString tcMeasure::changeText(double anValue)
{
    return anValue > 0.0 ? '+' + valueText(anValue) : valueText(anValue);
}

QString tcMeasure::durationText(qint64 anMs)
{
    const double seconds = static_cast<double>(anMs % cMsPerMinute) / 1000.0;
    if (anMs < cMsPerMinute)
        return QStringLiteral("%1 s").arg(seconds, 0, 'f', 3);
    const qint64 minutes = anMs % cMsPerHour / cMsPerMinute;
    if (anMs < cMsPerHour)
        return QStringLiteral("%1:%2 min").arg(minutes).arg(seconds, 6, 'f', 3, '0');
    return QStringLiteral("%1:%2:%3 h")
        .arg(anMs / cMsPerHour)
        .arg(minutes, 2, 10, QLatin1Char('0'))
        .arg(seconds, 6, 'f', 3, '0');
}

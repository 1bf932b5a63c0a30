#include "stripchart/logic/tcAxisMath.h"

#include <algorithm>
#include <cmath>

namespace tcAxisMath
{
namespace
{
constexpr double cEqualFactor = 1e12;
constexpr double cSpreadDown = 0.999;
constexpr double cSpreadUp = 1.001;
constexpr int cGaps = 10;
constexpr int cMinorPerGap = 5;
constexpr double cNothing = 1e-12; ///< of a range's width

bool isEqualInPractice(const tcExtent& acExtent)
{
    const double magnitude = std::max(std::abs(acExtent.smallest), std::abs(acExtent.largest));
    return magnitude >= std::abs(acExtent.smallest - acExtent.largest) * cEqualFactor;
}

// Not every system's pow rounds negative powers right; a division does.
double powerOfTen(double anExponent)
{
    return anExponent < 0.0 ? 1.0 / std::pow(10.0, -anExponent) : std::pow(10.0, anExponent);
}

tcFit spreadFit(const tcExtent& acExtent)
{
    return {{acExtent.smallest * cSpreadDown, acExtent.largest * cSpreadUp}, true};
}

// The last tick of a range hits its end, and one at zero hits that, however the sums round.
double tickAt(const tcRange& acRange, int anIndex, int anGaps)
{
    if (anIndex == anGaps)
        return acRange.to;
    const double width = acRange.to - acRange.from;
    const double tick = acRange.from + anIndex * width / anGaps;
    return std::abs(tick) < width * cNothing ? 0.0 : tick;
}
} // namespace

bool tcRange::isValid() const
{
    return std::isfinite(from) && std::isfinite(to) && to > from;
}

void tcExtent::add(double anValue)
{
    if (!std::isfinite(anValue))
        return;
    smallest = std::min(smallest, anValue);
    largest = std::max(largest, anValue);
}

tcFit valueFit(const tcExtent& acExtent)
{
    if (isEqualInPractice(acExtent))
        return spreadFit(acExtent);
    tcRange range{acExtent.smallest, acExtent.largest};
    const double tenth = (range.to - range.from) / cGaps;
    const double unit = powerOfTen(std::ceil(std::log10(tenth) - 1.0));
    const double step = std::ceil(tenth / unit) * unit;
    if (step > 0.0 && std::isfinite(step)) {
        range.from = std::floor(range.from / step) * step;
        range.to = std::ceil(range.to / step) * step;
    }
    return {range, false};
}

tcFit timeFit(const tcExtent& acExtent)
{
    tcFit fit{{acExtent.smallest, acExtent.largest}, false};
    if (isEqualInPractice(acExtent))
        fit = spreadFit(acExtent);
    fit.range.from = std::floor(fit.range.from);
    fit.range.to = std::ceil(fit.range.to);
    return fit;
}

int precision(const tcRange& acRange)
{
    const double magnitude = std::trunc(std::log10(acRange.to - acRange.from));
    return std::clamp(static_cast<int>(std::abs(magnitude)) + 2, 2, 5);
}

QVector<double> elevenTicks(const tcRange& acRange)
{
    QVector<double> ticks;
    ticks.reserve(cGaps + 1);
    for (int i = 0; i <= cGaps; ++i)
        ticks.append(tickAt(acRange, i, cGaps));
    return ticks;
}

QVector<double> minorTicks(const tcRange& acRange)
{
    QVector<double> ticks;
    ticks.reserve(cGaps * (cMinorPerGap - 1));
    for (int i = 0; i < cGaps * cMinorPerGap; ++i)
        if (i % cMinorPerGap != 0)
            ticks.append(tickAt(acRange, i, cGaps * cMinorPerGap));
    return ticks;
}

QVector<double> threeTicks(const tcRange& acRange)
{
    return {acRange.from, acRange.from + (acRange.to - acRange.from) / 2.0, acRange.to};
}

tcSpanWindow spanWindow(int anSeconds, qint64 anNowMs, double anAxisEnd)
{
    const double width = anSeconds * 1000;
    const double end = std::max(static_cast<double>(anNowMs), anAxisEnd);
    const double margin = width / 20.0;
    return {{end - width - margin, end + margin}, static_cast<qint64>(width)};
}

double timeStep(double anSpanMs, int anMaxSteps)
{
    constexpr double cSecond = 1e3;
    constexpr double cMinute = 60.0 * cSecond;
    constexpr double cHour = 60.0 * cMinute;
    constexpr double cSteps[] = {1.0,
                                 2.0,
                                 5.0,
                                 10.0,
                                 20.0,
                                 50.0,
                                 100.0,
                                 200.0,
                                 500.0,
                                 cSecond,
                                 2.0 * cSecond,
                                 5.0 * cSecond,
                                 10.0 * cSecond,
                                 15.0 * cSecond,
                                 30.0 * cSecond,
                                 cMinute,
                                 2.0 * cMinute,
                                 5.0 * cMinute,
                                 10.0 * cMinute,
                                 15.0 * cMinute,
                                 30.0 * cMinute,
                                 cHour,
                                 2.0 * cHour,
                                 3.0 * cHour,
                                 6.0 * cHour,
                                 12.0 * cHour,
                                 24.0 * cHour};
    for (const double step : cSteps)
        if (anSpanMs <= step * std::max(anMaxSteps, 1))
            return step;
    return 0.0;
}

int labelStride(int anTicks, double anLength, double anLabelSize)
{
    const int gaps = std::max(anTicks - 1, 1);
    for (int stride = 1; stride < gaps; ++stride)
        if (gaps % stride == 0 && stride * anLength / gaps >= anLabelSize)
            return stride;
    return gaps;
}
} // namespace tcAxisMath

#include "stripchart/tcCurveReading.h"

#include "stripchart/logic/tcMeasure.h"
#include "stripchart/tcStripCurve.h"

#include <array>

namespace
{
constexpr int cBlock = 1024;
} // namespace

std::optional<double> tcCurveReading::valueAt(const tcStripCurve& acCurve, double anTimeMs)
{
    const QwtSeriesData<QPointF>* samples = acCurve.data();
    return tcMeasure::valueAt(
        static_cast<int>(samples->size()),
        [samples](int anIndex) { return samples->sample(static_cast<std::size_t>(anIndex)); },
        anTimeMs);
}

// Block by block, since other threads may append meanwhile and shall not wait for the whole.
tcStatistics tcCurveReading::statistics(const tcStripCurve& acCurve, double anFromMs,
                                        double anToMs)
{
    tcStatistics result;
    std::array<double, cBlock> times;
    std::array<double, cBlock> values;
    int first = 0;
    while (const int count = acCurve.copySamples(first, cBlock, times.data(), values.data())) {
        for (int i = 0; i < count; ++i)
            if (times[i] >= anFromMs && times[i] <= anToMs)
                result.add(times[i], values[i]);
        first += count;
    }
    return result;
}

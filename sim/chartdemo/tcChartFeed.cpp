#include "sim/chartdemo/tcChartFeed.h"

#include <array>
#include <cmath>

namespace
{
constexpr double cTwoPi = 6.283185307179586;

struct tcRow
{
    const char* name;
    double base;
    double swing;
    double periodS;
    double noise;
    bool right;
};

constexpr std::array<tcRow, tcChartFeed::cMaxCurves> cRows{{
    {"Sensor Temperature", 24.0, 3.0, 47.0, 0.05, false},
    {"Board Temperature", 38.0, 1.5, 95.0, 0.10, false},
    {"Thermistor Temperature", 21.0, 2.0, 33.0, 0.15, false},
    {"Relative Humidity", 42.0, 8.0, 120.0, 0.60, true},
    {"Ambient Temperature", 27.5, 0.8, 180.0, 0.04, false},
    {"TEC Drive current", 65.0, 12.0, 21.0, 1.20, true},
    {"TEC Voltage", 12.0, 2.5, 21.0, 0.30, true},
    {"Lens Mount", 30.5, 1.2, 64.0, 0.06, false},
    {"Grabber", 44.0, 1.0, 75.0, 0.20, false},
    {"Fan Speed", 82.0, 5.0, 15.0, 2.00, true},
    {"Housing Front", 32.0, 0.9, 140.0, 0.05, false},
    {"Housing Back", 34.5, 0.9, 150.0, 0.05, false},
    {"Supply 3V3", 33.0, 0.4, 12.0, 0.25, true},
    {"Supply 5V0", 50.0, 0.5, 17.0, 0.25, true},
    {"Cold Plate", 15.0, 2.2, 27.0, 0.08, false},
    {"Laboratory", 22.0, 0.5, 300.0, 0.02, false},
}};

// A number from -1 to 1 that depends on nothing but its arguments.
double noise(quint32 anSeed, quint32 anChannel, quint64 anTick)
{
    quint64 x = anTick * 0x9E3779B97F4A7C15ULL + anSeed * 0xBF58476D1CE4E5B9ULL + anChannel;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    x ^= x >> 31;
    return static_cast<double>(x >> 11) / static_cast<double>(1ULL << 52) - 1.0;
}
} // namespace

tcChartFeed::tcChartFeed(int anCurves, quint32 anSeed, bool abLongNames) : mSeed(anSeed)
{
    const int count = qBound(1, anCurves, cMaxCurves);
    for (int i = 0; i < count; ++i) {
        const tcRow& row = cRows[static_cast<std::size_t>(i)];
        QString name = QString::fromLatin1(row.name);
        if (abLongNames)
            name += QStringLiteral(" of the camera on the third conveyor, behind the oven");
        mChannels.append({name, row.base, row.swing, row.periodS, row.noise, row.right});
    }
}

double tcChartFeed::value(int anChannel, qint64 anMs) const
{
    const tcChannel& channel = mChannels.at(anChannel);
    const auto number = static_cast<quint32>(anChannel);
    const double phase = noise(mSeed, number, 0);
    const double turns = static_cast<double>(anMs) / 1000.0 / channel.periodS + phase;
    const double slow = std::sin(cTwoPi * turns) + 0.3 * std::sin(cTwoPi * turns * 3.7);
    return channel.base + channel.swing * slow
        + channel.noise * noise(mSeed, number, static_cast<quint64>(anMs));
}

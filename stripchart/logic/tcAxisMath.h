#pragma once

#include <QVector>

#include <limits>

/// The arithmetic of the chart's axes: which range shows all values, how finely it is labelled,
/// where its ticks stand.
namespace tcAxisMath
{
struct tcRange
{
    double from = 0.0;
    double to = 0.0;

    /// Whether an axis can show it: finite, and its end above its start.
    bool isValid() const;
};

/// The extent of what was seen so far. It begins at the largest double and at zero.
struct tcExtent
{
    double smallest = std::numeric_limits<double>::max();
    // As designed: zero, not the most negative double, so values below zero end at zero.
    double largest = 0.0;

    /// Passes over NaN and the infinities, which no axis can show.
    void add(double anValue);
};

struct tcFit
{
    tcRange range;
    bool spread = false; ///< the values were equal in practice and were spread by hand
};

/// The range of a value axis: rounded outward to tidy steps, or 0.1 % to either side of values
/// that are equal in practice.
tcFit valueFit(const tcExtent& acExtent);
/// The range of the time axis, in whole milliseconds.
tcFit timeFit(const tcExtent& acExtent);

/// Decimals that labels of a range need, 2 to 5. The range is valid.
int precision(const tcRange& acRange);

/// Eleven evenly spaced ticks, the first and the last at the ends.
QVector<double> elevenTicks(const tcRange& acRange);
/// Four ticks between each two of elevenTicks().
QVector<double> minorTicks(const tcRange& acRange);
/// Smallest, middle and largest.
QVector<double> threeTicks(const tcRange& acRange);

struct tcSpanWindow
{
    tcRange range;     ///< with a margin of a twentieth of the span at either end
    qint64 spanMs = 0; ///< width of the window without its margins
};

/// The time window anSeconds wide that ends at the present or, if that is later, at the end of
/// the axis. Times in milliseconds since the epoch.
tcSpanWindow spanWindow(int anSeconds, qint64 anNowMs, double anAxisEnd);

/// The smallest step of clock time, in ms, that divides a span into at most anMaxSteps; 0,
/// which leaves the choice to others, for spans of weeks.
double timeStep(double anSpanMs, int anMaxSteps);

/// Every how many of anTicks evenly spaced labels can be drawn on anLength pixels without two
/// of them touching: 1, 2, 5, ... (a divisor of the number of gaps).
int labelStride(int anTicks, double anLength, double anLabelSize);
} // namespace tcAxisMath

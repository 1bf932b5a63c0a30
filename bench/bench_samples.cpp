// Appending to full curves: one store that the plot looks at, against the two vectors that
// stock Qwt gets a copy of at every append, and QCustomPlot where it is installed.
#include "bench/tcGoals.h"
#include "stripchart/logic/tcSampleStore.h"
#include "stripchart/tcStripCurve.h"

#include <QApplication>
#ifdef TARVIK_WITH_QCUSTOMPLOT
#include <qcustomplot.h>
#endif

#include <cmath>

namespace
{

constexpr int cRuns = 7;
double keep = 0.0; ///< keeps the work from being optimised away

double valueAt(qint64 anTime)
{
    return 20.0 + std::sin(static_cast<double>(anTime) / 500.0);
}

struct tcCost
{
    double append;
    double withExtremes; ///< smallest and largest asked for after each append
};

tcCost strip(int anCount)
{
    tcStripCurve curve(0);
    curve.setSampleCount(anCount);
    qint64 time = 0;
    for (; time < anCount + anCount / 2; ++time)
        curve.addSample(time, valueAt(time));
    tcCost cost;
    cost.append = tcGoals::median(cRuns, 200000, [&] {
        curve.addSample(time, valueAt(time));
        ++time;
    });
    cost.withExtremes = tcGoals::median(cRuns, 200000, [&] {
        curve.addSample(time, valueAt(time));
        ++time;
        keep += curve.maxYValue() - curve.minYValue();
    });
    return cost;
}

tcCost copying(int anCount)
{
    QwtPlotCurve curve;
    QVector<double> times;
    QVector<double> values;
    qint64 time = 0;
    for (; time <= anCount; ++time) {
        times.append(static_cast<double>(time));
        values.append(valueAt(time));
    }
    const auto append = [&] {
        times.removeFirst();
        values.removeFirst();
        times.append(static_cast<double>(time));
        values.append(valueAt(time));
        ++time;
        curve.setSamples(times, values);
    };
    const int calls = std::max(20, 2000000 / anCount);
    tcCost cost;
    cost.append = tcGoals::median(cRuns, calls, append);
    cost.withExtremes = tcGoals::median(cRuns, calls, [&] {
        append();
        keep += curve.maxYValue() - curve.minYValue();
    });
    return cost;
}

#ifdef TARVIK_WITH_QCUSTOMPLOT
tcCost customPlot(int anCount)
{
    QCustomPlot plot;
    QCPGraph* graph = plot.addGraph();
    qint64 time = 0;
    const auto append = [&] {
        graph->addData(static_cast<double>(time), valueAt(time));
        graph->data()->removeBefore(static_cast<double>(time - anCount));
        ++time;
    };
    while (time <= anCount)
        append();
    tcCost cost;
    cost.append = tcGoals::median(cRuns, 100000, append);
    cost.withExtremes = tcGoals::median(cRuns, std::max(100, 20000000 / anCount), [&] {
        append();
        bool found = false;
        const QCPRange range = graph->getValueRange(found);
        keep += range.size();
    });
    return cost;
}
#endif

void print(const char* apName, const tcCost& acSmall, const tcCost& acLarge)
{
    std::printf(
        "%-28s append at 1k / 100k: %8.0f / %8.0f ns   with extremes: %8.0f / %8.0f ns\n",
        apName, acSmall.append * 1e9, acLarge.append * 1e9, acSmall.withExtremes * 1e9,
        acLarge.withExtremes * 1e9);
}

double bytesPerSample(int anCount)
{
    tcSampleStore store;
    store.setCapacity(anCount);
    for (int i = 0; i < 3 * anCount; ++i)
        store.append(i, valueAt(i));
    return static_cast<double>(store.bytes()) / store.size();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const tcCost small = strip(1000);
    const tcCost large = strip(100000);
    const tcCost copySmall = copying(1000);
    const tcCost copyLarge = copying(100000);
    print("strip curve", small, large);
    print("two vectors copied", copySmall, copyLarge);
#ifdef TARVIK_WITH_QCUSTOMPLOT
    print("QCustomPlot", customPlot(1000), customPlot(100000));
#endif
    tcGoals goals;
    goals.atMost("append at 100k over 1k", large.append / small.append, 1.3);
    goals.atLeast("append at 100k, copying over strip", copyLarge.append / large.append, 500);
    goals.atMost("with extremes at 100k over 1k", large.withExtremes / small.withExtremes, 3);
    goals.atLeast("with extremes at 100k, copying over strip",
                  copyLarge.withExtremes / large.withExtremes, 500);
    goals.atMost("bytes per sample at 100k", bytesPerSample(100000), 28);
    if (keep == 1.0)
        std::puts("");
    return goals.result();
}

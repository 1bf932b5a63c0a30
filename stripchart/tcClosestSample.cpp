#include "stripchart/tcClosestSample.h"

#include "stripchart/tcStripCurve.h"

#include <QPoint>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <array>
#include <cmath>
#include <limits>

namespace
{
constexpr int cBlock = 1024;

// Block by block, since other threads may append meanwhile and shall not wait for the whole.
void search(const QwtPlot& acPlot, tcStripCurve& arCurve, const QPoint& acPos,
            tcClosestSample& arBest)
{
    const QwtScaleMap xMap = acPlot.canvasMap(arCurve.xAxis());
    const QwtScaleMap yMap = acPlot.canvasMap(arCurve.yAxis());
    std::array<double, cBlock> times;
    std::array<double, cBlock> values;
    int first = 0;
    while (const int count = arCurve.copySamples(first, cBlock, times.data(), values.data())) {
        for (int i = 0; i < count; ++i) {
            const double distance = std::hypot(xMap.transform(times[i]) - acPos.x(),
                                               yMap.transform(values[i]) - acPos.y());
            // Never true for a NaN.
            if (distance < arBest.distance)
                arBest = {&arCurve, {times[i], values[i]}, distance};
        }
        first += count;
    }
}
} // namespace

tcClosestSample tcClosestSample::find(const QwtPlot& acPlot, const QPoint& acPos)
{
    tcClosestSample best;
    best.distance = std::numeric_limits<double>::infinity();
    const QwtPlotItemList items = acPlot.itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items)
        if (item->isVisible())
            search(acPlot, static_cast<tcStripCurve&>(*item), acPos, best);
    return best;
}

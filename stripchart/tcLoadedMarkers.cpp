#include "stripchart/tcLoadedMarkers.h"

#include "stripchart/logic/tcCsvMarkers.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double cFileStep = 0.001; ///< decimals that a file keeps

bool isLine(const tcCsvMarker& acMarker)
{
    return acMarker.point.x() == 0.0;
}

std::unique_ptr<tcStripMarker> make(const tcCsvMarker& acMarker)
{
    std::unique_ptr<tcStripMarker> marker;
    if (isLine(acMarker)) {
        marker = std::make_unique<tcStripLineMarker>(QString());
        marker->setLinePen(Qt::white, 0.0, Qt::DashLine);
    } else {
        auto point = std::make_unique<tcStripPointMarker>(QString());
        point->setSymbolColor(Qt::white);
        marker = std::move(point);
    }
    marker->setValue(acMarker.point);
    marker->setText(acMarker.label, Qt::white);
    return marker;
}

} // namespace

tcLoadedMarkers::tcLoadedMarkers(tcMarkerTable& arTable) : mTable(arTable) { }

bool tcLoadedMarkers::isThere(const tcCsvMarker& acMarker) const
{
    const auto& all = mTable.markers();
    return std::any_of(all.begin(), all.end(), [&acMarker](const tcStripMarker* apMarker) {
        return std::abs(apMarker->xValue() - acMarker.point.x()) < cFileStep
            && std::abs(apMarker->yValue() - acMarker.point.y()) < cFileStep
            && apMarker->label().text() == acMarker.label;
    });
}

void tcLoadedMarkers::show(const QVector<tcCsvMarker>& acMarkers)
{
    clear();
    for (const tcCsvMarker& marker : acMarkers) {
        if (!isThere(marker))
            mKeys.append(mTable.addLogged(make(marker)));
    }
}

void tcLoadedMarkers::clear()
{
    mTable.remove(std::exchange(mKeys, {}));
}

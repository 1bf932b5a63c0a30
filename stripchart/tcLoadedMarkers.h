#pragma once

#include <QUuid>
#include <QVector>

class tcMarkerTable;
struct tcCsvMarker;

/// The markers of the file that the chart shows. They come and go with it, and no log takes
/// them for the operator's own. GUI thread only.
class tcLoadedMarkers
{
public:
    /// The table outlives this.
    explicit tcLoadedMarkers(tcMarkerTable& arTable);

    /// In place of those shown before. A marker that the chart has already is not doubled. A
    /// line marker was saved without a time, so a marker at time 0 becomes a line again.
    void show(const QVector<tcCsvMarker>& acMarkers);
    void clear();

private:
    bool isThere(const tcCsvMarker& acMarker) const;

    tcMarkerTable& mTable;
    QVector<QUuid> mKeys;
};

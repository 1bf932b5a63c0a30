#pragma once

#include <QMap>
#include <QUuid>
#include <QVector>

class QwtPlotItem;
class tcStripCurve;

/// The chart's curves, filed by source key and index. Owns no curve: whoever made one deletes
/// it, and forget() keeps the table free of what was deleted.
class tcCurveTable
{
public:
    /// Files the curve under its index and returns the key, a new one when acKey is null. The
    /// key's row ends up exactly index + 1 long, so curves filed there at higher indices drop
    /// out.
    QUuid file(tcStripCurve* apCurve, const QUuid& acKey);

    /// Null for an unknown key, an index out of range or an empty slot.
    tcStripCurve* find(const QUuid& acKey, int anIndex) const;

    /// Takes the curve out wherever it is filed; it may be in the middle of its destruction. A
    /// source without curves is forgotten with it.
    void forget(const QwtPlotItem* apItem);

    /// Empties the table and returns what was in it.
    QVector<tcStripCurve*> takeAll();

    /// In the order of keys, then of indices; no null.
    QVector<tcStripCurve*> curves() const;
    QVector<tcStripCurve*> curves(const QUuid& acKey) const;

    QList<QUuid> keys() const { return mRows.keys(); }
    bool isEmpty() const { return mRows.isEmpty(); }
    int sourceCount() const { return mRows.size(); }
    /// Number of slots of a source, empty ones included.
    int slotCount(const QUuid& acKey) const { return mRows.value(acKey).size(); }
    /// Title of curve 0 of the first source; empty when there is none.
    QString firstTitle() const;

private:
    using tcRow = QVector<tcStripCurve*>;

    QMap<QUuid, tcRow> mRows; ///< slots may be null
};

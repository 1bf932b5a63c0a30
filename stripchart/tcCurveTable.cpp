#include "stripchart/tcCurveTable.h"

#include "stripchart/tcStripCurve.h"

QUuid tcCurveTable::file(tcStripCurve* apCurve, const QUuid& acKey)
{
    const QUuid key = acKey.isNull() ? QUuid::createUuid() : acKey;
    tcRow& row = mRows[key];
    // As designed: exactly this long, which drops the curves filed at higher indices.
    row.resize(apCurve->index() + 1);
    row[apCurve->index()] = apCurve;
    return key;
}

tcStripCurve* tcCurveTable::find(const QUuid& acKey, int anIndex) const
{
    const auto row = mRows.constFind(acKey);
    if (row == mRows.constEnd() || anIndex < 0 || anIndex >= row->size())
        return nullptr;
    return row->at(anIndex);
}

void tcCurveTable::forget(const QwtPlotItem* apItem)
{
    for (auto row = mRows.begin(); row != mRows.end();) {
        for (tcStripCurve*& curve : *row)
            if (curve && static_cast<const QwtPlotItem*>(curve) == apItem)
                curve = nullptr;
        while (!row->isEmpty() && !row->last())
            row->removeLast();
        row = row->isEmpty() ? mRows.erase(row) : row + 1;
    }
}

QVector<tcStripCurve*> tcCurveTable::takeAll()
{
    const QVector<tcStripCurve*> all = curves();
    mRows.clear();
    return all;
}

QVector<tcStripCurve*> tcCurveTable::curves() const
{
    QVector<tcStripCurve*> all;
    for (const QUuid& key : mRows.keys())
        all += curves(key);
    return all;
}

QVector<tcStripCurve*> tcCurveTable::curves(const QUuid& acKey) const
{
    tcRow row = mRows.value(acKey);
    row.removeAll(nullptr);
    return row;
}

QString tcCurveTable::firstTitle() const
{
    const tcStripCurve* first = mRows.isEmpty() ? nullptr : find(mRows.firstKey(), 0);
    return first ? first->title().text() : QString();
}

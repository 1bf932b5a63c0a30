#pragma once

#include <QHash>
#include <QStringList>

/// Which column of a file each curve has: 1 and up, column 0 is the time stamp.
///
/// A curve is known by its address alone and never looked at.
class tcColumnMap
{
public:
    void clear();

    /// From the header of a file that is continued, so that its curves keep their columns; a
    /// title that stands there twice goes to the first curve that asks for it.
    void takeTitles(const QStringList& acTitles);

    /// The curve's column: the one it has, or else the one of its title, or else a new one.
    int assign(const void* apCurve, const QString& acTitle);
    /// 0 for a curve without a column.
    int column(const void* apCurve) const { return mColumns.value(apCurve, 0); }
    /// The curve is gone; its column stays, so that no other curve's readings get into it.
    void forget(const void* apCurve) { mColumns.remove(apCurve); }
    QList<const void*> curves() const { return mColumns.keys(); }

    int count() const { return mCount; } ///< of columns, without the time stamp

private:
    QHash<const void*, int> mColumns;
    QStringList mFreeTitles; ///< of columns 1 and up; null once taken
    int mCount = 0;
};

#include "stripchart/logic/tcColumnMap.h"

void tcColumnMap::clear()
{
    mColumns.clear();
    mFreeTitles.clear();
    mCount = 0;
}

void tcColumnMap::takeTitles(const QStringList& acTitles)
{
    clear();
    mFreeTitles = acTitles;
    mCount = acTitles.size();
}

int tcColumnMap::assign(const void* apCurve, const QString& acTitle)
{
    const int known = column(apCurve);
    if (known > 0)
        return known;
    for (int i = 0; i < mFreeTitles.size(); ++i) {
        if (mFreeTitles.at(i).isNull() || mFreeTitles.at(i) != acTitle)
            continue;
        mFreeTitles[i] = QString();
        mColumns.insert(apCurve, i + 1);
        return i + 1;
    }
    mColumns.insert(apCurve, ++mCount);
    return mCount;
}

#include "camera/logic/tcRxHistory.h"

#include <algorithm>

void tcRxHistory::setLimit(int anLimit)
{
    mLimit = std::clamp(anLimit, 0, cMaxBytes);
    mBytes = bytes();
}

void tcRxHistory::append(const QByteArray& acBytes)
{
    mBytes.append(acBytes.right(mLimit));
    if (mBytes.size() > 2 * mLimit)
        mBytes.remove(0, mBytes.size() - mLimit);
}

void tcRxHistory::clear()
{
    mBytes.clear();
}

QByteArray tcRxHistory::bytes() const
{
    return mBytes.right(mLimit);
}

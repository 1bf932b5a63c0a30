#include "camera/logic/tcSilence.h"

bool tcSilence::isSilent(const QDateTime& acLastRx, const QDateTime& acNow)
{
    return acLastRx.isValid() && acLastRx.secsTo(acNow) > cMaxSeconds;
}

#include "stripchart/logic/tcLimitWatch.h"

#include <algorithm>
#include <cmath>

void tcLimitWatch::setLimits(const tcLimits& acLimits)
{
    mLimits = acLimits;
    mLimits.hysteresis = std::max(0.0, mLimits.hysteresis);
}

bool tcLimitWatch::add(double anValue)
{
    if (!std::isfinite(anValue))
        return false;
    const teState before = mState;
    mState = next(anValue);
    return mState != before;
}

tcLimitWatch::teState tcLimitWatch::next(double anValue) const
{
    const double above = mState == teState::Above ? mLimits.hysteresis : 0.0;
    const double below = mState == teState::Below ? mLimits.hysteresis : 0.0;
    // The far side first: a jump right across is no return.
    if (mLimits.upper && anValue > *mLimits.upper)
        return teState::Above;
    if (mLimits.lower && anValue < *mLimits.lower)
        return teState::Below;
    if (mLimits.upper && above > 0.0 && anValue > *mLimits.upper - above)
        return teState::Above;
    if (mLimits.lower && below > 0.0 && anValue < *mLimits.lower + below)
        return teState::Below;
    return teState::Inside;
}

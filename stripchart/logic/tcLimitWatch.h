#pragma once

#include <optional>

/// What a curve's readings should not leave.
struct tcLimits
{
    std::optional<double> lower; ///< none: not watched
    std::optional<double> upper;
    double hysteresis = 0.5; ///< how far readings must come back inside to count as inside

    bool isOff() const { return !lower && !upper; }
};

/// Tells when readings leave their limits and when they are back. A reading on a limit is
/// inside. Noise about a limit, smaller than the hysteresis, makes one crossing.
class tcLimitWatch
{
public:
    enum class teState
    {
        Inside,
        Below,
        Above,
    };

    /// Without a hysteresis below zero; the state is kept until the next reading.
    void setLimits(const tcLimits& acLimits);
    const tcLimits& limits() const { return mLimits; }
    teState state() const { return mState; }

    /// Whether the reading changed the state. One that is no finite number never does.
    bool add(double anValue);

private:
    teState next(double anValue) const;

    tcLimits mLimits;
    teState mState = teState::Inside;
};

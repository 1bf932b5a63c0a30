#pragma once

#include <cstdint>

/// Small random generator whose sequence depends on the seed alone, on every platform and with
/// every standard library, so that a virtual camera's run can be repeated to the bit.
class tcSeededRandom
{
public:
    explicit tcSeededRandom(uint64_t anSeed) : mState(anSeed) { }

    uint64_t next()
    {
        mState += 0x9E3779B97F4A7C15u;
        uint64_t mixed = mState;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
        return mixed ^ (mixed >> 31);
    }

    /// Uniform in [0, anBelow); 0 for a bound of 0.
    uint32_t below(uint32_t anBelow)
    {
        return anBelow == 0 ? 0 : static_cast<uint32_t>(next() % anBelow);
    }

    /// Uniform in [0, 1).
    double unit() { return static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0); }

    /// Bell-shaped around 0 with the given standard deviation; never beyond 3.5 of them.
    double noise(double anSigma)
    {
        double sum = 0.0;
        for (int term = 0; term < 4; ++term)
            sum += unit();
        return (sum - 2.0) * 1.7320508075688772 * anSigma;
    }

private:
    uint64_t mState;
};

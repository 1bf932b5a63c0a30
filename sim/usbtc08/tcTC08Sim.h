#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

/// A virtual thermocouple logger: one unit, nine channels of plausible temperatures from a seed
/// and the clock, and every fault that somebody asks for.
///
/// One per process, as the driver. Thread-safe: a hanging or converting call does not keep
/// others out.
class tcTC08Sim
{
public:
    static constexpr int cChannels = 9;

    static tcTC08Sim& instance();

    bool command(const std::string& acDirectives);

    /// A call of one of the driver's functions: counted, held up while the function hangs.
    /// False if it shall fail.
    class tcCall
    {
    public:
        explicit tcCall(const char* acFunction);
        tcCall(const tcCall&) = delete;
        tcCall& operator=(const tcCall&) = delete;
        ~tcCall();
        bool works() const { return mWorks; }

    private:
        const std::string mFunction;
        bool mWorks = true;
    };

    int16_t openUnit();
    bool closeUnit(int16_t anHandle);
    bool isOpen(int16_t anHandle); ///< whether the last opening gave this handle of a unit
    int16_t lastError();
    bool setMains(int16_t anSixtyHertz);
    bool setChannel(int anChannel, char acType);
    int32_t conversionMs();
    /// Takes conversionMs(); the values are those at its end.
    void convert(float* apTemperatures, int16_t* apFlags, int anUnits);

    int calls(const std::string& acFunction);
    int inside(const std::string& acFunction);
    int mostAtOnce();
    int channelType(int anChannel);
    int mains();

private:
    tcTC08Sim();
    bool apply(const std::string& acKey, const std::string& acValue);
    void reset();
    void readFile();
    float temperature(int anChannel, int64_t anMsSinceEpoch) const;

    std::mutex mMutex;
    std::condition_variable mReleased;
    std::string mFileText;

    uint32_t mSeed = 1;
    int32_t mConversionMs = 180;
    std::array<std::optional<float>, cChannels> mFixed{};
    int16_t mOverflow = 0;
    int16_t mHandle = 1; ///< that the next opening gives
    int16_t mOpen = 0;   ///< of the unit that is open; outlives a reset
    int16_t mError = 0;
    std::set<std::string> mFailing;
    std::set<std::string> mHanging;
    int mReleases = 0; ///< a call that hangs goes on when this has moved
    std::map<std::string, int> mCalls;
    std::map<std::string, int> mInside;
    int mAtOnce = 0;
    int mMostAtOnce = 0;
    std::array<int, cChannels> mTypes{};
    int mMains = -1;
};

#include "sim/usbtc08/tcTC08Sim.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>
#include <thread>

namespace
{

/// What the probes are stuck into: the room, a desk, a radiator, ..., a fridge, an oven.
constexpr std::array<double, tcTC08Sim::cChannels> cPlaces{23.5, 22.0,  27.0, 41.0, 58.0,
                                                           79.0, 120.0, 4.5,  -18.0};
constexpr double cPi = 3.14159265358979323846;

/// A number in [0, 1) from any number, always the same.
double scatter(uint64_t anFrom)
{
    anFrom += 0x9e3779b97f4a7c15u;
    anFrom = (anFrom ^ (anFrom >> 30)) * 0xbf58476d1ce4e5b9u;
    anFrom = (anFrom ^ (anFrom >> 27)) * 0x94d049bb133111ebu;
    return double((anFrom ^ (anFrom >> 31)) >> 11) / double(uint64_t(1) << 53);
}

int64_t nowMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::optional<long> number(const std::string& acText)
{
    char* end = nullptr;
    const long value = std::strtol(acText.c_str(), &end, 0);
    if (acText.empty() || *end != '\0')
        return {};
    return value;
}

template <class tNumber>
bool assign(tNumber& arTarget, const std::string& acText, long anLowest, long anHighest)
{
    const std::optional<long> value = number(acText);
    if (!value || *value < anLowest || *value > anHighest)
        return false;
    arTarget = static_cast<tNumber>(*value);
    return true;
}

constexpr long cLowest16 = std::numeric_limits<int16_t>::min();
constexpr long cHighest16 = std::numeric_limits<int16_t>::max();

} // namespace

tcTC08Sim& tcTC08Sim::instance()
{
    // Never destroyed: a call may still hang in here when the process ends.
    static auto* one = new tcTC08Sim;
    return *one;
}

tcTC08Sim::tcTC08Sim()
{
    if (const char* start = std::getenv("TC08SIM"))
        command(start);
}

bool tcTC08Sim::command(const std::string& acDirectives)
{
    std::string text = acDirectives;
    std::replace(text.begin(), text.end(), ';', ' ');
    std::istringstream words(text);
    std::string word;
    bool understood = true;
    const std::lock_guard lock(mMutex);
    while (words >> word) {
        const size_t equals = word.find('=');
        const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
        understood = apply(word.substr(0, equals), value) && understood;
    }
    return understood;
}

bool tcTC08Sim::apply(const std::string& acKey, const std::string& acValue)
{
    if (acKey == "reset") {
        reset();
        return true;
    }
    if (acKey == "release") {
        mHanging.clear();
        ++mReleases;
        mReleased.notify_all();
        return true;
    }
    if (acKey == "seed")
        return assign(mSeed, acValue, 0, std::numeric_limits<int32_t>::max());
    if (acKey == "conversion_ms")
        return assign(mConversionMs, acValue, 0, 3600 * 1000);
    if (acKey == "overflow")
        return assign(mOverflow, acValue, 0, 0x1ff);
    if (acKey == "open")
        return assign(mHandle, acValue, cLowest16, cHighest16);
    if (acKey == "error")
        return assign(mError, acValue, cLowest16, cHighest16);
    if (acKey == "fail" || acKey == "hang")
        return !acValue.empty()
            && (acKey == "fail" ? mFailing : mHanging).insert(acValue).second;
    if (acKey == "mend")
        return mFailing.erase(acValue) > 0;
    if (acKey.size() == 6 && acKey.compare(0, 5, "value") == 0 && acKey[5] >= '0'
        && acKey[5] <= '8') {
        std::optional<float>& fixed = mFixed[size_t(acKey[5] - '0')];
        fixed.reset();
        if (acValue == "auto")
            return true;
        char* end = nullptr;
        const float value = std::strtof(acValue.c_str(), &end);
        if (!acValue.empty() && *end == '\0')
            fixed = value;
        return fixed.has_value();
    }
    return false;
}

void tcTC08Sim::reset()
{
    mSeed = 1;
    mConversionMs = 180;
    mFixed = {};
    mOverflow = 0;
    mHandle = 1;
    mError = 0;
    mFailing.clear();
    mHanging.clear();
    ++mReleases;
    mReleased.notify_all();
    mCalls.clear();
    mMostAtOnce = mAtOnce;
    mTypes = {};
    mMains = -1;
}

void tcTC08Sim::readFile()
{
    const char* name = std::getenv("TC08SIM_FILE");
    if (!name)
        return;
    std::ifstream file(name);
    std::ostringstream text;
    text << file.rdbuf();
    {
        const std::lock_guard lock(mMutex);
        if (text.str() == mFileText)
            return;
        mFileText = text.str();
    }
    command(text.str());
}

tcTC08Sim::tcCall::tcCall(const char* acFunction) : mFunction(acFunction)
{
    tcTC08Sim& sim = instance();
    sim.readFile();
    std::unique_lock lock(sim.mMutex);
    ++sim.mCalls[mFunction];
    ++sim.mInside[mFunction];
    sim.mMostAtOnce = std::max(sim.mMostAtOnce, ++sim.mAtOnce);
    if (sim.mHanging.count(mFunction) != 0) {
        const int releases = sim.mReleases;
        sim.mReleased.wait(lock, [&] { return sim.mReleases != releases; });
    }
    mWorks = sim.mFailing.count(mFunction) == 0;
}

tcTC08Sim::tcCall::~tcCall()
{
    tcTC08Sim& sim = instance();
    const std::lock_guard lock(sim.mMutex);
    --sim.mInside[mFunction];
    --sim.mAtOnce;
}

int16_t tcTC08Sim::openUnit()
{
    const std::lock_guard lock(mMutex);
    mOpen = mHandle == -1 ? int16_t(0) : mHandle;
    return mHandle;
}

bool tcTC08Sim::closeUnit(int16_t anHandle)
{
    const std::lock_guard lock(mMutex);
    if (anHandle == 0 || anHandle != mOpen)
        return false;
    mOpen = 0;
    return true;
}

bool tcTC08Sim::isOpen(int16_t anHandle)
{
    const std::lock_guard lock(mMutex);
    return anHandle != 0 && anHandle == mOpen;
}

int16_t tcTC08Sim::lastError()
{
    const std::lock_guard lock(mMutex);
    return mError;
}

bool tcTC08Sim::setMains(int16_t anSixtyHertz)
{
    const std::lock_guard lock(mMutex);
    mMains = anSixtyHertz;
    return anSixtyHertz == 0 || anSixtyHertz == 1;
}

bool tcTC08Sim::setChannel(int anChannel, char acType)
{
    const std::lock_guard lock(mMutex);
    if (anChannel < 0 || anChannel >= cChannels)
        return false;
    mTypes[size_t(anChannel)] = static_cast<unsigned char>(acType);
    return true;
}

int32_t tcTC08Sim::conversionMs()
{
    const std::lock_guard lock(mMutex);
    return mConversionMs;
}

void tcTC08Sim::convert(float* apTemperatures, int16_t* apFlags, int anUnits)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(conversionMs()));
    const std::lock_guard lock(mMutex);
    for (int channel = 0; channel < cChannels; ++channel) {
        const float celsius = temperature(channel, nowMs());
        const float fahrenheit = celsius * 1.8F + 32.0F;
        const std::array<float, 4> units{celsius, fahrenheit, celsius + 273.15F,
                                         fahrenheit + 459.67F};
        apTemperatures[channel] = units.at(size_t(anUnits));
    }
    if (apFlags)
        *apFlags = mOverflow;
}

float tcTC08Sim::temperature(int anChannel, int64_t anMsSinceEpoch) const
{
    const auto slot = size_t(anChannel);
    if (mFixed[slot])
        return *mFixed[slot];
    const uint64_t own = (uint64_t(mSeed) << 8) + slot;
    const double seconds = double(anMsSinceEpoch) / 1000.0;
    const double periodS = 90.0 + 500.0 * scatter(own * 3);
    const double swing = 0.5 + 2.5 * scatter(own * 3 + 1);
    const double phase = scatter(own * 3 + 2);
    const double noise = scatter(own * 1000003 + uint64_t(anMsSinceEpoch / 100)) - 0.5;
    return float(cPlaces[slot] + swing * std::sin(2 * cPi * (seconds / periodS + phase))
                 + 0.1 * noise);
}

int tcTC08Sim::calls(const std::string& acFunction)
{
    const std::lock_guard lock(mMutex);
    return mCalls[acFunction];
}

int tcTC08Sim::inside(const std::string& acFunction)
{
    const std::lock_guard lock(mMutex);
    return mInside[acFunction];
}

int tcTC08Sim::mostAtOnce()
{
    const std::lock_guard lock(mMutex);
    return mMostAtOnce;
}

int tcTC08Sim::channelType(int anChannel)
{
    const std::lock_guard lock(mMutex);
    return anChannel < 0 || anChannel >= cChannels ? 0 : mTypes[size_t(anChannel)];
}

int tcTC08Sim::mains()
{
    const std::lock_guard lock(mMutex);
    return mMains;
}

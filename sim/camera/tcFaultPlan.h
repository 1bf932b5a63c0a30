#pragma once

#include "sim/camera/tcSeededRandom.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What goes wrong with one reply.
struct tcFaultAction
{
    bool nack = false;    ///< refused although nothing is wrong with the command
    bool drop = false;    ///< carried out, never answered
    bool corrupt = false; ///< one byte arrives wrong
    bool unplug = false;  ///< the cable is pulled before this reply
    int64_t delayNs = 0;  ///< the camera takes its time
    int64_t splitNs = 0;  ///< pause somewhere inside the reply
    int64_t floodNs = 0;  ///< garbage at full speed behind the reply, for so long
};

/// The faults of a virtual camera, from a text of comma-separated entries:
///
///     KIND [@N | /N | %P] [=VALUE]
///
/// KIND is nack, drop, corrupt, delay (VALUE in ms, 200 unless given), split (pause in ms, 50
/// unless given), flood (seconds, 1 unless given) or unplug. @N strikes reply N only, counted
/// from 1, /N each Nth reply, %P that percentage of them by chance of the seed; without a
/// trigger each reply is struck. "unplug=30" without a trigger pulls the cable after 30
/// seconds.
class tcFaultPlan
{
public:
    /// Without any fault.
    explicit tcFaultPlan(uint64_t anSeed = 1) : mRandom(anSeed) { }

    /// None if an entry can't be understood; then arError names it.
    static std::optional<tcFaultPlan> parse(const std::string& acText, uint64_t anSeed,
                                            std::string& arError);

    /// To be asked once for each reply, in their order.
    tcFaultAction next();

    /// Time since power-on at which the cable is pulled, if that is planned.
    std::optional<int64_t> unplugAtNs() const { return mUnplugAtNs; }

    /// For the details of a fault: where to split, what to corrupt.
    tcSeededRandom& random() { return mRandom; }

private:
    enum class teKind
    {
        Nack,
        Drop,
        Corrupt,
        Delay,
        Split,
        Flood,
        Unplug,
    };
    enum class teTrigger
    {
        Each,
        Once,
        Every,
        Percent,
    };
    struct tcEntry
    {
        teKind kind = teKind::Nack;
        teTrigger trigger = teTrigger::Each;
        int64_t count = 1; ///< N or P of the trigger
        int64_t valueNs = 0;
    };

    bool add(const std::string& acEntry);
    bool strikes(const tcEntry& acEntry);

    std::vector<tcEntry> mEntries;
    tcSeededRandom mRandom;
    int64_t mReplies = 0;
    std::optional<int64_t> mUnplugAtNs;
};

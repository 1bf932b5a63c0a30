#include "sim/camera/tcFaultPlan.h"

#include "sim/camera/tcWireText.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int64_t cNsPerMs = 1'000'000;
constexpr int64_t cNsPerSecond = 1'000'000'000;
constexpr int64_t cLongest = 1'000'000; // units of a value; keeps sums far from overflow

} // namespace

std::optional<tcFaultPlan> tcFaultPlan::parse(const std::string& acText, uint64_t anSeed,
                                              std::string& arError)
{
    tcFaultPlan plan(anSeed);
    size_t begin = 0;
    while (begin <= acText.size()) {
        const size_t end = std::min(acText.find(',', begin), acText.size());
        const std::string entry = tcWireText::trimmed(acText.substr(begin, end - begin));
        if (!entry.empty() && !plan.add(entry)) {
            arError = entry;
            return std::nullopt;
        }
        begin = end + 1;
    }
    return plan;
}

bool tcFaultPlan::add(const std::string& acEntry)
{
    struct tcKindRow
    {
        const char* name;
        teKind kind;
        int64_t unitNs; ///< 0: takes no value
        int64_t defaultValue;
    };
    static const std::array<tcKindRow, 7> cKinds{{
        {"nack", teKind::Nack, 0, 0},
        {"drop", teKind::Drop, 0, 0},
        {"corrupt", teKind::Corrupt, 0, 0},
        {"delay", teKind::Delay, cNsPerMs, 200},
        {"split", teKind::Split, cNsPerMs, 50},
        {"flood", teKind::Flood, cNsPerSecond, 1},
        {"unplug", teKind::Unplug, cNsPerSecond, 0},
    }};
    const size_t equals = acEntry.find('=');
    const std::string head = acEntry.substr(0, equals);
    const size_t trigger = head.find_first_of("@/%");
    const tcKindRow* row = nullptr;
    for (const tcKindRow& candidate : cKinds) {
        if (head.substr(0, trigger) == candidate.name)
            row = &candidate;
    }
    if (!row)
        return false;
    tcEntry entry;
    entry.kind = row->kind;
    entry.valueNs = row->defaultValue * row->unitNs;
    if (trigger != std::string::npos) {
        const char sign = head[trigger];
        entry.trigger = sign == '@' ? teTrigger::Once
            : sign == '/'           ? teTrigger::Every
                                    : teTrigger::Percent;
        const auto count = tcWireText::integer(head.substr(trigger + 1));
        if (!count || *count < 1 || (sign == '%' && *count > 100))
            return false;
        entry.count = *count;
    }
    if (equals != std::string::npos) {
        const auto value = tcWireText::hundredths(acEntry.substr(equals + 1));
        if (!value || *value < 0 || *value > cLongest * 100 || row->unitNs == 0)
            return false;
        entry.valueNs = *value * (row->unitNs / 100);
    }
    if (entry.kind == teKind::Unplug && entry.trigger == teTrigger::Each)
        mUnplugAtNs = entry.valueNs;
    else
        mEntries.push_back(entry);
    return true;
}

bool tcFaultPlan::strikes(const tcEntry& acEntry)
{
    switch (acEntry.trigger) {
    case teTrigger::Once:
        return mReplies == acEntry.count;
    case teTrigger::Every:
        return mReplies % acEntry.count == 0;
    case teTrigger::Percent:
        return mRandom.below(100) < acEntry.count;
    case teTrigger::Each:
        break;
    }
    return true;
}

tcFaultAction tcFaultPlan::next()
{
    ++mReplies;
    tcFaultAction action;
    for (const tcEntry& entry : mEntries) {
        if (!strikes(entry))
            continue;
        switch (entry.kind) {
        case teKind::Nack:
            action.nack = true;
            break;
        case teKind::Drop:
            action.drop = true;
            break;
        case teKind::Corrupt:
            action.corrupt = true;
            break;
        case teKind::Delay:
            action.delayNs += entry.valueNs;
            break;
        case teKind::Split:
            action.splitNs += entry.valueNs;
            break;
        case teKind::Flood:
            action.floodNs += entry.valueNs;
            break;
        case teKind::Unplug:
            action.unplug = true;
            break;
        }
    }
    return action;
}

#include "clallserial/tcSerialConfig.h"

#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcFaultPlan.h"
#include "sim/camera/tcWireText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>

using tcWireText::trimmed;

namespace
{

constexpr const char* cFileName = "clallserial.ini";
constexpr size_t cMaxFile = 65536; // what is longer is no configuration

/// A comment runs to the end of the line and begins it or follows a blank.
std::string withoutComment(const std::string& acLine)
{
    for (size_t at = 0; at < acLine.size(); ++at) {
        const bool sign = acLine[at] == ';' || acLine[at] == '#';
        if (sign && (at == 0 || acLine[at - 1] == ' ' || acLine[at - 1] == '\t'))
            return acLine.substr(0, at);
    }
    return acLine;
}

std::vector<std::string> list(const std::string& acText)
{
    std::vector<std::string> items;
    std::istringstream stream(acText);
    for (std::string item; std::getline(stream, item, ',');) {
        if (!trimmed(item).empty())
            items.push_back(trimmed(item));
    }
    return items;
}

bool setSwitch(bool& arTarget, const std::string& acValue)
{
    if (acValue != "on" && acValue != "off")
        return false;
    arTarget = acValue == "on";
    return true;
}

bool setVirtual(tcSerialConfig& arConfig, const std::string& acValue)
{
    using teVirtual = tcSerialConfig::teVirtual;
    bool on = false;
    if (acValue == "auto")
        arConfig.virtualCameras = teVirtual::Auto;
    else if (setSwitch(on, acValue))
        arConfig.virtualCameras = on ? teVirtual::On : teVirtual::Off;
    else
        return false;
    return true;
}

bool setModels(tcSerialConfig& arConfig, const std::string& acValue)
{
    const std::vector<std::string> keys = list(acValue);
    if (!std::all_of(keys.begin(), keys.end(), tcCameraModels::find))
        return false;
    arConfig.models = keys;
    return true;
}

bool setSeed(tcSerialConfig& arConfig, const std::string& acValue)
{
    const auto seed = tcWireText::integer(acValue);
    if (!seed || *seed < 0)
        return false;
    arConfig.seed = static_cast<uint64_t>(*seed);
    return true;
}

bool setSpeed(tcSerialConfig& arConfig, const std::string& acValue)
{
    constexpr int64_t cFastest = 1'000'000; // hundredths
    const auto speed = tcWireText::hundredths(acValue);
    if (!speed || *speed < 1 || *speed > cFastest)
        return false;
    arConfig.speed = static_cast<double>(*speed) / 100.0;
    return true;
}

bool setFaults(tcSerialConfig& arConfig, const std::string& acValue)
{
    std::string error;
    if (!tcFaultPlan::parse(acValue, 1, error))
        return false;
    arConfig.faults = acValue;
    return true;
}

bool setReplay(tcSerialConfig& arConfig, const std::string& acValue)
{
    arConfig.replay = acValue;
    return true;
}

bool setLoop(tcSerialConfig& arConfig, const std::string& acValue)
{
    return setSwitch(arConfig.loop, acValue);
}

bool setTimeout(tcSerialConfig& arConfig, const std::string& acValue)
{
    using teTimeout = tcSerialConfig::teTimeout;
    if (acValue != "strict" && acValue != "partial")
        return false;
    arConfig.timeout = acValue == "strict" ? teTimeout::Strict : teTimeout::Partial;
    return true;
}

bool setVendor(tcSerialConfig& arConfig, const std::string& acValue)
{
    return setSwitch(arConfig.vendor, acValue);
}

bool setVendorPath(tcSerialConfig& arConfig, const std::string& acValue)
{
    arConfig.vendorPath = acValue;
    return true;
}

bool setHostScan(tcSerialConfig& arConfig, const std::string& acValue)
{
    return setSwitch(arConfig.hostScan, acValue);
}

bool setHostPaths(tcSerialConfig& arConfig, const std::string& acValue)
{
    arConfig.hostPaths = list(acValue);
    return true;
}

struct tcKeyRow
{
    const char* section;
    const char* key;
    bool (*set)(tcSerialConfig&, const std::string&);
};

constexpr std::array<tcKeyRow, 12> cKeys{{
    {"vendor", "use", setVendor},
    {"vendor", "path", setVendorPath},
    {"host", "scan", setHostScan},
    {"host", "paths", setHostPaths},
    {"virtual", "use", setVirtual},
    {"virtual", "models", setModels},
    {"virtual", "seed", setSeed},
    {"virtual", "speed", setSpeed},
    {"virtual", "faults", setFaults},
    {"virtual", "replay", setReplay},
    {"virtual", "loop", setLoop},
    {"line", "timeout", setTimeout},
}};

std::string variableName(const tcKeyRow& acRow)
{
    std::string name = std::string("CLALLSERIAL_") + acRow.section + '_' + acRow.key;
    for (char& letter : name)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return name;
}

std::string userDirectory(const tcSerialConfig::tcLookup& acLookup)
{
#if defined(_WIN32)
    const char* directory = acLookup("APPDATA");
    return directory ? directory : "";
#else
    if (const char* directory = acLookup("XDG_CONFIG_HOME"); directory && *directory)
        return directory;
    const char* home = acLookup("HOME");
    return home && *home ? std::string(home) + "/.config" : "";
#endif
}

void readFile(tcSerialConfig& arConfig, const std::string& acPath)
{
    std::ifstream file(acPath, std::ios::binary);
    if (!file)
        return;
    std::string text(cMaxFile, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<size_t>(file.gcount()));
    arConfig.readIni(text, acPath);
}

} // namespace

bool tcSerialConfig::set(const std::string& acSection, const std::string& acKey,
                         const std::string& acValue)
{
    for (const tcKeyRow& row : cKeys) {
        if (acSection == row.section && acKey == row.key)
            return row.set(*this, acValue);
    }
    return false;
}

void tcSerialConfig::readIni(const std::string& acText, const std::string& acFileName)
{
    std::istringstream stream(acText);
    std::string section;
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        line = trimmed(withoutComment(line));
        if (line.empty())
            continue;
        if (line.front() == '[' && line.back() == ']') {
            section = line.substr(1, line.size() - 2);
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string::npos
            || !set(section, trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1))))
            std::fprintf(stderr, "clallserial: %s, line %d: \"%s\" is not understood\n",
                         acFileName.c_str(), number, line.c_str());
    }
}

void tcSerialConfig::readEnvironment(const tcLookup& acLookup)
{
    for (const tcKeyRow& row : cKeys) {
        const std::string name = variableName(row);
        const char* value = acLookup(name.c_str());
        if (value && !row.set(*this, trimmed(value)))
            std::fprintf(stderr, "clallserial: %s: \"%s\" is not understood\n", name.c_str(),
                         value);
    }
}

tcSerialConfig tcSerialConfig::load(const std::string& acOwnDirectory, const tcLookup& acLookup)
{
    tcSerialConfig config;
    if (const char* named = acLookup("CLALLSERIAL_CONFIG"); named && *named) {
        readFile(config, named);
    } else {
        const std::string user = userDirectory(acLookup);
        if (!acOwnDirectory.empty())
            readFile(config, acOwnDirectory + '/' + cFileName);
        if (!user.empty())
            readFile(config, user + '/' + cFileName);
    }
    config.readEnvironment(acLookup);
    return config;
}

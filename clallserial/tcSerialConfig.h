#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Which back ends list ports and how virtual cameras and timed reads behave. docs/SERIAL.md
/// tells an operator the same.
struct tcSerialConfig
{
    enum class teVirtual
    {
        Off,
        On,
        Auto, ///< only when no maker's library was found
    };
    enum class teTimeout
    {
        Strict,  ///< a read that times out copies nothing and keeps the bytes for later
        Partial, ///< it hands over what has arrived
    };

    bool vendor = true;
    std::string vendorPath; ///< directory instead of the standard's place; empty: that place
    bool hostScan = true;   ///< list the serial ports that the computer reports
    std::vector<std::string> hostPaths; ///< further ports, pseudo-terminals too
    teVirtual virtualCameras = teVirtual::Auto;
    std::vector<std::string> models; ///< keys of camera models; empty: all
    uint64_t seed = 1;
    double speed = 1.0; ///< of heat in a virtual camera, 0.01 to 10000, and of a replay
    std::string replay; ///< chart file that virtual cameras' sensors read; empty: none
    bool loop = false;  ///< begin the replay again at its end
    std::string faults; ///< as tcFaultPlan reads them, for every virtual camera
    teTimeout timeout = teTimeout::Partial;

    using tcLookup = std::function<const char*(const char*)>;

    /// Takes over one value, false if there is no such key or the value is not one of its own;
    /// the old value then stays.
    bool set(const std::string& acSection, const std::string& acKey,
             const std::string& acValue);
    /// Lines "key = value" under "[section]", comments behind ; or #; what can't be understood
    /// is named on standard error with its line number and skipped.
    void readIni(const std::string& acText, const std::string& acFileName);
    /// Variables named CLALLSERIAL_SECTION_KEY.
    void readEnvironment(const tcLookup& acLookup);

    /// The file beside the library, then the user's own, then the environment; a file named by
    /// CLALLSERIAL_CONFIG takes the place of both.
    static tcSerialConfig load(const std::string& acOwnDirectory, const tcLookup& acLookup);
};

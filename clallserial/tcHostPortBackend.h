#pragma once

#include "clallserial/tcSerialBackend.h"
#include "clallserial/tcSerialConfig.h"

/// Serial ports of this computer, for cameras behind a level converter, a grabber driver's
/// virtual COM port, or a pseudo-terminal.
class tcHostPortBackend : public tcSerialBackend
{
public:
    enum class teList
    {
        Named,   ///< exactly the given ports, there or not
        Scanned, ///< the ports that the computer reports, without the given ones
    };
    static constexpr const char* cManufacturer = "Serial port";

    tcHostPortBackend(teList aList, std::vector<std::string> aNames,
                      tcSerialConfig::teTimeout aTimeout);

    std::vector<tcEntry> ports() override;
    std::unique_ptr<tcSerialPort> open(const std::string& acKey, int32_t& arStatus) override;
    int32_t errorText(const std::string& acManufacturer, int32_t anStatus,
                      std::string& arText) override;

    /// Shortened to what the panel has room for; the end tells more than the beginning.
    static std::string portId(const std::string& acName);

private:
    teList mKind;
    std::vector<std::string> mNames;
    tcSerialConfig::teTimeout mTimeout;
};

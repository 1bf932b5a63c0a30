#pragma once

#include "clallserial/tcSerialBackend.h"
#include "clallserial/tcSerialConfig.h"

#include <map>

class tcVirtualCamera;

/// Virtual cameras as ports, one for each model. A camera is switched on when its port is first
/// opened and stays on, with its settings and temperatures, while the port is closed.
class tcVirtualBackend : public tcSerialBackend
{
public:
    explicit tcVirtualBackend(const tcSerialConfig& acConfig);
    ~tcVirtualBackend() override;

    std::vector<tcEntry> ports() override;
    std::unique_ptr<tcSerialPort> open(const std::string& acKey, int32_t& arStatus) override;
    int32_t errorText(const std::string& acManufacturer, int32_t anStatus,
                      std::string& arText) override;

private:
    tcSerialConfig mConfig;
    std::map<std::string, std::shared_ptr<tcVirtualCamera>> mCameras; ///< by model key
};

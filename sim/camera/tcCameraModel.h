#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What a camera model has on board beyond the common ground.
enum teCameraFeature : unsigned
{
    cFeatureMultiRoi = 1u << 0,  ///< several regions of interest (MROI, NROI)
    cFeatureShutter = 1u << 1,   ///< rolling or global shutter and square-root curve
    cFeatureFan = 1u << 2,       ///< a fan that can be switched
    cFeatureCooler = 1u << 3,    ///< a cooler with a set point
    cFeatureRegisters = 1u << 4, ///< sensor registers (PEEK, POKE)
    cFeatureFlip = 1u << 5,
};

/// How SCLK counts: a clock in MHz or a step of the sensor's own table.
enum class teClockUnit
{
    MHz,
    Step,
};

/// One row of the model table: what the camera says of itself and where its limits are.
struct tcCameraModel
{
    const char* key;     ///< short name for options and configuration files
    const char* name;    ///< what the port list shows, at most 49 bytes
    const char* version; ///< first field of the VERS reply
    int width;           ///< sensor size in pixels
    int height;
    int maxRois;
    int maxBitsMode; ///< largest SBPP mode
    teClockUnit clock;
    unsigned features;   ///< bits of teCameraFeature
    unsigned sensorBits; ///< bit n - 1 set: sensor n is fitted
    const char* faults;  ///< built-in fault plan, empty for a well-behaved camera
    int powerOnClock;    ///< SCLK after power-on
    uint32_t serialNumber;

    bool has(unsigned anFeature) const { return (features & anFeature) == anFeature; }
    bool hasSensor(int anNumber) const
    {
        return anNumber >= 1 && anNumber <= 15 && (sensorBits >> (anNumber - 1) & 1u) != 0;
    }
};

namespace tcCameraModels
{

/// Every model, in the order of the port list.
const std::vector<tcCameraModel>& all();

/// Null for an unknown key.
const tcCameraModel* find(const std::string& acKey);

/// The model with the built-in faults.
constexpr const char* cStubbornKey = "stubborn";

} // namespace tcCameraModels

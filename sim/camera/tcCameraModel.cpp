#include "sim/camera/tcCameraModel.h"

namespace tcCameraModels
{
namespace
{

constexpr unsigned cFull = cFeatureMultiRoi | cFeatureRegisters | cFeatureFlip;
constexpr unsigned cBasicSensors = 0x0003;  // sensor and board temperature
constexpr unsigned cPlainSensors = 0x7F9B;  // no thermistor, no cooler readings
constexpr unsigned cCooledSensors = 0x7FFF; // all fifteen
// Each trigger has a step of its own, so that the faults meet in ever new combinations.
constexpr const char* cStubbornFaults = "nack/5,delay/4=300,split/3=60,corrupt/7,drop/11";

} // namespace

const std::vector<tcCameraModel>& all()
{
    constexpr auto cStep = teClockUnit::Step;
    static const std::vector<tcCameraModel> models{
        {"r60", "Virtual R60", "Vexa-R60 1.2.0", 2560, 2160, 1, 2, teClockUnit::MHz, 0,
         cBasicSensors, "", 200, 60011},
        {"r70", "Virtual R70", "Vexa-R70 1.3.1", 1920, 1080, 1, 2, teClockUnit::MHz,
         cFeatureShutter, cBasicSensors, "", 200, 70023},
        {"k10", "Virtual K10", "Vexa-K10 2.4.0", 648, 488, 4, 4, cStep, cFull, cPlainSensors,
         "", 5, 10007},
        {"k20", "Virtual K20", "Vexa-K20 2.4.0", 2048, 1088, 8, 4, cStep, cFull, cPlainSensors,
         "", 5, 20017},
        {"k20-tec", "Virtual K20 (Temp controlled)", "Vexa-K20T 2.4.2", 2048, 1088, 8, 4, cStep,
         cFull | cFeatureFan | cFeatureCooler, cCooledSensors, "", 5, 20105},
        {"k30", "Virtual K30", "Vexa-K30 2.4.0", 2048, 2048, 8, 4, cStep, cFull, cPlainSensors,
         "", 5, 30042},
        {"k40", "Virtual K40", "Vexa-K40 2.5.1", 3360, 2496, 8, 4, cStep, cFull | cFeatureFan,
         cPlainSensors, "", 7, 40031},
        {"k50", "Virtual K50", "Vexa-K50 2.6.0", 4096, 3072, 16, 4, cStep, cFull | cFeatureFan,
         cPlainSensors, "", 7, 50002},
        {cStubbornKey, "Virtual K20 (stubborn)", "Vexa-K20 0.9.7", 2048, 1088, 8, 4, cStep,
         cFull, cPlainSensors, cStubbornFaults, 5, 20666},
    };
    return models;
}

const tcCameraModel* find(const std::string& acKey)
{
    for (const tcCameraModel& model : all()) {
        if (acKey == model.key)
            return &model;
    }
    return nullptr;
}

} // namespace tcCameraModels

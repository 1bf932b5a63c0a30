#include "sim/camera/tcCameraCommands.h"

#include "sim/camera/tcWireText.h"

#include <array>

namespace tcCameraCommands
{
namespace
{

using tcArguments = std::vector<std::string_view>;

constexpr int cMaxExposureUs = 10'000'000;
constexpr int cMaxFrameIntervalUs = 60'000'000;
constexpr int cMaxSetPointHundredths = 4000; // below 0 °C the head would ice up
constexpr int cMaxStep = 9;
constexpr int cMaxClockMHz = 250;
constexpr int cMinClockMHz = 10;
constexpr int cLastTemperature = 4; // sensors 1 to 4 are temperatures

/// One whole number that is set, and asked for, as it stands.
struct tcSetting
{
    const char* setter; ///< empty: only asked for
    const char* getter; ///< empty: only set
    int tcCameraState::*value;
    int low;
    int high;
    unsigned features;
};

constexpr std::array<tcSetting, 15> cSettings{{
    {"SVBN", "GVBN", &tcCameraState::verticalBinning, 1, 4, 0},
    {"SHBN", "GHBN", &tcCameraState::horizontalBinning, 1, 4, 0},
    {"SBPP", "GBPP", &tcCameraState::bitsMode, 0, 4, 0},
    {"SOMD", "GOMD", &tcCameraState::outputMode, 0, 1, 0},
    {"SEXP", "GEXP", &tcCameraState::exposureUs, 1, cMaxExposureUs, 0},
    {"SFIT", "GFIT", &tcCameraState::frameIntervalUs, 0, cMaxFrameIntervalUs, 0},
    {"TEST", "", &tcCameraState::testPattern, 0, 2, 0},
    {"TRIG", "", &tcCameraState::trigger, 0, 1, 0},
    {"FAN", "", &tcCameraState::fan, 0, 1, cFeatureFan},
    {"COOL", "", &tcCameraState::cooling, 0, 1, cFeatureCooler},
    // Flip is set with the get command and a value.
    {"GFLX", "GFLX", &tcCameraState::flipX, 0, 1, cFeatureFlip},
    {"GFLY", "GFLY", &tcCameraState::flipY, 0, 1, cFeatureFlip},
    {"SCLK", "GCLK", &tcCameraState::clock, 0, cMaxClockMHz, 0},
    {"SMOD", "", &tcCameraState::shutter, 0, 1, cFeatureShutter},
    {"SSQRT", "", &tcCameraState::squareRoot, 0, 1, cFeatureShutter},
}};

tcFields accepted()
{
    return std::vector<std::string>{};
}

tcFields number(int64_t anValue)
{
    return std::vector<std::string>{std::to_string(anValue)};
}

/// All arguments as whole numbers, or none.
std::optional<std::vector<int64_t>> numbers(const tcArguments& acArguments)
{
    std::vector<int64_t> values;
    for (const std::string_view argument : acArguments) {
        const std::optional<int64_t> value = tcWireText::integer(argument);
        if (!value)
            return std::nullopt;
        values.push_back(*value);
    }
    return values;
}

/// Bounds that depend on more than the setting itself.
bool allowed(const tcSetting& acSetting, int64_t anValue, const tcCameraModel& acModel)
{
    if (anValue < acSetting.low || anValue > acSetting.high)
        return false;
    if (acSetting.value == &tcCameraState::verticalBinning
        || acSetting.value == &tcCameraState::horizontalBinning)
        return anValue != 3; // pixels are joined in powers of two
    if (acSetting.value == &tcCameraState::bitsMode)
        return anValue <= acModel.maxBitsMode;
    if (acSetting.value == &tcCameraState::clock)
        return acModel.clock == teClockUnit::Step ? anValue <= cMaxStep
                                                  : anValue >= cMinClockMHz;
    return true;
}

/// Nothing at all where the mnemonic is not that of a setting.
std::optional<tcFields> setting(std::string_view acMnemonic, const tcArguments& acArguments,
                                const tcContext& acContext)
{
    for (const tcSetting& row : cSettings) {
        const bool sets = acMnemonic == row.setter && acArguments.size() == 1;
        const bool gets = acMnemonic == row.getter && acArguments.empty();
        if (!sets && !gets)
            continue;
        if (!acContext.model.has(row.features))
            return tcFields{};
        if (gets)
            return number(acContext.state.*row.value);
        const std::optional<int64_t> value = tcWireText::integer(acArguments.front());
        if (!value || !allowed(row, *value, acContext.model))
            return tcFields{};
        acContext.state.*row.value = static_cast<int>(*value);
        return accepted();
    }
    return std::nullopt;
}

tcFields version(const tcArguments&, const tcContext& acContext)
{
    return std::vector<std::string>{acContext.model.version,
                                    "SN " + std::to_string(acContext.model.serialNumber)};
}

tcFields start(const tcArguments&, const tcContext& acContext)
{
    acContext.state.acquiring = true;
    return accepted();
}

tcFields stop(const tcArguments&, const tcContext& acContext)
{
    acContext.state.acquiring = false;
    return accepted();
}

tcFields reset(const tcArguments&, const tcContext& acContext)
{
    acContext.state = tcCameraState::powerOn(acContext.model);
    return accepted();
}

tcFields pinDirection(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values)
        return {};
    const int64_t pin = values->at(0);
    const int64_t direction = values->at(1);
    if (pin < 0 || pin >= tcCameraState::cPins || direction < 0 || direction > 1)
        return {};
    acContext.state.pinOut[static_cast<size_t>(pin)] = static_cast<int>(direction);
    return accepted();
}

tcFields pinMode(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values)
        return {};
    const int64_t pin = values->at(0);
    const int64_t mode = values->at(1);
    if (pin < 0 || pin >= tcCameraState::cPins || mode < 0 || mode > 2)
        return {};
    acContext.state.pinMode[static_cast<size_t>(pin)] = static_cast<int>(mode);
    return accepted();
}

tcFields pinLevels(const tcArguments&, const tcContext& acContext)
{
    return std::vector<std::string>{tcWireText::hexByte(acContext.state.pinLevels())};
}

bool isRegister(int64_t anAddress)
{
    return anAddress >= 0 && anAddress < tcCameraState::cRegisters;
}

tcFields peek(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || !isRegister(values->at(0)))
        return {};
    return number(acContext.state.registers[static_cast<size_t>(values->at(0))]);
}

tcFields poke(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || !isRegister(values->at(0)) || values->at(1) < 0 || values->at(1) > 255)
        return {};
    acContext.state.registers[static_cast<size_t>(values->at(0))]
        = static_cast<unsigned char>(values->at(1));
    return accepted();
}

/// The region if it has pixels and lies wholly on the sensor.
std::optional<tcRoi> region(int64_t anRow, int64_t anColumn, int64_t anWidth, int64_t anHeight,
                            const tcCameraModel& acModel)
{
    if (anRow < 0 || anColumn < 0 || anWidth < 1 || anHeight < 1
        || anColumn + anWidth > acModel.width || anRow + anHeight > acModel.height)
        return std::nullopt;
    return tcRoi{static_cast<int>(anRow), static_cast<int>(anColumn), static_cast<int>(anWidth),
                 static_cast<int>(anHeight)};
}

tcFields setRoi(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values)
        return {};
    const auto roi
        = region(values->at(0), values->at(1), values->at(2), values->at(3), acContext.model);
    if (!roi)
        return {};
    acContext.state.rois.front() = *roi;
    return accepted();
}

tcFields getRoi(const tcArguments&, const tcContext& acContext)
{
    const tcRoi& roi = acContext.state.rois.front();
    return std::vector<std::string>{std::to_string(roi.row), std::to_string(roi.column),
                                    std::to_string(roi.width), std::to_string(roi.height)};
}

/// MROI counts in X and Y, that is column before row, unlike SROI.
tcFields indexedRoi(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || values->at(0) < 0 || values->at(0) >= acContext.state.roiCount)
        return {};
    tcRoi& roi = acContext.state.rois[static_cast<size_t>(values->at(0))];
    if (values->size() == 1)
        return std::vector<std::string>{std::to_string(roi.column), std::to_string(roi.row),
                                        std::to_string(roi.width), std::to_string(roi.height)};
    const auto wanted
        = region(values->at(2), values->at(1), values->at(3), values->at(4), acContext.model);
    if (!wanted)
        return {};
    roi = *wanted;
    return accepted();
}

tcFields roiLimit(const tcArguments&, const tcContext& acContext)
{
    return number(acContext.model.maxRois);
}

tcFields setRoiCount(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || values->front() < 1 || values->front() > acContext.model.maxRois)
        return {};
    acContext.state.roiCount = static_cast<int>(values->front());
    return accepted();
}

std::string reading(int anSensor, const tcContext& acContext)
{
    // Asked in any case: what is not recorded must not depend on what is.
    double value = acContext.thermal.reading(anSensor);
    if (acContext.replay)
        value = acContext.replay->reading(anSensor, acContext.time).value_or(value);
    return tcWireText::fixed(value, 2);
}

/// 0 asks for all temperatures; those not fitted are left out.
tcFields temperatures(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || values->front() < 0 || values->front() > cLastTemperature)
        return {};
    std::vector<std::string> fields;
    for (int sensor = 1; sensor <= cLastTemperature; ++sensor) {
        const bool asked = values->front() == 0 || values->front() == sensor;
        if (asked && acContext.model.hasSensor(sensor))
            fields.push_back(reading(sensor, acContext));
    }
    return fields.empty() ? tcFields{} : fields;
}

tcFields sensor(const tcArguments& acArguments, const tcContext& acContext)
{
    const auto values = numbers(acArguments);
    if (!values || values->front() < 1 || values->front() > 15)
        return {};
    const int wanted = static_cast<int>(values->front());
    if (!acContext.model.hasSensor(wanted))
        return {};
    return std::vector<std::string>{reading(wanted, acContext)};
}

tcFields setCooler(const tcArguments& acArguments, const tcContext& acContext)
{
    const std::optional<int64_t> value = tcWireText::hundredths(acArguments.front());
    if (!value || *value < 0 || *value > cMaxSetPointHundredths)
        return {};
    acContext.state.setPointHundredths = static_cast<int>(*value);
    return accepted();
}

tcFields getCooler(const tcArguments&, const tcContext& acContext)
{
    return std::vector<std::string>{
        acContext.state.cooling == 1 ? "ON" : "OFF",
        tcWireText::fixed(acContext.state.setPointHundredths / 100.0, 1)};
}

/// A command that is more than one number.
struct tcCommandRow
{
    const char* mnemonic;
    size_t arguments; ///< exactly so many
    unsigned features;
    tcFields (*handler)(const tcArguments&, const tcContext&);
};

constexpr std::array<tcCommandRow, 19> cCommands{{
    {"VERS", 0, 0, version},
    {"SETD", 2, 0, pinDirection},
    {"SETP", 2, 0, pinMode},
    {"GETP", 0, 0, pinLevels},
    {"PEEK", 1, cFeatureRegisters, peek},
    {"POKE", 2, cFeatureRegisters, poke},
    {"RSET", 0, 0, reset},
    {"SROI", 4, 0, setRoi},
    {"GROI", 0, 0, getRoi},
    {"MROI", 1, cFeatureMultiRoi, indexedRoi},
    {"MROI", 5, cFeatureMultiRoi, indexedRoi},
    {"NROI", 0, cFeatureMultiRoi, roiLimit},
    {"NROI", 1, cFeatureMultiRoi, setRoiCount},
    {"STRT", 0, 0, start},
    {"STOP", 0, 0, stop},
    {"TEMP", 1, 0, temperatures},
    {"SENS", 1, 0, sensor},
    {"STEC", 1, cFeatureCooler, setCooler},
    {"GTEC", 0, cFeatureCooler, getCooler},
}};

} // namespace

tcFields execute(std::string_view acCommand, const tcContext& acContext)
{
    const auto words = tcWireText::words(acCommand);
    if (!words)
        return {};
    const std::string_view mnemonic = words->front();
    const tcArguments arguments(words->begin() + 1, words->end());
    if (const std::optional<tcFields> done = setting(mnemonic, arguments, acContext))
        return *done;
    for (const tcCommandRow& row : cCommands) {
        if (mnemonic == row.mnemonic && arguments.size() == row.arguments
            && acContext.model.has(row.features))
            return row.handler(arguments, acContext);
    }
    return {};
}

bool isReset(std::string_view acCommand)
{
    return acCommand == "RSET";
}

} // namespace tcCameraCommands

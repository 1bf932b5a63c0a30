#pragma once

#include "sim/camera/tcCameraModel.h"

#include <array>
#include <vector>

/// A region of interest in pixels; valid ones lie wholly on the sensor.
struct tcRoi
{
    int row = 0;
    int column = 0;
    int width = 0;
    int height = 0;
};

/// Everything that commands set and ask, without the temperatures.
struct tcCameraState
{
    static constexpr int cPins = 3;
    static constexpr int cRegisters = 128;

    /// As after power-on or RSET.
    static tcCameraState powerOn(const tcCameraModel& acModel);

    int verticalBinning = 1;
    int horizontalBinning = 1;
    int bitsMode = 0;
    int outputMode = 0;
    int exposureUs = 500;
    int frameIntervalUs = 0; ///< 0: as fast as the mode allows
    int clock = 0;
    int testPattern = 0;
    int trigger = 0;
    int flipX = 0;
    int flipY = 0;
    int shutter = 0;    ///< 0 rolling, 1 global
    int squareRoot = 0; ///< 1: square-root curve on
    int cooling = 0;
    int fan = 0;
    int setPointHundredths = 2500; ///< °C times 100
    bool acquiring = false;
    int roiCount = 1;
    std::vector<tcRoi> rois; ///< as many as the model supports; the first is the main one
    std::array<int, cPins> pinOut{};
    std::array<int, cPins> pinMode{}; ///< 0 low, 1 high, 2 exposure strobe
    std::array<unsigned char, cRegisters> registers{};

    /// Bit per pin; a strobe pin is high while the camera acquires, an input reads low.
    unsigned pinLevels() const;
};

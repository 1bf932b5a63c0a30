#pragma once

#include "sim/camera/tcSeededRandom.h"

#include <cstdint>

/// Heat flow of a camera head: a cold plate with the sensor on it, the housing with the
/// electronics, and the room; between plate and housing sits the cooler with its controller.
///
/// Time is handed in as simulated seconds; the same steps give the same temperatures.
class tcThermalModel
{
public:
    struct tcInputs
    {
        bool acquiring = false;
        bool cooling = false;
        bool fan = false;
        double setPointC = 25.0;
    };

    /// Starts at room temperature.
    tcThermalModel(uint64_t anSeed, bool abHasCooler);

    /// At most a day at once: what is longer ago makes no difference.
    void advance(double anSeconds, const tcInputs& acInputs);

    /// Reading of the camera's sensor 1 to 15 with its noise; 0 for other numbers. Temperatures
    /// in °C, humidity in %, cooler current in A and voltage in V, rail currents in mA, rail
    /// voltages in V.
    double reading(int anSensor);

    double plateC() const { return mPlateC; } ///< what the thermistor measures, without noise

private:
    void step(const tcInputs& acInputs);
    double temperature(int anSensor) const;
    double rail(int anSensor);
    double drift(double anPeriodSeconds, double anPhase) const;

    tcSeededRandom mRandom;
    bool mHasCooler;
    bool mAcquiring = false;
    double mPhase;
    double mSeconds = 0.0;
    double mUnspent = 0.0; ///< time not yet stepped through
    double mPlateC;
    double mHousingC;
    double mRoomC;
    double mIntegral = 0.0;
    double mDrive = 0.0; ///< -1 full heating to 1 full cooling
};

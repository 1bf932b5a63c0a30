#include "sim/camera/tcThermalModel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr double cStepSeconds = 0.25;
constexpr double cRoomC = 22.0;
constexpr double cLongestSeconds = 86400.0; // by then all has settled; a week costs no more

// Heat capacities in J/K, heat conductances in W/K, powers in W: a fist-sized camera head.
constexpr double cPlateCapacity = 120.0;
constexpr double cHousingCapacity = 350.0;
constexpr double cPlateToHousing = 0.15;
constexpr double cPlateToHousingRigid = 1.5; // without a cooler the sensor sits on the housing
constexpr double cHousingToRoom = 0.45;
constexpr double cHousingToRoomFan = 1.2;
constexpr double cSensorIdleW = 0.5;
constexpr double cSensorBusyW = 1.1;
constexpr double cBoardIdleW = 3.0;
constexpr double cBoardBusyW = 4.2;
constexpr double cSensorOverPlate = 1.5; // K/W
constexpr double cBoardOverHousing = 0.9;

constexpr double cCoolerMaxW = 12.0;
constexpr double cCoolerMaxA = 2.0;
constexpr double cCoolerOhm = 2.4;
constexpr double cCoolerVoltPerK = 0.025;
constexpr double cGain = 0.4;           // drive per K
constexpr double cIntegralGain = 0.004; // drive per K and second

/// Sensors 8 to 15: currents in mA, then voltages in V.
constexpr std::array<double, 8> cRails{{12.4, 38.0, 21.5, 44.0, 2.1, 3.3, 3.0, 3.3}};
constexpr int cFirstRail = 8;
constexpr int cFirstVoltage = 12;

constexpr double cTwoPi = 6.283185307179586;

} // namespace

tcThermalModel::tcThermalModel(uint64_t anSeed, bool abHasCooler)
    : mRandom(anSeed)
    , mHasCooler(abHasCooler)
    , mPhase(mRandom.unit() * cTwoPi)
    , mPlateC(cRoomC)
    , mHousingC(cRoomC)
    , mRoomC(cRoomC)
{
}

double tcThermalModel::drift(double anPeriodSeconds, double anPhase) const
{
    return std::sin(cTwoPi * mSeconds / anPeriodSeconds + mPhase + anPhase);
}

void tcThermalModel::advance(double anSeconds, const tcInputs& acInputs)
{
    mAcquiring = acInputs.acquiring;
    mUnspent += std::clamp(anSeconds, 0.0, cLongestSeconds);
    while (mUnspent >= cStepSeconds) {
        mUnspent -= cStepSeconds;
        step(acInputs);
    }
}

void tcThermalModel::step(const tcInputs& acInputs)
{
    mSeconds += cStepSeconds;
    mRoomC = cRoomC + 0.6 * drift(5400.0, 0.0);
    if (mHasCooler && acInputs.cooling) {
        const double error = mPlateC - acInputs.setPointC;
        const double wanted = cGain * error + mIntegral;
        mDrive = std::clamp(wanted, -1.0, 1.0);
        // The integral rests while the drive is at its limit, else it would overshoot for long.
        if (mDrive == wanted || error * wanted < 0)
            mIntegral += cIntegralGain * error * cStepSeconds;
    } else {
        mDrive = 0.0;
        mIntegral = 0.0;
    }
    const double amps = mDrive * cCoolerMaxA;
    const double jouleW = amps * amps * cCoolerOhm;
    const double pumpedW = mDrive * cCoolerMaxW;
    const double sensorW = acInputs.acquiring ? cSensorBusyW : cSensorIdleW;
    const double boardW = acInputs.acquiring ? cBoardBusyW : cBoardIdleW;
    const double leak
        = (mHasCooler ? cPlateToHousing : cPlateToHousingRigid) * (mHousingC - mPlateC);
    const double lost
        = (acInputs.fan ? cHousingToRoomFan : cHousingToRoom) * (mHousingC - mRoomC);
    mPlateC += (sensorW + leak - pumpedW) * cStepSeconds / cPlateCapacity;
    mHousingC += (boardW + pumpedW + jouleW - leak - lost) * cStepSeconds / cHousingCapacity;
}

double tcThermalModel::temperature(int anSensor) const
{
    switch (anSensor) {
    case 1:
        return mPlateC + cSensorOverPlate * (mAcquiring ? cSensorBusyW : cSensorIdleW);
    case 2:
        return mHousingC + cBoardOverHousing * (mAcquiring ? cBoardBusyW : cBoardIdleW);
    case 3:
        return mPlateC;
    default:
        return mRoomC + 0.15 * (mHousingC - mRoomC); // the probe sits in the housing's breath
    }
}

double tcThermalModel::rail(int anSensor)
{
    const double nominal = cRails[static_cast<size_t>(anSensor - cFirstRail)];
    const bool current = anSensor < cFirstVoltage;
    const double load = current && mAcquiring ? 1.08 : 1.0;
    const double wander = 1.0 + 0.002 * drift(900.0, anSensor);
    return std::max(0.0, nominal * load * wander + mRandom.noise(current ? 0.05 : 0.003));
}

double tcThermalModel::reading(int anSensor)
{
    switch (anSensor) {
    case 1:
    case 2:
    case 3:
    case 4:
        return temperature(anSensor) + mRandom.noise(0.02);
    case 5:
        return std::clamp(36.0 + 3.0 * drift(4200.0, 1.0) + mRandom.noise(0.1), 0.0, 100.0);
    case 6:
        return std::abs(mDrive) * cCoolerMaxA;
    case 7:
        return std::abs(mDrive * cCoolerMaxA * cCoolerOhm
                        + (mDrive == 0.0 ? 0.0 : cCoolerVoltPerK * (mHousingC - mPlateC)));
    default:
        return anSensor >= cFirstRail && anSensor < cFirstRail + static_cast<int>(cRails.size())
            ? rail(anSensor)
            : 0.0;
    }
}

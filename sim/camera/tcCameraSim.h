#pragma once

#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraState.h"
#include "sim/camera/tcFaultPlan.h"
#include "sim/camera/tcPacedLine.h"
#include "sim/camera/tcSensorReplay.h"
#include "sim/camera/tcThermalModel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// A camera at the far end of a serial line: it understands the command language, keeps its
/// state, warms up and cools down, and answers as fast as the line allows.
///
/// It owns no thread and no clock: every call hands in the time, in ns since any fixed moment,
/// never less than in the call before. What happened in between is made up for in order, so
/// the bytes and their times depend on model, options and calls alone. Not for two threads at
/// once.
class tcCameraSim
{
public:
    struct tcOptions
    {
        uint64_t seed = 1;
        double speed = 1.0; ///< how much faster than the line's time heat flows
        tcFaultPlan faults; ///< all of them; faultPlan() adds the model's own
        std::shared_ptr<tcSensorReplay> replay; ///< null: the readings are the model's
    };
    static constexpr uint32_t cBaud = 115200;         ///< the only rate the camera speaks
    static constexpr size_t cReceiveRoom = 1u << 20;  ///< unread bytes beyond it are lost
    static constexpr size_t cTransmitRoom = 1u << 16; ///< bytes on their way to the camera

    /// The model's built-in faults, then the ones of the text; see tcFaultPlan.
    static std::optional<tcFaultPlan> faultPlan(const tcCameraModel& acModel,
                                                const std::string& acText, uint64_t anSeed,
                                                std::string& arError);

    /// Power-on at anNow. The model must outlive the camera, as those of the table do.
    tcCameraSim(const tcCameraModel& acModel, tcOptions aOptions, int64_t anNow);

    /// Rate of the host's end. At a wrong one each end hears only noise, and the camera heeds
    /// none of it.
    void setHostBaud(uint32_t anBaud);

    /// Takes what there is room for and returns how much that was; 0 when unplugged.
    size_t write(int64_t anNow, const char* acBytes, size_t anSize);
    size_t writeRoom(int64_t anNow);

    size_t available(int64_t anNow);
    /// At most what has arrived; returns how much.
    size_t read(int64_t anNow, char* apBuffer, size_t anSize);
    /// Throws away what has arrived.
    void purge(int64_t anNow);

    /// Nothing changes before this time unless something is written; cNever if nothing will.
    int64_t nextEvent(int64_t anNow);
    static constexpr int64_t cNever = tcPacedLine::cNever;

    /// The cable is pulled: nothing goes in or out for ever.
    bool unplugged(int64_t anNow);

    const tcCameraModel& model() const { return mModel; }
    const tcCameraState& state() const { return mState; }
    double plateC() const { return mThermal.plateC(); }

private:
    void advance(int64_t anNow);
    void hear(int64_t anTime, char aByte);
    void obeyLine(int64_t anTime);
    void obey(int64_t anTime, std::string_view acCommand);
    void answer(int64_t anTime, std::string aReply, const tcFaultAction& acFault);
    void warm(int64_t anTime);
    void flood(int64_t anUntil);

    const tcCameraModel& mModel;
    tcOptions mOptions;
    tcCameraState mState;
    tcThermalModel mThermal;
    tcSeededRandom mRandom;
    tcPacedLine mToCamera{cBaud};
    tcPacedLine mToHost{cBaud};
    std::string mInput; ///< line still arriving at the camera
    bool mOverlong = false;
    uint32_t mHostBaud = cBaud;
    int64_t mPowerOn;
    int64_t mWarmedUntil;
    int64_t mBusyUntil;
    int64_t mDeafUntil; ///< start-up: what arrives before is lost
    int64_t mFloodUntil = 0;
    int64_t mUnplugAt = cNever;
};

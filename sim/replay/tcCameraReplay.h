#pragma once

#include "sim/camera/tcSensorReplay.h"
#include "stripchart/logic/tcReplay.h"

#include <array>
#include <memory>
#include <string>

/// A file of the chart as a camera's sensors: curves of the names that the panel gives to
/// those, in any of its languages, are the sensors' readings. Not for two threads at once.
class tcCameraReplay : public tcSensorReplay
{
public:
    /// Null if the file can't be replayed; arMessage then says why, else it is empty or tells
    /// what was skipped.
    static std::unique_ptr<tcCameraReplay> open(const tcSensorReplayRequest& acRequest,
                                                std::string& arMessage);

    std::optional<double> reading(int anSensor, int64_t anNs) override;

private:
    static constexpr size_t cSensors = 15;

    tcCameraReplay(std::vector<tcReplay::tcColumn> aColumns, std::vector<size_t> aSensors,
                   int anSpeed, bool abLoop);
    void advance(int64_t anMs);

    tcReplay mReplay;             ///< its time is ms since the first reading asked for
    std::vector<size_t> mSensors; ///< of each of its columns: number less one
    std::array<std::optional<double>, cSensors> mLatest;
    bool mLoop;
    int64_t mPass = 0; ///< how often the whole record has been played
    std::optional<int64_t> mBegin;
};

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

/// Recorded readings that take the place of a virtual camera's own.
class tcSensorReplay
{
public:
    virtual ~tcSensorReplay() = default;

    /// What the sensor read at that moment of the record; nothing where the record says nothing
    /// of it up to then. anNs is never less than in the call before, and the record begins with
    /// the first call of all, so that none of it is over before anybody looks.
    virtual std::optional<double> reading(int anSensor, int64_t anNs) = 0;
};

/// Where the record is and how it is played.
struct tcSensorReplayRequest
{
    const char* file;    ///< as the chart saves, logs or exports it; in the system's encoding
    double speed;        ///< a whole number from 1 to 1000
    bool loop;           ///< from the beginning once more; else the last values stay
    unsigned sensorBits; ///< bit n - 1 set: the camera has sensor n
};

/// Reading such files takes Qt, which the serial library does without. So it loads this
/// function from a library beside it, when a replay is asked for.
///
/// The replay is the caller's; null if there is none. apMessage, of anSize bytes, then says
/// why; else it is empty or tells of lines that were skipped.
extern "C" using tcOpenSensorReplay = tcSensorReplay
    * (const tcSensorReplayRequest* acpRequest, char* apMessage, size_t anSize);

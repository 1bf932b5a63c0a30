#pragma once

#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraSim.h"

#include <QByteArray>

/// A virtual camera and the time of its line, for tests that need no clock.
class tcBenchCamera
{
public:
    static constexpr int64_t cMs = 1'000'000;
    static constexpr int64_t cSecond = 1'000'000'000;

    explicit tcBenchCamera(const char* acModel, const std::string& acFaults = {},
                           double anSpeed = 1.0, uint64_t anSeed = 7)
        : sim(*tcCameraModels::find(acModel), options(acModel, acFaults, anSpeed, anSeed), 0)
    {
    }

    tcBenchCamera(const char* acModel, const tcCameraSim::tcOptions& acOptions)
        : sim(*tcCameraModels::find(acModel), acOptions, 0)
    {
    }

    void send(const QByteArray& acBytes)
    {
        const size_t size = static_cast<size_t>(acBytes.size());
        if (sim.write(now, acBytes.constData(), size) != size)
            qFatal("the camera did not take everything");
    }

    QByteArray receive()
    {
        QByteArray bytes(static_cast<int>(sim.available(now)), '\0');
        sim.read(now, bytes.data(), static_cast<size_t>(bytes.size()));
        return bytes;
    }

    /// What the camera answers within a second.
    QByteArray ask(const QByteArray& acCommand)
    {
        send(acCommand + '\n');
        now += cSecond;
        return receive();
    }

    tcCameraSim sim;
    int64_t now = 0;

private:
    static tcCameraSim::tcOptions options(const char* acModel, const std::string& acFaults,
                                          double anSpeed, uint64_t anSeed)
    {
        std::string error;
        tcCameraSim::tcOptions options;
        options.seed = anSeed;
        options.speed = anSpeed;
        const auto plan
            = tcCameraSim::faultPlan(*tcCameraModels::find(acModel), acFaults, anSeed, error);
        if (!plan)
            qFatal("fault plan: %s", error.c_str());
        options.faults = *plan;
        return options;
    }
};

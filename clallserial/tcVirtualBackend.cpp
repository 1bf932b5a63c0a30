#include "clallserial/tcVirtualBackend.h"

#include "clallserial/tcReplayLoader.h"
#include "clallserial/tcStatusText.h"
#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraSim.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace
{

constexpr const char* cManufacturer = "Vexa Virtual";
constexpr uint32_t cAllBaudCodes = 0xFF;
constexpr uint32_t cPowerOnBaud = 9600; // as the standard has it, until the rate is set
constexpr int64_t cNsPerMs = 1'000'000;
constexpr int64_t cNapNs = cNsPerMs; // no need to wake up for each byte

int64_t nowNs()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

/// The camera and the lock that every use of it holds.
class tcVirtualCamera
{
public:
    tcVirtualCamera(const tcCameraModel& acModel, tcCameraSim::tcOptions aOptions)
        : sim(acModel, std::move(aOptions), nowNs())
    {
    }

    std::mutex lock;
    tcCameraSim sim;
};

namespace
{

class tcVirtualPort : public tcSerialPort
{
public:
    tcVirtualPort(std::shared_ptr<tcVirtualCamera> aCamera, tcSerialConfig::teTimeout aTimeout)
        : mCamera(std::move(aCamera)), mTimeout(aTimeout)
    {
        const std::lock_guard<std::mutex> guard(mCamera->lock);
        mCamera->sim.setHostBaud(cPowerOnBaud);
        mCamera->sim.purge(nowNs());
    }

    int32_t setBaudRate(uint32_t anBaudCode) override
    {
        const uint32_t baud = tcStatusText::baudOfCode(anBaudCode);
        const std::lock_guard<std::mutex> guard(mCamera->lock);
        if (gone())
            return CL_ERR_INVALID_REFERENCE;
        if (baud == 0)
            return CL_ERR_BAUD_RATE_NOT_SUPPORTED;
        mCamera->sim.setHostBaud(baud);
        return CL_ERR_NO_ERR;
    }

    int32_t supportedBaudRates(uint32_t& arCodes) override
    {
        const std::lock_guard<std::mutex> guard(mCamera->lock);
        arCodes = cAllBaudCodes;
        return gone() ? CL_ERR_INVALID_REFERENCE : CL_ERR_NO_ERR;
    }

    int32_t available(uint32_t& arCount) override
    {
        const std::lock_guard<std::mutex> guard(mCamera->lock);
        if (gone())
            return CL_ERR_INVALID_REFERENCE;
        arCount = static_cast<uint32_t>(mCamera->sim.available(nowNs()));
        return CL_ERR_NO_ERR;
    }

    int32_t read(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) override
    {
        return timedRead(apBuffer, arSize, anTimeoutMs,
                         mTimeout == tcSerialConfig::teTimeout::Partial);
    }

    int32_t readPartial(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) override
    {
        return timedRead(apBuffer, arSize, anTimeoutMs, true);
    }

    int32_t write(const char* acBytes, uint32_t& arSize, uint32_t anTimeoutMs) override;

    int32_t flush() override
    {
        const std::lock_guard<std::mutex> guard(mCamera->lock);
        if (gone())
            return CL_ERR_INVALID_REFERENCE;
        mCamera->sim.purge(nowNs());
        return CL_ERR_NO_ERR;
    }

    void interrupt() override
    {
        {
            const std::lock_guard<std::mutex> guard(mCamera->lock);
            mClosing = true;
        }
        mWake.notify_all();
    }

private:
    bool gone() { return mClosing || mCamera->sim.unplugged(nowNs()); }
    int32_t timedRead(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs, bool abPartial);
    void nap(std::unique_lock<std::mutex>& arGuard, int64_t anDeadline);

    std::shared_ptr<tcVirtualCamera> mCamera;
    tcSerialConfig::teTimeout mTimeout;
    bool mClosing = false; ///< under the camera's lock
    std::condition_variable mWake;
};

/// Until something may have changed on the line, the port is closing, or the deadline.
void tcVirtualPort::nap(std::unique_lock<std::mutex>& arGuard, int64_t anDeadline)
{
    const int64_t now = nowNs();
    // Another thread may write meanwhile, so even a silent line is looked at now and then.
    const int64_t event = std::min(mCamera->sim.nextEvent(now), now + 20 * cNapNs);
    const int64_t until = std::min(std::max(event, now + cNapNs), anDeadline);
    mWake.wait_for(arGuard, std::chrono::nanoseconds(std::max<int64_t>(until - now, 0)));
}

int32_t tcVirtualPort::timedRead(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs,
                                 bool abPartial)
{
    const int64_t deadline = nowNs() + anTimeoutMs * cNsPerMs;
    std::unique_lock<std::mutex> guard(mCamera->lock);
    for (;;) {
        if (gone())
            return CL_ERR_INVALID_REFERENCE;
        const int64_t now = nowNs();
        if (mCamera->sim.available(now) >= arSize) {
            mCamera->sim.read(now, apBuffer, arSize);
            return CL_ERR_NO_ERR;
        }
        if (now >= deadline) {
            if (abPartial)
                arSize = static_cast<uint32_t>(mCamera->sim.read(now, apBuffer, arSize));
            return CL_ERR_TIMEOUT;
        }
        nap(guard, deadline);
    }
}

int32_t tcVirtualPort::write(const char* acBytes, uint32_t& arSize, uint32_t anTimeoutMs)
{
    const int64_t deadline = nowNs() + anTimeoutMs * cNsPerMs;
    const uint32_t wanted = arSize;
    uint32_t written = 0;
    std::unique_lock<std::mutex> guard(mCamera->lock);
    for (;;) {
        if (gone())
            return CL_ERR_INVALID_REFERENCE;
        const int64_t now = nowNs();
        written += static_cast<uint32_t>(
            mCamera->sim.write(now, acBytes + written, wanted - written));
        arSize = written;
        if (written == wanted) {
            mWake.notify_all(); // a reader may now have something to wait for
            return CL_ERR_NO_ERR;
        }
        if (now >= deadline)
            return CL_ERR_TIMEOUT;
        nap(guard, deadline);
    }
}

} // namespace

tcVirtualBackend::tcVirtualBackend(const tcSerialConfig& acConfig) : mConfig(acConfig)
{
    if (!mConfig.models.empty())
        return;
    for (const tcCameraModel& model : tcCameraModels::all())
        mConfig.models.emplace_back(model.key);
}

tcVirtualBackend::~tcVirtualBackend() = default;

std::vector<tcSerialBackend::tcEntry> tcVirtualBackend::ports()
{
    std::vector<tcEntry> entries;
    for (const std::string& key : mConfig.models)
        entries.push_back(
            {cManufacturer, tcCameraModels::find(key)->name, cSerialVersion11, key});
    return entries;
}

std::unique_ptr<tcSerialPort> tcVirtualBackend::open(const std::string& acKey,
                                                     int32_t& arStatus)
{
    const tcCameraModel* model = tcCameraModels::find(acKey);
    if (!model) {
        arStatus = CL_ERR_INVALID_INDEX;
        return nullptr;
    }
    std::shared_ptr<tcVirtualCamera>& camera = mCameras[acKey];
    if (!camera) {
        std::string error; // the configuration accepts only plans that can be read
        tcCameraSim::tcOptions options;
        options.seed = mConfig.seed;
        options.speed = mConfig.speed;
        if (const auto plan
            = tcCameraSim::faultPlan(*model, mConfig.faults, mConfig.seed, error))
            options.faults = *plan;
        if (!mConfig.replay.empty())
            options.replay = tcReplayLoader::open(
                {mConfig.replay.c_str(), mConfig.speed, mConfig.loop, model->sensorBits});
        camera = std::make_shared<tcVirtualCamera>(*model, options);
    }
    {
        const std::lock_guard<std::mutex> guard(camera->lock);
        if (camera->sim.unplugged(nowNs())) {
            arStatus = CL_ERR_PORT_IN_USE; // also the code for a port that can't be opened
            return nullptr;
        }
    }
    arStatus = CL_ERR_NO_ERR;
    return std::make_unique<tcVirtualPort>(camera, mConfig.timeout);
}

int32_t tcVirtualBackend::errorText(const std::string& acManufacturer, int32_t, std::string&)
{
    // The texts that every maker shares are all there is to say.
    return acManufacturer == cManufacturer ? CL_ERR_ERROR_NOT_FOUND
                                           : CL_ERR_MANU_DOES_NOT_EXIST;
}

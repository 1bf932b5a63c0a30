#include "clallserial/tcHostPortBackend.h"

#include "clallserial/tcHostDevice.h"
#include "clallserial/tcStatusText.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <mutex>

namespace
{

constexpr uint32_t cAllBaudCodes = 0xFF;
constexpr size_t cReceiveRoom = 1u << 20; // bytes kept for a caller who does not read
constexpr int cSliceMs = 10;              // how long a closing port may have to wait
constexpr size_t cIdRoom = 49;

/// Adds the time-out behaviour to a device: what has arrived is kept here until it is read.
class tcHostPort : public tcSerialPort
{
    using tcClock = std::chrono::steady_clock;

public:
    tcHostPort(std::unique_ptr<tcHostDevice> aDevice, tcSerialConfig::teTimeout aTimeout)
        : mDevice(std::move(aDevice)), mTimeout(aTimeout)
    {
    }

    int32_t setBaudRate(uint32_t anBaudCode) override
    {
        const uint32_t baud = tcStatusText::baudOfCode(anBaudCode);
        const std::lock_guard<std::mutex> guard(mLock);
        if (!fetch())
            return CL_ERR_INVALID_REFERENCE;
        return baud != 0 && mDevice->setBaud(baud) ? CL_ERR_NO_ERR
                                                   : CL_ERR_BAUD_RATE_NOT_SUPPORTED;
    }

    int32_t supportedBaudRates(uint32_t& arCodes) override
    {
        arCodes = cAllBaudCodes; // what the hardware makes of it shows when it is set
        return CL_ERR_NO_ERR;
    }

    int32_t available(uint32_t& arCount) override
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (!fetch())
            return CL_ERR_INVALID_REFERENCE;
        arCount = static_cast<uint32_t>(mReceived.size());
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
        const std::lock_guard<std::mutex> guard(mLock);
        mReceived.clear();
        return !mGone && mDevice->flush() ? CL_ERR_NO_ERR : CL_ERR_INVALID_REFERENCE;
    }

    void interrupt() override { mClosing = true; }

private:
    bool fetch();
    int32_t timedRead(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs, bool abPartial);
    void hand(char* apBuffer, uint32_t anSize);

    std::unique_ptr<tcHostDevice> mDevice;
    tcSerialConfig::teTimeout mTimeout;
    std::atomic<bool> mClosing{false};
    std::mutex mLock; ///< guards the device but for its pause, and what follows
    std::string mReceived;
    bool mGone = false;
};

/// Takes over what the device has; false once the device has gone or the port is closing. With
/// the lock held.
bool tcHostPort::fetch()
{
    std::array<char, 4096> block{};
    while (!mGone && mReceived.size() < cReceiveRoom) {
        const int count = mDevice->read(block.data(), block.size());
        mGone = count < 0;
        if (count <= 0)
            break;
        mReceived.append(block.data(), static_cast<size_t>(count));
    }
    return !mGone && !mClosing;
}

void tcHostPort::hand(char* apBuffer, uint32_t anSize)
{
    std::memcpy(apBuffer, mReceived.data(), anSize);
    mReceived.erase(0, anSize);
}

int32_t tcHostPort::timedRead(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs,
                              bool abPartial)
{
    const auto deadline = tcClock::now() + std::chrono::milliseconds(anTimeoutMs);
    for (;;) {
        const bool late = tcClock::now() >= deadline;
        {
            const std::lock_guard<std::mutex> guard(mLock);
            if (!fetch())
                return CL_ERR_INVALID_REFERENCE;
            const bool enough = mReceived.size() >= arSize;
            if (late && !enough && abPartial)
                arSize = static_cast<uint32_t>(mReceived.size());
            if (enough || (late && abPartial))
                hand(apBuffer, arSize);
            if (enough)
                return CL_ERR_NO_ERR;
        }
        if (late)
            return CL_ERR_TIMEOUT;
        mDevice->pause(cSliceMs);
    }
}

int32_t tcHostPort::write(const char* acBytes, uint32_t& arSize, uint32_t anTimeoutMs)
{
    const auto deadline = tcClock::now() + std::chrono::milliseconds(anTimeoutMs);
    const uint32_t wanted = arSize;
    arSize = 0;
    for (;;) {
        const bool late = tcClock::now() >= deadline;
        {
            const std::lock_guard<std::mutex> guard(mLock);
            if (!fetch())
                return CL_ERR_INVALID_REFERENCE;
            const int count
                = arSize < wanted ? mDevice->write(acBytes + arSize, wanted - arSize) : 0;
            if (count < 0) {
                mGone = true;
                return CL_ERR_INVALID_REFERENCE;
            }
            arSize += static_cast<uint32_t>(count);
        }
        if (arSize == wanted)
            return CL_ERR_NO_ERR;
        if (late)
            return CL_ERR_TIMEOUT;
        mDevice->pause(1);
    }
}

} // namespace

tcHostPortBackend::tcHostPortBackend(teList aList, std::vector<std::string> aNames,
                                     tcSerialConfig::teTimeout aTimeout)
    : mKind(aList), mNames(std::move(aNames)), mTimeout(aTimeout)
{
}

std::string tcHostPortBackend::portId(const std::string& acName)
{
    const std::string dots = "...";
    if (acName.size() <= cIdRoom)
        return acName;
    return dots + acName.substr(acName.size() - (cIdRoom - dots.size()));
}

std::vector<tcSerialBackend::tcEntry> tcHostPortBackend::ports()
{
    std::vector<std::string> names = mNames;
    if (mKind == teList::Scanned) {
        names = tcHostDevices::scan();
        const auto named = [&](const std::string& acName) {
            return std::find(mNames.begin(), mNames.end(), acName) != mNames.end();
        };
        names.erase(std::remove_if(names.begin(), names.end(), named), names.end());
    }
    std::vector<tcEntry> entries;
    entries.reserve(names.size());
    for (const std::string& name : names)
        entries.push_back({cManufacturer, portId(name), cSerialVersion11, name});
    return entries;
}

std::unique_ptr<tcSerialPort> tcHostPortBackend::open(const std::string& acKey,
                                                      int32_t& arStatus)
{
    auto device = tcHostDevices::open(acKey);
    // The one code for "can't be opened", for whatever reason.
    arStatus = device ? CL_ERR_NO_ERR : CL_ERR_PORT_IN_USE;
    if (!device)
        return nullptr;
    return std::make_unique<tcHostPort>(std::move(device), mTimeout);
}

int32_t tcHostPortBackend::errorText(const std::string& acManufacturer, int32_t, std::string&)
{
    return acManufacturer == cManufacturer ? CL_ERR_ERROR_NOT_FOUND
                                           : CL_ERR_MANU_DOES_NOT_EXIST;
}

#include "clallserial/tcPortTable.h"

#include "clallserial/tcStatusText.h"

#include <cstring>
#include <shared_mutex>

struct tcPortTable::tcOpenPort
{
    std::shared_mutex gate; ///< shared by calls that use the port, alone by its closing
    std::unique_ptr<tcSerialPort> port;
    std::pair<size_t, std::string> place;
};

namespace
{

/// Copies the text with its NUL and hands back the bytes written, or those needed.
bool handOver(const std::string& acText, char* apBuffer, uint32_t* apSize)
{
    const auto needed = static_cast<uint32_t>(acText.size() + 1);
    const bool fits = *apSize >= needed;
    if (fits)
        std::memcpy(apBuffer, acText.c_str(), needed);
    *apSize = needed;
    return fits;
}

} // namespace

tcPortTable::tcPortTable(std::vector<std::unique_ptr<tcSerialBackend>> aBackends)
    : mBackends(std::move(aBackends))
{
}

tcPortTable::~tcPortTable() = default;

/// With mBackendLock held.
void tcPortTable::refresh()
{
    std::vector<tcListed> found;
    for (size_t backend = 0; backend < mBackends.size(); ++backend) {
        for (tcSerialBackend::tcEntry& entry : mBackends[backend]->ports())
            found.push_back({backend, std::move(entry)});
    }
    const std::lock_guard<std::mutex> guard(mLock);
    mList = std::move(found);
    mRefreshed = true;
}

/// With mBackendLock held. A caller may know an index without ever having asked for the count.
int32_t tcPortTable::entryAt(uint32_t anIndex, tcListed& arListed)
{
    if (!mRefreshed)
        refresh();
    const std::lock_guard<std::mutex> guard(mLock);
    if (anIndex >= mList.size())
        return CL_ERR_INVALID_INDEX;
    arListed = mList[anIndex];
    return CL_ERR_NO_ERR;
}

int32_t tcPortTable::count(uint32_t* apCount)
{
    if (!apCount)
        return CL_ERR_INVALID_PTR;
    const std::lock_guard<std::mutex> backendGuard(mBackendLock);
    refresh();
    const std::lock_guard<std::mutex> guard(mLock);
    *apCount = static_cast<uint32_t>(mList.size());
    return CL_ERR_NO_ERR;
}

int32_t tcPortTable::info(uint32_t anIndex, char* apManufacturer, uint32_t* apManufacturerSize,
                          char* apPortId, uint32_t* apPortIdSize, uint32_t* apVersion)
{
    if (!apManufacturer || !apManufacturerSize || !apPortId || !apPortIdSize || !apVersion)
        return CL_ERR_INVALID_PTR;
    const std::lock_guard<std::mutex> backendGuard(mBackendLock);
    tcListed listed;
    if (const int32_t status = entryAt(anIndex, listed))
        return status;
    // Both sizes are handed back in any case, so that a second call can do.
    const bool named = handOver(listed.entry.manufacturer, apManufacturer, apManufacturerSize);
    const bool placed = handOver(listed.entry.portId, apPortId, apPortIdSize);
    *apVersion = listed.entry.version;
    return named && placed ? CL_ERR_NO_ERR : CL_ERR_BUFFER_TOO_SMALL;
}

int32_t tcPortTable::open(uint32_t anIndex, hSerRef* apRef)
{
    if (!apRef)
        return CL_ERR_INVALID_PTR;
    const std::lock_guard<std::mutex> backendGuard(mBackendLock);
    tcListed listed;
    if (const int32_t status = entryAt(anIndex, listed))
        return status;
    auto opened = std::make_shared<tcOpenPort>();
    opened->place = {listed.backend, listed.entry.key};
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mInUse.count(opened->place) != 0)
            return CL_ERR_PORT_IN_USE;
    }
    int32_t status = CL_ERR_NO_ERR;
    opened->port = mBackends[listed.backend]->open(listed.entry.key, status);
    if (!opened->port)
        return status != CL_ERR_NO_ERR ? status : CL_ERR_PORT_IN_USE;
    const std::lock_guard<std::mutex> guard(mLock);
    const uintptr_t ref = mNextRef++;
    mInUse.insert(opened->place);
    mOpen.emplace(ref, std::move(opened));
    *apRef = reinterpret_cast<hSerRef>(ref);
    return CL_ERR_NO_ERR;
}

void tcPortTable::close(hSerRef aRef)
{
    std::shared_ptr<tcOpenPort> closing;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto found = mOpen.find(reinterpret_cast<uintptr_t>(aRef));
        if (found == mOpen.end())
            return;
        closing = std::move(found->second);
        mOpen.erase(found);
    }
    closing->port->interrupt();
    {
        const std::unique_lock<std::shared_mutex> alone(closing->gate);
        closing->port.reset();
    }
    const std::lock_guard<std::mutex> guard(mLock);
    mInUse.erase(closing->place);
}

int32_t tcPortTable::use(hSerRef aRef, const tcUse& acUse)
{
    std::shared_ptr<tcOpenPort> opened;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto found = mOpen.find(reinterpret_cast<uintptr_t>(aRef));
        if (found == mOpen.end())
            return CL_ERR_INVALID_REFERENCE;
        opened = found->second;
    }
    const std::shared_lock<std::shared_mutex> shared(opened->gate);
    return opened->port ? acUse(*opened->port) : CL_ERR_INVALID_REFERENCE;
}

int32_t tcPortTable::errorText(const char* acManufacturer, int32_t anStatus, char* apText,
                               uint32_t* apTextSize)
{
    if (!apText || !apTextSize)
        return CL_ERR_INVALID_PTR;
    std::string text;
    if (!tcStatusText::find(anStatus, text)) {
        if (!acManufacturer)
            return CL_ERR_INVALID_PTR;
        const std::lock_guard<std::mutex> backendGuard(mBackendLock);
        int32_t status = CL_ERR_MANU_DOES_NOT_EXIST;
        for (const auto& backend : mBackends) {
            const int32_t own = backend->errorText(acManufacturer, anStatus, text);
            if (own != CL_ERR_MANU_DOES_NOT_EXIST)
                status = own;
            if (own == CL_ERR_NO_ERR)
                break;
        }
        if (status != CL_ERR_NO_ERR)
            return status;
    }
    return handOver(text, apText, apTextSize) ? CL_ERR_NO_ERR : CL_ERR_BUFFER_TOO_SMALL;
}

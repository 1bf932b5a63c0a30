#pragma once

#include "clallserial/tcSerialBackend.h"

#include <functional>
#include <map>
#include <mutex>
#include <set>

/// The ports of all back ends under one index, and the ports that are open. Checks what callers
/// hand in, so that back ends need not. Every operation may be called from any thread.
class tcPortTable
{
public:
    /// Ports are listed in the order of the back ends.
    explicit tcPortTable(std::vector<std::unique_ptr<tcSerialBackend>> aBackends);
    ~tcPortTable();

    /// Looks for ports anew; indices refer to the list of the latest call.
    int32_t count(uint32_t* apCount);
    int32_t info(uint32_t anIndex, char* apManufacturer, uint32_t* apManufacturerSize,
                 char* apPortId, uint32_t* apPortIdSize, uint32_t* apVersion);
    int32_t open(uint32_t anIndex, hSerRef* apRef);
    /// Waits until calls of other threads have left the port. Harmless for a wrong reference.
    void close(hSerRef aRef);
    int32_t errorText(const char* acManufacturer, int32_t anStatus, char* apText,
                      uint32_t* apTextSize);

    using tcUse = std::function<int32_t(tcSerialPort&)>;
    /// Hands the open port to acUse and returns what that returns.
    int32_t use(hSerRef aRef, const tcUse& acUse);

private:
    struct tcListed
    {
        size_t backend;
        tcSerialBackend::tcEntry entry;
    };
    struct tcOpenPort;

    void refresh();
    int32_t entryAt(uint32_t anIndex, tcListed& arListed);

    std::vector<std::unique_ptr<tcSerialBackend>> mBackends;
    std::mutex mBackendLock; ///< held while back ends list, open and explain; taken first
    std::mutex mLock;        ///< guards what follows, never held while a driver is called
    bool mRefreshed = false;
    std::vector<tcListed> mList;
    std::map<uintptr_t, std::shared_ptr<tcOpenPort>> mOpen;
    std::set<std::pair<size_t, std::string>> mInUse; ///< back end and key of the open ports
    uintptr_t mNextRef = 1; ///< never used twice, so that a stale reference is recognised
};

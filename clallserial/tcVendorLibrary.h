#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

/// One grabber maker's serial library with its functions. Their names and arguments differ from
/// those of the standard's common library in places; all are cdecl.
///
/// No maker promises that his library may be entered from two threads, so whoever calls one of
/// the functions holds the lock.
struct tcVendorLibrary
{
    /// Null, with the reason on standard error, if the library can't be loaded or lacks a
    /// function that we can't do without.
    static std::shared_ptr<tcVendorLibrary> load(const std::string& acPath);

    /// As reported by the library; its file name if it reports nothing.
    std::string manufacturer;
    uint32_t version = 0;
    std::string fileName;
    void* handle = nullptr; ///< the same for the same library under another name
    std::mutex lock;

    int32_t (*getNumSerialPorts)(uint32_t*) = nullptr;
    int32_t (*serialInit)(uint32_t, void**) = nullptr;
    void (*serialClose)(void*) = nullptr; ///< some return a status that nobody needs
    int32_t (*setBaudRate)(void*, uint32_t) = nullptr;
    int32_t (*getNumBytesAvail)(void*, uint32_t*) = nullptr;
    int32_t (*serialRead)(void*, char*, uint32_t*, uint32_t) = nullptr;
    int32_t (*serialWrite)(void*, char*, uint32_t*, uint32_t) = nullptr;
    int32_t (*getErrorText)(int32_t, char*, uint32_t*) = nullptr;
    // Not in every library:
    int32_t (*getSerialPortIdentifier)(uint32_t, char*, uint32_t*) = nullptr;
    int32_t (*getManufacturerInfo)(char*, uint32_t*, uint32_t*) = nullptr;
    int32_t (*getSupportedBaudRates)(void*, uint32_t*) = nullptr;
    int32_t (*flushPort)(void*) = nullptr;

    /// The port's name in this library; a made-up one if it has none. With the lock held.
    std::string portId(uint32_t anIndex);

private:
    bool resolve(std::string& arMissing);
    void identify();
};

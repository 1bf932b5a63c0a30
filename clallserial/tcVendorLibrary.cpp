#include "clallserial/tcVendorLibrary.h"

#include "camlink/clserial.h"
#include "clallserial/tcDynamicLibrary.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace
{

constexpr uint32_t cNameRoom = 256;
constexpr uint32_t cLongestName = 4096;
constexpr uint32_t cVersion10 = 2; // what a library without its maker's name must be

/// Asks for a text, a second time with more room if need be; false if there is none. Sizes are
/// not trusted: some makers count the NUL, some do not.
template <typename tcAsk>
bool ask(const tcAsk& acAsk, std::string& arText)
{
    uint32_t room = cNameRoom;
    for (int attempt = 0; attempt < 2; ++attempt) {
        std::vector<char> buffer(room + 1, '\0');
        uint32_t size = room;
        const int32_t status = acAsk(buffer.data(), &size);
        if (status == CL_ERR_NO_ERR) {
            arText.assign(buffer.data(), strnlen(buffer.data(), room));
            return true;
        }
        if (status != CL_ERR_BUFFER_TOO_SMALL)
            return false;
        room = std::clamp(size + 1, cNameRoom, cLongestName);
    }
    return false;
}

} // namespace

std::shared_ptr<tcVendorLibrary> tcVendorLibrary::load(const std::string& acPath)
{
    auto library = std::make_shared<tcVendorLibrary>();
    std::string problem;
    library->handle = tcDynamicLibrary::load(acPath, problem);
    if (!library->handle) {
        std::fprintf(stderr, "clallserial: %s can't be loaded: %s\n", acPath.c_str(),
                     problem.c_str());
        return nullptr;
    }
    if (!library->resolve(problem)) {
        std::fprintf(stderr, "clallserial: %s lacks the function %s\n", acPath.c_str(),
                     problem.c_str());
        return nullptr;
    }
    library->fileName = acPath.substr(acPath.find_last_of("/\\") + 1);
    library->identify();
    return library;
}

bool tcVendorLibrary::resolve(std::string& arMissing)
{
    bool complete = true;
    const auto find = [&](auto& arFunction, const char* acName, bool abNeeded) {
        void* address = tcDynamicLibrary::symbol(handle, acName);
        std::memcpy(&arFunction, &address, sizeof address); // no cast from data to function
        if (!address && abNeeded && complete) {
            complete = false;
            arMissing = acName;
        }
    };
    find(getNumSerialPorts, "clGetNumSerialPorts", true);
    find(serialInit, "clSerialInit", true);
    find(serialClose, "clSerialClose", true);
    find(setBaudRate, "clSetBaudRate", true);
    find(getNumBytesAvail, "clGetNumBytesAvail", true);
    find(serialRead, "clSerialRead", true);
    find(serialWrite, "clSerialWrite", true);
    find(getErrorText, "clGetErrorText", true);
    find(getSerialPortIdentifier, "clGetSerialPortIdentifier", false);
    find(getManufacturerInfo, "clGetManufacturerInfo", false);
    find(getSupportedBaudRates, "clGetSupportedBaudRates", false);
    find(flushPort, "clFlushPort", false);
    return complete;
}

void tcVendorLibrary::identify()
{
    const std::lock_guard<std::mutex> guard(lock);
    uint32_t reported = cVersion10;
    const bool named = getManufacturerInfo
        && ask([&](char* apText,
                   uint32_t* apSize) { return getManufacturerInfo(apText, apSize, &reported); },
               manufacturer);
    version = named ? reported : cVersion10;
    if (!named || manufacturer.empty())
        manufacturer = fileName;
}

std::string tcVendorLibrary::portId(uint32_t anIndex)
{
    std::string name;
    const bool named = getSerialPortIdentifier
        && ask(
                           [&](char* apText, uint32_t* apSize) {
                               return getSerialPortIdentifier(anIndex, apText, apSize);
                           },
                           name);
    return named ? name : "Port " + std::to_string(anIndex);
}

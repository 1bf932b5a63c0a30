/// A maker's library for tests: two ports, the first a loop that returns what is written.
/// FAKE_WITHOUT_READ leaves out a function that nobody can do without, FAKE_OLD those that
/// libraries of the first version did not have.

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>

#if defined(_WIN32)
#define FAKE_API __declspec(dllexport)
#else
#define FAKE_API __attribute__((visibility("default")))
#endif

namespace
{

std::deque<char> queued;
bool isOpen = false;
char reference = 0;

int32_t give(const std::string& acText, char* apText, uint32_t* apSize)
{
    const auto needed = static_cast<uint32_t>(acText.size() + 1);
    const bool fits = *apSize >= needed;
    *apSize = needed;
    if (fits)
        std::memcpy(apText, acText.c_str(), needed);
    return fits ? 0 : -10001;
}

} // namespace

extern "C"
{
    FAKE_API int32_t clGetNumBytesAvail(void* apRef, uint32_t* apCount)
    {
        if (apRef != &reference || !isOpen)
            return -10006;
        *apCount = static_cast<uint32_t>(queued.size());
        return 0;
    }

    FAKE_API int32_t clGetNumSerialPorts(uint32_t* apCount)
    {
        *apCount = 2;
        return 0;
    }

    FAKE_API int32_t clSerialInit(uint32_t anIndex, void** apRef)
    {
        if (anIndex == 1)
            return -11000;
        isOpen = true;
        *apRef = &reference;
        return 0;
    }

    FAKE_API int32_t clSerialClose(void*) // a maker who returns a status
    {
        isOpen = false;
        queued.clear();
        return 0;
    }

    FAKE_API int32_t clSetBaudRate(void* apRef, uint32_t anCode)
    {
        // Through its own function, as libraries do: it must not end up in another's.
        uint32_t count = 0;
        if (const int32_t status = clGetNumBytesAvail(apRef, &count))
            return status;
        return anCode == 16 ? 0 : -10008;
    }

#if !defined(FAKE_WITHOUT_READ)
    /// Strict: too little is left alone, the size as it was.
    FAKE_API int32_t clSerialRead(void*, char* apBuffer, uint32_t* apSize, uint32_t)
    {
        if (queued.size() < *apSize)
            return -10004;
        for (uint32_t at = 0; at < *apSize; ++at) {
            apBuffer[at] = queued.front();
            queued.pop_front();
        }
        return 0;
    }
#endif

    FAKE_API int32_t clSerialWrite(void*, char* apBuffer, uint32_t* apSize, uint32_t)
    {
        queued.insert(queued.end(), apBuffer, apBuffer + *apSize);
        return 0;
    }

    FAKE_API int32_t clGetErrorText(int32_t anStatus, char* apText, uint32_t* apSize)
    {
        return anStatus == -11000 ? give("the maker's own words", apText, apSize) : -10007;
    }

#if !defined(FAKE_OLD)
    FAKE_API int32_t clGetSerialPortIdentifier(uint32_t anIndex, char* apText, uint32_t* apSize)
    {
        return give(anIndex == 0 ? "Port A" : std::string(300, 'B'), apText, apSize);
    }

    FAKE_API int32_t clGetManufacturerInfo(char* apText, uint32_t* apSize, uint32_t* apVersion)
    {
        *apVersion = 3;
        return give("Fake Grabbers", apText, apSize);
    }

    FAKE_API int32_t clGetSupportedBaudRates(void*, uint32_t* apCodes)
    {
        *apCodes = 16;
        return 0;
    }

    FAKE_API int32_t clFlushPort(void*)
    {
        queued.clear();
        return 0;
    }
#endif
}

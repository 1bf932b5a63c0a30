#include "clallserial/tcVendorBackend.h"

#include "clallserial/tcDynamicLibrary.h"
#include "clallserial/tcVendorLibrary.h"
#include "sim/camera/tcWireText.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <thread>

namespace
{

constexpr uint32_t cMaxPorts = 256; // a library that claims more is mistaken
constexpr uint32_t cErrorTextRoom = 4096;
constexpr uint32_t cStandardBaudCodes = 0x1F; // 9600 to 115200, where nothing is said
constexpr auto cPollPause = std::chrono::milliseconds(2);

class tcVendorPort : public tcSerialPort
{
public:
    tcVendorPort(std::shared_ptr<tcVendorLibrary> aLibrary, void* apRef)
        : mLibrary(std::move(aLibrary)), mRef(apRef)
    {
    }

    ~tcVendorPort() override
    {
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        mLibrary->serialClose(mRef);
    }

    int32_t setBaudRate(uint32_t anBaudCode) override
    {
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        return mLibrary->setBaudRate(mRef, anBaudCode);
    }

    int32_t supportedBaudRates(uint32_t& arCodes) override
    {
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        if (mLibrary->getSupportedBaudRates)
            return mLibrary->getSupportedBaudRates(mRef, &arCodes);
        arCodes = cStandardBaudCodes;
        return CL_ERR_NO_ERR;
    }

    int32_t available(uint32_t& arCount) override
    {
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        return mLibrary->getNumBytesAvail(mRef, &arCount);
    }

    int32_t read(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) override
    {
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        return mLibrary->serialRead(mRef, apBuffer, &arSize, anTimeoutMs);
    }

    int32_t readPartial(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) override;

    int32_t write(const char* acBytes, uint32_t& arSize, uint32_t anTimeoutMs) override
    {
        std::string copy(acBytes, arSize); // the maker asks for a buffer that is not constant
        const std::lock_guard<std::mutex> guard(mLibrary->lock);
        return mLibrary->serialWrite(mRef, copy.data(), &arSize, anTimeoutMs);
    }

    int32_t flush() override;
    void interrupt() override { } // no maker's library offers it

private:
    std::shared_ptr<tcVendorLibrary> mLibrary;
    void* mRef;
};

/// From the count and exact reads, since makers' time-outs differ.
int32_t tcVendorPort::readPartial(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs)
{
    const auto deadline
        = std::chrono::steady_clock::now() + std::chrono::milliseconds(anTimeoutMs);
    for (;;) {
        uint32_t count = 0;
        if (const int32_t status = available(count))
            return status;
        const bool late = std::chrono::steady_clock::now() >= deadline;
        if (count >= arSize || late) {
            const uint32_t wanted = arSize;
            arSize = std::min(count, wanted);
            const int32_t status = arSize == 0 ? CL_ERR_NO_ERR : read(apBuffer, arSize, 0);
            return status == CL_ERR_NO_ERR && arSize < wanted ? CL_ERR_TIMEOUT : status;
        }
        std::this_thread::sleep_for(cPollPause);
    }
}

int32_t tcVendorPort::flush()
{
    const std::lock_guard<std::mutex> guard(mLibrary->lock);
    return mLibrary->flushPort ? mLibrary->flushPort(mRef) : CL_ERR_FUNCTION_NOT_FOUND;
}

} // namespace

std::string tcVendorBackend::standardDirectory(const std::string& acOwnDirectory)
{
    const std::string registered = tcDynamicLibrary::registeredDirectory();
    return registered.empty() ? acOwnDirectory : registered;
}

bool tcVendorBackend::isLibraryName(const std::string& acFileName)
{
#if defined(_WIN32)
    const std::string suffix = ".dll";
#else
    const std::string suffix = ".so";
#endif
    std::string name = acFileName;
    for (char& letter : name)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    if (name.compare(0, 3, "lib") == 0)
        name.erase(0, 3);
    const std::string prefix = "clser";
    constexpr size_t cMakersLetters = 3;
    return name.size() == prefix.size() + cMakersLetters + suffix.size()
        && name.compare(0, prefix.size(), prefix) == 0
        && name.compare(prefix.size() + cMakersLetters, suffix.size(), suffix) == 0;
}

tcVendorBackend::tcVendorBackend(const std::string& acDirectory)
{
    namespace fs = std::filesystem;
    std::vector<std::string> paths;
    std::error_code error;
    for (fs::directory_iterator entry(acDirectory, error), end; !error && entry != end;
         entry.increment(error)) {
        if (isLibraryName(entry->path().filename().string()))
            paths.push_back(entry->path().string());
    }
    std::sort(paths.begin(), paths.end());
    for (const std::string& path : paths) {
        const auto library = tcVendorLibrary::load(path);
        const auto same
            = [&](const auto& acOther) { return acOther->handle == library->handle; };
        // A maker may put links with several names to one library.
        if (library && std::none_of(mLibraries.begin(), mLibraries.end(), same))
            mLibraries.push_back(library);
    }
}

tcVendorBackend::~tcVendorBackend() = default;

std::vector<tcSerialBackend::tcEntry> tcVendorBackend::ports()
{
    std::vector<tcEntry> entries;
    for (size_t at = 0; at < mLibraries.size(); ++at) {
        tcVendorLibrary& library = *mLibraries[at];
        const std::lock_guard<std::mutex> guard(library.lock);
        uint32_t count = 0;
        if (library.getNumSerialPorts(&count) != CL_ERR_NO_ERR || count > cMaxPorts)
            continue;
        for (uint32_t index = 0; index < count; ++index)
            entries.push_back({library.manufacturer, library.portId(index), library.version,
                               std::to_string(at) + ' ' + std::to_string(index)});
    }
    return entries;
}

std::unique_ptr<tcSerialPort> tcVendorBackend::open(const std::string& acKey, int32_t& arStatus)
{
    arStatus = CL_ERR_INVALID_INDEX;
    const size_t blank = acKey.find(' ');
    const auto library = tcWireText::integer(acKey.substr(0, blank));
    const auto index = tcWireText::integer(acKey.substr(blank + 1));
    if (!library || !index || static_cast<size_t>(*library) >= mLibraries.size())
        return nullptr;
    const auto& owner = mLibraries[static_cast<size_t>(*library)];
    void* ref = nullptr;
    {
        const std::lock_guard<std::mutex> guard(owner->lock);
        arStatus = owner->serialInit(static_cast<uint32_t>(*index), &ref);
    }
    if (arStatus != CL_ERR_NO_ERR)
        return nullptr;
    return std::make_unique<tcVendorPort>(owner, ref);
}

int32_t tcVendorBackend::errorText(const std::string& acManufacturer, int32_t anStatus,
                                   std::string& arText)
{
    int32_t result = CL_ERR_MANU_DOES_NOT_EXIST;
    for (const auto& library : mLibraries) {
        if (library->manufacturer != acManufacturer)
            continue;
        std::vector<char> text(cErrorTextRoom + 1, '\0');
        uint32_t size = cErrorTextRoom;
        const std::lock_guard<std::mutex> guard(library->lock);
        if (library->getErrorText(anStatus, text.data(), &size) == CL_ERR_NO_ERR) {
            arText = text.data();
            return CL_ERR_NO_ERR;
        }
        result = CL_ERR_ERROR_NOT_FOUND;
    }
    return result;
}

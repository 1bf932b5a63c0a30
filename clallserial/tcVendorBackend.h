#pragma once

#include "clallserial/tcSerialBackend.h"

struct tcVendorLibrary;

/// The ports of the grabber makers' own libraries, loaded once.
class tcVendorBackend : public tcSerialBackend
{
public:
    /// Loads every maker's library of the directory, in the order of the file names.
    explicit tcVendorBackend(const std::string& acDirectory);
    ~tcVendorBackend() override;

    /// The directory that the registry names, else the library's own.
    static std::string standardDirectory(const std::string& acOwnDirectory);
    /// A maker's library: "clser" and three letters of his, however they are written; systems
    /// with the habit put "lib" in front.
    static bool isLibraryName(const std::string& acFileName);

    size_t libraries() const { return mLibraries.size(); }

    std::vector<tcEntry> ports() override;
    std::unique_ptr<tcSerialPort> open(const std::string& acKey, int32_t& arStatus) override;
    int32_t errorText(const std::string& acManufacturer, int32_t anStatus,
                      std::string& arText) override;

private:
    std::vector<std::shared_ptr<tcVendorLibrary>> mLibraries;
};

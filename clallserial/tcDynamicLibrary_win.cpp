#include "clallserial/tcDynamicLibrary.h"

#include <windows.h>

#include <array>

namespace tcDynamicLibrary
{

void* load(const std::string& acPath, std::string& arError)
{
    // With the library's own directory searched, where its maker puts what it needs.
    HMODULE library = LoadLibraryExA(acPath.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!library)
        arError = "error " + std::to_string(GetLastError());
    return library;
}

void* symbol(void* apLibrary, const char* acName)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(apLibrary), acName));
}

/// The view of the registry follows the program's own width, and so do the libraries in there.
std::string registeredDirectory()
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\cameralink", 0, KEY_READ, &key)
        != ERROR_SUCCESS)
        return {};
    std::array<char, 1024> path{};
    auto size = static_cast<DWORD>(path.size() - 1); // a stored text may lack its NUL
    DWORD type = 0;
    const LSTATUS status = RegQueryValueExA(key, "CLSERIALPATH", nullptr, &type,
                                            reinterpret_cast<LPBYTE>(path.data()), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ))
        return {};
    if (type == REG_SZ)
        return path.data();
    std::array<char, 1024> expanded{};
    const DWORD length = ExpandEnvironmentStringsA(path.data(), expanded.data(),
                                                   static_cast<DWORD>(expanded.size()));
    return length > 0 && length <= expanded.size() ? expanded.data() : "";
}

} // namespace tcDynamicLibrary

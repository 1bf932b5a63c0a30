#include "clallserial/tcOwnDirectory.h"

#include <windows.h>

#include <array>

std::string tcOwnDirectory()
{
    constexpr DWORD cFlags
        = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    if (!GetModuleHandleExA(cFlags, reinterpret_cast<LPCSTR>(&tcOwnDirectory), &module))
        return {};
    std::array<char, 1024> path{};
    const DWORD length
        = GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size())
        return {};
    const std::string text(path.data(), length);
    const size_t slash = text.find_last_of("\\/");
    return slash == std::string::npos ? "." : text.substr(0, slash);
}

#include "clallserial/tcOwnDirectory.h"

#include <dlfcn.h>

std::string tcOwnDirectory()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&tcOwnDirectory), &info) == 0 || !info.dli_fname)
        return {};
    const std::string path = info.dli_fname;
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

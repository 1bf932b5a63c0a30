#include "clallserial/tcDynamicLibrary.h"

#include <dlfcn.h>

namespace tcDynamicLibrary
{

void* load(const std::string& acPath, std::string& arError)
{
    int flags = RTLD_NOW | RTLD_LOCAL;
#if defined(RTLD_DEEPBIND) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // A maker's library that calls its own clSerialInit means its own, not ours of that name.
    // The sanitizers' runtimes do not allow for it.
    flags |= RTLD_DEEPBIND;
#endif
    void* library = dlopen(acPath.c_str(), flags);
    if (!library) {
        const char* error = dlerror();
        arError = error ? error : "unknown reason";
    }
    return library;
}

void* symbol(void* apLibrary, const char* acName)
{
    return dlsym(apLibrary, acName);
}

std::string registeredDirectory()
{
    return {};
}

} // namespace tcDynamicLibrary

#pragma once

#include <string>

/// Libraries loaded at run time. They stay loaded until the process ends: a driver may have
/// threads of its own that must not lose their code.
namespace tcDynamicLibrary
{

/// Null if it can't be loaded; arError then says why. The same library twice gives the same
/// handle.
void* load(const std::string& acPath, std::string& arError);

/// Null if there is no such function.
void* symbol(void* apLibrary, const char* acName);

/// Directory of the makers' libraries where the system's registry names one; else empty.
std::string registeredDirectory();

} // namespace tcDynamicLibrary

#pragma once

#include <string>

/// Directory of the library or program that this code was linked into, without a trailing
/// separator; empty if the system does not tell.
std::string tcOwnDirectory();

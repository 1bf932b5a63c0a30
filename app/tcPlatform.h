#pragma once

/// What the operating systems want done differently at the program's start.
namespace tcPlatform
{

/// From here on no library that is loaded by its name comes from the directory that the program
/// was started in, where a stranger may have put one. Directories of the path still count: the
/// thermocouple logger's driver may be there.
void hardenLibrarySearch();

} // namespace tcPlatform

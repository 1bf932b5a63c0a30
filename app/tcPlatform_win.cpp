#include "app/tcPlatform.h"

#include <windows.h>

void tcPlatform::hardenLibrarySearch()
{
    // Any directory named here takes the working directory's place in the search. Windows' own
    // is searched anyway, so nothing else changes, neither here nor in programs that open a
    // file for us and that inherit it. An empty name would say the same, but not to every
    // Windows.
    wchar_t folder[MAX_PATH + 1] = {};
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    SetDllDirectoryW(length > 0 && length < MAX_PATH ? folder : L"");
}

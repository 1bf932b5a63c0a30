#include "app/tcPlatform.h"

void tcPlatform::hardenLibrarySearch()
{
    // The loader never looks into the working directory unless its configuration says so.
}

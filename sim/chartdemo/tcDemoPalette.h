#pragma once

#include <QString>

/// Desktop looks to try a window in, whatever the desktop's own is.
namespace tcDemoPalette
{
/// "light" or "dark"; anything else leaves the desktop's look. Returns false for a name that is
/// none of these and not empty.
bool apply(const QString& acName);
} // namespace tcDemoPalette

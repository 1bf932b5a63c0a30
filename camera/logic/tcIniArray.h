#pragma once

#include <QSettings>

#include <vector>

/// Arrays of the settings library whose announced size nobody can trust.
namespace tcIniArray
{

/// Numbers, ascending and from 1, of the entries that are really there among the first anSize
/// in the settings' current group; so a size that lies costs neither time nor memory.
std::vector<int> entryNumbers(const QSettings& acSettings, int anSize);

} // namespace tcIniArray

#pragma once

#include <QString>

/// What build of the program this is.
namespace tcVersion
{

// The numbers stand in the project's CMakeLists.txt, for packages and resources as well.
constexpr int cMajor = TARVIK_VERSION_MAJOR;
constexpr int cMinor = TARVIK_VERSION_MINOR;
constexpr int cPatch = TARVIK_VERSION_PATCH;
constexpr int cBuild = TARVIK_VERSION_BUILD;

/// "1.5.0"; detailed, with the build number and the revision behind it.
QString text(bool abDetailed);

/// Name of the version control system, all 40 digits of the revision.
QString vcsKind();
QString revision();
/// The revision's first eight digits, a blank, and the subject of its commit.
const QString& vcsDescription();
/// Weekday, month, day, time and year of the build, in English, UTC.
QString buildDate();

} // namespace tcVersion

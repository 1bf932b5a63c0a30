#pragma once

#include <QString>

/// What build of the program this is.
namespace tcVersion
{

constexpr int cMajor = 1;
constexpr int cMinor = 5;
constexpr int cPatch = 0;
constexpr int cBuild = 17;

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

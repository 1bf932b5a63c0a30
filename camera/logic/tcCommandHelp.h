#pragma once

#include <QStringList>

#include <array>

/// One line about each command that the operator may type.
namespace tcCommandHelp
{

struct tcRow
{
    const char* syntax;
    const char* description; ///< for translation, in the context tcVexaK40
};

extern const std::array<tcRow, 37> cRows;

/// Syntax, one or two tabs and the translated description, so that descriptions stand below
/// each other with tab stops of eight characters.
QString entry(const tcRow& acRow);
QStringList entries();

} // namespace tcCommandHelp

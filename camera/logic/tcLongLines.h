#pragma once

#include <QString>

/// Keeps the views alive when a camera sends no line ends: the text engine's time grows with
/// the square of a line's length.
namespace tcLongLines
{

constexpr int cMaxLine = 10000; ///< characters; no real reply comes near

/// The text with a line feed wherever a line would exceed cMaxLine; anColumn characters stand
/// before it in its first line.
QString broken(const QString& acText, int anColumn = 0);

} // namespace tcLongLines

#pragma once

#include <QByteArray>

/// Numbers as chart files spell them, to and from plain bytes.
///
/// The common forms go through integers, some fifteen times as fast as strings; whatever is not
/// common goes through Qt, and both ways agree in every byte and bit.
namespace tcNumberText
{

/// No number is longer than this.
constexpr int cLongest = 400;

/// Both write at apOut, which has room for cLongest bytes, and return the end.
char* writeInteger(char* apOut, qint64 anNumber);
/// The bytes of QString::number(anNumber, 'f', 3): exact ties round away from zero, and minus
/// zero has no sign.
char* writeFixed3(char* apOut, double anNumber);

/// Reads digits, with a sign before and a fraction behind them where they come. Returns where
/// it stopped, null when the number is none of these or too long to be exact; the text must end
/// with anything but a digit.
const char* scanInteger(const char* apText, qint64& arNumber);
const char* scanDecimal(const char* apText, double& arNumber);

/// What Qt reads in the text: blanks around the number, a plus sign, exponents, "nan", "inf".
/// False when it is no number or beyond the range of its kind.
bool parseInteger(const QByteArray& acText, qint64& arNumber);
bool parseDecimal(const QByteArray& acText, double& arNumber);

} // namespace tcNumberText

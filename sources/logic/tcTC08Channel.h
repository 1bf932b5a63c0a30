#pragma once

#include <QStringList>

/// The channels of a thermocouple logger: 0 is the cold junction, 1 to 8 are the inputs.
namespace tcTC08Channel
{

constexpr int cCount = 9;
constexpr int cFirstInput = 1;
constexpr int cLastInput = 8;

/// "CH1" to "CH8".
QStringList inputNames();
/// The number behind the first two characters of the name; 0 where there is none.
qint32 number(const QString& acName);
bool isInput(qint32 anChannel);
/// The flag of a channel is the bit of its number.
bool overflowed(qint16 anFlags, int anChannel);

} // namespace tcTC08Channel

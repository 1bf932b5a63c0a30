#pragma once

#include <QDateTime>

/// How long a camera that is asked every second may keep silent.
namespace tcSilence
{

constexpr qint64 cMaxSeconds = 5;

/// More than five whole seconds since the last data. Never before the first data, for which
/// the time is invalid.
bool isSilent(const QDateTime& acLastRx, const QDateTime& acNow);

} // namespace tcSilence

#pragma once

#include <QString>

#include <optional>

/// Date-time texts in chart files.
namespace tcTimeText
{

/// Milliseconds since the epoch of an ISO 8601 text with "T" or a blank between date and time,
/// with or without fraction and zone; nothing when it is none. Without a zone it is local time,
/// and a time in the hour that a clock change skips is read as standard time.
std::optional<qint64> parse(const QString& acText);

} // namespace tcTimeText

#pragma once

#include <QByteArray>
#include <QString>

/// Bytes as the hex view shows them.
namespace tcHexDump
{

/// Sixteen bytes a row: offset in eight hex digits, the bytes in lower-case hex, the printable
/// ASCII characters with a dot for any other byte, a line feed after every row. Nothing for no
/// bytes.
///
/// As designed: the offset is cut to its low byte, so the column starts anew every 256 bytes.
QString text(const char* apBytes, int anLength);
QString text(const QByteArray& acBytes);

} // namespace tcHexDump

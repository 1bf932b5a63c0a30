#pragma once

#include <QByteArray>
#include <QString>

/// Commands as the operator types them and as they go over the line.
namespace tcCommand
{

/// With the angle brackets that the operator left out; an empty text stays empty.
QString completed(const QString& acText);

/// Room for one command, its line feed and the NUL behind it.
constexpr int cBufferSize = 128;

/// The command in the local 8-bit encoding and a line feed. Ends before a NUL; what does not
/// fit the buffer is cut, so at most 126 bytes precede the line feed.
QByteArray wireForm(const QString& acCommand);

} // namespace tcCommand

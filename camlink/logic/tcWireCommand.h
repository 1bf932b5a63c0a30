#pragma once

#include <QByteArray>
#include <QString>

/// A command as it travels: the text in the local 8-bit encoding and one line feed.
namespace tcWireCommand
{

/// Cameras take a command from a buffer of 128 bytes that ends in a line feed and a NUL, so
/// that of a longer command only this much is sent; without its line feed the camera would wait
/// on.
constexpr int cBufferSize = 128;
constexpr int cMaxCommand = cBufferSize - 2;

QByteArray bytes(const QString& acCommand);

} // namespace tcWireCommand

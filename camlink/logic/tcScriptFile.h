#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Files of commands that are sent as they are.
namespace tcScriptFile
{

constexpr qint64 cMaxBytes = 64 * 1024 * 1024; ///< more is no script

/// The file's bytes up to its first NUL, read as text. Nothing, with a line in the log, where
/// it can't be read, is no file that ends, or is longer than a script can be.
std::optional<QByteArray> read(const QString& acFileName);

} // namespace tcScriptFile

#pragma once

class QFileDevice;
class QString;

/// The one place where files meet the operating system itself.
namespace tcFileSync
{

/// Waits until what was written is on the disk, not merely with the system. True also where
/// there is no disk behind the file, as with a pipe; false when the disk refused.
bool toDisk(QFileDevice& arFile);

/// Whether the open file is the one that its name leads to: false once it was deleted, moved or
/// replaced, when what is written to it gets nowhere. Systems that lock open files say true.
bool isInPlace(const QFileDevice& acFile);

/// Whether the path leads to a pipe, a device or the like. Opening a pipe waits until somebody
/// opens its other end, and a device may take or give nothing for ever; so neither is touched.
bool mayHang(const QString& acPath);

} // namespace tcFileSync

#pragma once

class QFileDevice;

/// The one place where files meet the operating system itself.
namespace tcFileSync
{

/// Waits until what was written is on the disk, not merely with the system. True also where
/// there is no disk behind the file, as with a pipe; false when the disk refused.
bool toDisk(QFileDevice& arFile);

} // namespace tcFileSync

#include "widgets/tcFileSync.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <io.h>
#include <qt_windows.h>
#else
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif

bool tcFileSync::toDisk(QFileDevice& arFile)
{
    if (!arFile.flush())
        return false;
    const int handle = arFile.handle();
    if (handle == -1)
        return false;
#ifdef Q_OS_WIN
    const auto file = reinterpret_cast<HANDLE>(_get_osfhandle(handle));
    return GetFileType(file) != FILE_TYPE_DISK || FlushFileBuffers(file);
#else
    int result = 0;
    do {
        result = fsync(handle);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
#endif
}

bool tcFileSync::isInPlace(const QFileDevice& acFile)
{
#ifdef Q_OS_WIN
    return acFile.isOpen();
#else
    struct stat open = {};
    struct stat named = {};
    if (fstat(acFile.handle(), &open) != 0)
        return false;
    if (stat(QFile::encodeName(acFile.fileName()).constData(), &named) != 0)
        return errno != ENOENT && errno != ENOTDIR; // there, as far as one can tell
    return open.st_dev == named.st_dev && open.st_ino == named.st_ino;
#endif
}

bool tcFileSync::mayHang(const QString& acPath)
{
    const QFileInfo there(acPath);
    return there.exists() && !there.isFile() && !there.isDir();
}

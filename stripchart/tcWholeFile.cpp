#include "stripchart/tcWholeFile.h"

#include "stripchart/tcFileSync.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

tcWholeFile::tcWholeFile(const QString& acPath)
{
    const QFileInfo there(acPath);
    if (there.exists() && !there.isFile()) {
        mFile = std::make_unique<QFile>(acPath);
        return;
    }
    auto file = std::make_unique<QSaveFile>(acPath);
    file->setDirectWriteFallback(true);
    mFile = std::move(file);
}

tcWholeFile::~tcWholeFile() = default;

bool tcWholeFile::open()
{
    // Whoever writes here has a large buffer already, and an unbuffered write tells its failure
    // at once.
    return mFile->open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool tcWholeFile::commit()
{
    const bool onDisk = mFile->error() == QFileDevice::NoError && tcFileSync::toDisk(*mFile);
    auto* replacing = qobject_cast<QSaveFile*>(mFile.get());
    if (!replacing) {
        mFile->close();
        return onDisk && mFile->error() == QFileDevice::NoError;
    }
    if (!onDisk)
        replacing->cancelWriting();
    return replacing->commit() && onDisk;
}

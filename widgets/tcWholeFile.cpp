#include "widgets/tcWholeFile.h"

#include "widgets/tcFileSync.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <chrono>
#include <future>

namespace
{

constexpr std::chrono::milliseconds cMeanwhile{20};

} // namespace

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

bool tcWholeFile::commit(const std::function<void()>& acMeanwhile)
{
    bool onDisk = mFile->error() == QFileDevice::NoError;
    if (onDisk && acMeanwhile) {
        auto sync
            = std::async(std::launch::async, [this] { return tcFileSync::toDisk(*mFile); });
        while (sync.wait_for(cMeanwhile) != std::future_status::ready)
            acMeanwhile();
        onDisk = sync.get();
    } else if (onDisk) {
        onDisk = tcFileSync::toDisk(*mFile);
    }
    auto* replacing = qobject_cast<QSaveFile*>(mFile.get());
    if (!replacing) {
        mFile->close();
        return onDisk && mFile->error() == QFileDevice::NoError;
    }
    if (!onDisk)
        replacing->cancelWriting();
    return replacing->commit() && onDisk;
}

#include "widgets/tcWholeFile.h"

#include "widgets/tcFileSync.h"

#include <chrono>
#include <future>

namespace
{

constexpr std::chrono::milliseconds cMeanwhile{20};

} // namespace

tcWholeFile::tcWholeFile(const QString& acPath) : mFile(acPath)
{
    mFile.setDirectWriteFallback(true);
}

bool tcWholeFile::open()
{
    // Whoever writes here has a large buffer already, and an unbuffered write tells its failure
    // at once.
    return !tcFileSync::mayHang(mFile.fileName())
        && mFile.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool tcWholeFile::commit(const std::function<void()>& acMeanwhile)
{
    bool onDisk = mFile.error() == QFileDevice::NoError;
    if (onDisk && acMeanwhile) {
        auto sync
            = std::async(std::launch::async, [this] { return tcFileSync::toDisk(mFile); });
        while (sync.wait_for(cMeanwhile) != std::future_status::ready)
            acMeanwhile();
        onDisk = sync.get();
    } else if (onDisk) {
        onDisk = tcFileSync::toDisk(mFile);
    }
    if (!onDisk)
        mFile.cancelWriting();
    return mFile.commit() && onDisk;
}

#include "stripchart/tcLogFile.h"

#include "widgets/tcFileSync.h"

#include <QDebug>

namespace
{

bool endsInTheMiddleOfALine(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return false;
    return file.seek(file.size() - 1) && file.read(1) != "\n";
}

} // namespace

tcLogFile::tcLogFile(const QString& acPath) : mFile(acPath) { }

bool tcLogFile::open()
{
    mRefused = tcFileSync::mayHang(mFile.fileName());
    if (mRefused
        || !mFile.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    mTorn = endsInTheMiddleOfALine(mFile.fileName());
    return true;
}

tcLogFile::tePlace tcLogFile::find()
{
    if (mFile.isOpen() && tcFileSync::isInPlace(mFile))
        return tePlace::Same;
    mFile.close();
    if (!open())
        return tePlace::Gone;
    qWarning() << mFile.fileName() << "was gone and is opened anew";
    return tePlace::Another;
}

void tcLogFile::putFirst(const QByteArray& acLine)
{
    if (mFile.size() == 0 && !mWaiting.isEmpty())
        mWaiting.prepend(acLine);
}

QString tcLogFile::errorString() const
{
    return mRefused ? QStringLiteral("not a regular file") : mFile.errorString();
}

bool tcLogFile::isEmpty() const
{
    return mWaiting.isEmpty() && mFile.size() == 0;
}

bool tcLogFile::write(const QByteArray& acLines, qint64 anNow)
{
    if (mTorn && !acLines.isEmpty()) {
        mWaiting += '\n';
        mTorn = false;
    }
    mWaiting += acLines;
    const bool handed = handOver();
    return sync(anNow) && handed;
}

bool tcLogFile::handOver()
{
    if (mWaiting.isEmpty())
        return true;
    const qint64 start = mFile.size();
    mFile.seek(start); // not every system finds the end anew before each write
    const qint64 count = mFile.write(mWaiting);
    mUnsynced = mUnsynced || count != 0;
    if (count == mWaiting.size()) {
        mWaiting.clear();
        return true;
    }
    takeBackTornLine(start);
    return false;
}

void tcLogFile::takeBackTornLine(qint64 anStart)
{
    // A write that failed half way may return less than what got into the file.
    const qint64 there = qBound<qint64>(0, mFile.size() - anStart, mWaiting.size());
    const qint64 whole = there == 0 ? 0 : mWaiting.lastIndexOf('\n', int(there) - 1) + 1;
    // Cutting works on a full disk. Where it does not, the rest follows where it stopped, which
    // makes the line whole as well.
    const bool cut = whole == there || mFile.resize(anStart + whole);
    mWaiting.remove(0, int(cut ? whole : there));
}

bool tcLogFile::sync(qint64 anNow)
{
    const qint64 since = anNow - mSyncedAt;
    // The clock may have been set back meanwhile.
    if (!mUnsynced || (since >= 0 && since < cSyncIntervalMs))
        return true;
    if (!tcFileSync::toDisk(mFile))
        return false;
    mUnsynced = false;
    mSyncedAt = anNow;
    return true;
}

bool tcLogFile::close()
{
    if (!mFile.isOpen()) // it was gone; whatever came since was not written
        return false;
    const bool handed = handOver();
    const bool synced = !mUnsynced || tcFileSync::toDisk(mFile);
    mFile.close();
    return handed && synced;
}

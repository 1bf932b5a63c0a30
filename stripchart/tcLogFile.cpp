#include "stripchart/tcLogFile.h"

#include "widgets/tcFileSync.h"

#include <QDebug>

namespace
{

constexpr qint64 cLongestTail = 512; ///< more than any number takes

/// Whether a value of three decimals, as logs have them, was cut short.
bool isCutValue(const QByteArray& acText)
{
    if (acText.isEmpty() || acText == "nan" || acText == "inf" || acText == "-inf")
        return false;
    return acText.size() < 5 || acText.at(acText.size() - 4) != '.';
}

/// What makes the rest of a line that was torn a line of its own, and a value that was cut
/// short no number: "2" of 2470.750 would be a reading that nobody took.
QByteArray endOfTornLine(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return {};
    file.seek(qMax<qint64>(0, file.size() - cLongestTail));
    const QByteArray tail = file.read(cLongestTail);
    if (tail.endsWith('\n'))
        return {};
    file.seek(0);
    while (!file.atEnd() && !file.readLine(cLongestTail).endsWith('\n')) { }
    const bool header = file.atEnd();
    const int comma = tail.lastIndexOf(',');
    const bool value = !header && comma > tail.lastIndexOf('\n');
    return value && isCutValue(tail.mid(comma + 1)) ? "?\n" : "\n";
}

} // namespace

tcLogFile::tcLogFile(const QString& acPath) : mFile(acPath) { }

bool tcLogFile::open()
{
    mRefused = tcFileSync::mayHang(mFile.fileName());
    if (mRefused
        || !mFile.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    mMending = endOfTornLine(mFile.fileName());
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
    mWaiting += acLines;
    if (!mWaiting.isEmpty()) {
        mWaiting.prepend(mMending); // also before lines that waited for another file
        mMending.clear();
    }
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

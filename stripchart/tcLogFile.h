#pragma once

#include <QFile>

/// A file that lines are added to for days. Each line gets there once, whatever fails on the
/// way: what the disk refuses is kept and offered again, a line that was cut short is taken
/// back first, and a last line torn by an earlier end is left alone on a line of its own, with
/// a question mark behind a value that was cut short.
class tcLogFile
{
public:
    static constexpr qint64 cSyncIntervalMs = 60000;

    explicit tcLogFile(const QString& acPath);

    /// Appends to what is there. A pipe or a device won't open: it could hold its writer for
    /// ever.
    bool open();
    QString fileName() const { return mFile.fileName(); }
    QString errorString() const;

    enum class tePlace
    {
        Same,
        Another, ///< it was opened anew, since the old one was deleted, moved or replaced
        Gone     ///< and that did not work
    };
    /// To be called before each write: what goes into a file that is gone is lost, and the
    /// system reports no error.
    tePlace find();
    /// A line that belongs before those that wait for a file that is empty.
    void putFirst(const QByteArray& acLine);

    /// Nothing is in the file, and nothing waits to get there.
    bool isEmpty() const;

    /// Adds whole lines, handing them to the system at once, and to the disk once a minute by
    /// acNow (ms of a clock that may step). False while something waits or the disk refuses.
    bool write(const QByteArray& acLines, qint64 anNow);
    /// The last chance for what waits; false when it is lost.
    bool close();

    qint64 waiting() const { return mWaiting.size(); } ///< bytes

private:
    bool handOver();
    void takeBackTornLine(qint64 anStart);
    bool sync(qint64 anNow);

    QFile mFile;
    QByteArray mWaiting;
    qint64 mSyncedAt = 0;
    bool mRefused = false; ///< as something that is no file
    QByteArray mMending;   ///< what comes before the next lines
    bool mUnsynced = false;
};

#pragma once

#include <QScopedPointer>
#include <QTextDecoder>

#include <vector>

class QIODevice;

/// A window on a device's text: bytes in an encoding that leaves ASCII as it is, whatever byte
/// order mark the device begins with. Not thread-safe.
class tcCsvBuffer
{
public:
    static constexpr int cInitialBytes = 128 * 1024;

    /// Reads nothing yet. The device is not owned.
    explicit tcCsvBuffer(QIODevice& arDevice);

    /// Reads on behind what is there already; the room grows to anMaxBytes before false says
    /// that it is full. Also false at the end.
    bool fill(size_t anMaxBytes = cInitialBytes);
    /// Ends the text with a line feed, whether or not it had one.
    void terminate();

    const char* begin() const { return mBytes.data() + mBegin; }
    const char* end() const { return mBytes.data() + mEnd; }
    size_t size() const { return mEnd - mBegin; }
    void consume(const char* acpUpTo);

    bool atEnd() const { return mAtEnd; }
    bool failed() const { return mFailed; } ///< the device refused to go on
    qint64 bytesRead() const { return mBytesRead; }
    /// By a mark or, without one, as the desktop's texts are.
    QString decode(const QByteArray& acBytes) const;

private:
    void start();
    qint64 read(char* apTo, qint64 anMax);

    QIODevice& mDevice;                    ///< not owned
    QScopedPointer<QTextDecoder> mDecoder; ///< only where the text must be turned into UTF-8
    std::vector<char> mBytes;
    size_t mBegin = 0;
    size_t mEnd = 0;
    bool mStarted = false;
    bool mUnicode = false;
    bool mAtEnd = false;
    bool mFailed = false;
    qint64 mBytesRead = 0;
};

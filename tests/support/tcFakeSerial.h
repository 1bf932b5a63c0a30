#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QVector>

#include <functional>
#include <optional>

/// A scripted Camera Link serial library: link it in place of the real one. It records every
/// call, injects any status, serves received bytes in chosen portions, and notes each misuse.
///
/// One per process, as the library itself; reset() before each test.
class tcFakeSerial
{
public:
    struct tcPort
    {
        QByteArray
            manufacturer; ///< copied as it is, cut at 50 bytes, without NUL if it fills them
        QByteArray portId;
        qint32 status = 0;            ///< of clGetPortInfo
        bool namesAllTheSame = false; ///< a call that fails hands over the names nevertheless
    };
    struct tcCall
    {
        QByteArray function;
        quintptr ref = 0;
        quint32 number = 0;     ///< port index, baud code, size asked for, or 0
        quint32 timeoutMs = 0;  ///< or the room that a text is asked with
        QByteArray bytes;       ///< what was written, or the manufacturer of an error text
        quint32 secondRoom = 0; ///< that a port ID is asked with
    };
    enum class teTimeout
    {
        Strict,  ///< a read that times out copies nothing and leaves the size as it was
        Partial, ///< it copies what there is and says how much
    };

    static tcFakeSerial& instance();
    void reset();

    QVector<tcPort> ports;
    std::optional<quint32> portCount; ///< said instead of the number of ports
    teTimeout timeout = teTimeout::Partial;
    qint32 partialStatus = -10004; ///< of a partial read: time-out, or 0 with some libraries
    bool openWithoutRef = false;   ///< an opening succeeds and hands over nothing
    std::optional<quint32>
        availableCount; ///< said instead of what waits, by a failing call too
    std::optional<quint32> claimedReadSize; ///< size handed back by a read, whatever was copied
    std::optional<quint32> shortWrite;      ///< size handed back by a write
    QByteArray errorText = "the driver's own words";
    bool errorTextWithoutNul = false;
    /// From now on the function answers this status and does nothing else.
    QMap<QByteArray, qint32> failing;
    /// Runs at the start of each call, for whatever must happen in the middle of one.
    std::function<void(const tcCall&)> onCall;
    /// Answers each write; what it returns is received.
    std::function<QByteArray(const QByteArray&)> answer;

    /// The camera sends: bytes of a later portion become available when the ones before it have
    /// been read and the count was asked once more.
    void receive(const QByteArray& acPortion);
    /// Available at once, behind what waits already.
    void feedAtOnce(const QByteArray& acBytes) { mReady += acBytes; }
    qint64 waiting() const; ///< bytes in all portions

    QList<tcCall> calls;
    QList<tcCall> callsOf(const QByteArray& acFunction) const;
    QList<QByteArray> writes() const;
    int openRefs() const { return mOpen.size(); }
    QStringList misuse; ///< wrong references, other threads, talk before any baud rate

    // What the exported functions do.
    qint32 enter(const tcCall& acCall, bool abNeedsRef);
    qint32 init(quint32 anIndex, void** apRef);
    void close(void* apRef);
    qint32 available(void* apRef, quint32* apCount);
    qint32 read(void* apRef, char* apBuffer, quint32* apSize, quint32 anTimeoutMs);
    qint32 write(void* apRef, const char* apBuffer, quint32* apSize, quint32 anTimeoutMs);
    qint32 setBaudRate(void* apRef, quint32 anCode);

private:
    QVector<quintptr> mOpen;
    QVector<quintptr> mBaudSet;
    quintptr mNextRef = 0x1000;
    QList<QByteArray> mPortions;
    QByteArray mReady;
    Qt::HANDLE mThread = nullptr;
};

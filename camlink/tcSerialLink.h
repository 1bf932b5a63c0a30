#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The Camera Link serial library in typed form: the only place that calls it.
///
/// All calls belong to the GUI thread; none takes longer than its time-out, unless the driver
/// itself hangs. A status is 0 for success, else the library's negative code.
namespace tcSerialLink
{

/// An open port, as wide as a pointer; 0 while closed.
using tcRef = quintptr;

constexpr quint32 cBaudCode115200 = 16; ///< the library's bit code, not the rate itself

struct tcPortInfo
{
    QString manufacturer;
    QString portId;

    /// What the port list shows: "index : manufacturer : port ID".
    QString displayText(quint32 anIndex) const;
};

/// Every serial port of all grabbers, in the library's order; none when the count can't be had.
/// Absurd counts are cut at cMaxPorts.
QVector<tcPortInfo> ports();
constexpr quint32 cMaxPorts = 256;

struct tcOpened
{
    qint32 status = 0;
    tcRef ref = 0; ///< 0 unless the status is 0
};
tcOpened open(quint32 anIndex);
void close(tcRef aRef);

qint32 setBaudRate(tcRef aRef, quint32 anBaudCode = cBaudCode115200);

struct tcAvailable
{
    qint32 status = 0;
    quint32 bytes = 0; ///< as the driver says: may be anything
};
tcAvailable bytesAvailable(tcRef aRef);

struct tcReadResult
{
    qint32 status = 0;
    quint32 size = 0; ///< as the driver hands it back, even when the read failed
    QByteArray bytes; ///< what the driver really put into the buffer, never more than asked for
};
/// Reads up to anSize bytes, at most cMaxRead. A strict driver that times out copies nothing
/// and may leave the size at what was asked: bytes then holds nothing, so nothing stale is
/// shown.
tcReadResult read(tcRef aRef, quint32 anSize, quint32 anTimeoutMs);
constexpr quint32 cMaxRead = 1024 * 1024;

/// Writes the bytes as they are, in one call.
qint32 write(tcRef aRef, const QByteArray& acBytes, quint32 anTimeoutMs);

/// Hears what goes over the line: whole writes as they were handed over and what became of
/// them, reads as they came.
class tcTap
{
public:
    virtual void sent(const QByteArray& acBytes, qint32 anStatus) = 0;
    virtual void received(const QByteArray& acBytes) = 0;

protected:
    ~tcTap() = default;
};
/// At most one; not owned, null to end.
void setTap(tcTap* apTap);

/// The maker's text for a status; "Unknown error code" and the number when there is none.
QString errorText(const QString& acManufacturer, qint32 anStatus);

} // namespace tcSerialLink

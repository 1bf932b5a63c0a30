#include "camlink/tcSerialLink.h"

#include "camlink/clserial.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstring>

namespace tcSerialLink
{
namespace
{

constexpr quint32 cNameSize = 50; ///< room for a manufacturer or port ID, NUL included
constexpr quint32 cErrorTextSize = 2048;

tcTap* sTap = nullptr;

hSerRef handle(tcRef aRef)
{
    return reinterpret_cast<hSerRef>(aRef);
}

/// The text up to its NUL, or up to the end of the buffer when a driver forgot it.
QString boundedText(const char* apBuffer, size_t anRoom)
{
    return QString::fromLocal8Bit(apBuffer, static_cast<int>(qstrnlen(apBuffer, uint(anRoom))));
}

tcPortInfo portInfo(quint32 anIndex)
{
    // Zeroed, and the status ignored: a failed call then shows empty texts, never stale ones.
    std::array<char, cNameSize> manufacturer{};
    std::array<char, cNameSize> portId{};
    quint32 manufacturerSize = cNameSize;
    quint32 portIdSize = cNameSize;
    quint32 version = 0;
    clGetPortInfo(anIndex, manufacturer.data(), &manufacturerSize, portId.data(), &portIdSize,
                  &version);
    return {boundedText(manufacturer.data(), cNameSize), boundedText(portId.data(), cNameSize)};
}

} // namespace

QString tcPortInfo::displayText(quint32 anIndex) const
{
    return QStringLiteral("%1 : %2 : %3").arg(QString::number(anIndex), manufacturer, portId);
}

QVector<tcPortInfo> ports()
{
    quint32 count = 0;
    if (clGetNumPorts(&count) != CL_ERR_NO_ERR)
        return {};
    QVector<tcPortInfo> list;
    for (quint32 index = 0; index < std::min(count, cMaxPorts); ++index)
        list.append(portInfo(index));
    return list;
}

tcOpened open(quint32 anIndex)
{
    hSerRef ref = nullptr;
    const qint32 status = clSerialInit(anIndex, &ref);
    if (status != CL_ERR_NO_ERR)
        return {status, 0};
    if (!ref) // a driver that says "opened" and hands over nothing
        return {CL_ERR_INVALID_REFERENCE, 0};
    return {CL_ERR_NO_ERR, reinterpret_cast<tcRef>(ref)};
}

void close(tcRef aRef)
{
    if (aRef != 0)
        clSerialClose(handle(aRef));
}

qint32 setBaudRate(tcRef aRef, quint32 anBaudCode)
{
    return clSetBaudRate(handle(aRef), anBaudCode);
}

tcAvailable bytesAvailable(tcRef aRef)
{
    tcAvailable available;
    available.status = clGetNumBytesAvail(handle(aRef), &available.bytes);
    return available;
}

tcReadResult read(tcRef aRef, quint32 anSize, quint32 anTimeoutMs)
{
    const quint32 room = std::min(anSize, cMaxRead);
    tcReadResult result;
    result.bytes.fill('\0', static_cast<int>(room));
    result.size = room;
    result.status = clSerialRead(handle(aRef), result.bytes.data(), &result.size, anTimeoutMs);
    const quint32 got = std::min(result.size, room);
    // After a failed read the size proves nothing: a strict driver leaves it at what was asked.
    // The buffer was zeroed, so what follows the last byte that is not NUL never arrived.
    quint32 kept = got;
    if (result.status != CL_ERR_NO_ERR) {
        while (kept > 0 && result.bytes.at(static_cast<int>(kept) - 1) == '\0')
            --kept;
    }
    result.bytes.truncate(static_cast<int>(kept));
    if (sTap && !result.bytes.isEmpty())
        sTap->received(result.bytes);
    return result;
}

void setTap(tcTap* apTap)
{
    sTap = apTap;
}

qint32 write(tcRef aRef, const QByteArray& acBytes, quint32 anTimeoutMs)
{
    QByteArray copy = acBytes; // the library asks for a buffer that is not constant
    auto size = static_cast<quint32>(copy.size());
    const qint32 status = clSerialWrite(handle(aRef), copy.data(), &size, anTimeoutMs);
    if (sTap)
        sTap->sent(acBytes, status);
    return status;
}

QString errorText(const QString& acManufacturer, qint32 anStatus)
{
    std::array<char, cErrorTextSize> text{};
    quint32 size = cErrorTextSize - 1;
    const QByteArray manufacturer = acManufacturer.toLocal8Bit();
    if (clGetErrorText(manufacturer.constData(), anStatus, text.data(), &size) != CL_ERR_NO_ERR)
        return QCoreApplication::translate("tcSerialLink", "Unknown error code %1")
            .arg(anStatus);
    text.back() = '\0';
    return boundedText(text.data(), text.size());
}

} // namespace tcSerialLink

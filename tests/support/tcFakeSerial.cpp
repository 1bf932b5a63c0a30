#include "tests/support/tcFakeSerial.h"

#include "camlink/clserial.h"

#include <QThread>

#include <algorithm>
#include <cstring>

namespace
{

tcFakeSerial& fake()
{
    return tcFakeSerial::instance();
}
quintptr number(void* apRef)
{
    return reinterpret_cast<quintptr>(apRef);
}

void copyName(const QByteArray& acName, char* apBuffer, uint32_t* apSize)
{
    const auto room = static_cast<int>(*apSize);
    const int bytes = std::min(acName.size(), room);
    std::memcpy(apBuffer, acName.constData(), static_cast<size_t>(bytes));
    if (bytes < room)
        apBuffer[bytes] = '\0';
    *apSize = static_cast<uint32_t>(acName.size()) + 1;
}

} // namespace

tcFakeSerial& tcFakeSerial::instance()
{
    static tcFakeSerial one;
    return one;
}

void tcFakeSerial::reset()
{
    // References stay unique over the life of the process, so that a stale one is always
    // noticed.
    const quintptr next = mNextRef;
    *this = tcFakeSerial();
    mNextRef = next;
}

void tcFakeSerial::receive(const QByteArray& acPortion)
{
    mPortions.append(acPortion);
}

qint64 tcFakeSerial::waiting() const
{
    qint64 bytes = mReady.size();
    for (const QByteArray& portion : mPortions)
        bytes += portion.size();
    return bytes;
}

QList<tcFakeSerial::tcCall> tcFakeSerial::callsOf(const QByteArray& acFunction) const
{
    QList<tcCall> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const tcCall& call) { return call.function == acFunction; });
    return found;
}

QList<QByteArray> tcFakeSerial::writes() const
{
    QList<QByteArray> found;
    for (const tcCall& call : callsOf("clSerialWrite"))
        found.append(call.bytes);
    return found;
}

qint32 tcFakeSerial::enter(const tcCall& acCall, bool abNeedsRef)
{
    if (!mThread)
        mThread = QThread::currentThreadId();
    if (mThread != QThread::currentThreadId())
        misuse.append(QString::fromLatin1(acCall.function + " from another thread"));
    calls.append(acCall);
    if (abNeedsRef && !mOpen.contains(acCall.ref))
        misuse.append(QString::fromLatin1(acCall.function + " with a port that is not open"));
    const bool talks = acCall.function == "clSerialRead" || acCall.function == "clSerialWrite";
    if (talks && !mBaudSet.contains(acCall.ref))
        misuse.append(QString::fromLatin1(acCall.function + " before the baud rate was set"));
    if (onCall)
        onCall(acCall);
    if (abNeedsRef && !mOpen.contains(acCall.ref))
        return CL_ERR_INVALID_REFERENCE;
    return failing.value(acCall.function, CL_ERR_NO_ERR);
}

qint32 tcFakeSerial::init(quint32 anIndex, void** apRef)
{
    const qint32 status = enter({"clSerialInit", 0, anIndex, 0, {}}, false);
    if (status != CL_ERR_NO_ERR)
        return status;
    *apRef = nullptr;
    if (openWithoutRef)
        return CL_ERR_NO_ERR;
    mNextRef += 0x10;
    mOpen.append(mNextRef);
    *apRef = reinterpret_cast<void*>(mNextRef);
    return CL_ERR_NO_ERR;
}

void tcFakeSerial::close(void* apRef)
{
    enter({"clSerialClose", number(apRef), 0, 0, {}}, true);
    mOpen.removeAll(number(apRef));
    mBaudSet.removeAll(number(apRef));
}

qint32 tcFakeSerial::setBaudRate(void* apRef, quint32 anCode)
{
    const qint32 status = enter({"clSetBaudRate", number(apRef), anCode, 0, {}}, true);
    mBaudSet.append(number(apRef)); // refused or not, the caller did his part
    return status;
}

qint32 tcFakeSerial::available(void* apRef, quint32* apCount)
{
    const qint32 status = enter({"clGetNumBytesAvail", number(apRef), 0, 0, {}}, true);
    if (status != CL_ERR_NO_ERR) {
        *apCount = availableCount.value_or(*apCount);
        return status;
    }
    if (mReady.isEmpty() && !mPortions.isEmpty())
        mReady = mPortions.takeFirst();
    *apCount = availableCount.value_or(static_cast<quint32>(mReady.size()));
    return CL_ERR_NO_ERR;
}

qint32 tcFakeSerial::read(void* apRef, char* apBuffer, quint32* apSize, quint32 anTimeoutMs)
{
    const qint32 status
        = enter({"clSerialRead", number(apRef), *apSize, anTimeoutMs, {}}, true);
    if (status != CL_ERR_NO_ERR)
        return status;
    const auto asked = static_cast<int>(*apSize);
    const bool partial = mReady.size() < asked;
    if (partial && timeout == teTimeout::Strict)
        return CL_ERR_TIMEOUT;
    const QByteArray piece = mReady.left(asked);
    mReady.remove(0, piece.size());
    std::memcpy(apBuffer, piece.constData(), static_cast<size_t>(piece.size()));
    *apSize = claimedReadSize.value_or(static_cast<quint32>(piece.size()));
    return partial ? partialStatus : CL_ERR_NO_ERR;
}

qint32 tcFakeSerial::write(void* apRef, const char* apBuffer, quint32* apSize,
                           quint32 anTimeoutMs)
{
    const QByteArray bytes(apBuffer, static_cast<int>(*apSize));
    const qint32 status
        = enter({"clSerialWrite", number(apRef), *apSize, anTimeoutMs, bytes}, true);
    if (status != CL_ERR_NO_ERR)
        return status;
    *apSize = shortWrite.value_or(*apSize);
    if (answer) {
        const QByteArray reply = answer(bytes);
        if (!reply.isEmpty())
            receive(reply);
    }
    return CL_ERR_NO_ERR;
}

extern "C"
{
    int32_t CLSERIAL_CC clGetNumPorts(uint32_t* apCount)
    {
        const int32_t status = fake().enter({"clGetNumPorts", 0, 0, 0, {}}, false);
        *apCount = fake().portCount.value_or(static_cast<quint32>(fake().ports.size()));
        return status;
    }

    int32_t CLSERIAL_CC clGetPortInfo(uint32_t anIndex, char* apManufacturer,
                                      uint32_t* apManufacturerSize, char* apPortId,
                                      uint32_t* apPortIdSize, uint32_t* apVersion)
    {
        const int32_t status = fake().enter(
            {"clGetPortInfo", 0, anIndex, *apManufacturerSize, {}, *apPortIdSize}, false);
        if (status != CL_ERR_NO_ERR || anIndex >= static_cast<uint32_t>(fake().ports.size()))
            return status != CL_ERR_NO_ERR ? status : CL_ERR_INVALID_INDEX;
        const tcFakeSerial::tcPort& port = fake().ports.at(static_cast<int>(anIndex));
        if (port.status != CL_ERR_NO_ERR && !port.namesAllTheSame)
            return port.status;
        copyName(port.manufacturer, apManufacturer, apManufacturerSize);
        copyName(port.portId, apPortId, apPortIdSize);
        *apVersion = 3;
        return port.status;
    }

    int32_t CLSERIAL_CC clSerialInit(uint32_t anIndex, hSerRef* apRef)
    {
        return fake().init(anIndex, apRef);
    }

    void CLSERIAL_CC clSerialClose(hSerRef apRef)
    {
        fake().close(apRef);
    }

    int32_t CLSERIAL_CC clSetBaudRate(hSerRef apRef, uint32_t anBaudCode)
    {
        return fake().setBaudRate(apRef, anBaudCode);
    }

    int32_t CLSERIAL_CC clGetNumBytesAvail(hSerRef apRef, uint32_t* apCount)
    {
        return fake().available(apRef, apCount);
    }

    int32_t CLSERIAL_CC clSerialRead(hSerRef apRef, char* apBuffer, uint32_t* apSize,
                                     uint32_t anTimeoutMs)
    {
        return fake().read(apRef, apBuffer, apSize, anTimeoutMs);
    }

    int32_t CLSERIAL_CC clSerialWrite(hSerRef apRef, char* apBuffer, uint32_t* apSize,
                                      uint32_t anTimeoutMs)
    {
        return fake().write(apRef, apBuffer, apSize, anTimeoutMs);
    }

    int32_t CLSERIAL_CC clGetErrorText(const char* acManufacturer, int32_t anStatus,
                                       char* apText, uint32_t* apTextSize)
    {
        const int32_t status = fake().enter(
            {"clGetErrorText", 0, static_cast<quint32>(anStatus), *apTextSize, acManufacturer},
            false);
        if (status != CL_ERR_NO_ERR)
            return status;
        const auto room = static_cast<int>(*apTextSize);
        const QByteArray text = fake().errorText.left(room);
        std::memcpy(apText, text.constData(), static_cast<size_t>(text.size()));
        if (text.size() < room && !fake().errorTextWithoutNul)
            apText[text.size()] = '\0';
        return CL_ERR_NO_ERR;
    }
}

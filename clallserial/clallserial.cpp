#include "camlink/clserial.h"
#include "clallserial/tcBackends.h"
#include "clallserial/tcOwnDirectory.h"
#include "clallserial/tcPortTable.h"
#include "clallserial/tcSerialConfig.h"

#include <cstdlib>

namespace
{

/// Made at the first call; whoever only links the library pays nothing.
tcPortTable& table()
{
    static tcPortTable instance(tcBackends::make(
        tcSerialConfig::load(tcOwnDirectory(),
                             [](const char* acName) { return std::getenv(acName); }),
        tcOwnDirectory()));
    return instance;
}

/// No exception leaves a C function; memory is all that can run out here.
template <typename tcCall>
int32_t guarded(const tcCall& acCall) noexcept
{
    try {
        return acCall();
    } catch (...) {
        return CL_ERR_OUT_OF_MEMORY;
    }
}

} // namespace

extern "C"
{
    int32_t CLSERIAL_CC clGetNumPorts(uint32_t* apCount)
    {
        return guarded([=] { return table().count(apCount); });
    }

    int32_t CLSERIAL_CC clGetPortInfo(uint32_t anIndex, char* apManufacturer,
                                      uint32_t* apManufacturerSize, char* apPortId,
                                      uint32_t* apPortIdSize, uint32_t* apVersion)
    {
        return guarded([=] {
            return table().info(anIndex, apManufacturer, apManufacturerSize, apPortId,
                                apPortIdSize, apVersion);
        });
    }

    int32_t CLSERIAL_CC clSerialInit(uint32_t anIndex, hSerRef* apRef)
    {
        return guarded([=] { return table().open(anIndex, apRef); });
    }

    void CLSERIAL_CC clSerialClose(hSerRef apRef)
    {
        guarded([=] {
            table().close(apRef);
            return CL_ERR_NO_ERR;
        });
    }

    int32_t CLSERIAL_CC clSetBaudRate(hSerRef apRef, uint32_t anBaudCode)
    {
        return guarded([=] {
            return table().use(
                apRef, [=](tcSerialPort& arPort) { return arPort.setBaudRate(anBaudCode); });
        });
    }

    int32_t CLSERIAL_CC clGetSupportedBaudRates(hSerRef apRef, uint32_t* apCodes)
    {
        if (!apCodes)
            return CL_ERR_INVALID_PTR;
        return guarded([=] {
            return table().use(apRef, [=](tcSerialPort& arPort) {
                return arPort.supportedBaudRates(*apCodes);
            });
        });
    }

    int32_t CLSERIAL_CC clGetNumBytesAvail(hSerRef apRef, uint32_t* apCount)
    {
        if (!apCount)
            return CL_ERR_INVALID_PTR;
        return guarded([=] {
            return table().use(
                apRef, [=](tcSerialPort& arPort) { return arPort.available(*apCount); });
        });
    }

    int32_t CLSERIAL_CC clSerialRead(hSerRef apRef, char* apBuffer, uint32_t* apSize,
                                     uint32_t anTimeoutMs)
    {
        if (!apBuffer || !apSize)
            return CL_ERR_INVALID_PTR;
        return guarded([=] {
            return table().use(apRef, [=](tcSerialPort& arPort) {
                return arPort.read(apBuffer, *apSize, anTimeoutMs);
            });
        });
    }

    int32_t CLSERIAL_CC clSerialReadEx(hSerRef apRef, char* apBuffer, uint32_t* apSize,
                                       uint32_t anTimeoutMs)
    {
        if (!apBuffer || !apSize)
            return CL_ERR_INVALID_PTR;
        return guarded([=] {
            return table().use(apRef, [=](tcSerialPort& arPort) {
                return arPort.readPartial(apBuffer, *apSize, anTimeoutMs);
            });
        });
    }

    int32_t CLSERIAL_CC clSerialWrite(hSerRef apRef, char* apBuffer, uint32_t* apSize,
                                      uint32_t anTimeoutMs)
    {
        if (!apBuffer || !apSize)
            return CL_ERR_INVALID_PTR;
        return guarded([=] {
            return table().use(apRef, [=](tcSerialPort& arPort) {
                return arPort.write(apBuffer, *apSize, anTimeoutMs);
            });
        });
    }

    int32_t CLSERIAL_CC clFlushPort(hSerRef apRef)
    {
        return guarded([=] {
            return table().use(apRef, [](tcSerialPort& arPort) { return arPort.flush(); });
        });
    }

    int32_t CLSERIAL_CC clGetErrorText(const char* acManufacturer, int32_t anStatus,
                                       char* apText, uint32_t* apTextSize)
    {
        return guarded(
            [=] { return table().errorText(acManufacturer, anStatus, apText, apTextSize); });
    }
}

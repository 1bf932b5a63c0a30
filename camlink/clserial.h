#pragma once

/// The functions of the Camera Link serial library as the standard declares them; the panel
/// uses the first nine. Plain C, so that the library, its stand-ins and the panel share one
/// text.
///
/// Every function but clSerialClose returns a signed 32-bit status: 0 for success, negative for
/// an error. Sizes are unsigned 32-bit numbers on every platform, never `unsigned long`.

#include <stdint.h> // NOLINT(modernize-deprecated-headers): a header for C as well

#if defined(_WIN32) && !defined(_WIN64)
#define CLSERIAL_CC __stdcall
#else
#define CLSERIAL_CC
#endif

#if defined(_WIN32)
#if defined(CLSERIAL_BUILD)
#define CLSERIAL_API __declspec(dllexport)
#else
#define CLSERIAL_API
#endif
#else
#define CLSERIAL_API __attribute__((visibility("default")))
#endif

typedef void* hSerRef; ///< an open port; null is never one

#define CL_ERR_NO_ERR 0
#define CL_ERR_BUFFER_TOO_SMALL (-10001)
#define CL_ERR_MANU_DOES_NOT_EXIST (-10002)
#define CL_ERR_PORT_IN_USE (-10003)
#define CL_ERR_TIMEOUT (-10004)
#define CL_ERR_INVALID_INDEX (-10005)
#define CL_ERR_INVALID_REFERENCE (-10006)
#define CL_ERR_ERROR_NOT_FOUND (-10007)
#define CL_ERR_BAUD_RATE_NOT_SUPPORTED (-10008)
#define CL_ERR_OUT_OF_MEMORY (-10009)
#define CL_ERR_REGISTRY_KEY_NOT_FOUND (-10010)
#define CL_ERR_INVALID_PTR (-10011)
#define CL_ERR_UNABLE_TO_LOAD_DLL (-10098)
#define CL_ERR_FUNCTION_NOT_FOUND (-10099)

/// Bit code of 115200 baud; 1 is 9600 and each higher bit one standard rate more.
#define CL_BAUDRATE_115200 16u

#ifdef __cplusplus
extern "C"
{
#endif
    CLSERIAL_API int32_t CLSERIAL_CC clGetNumPorts(uint32_t* apCount);
    /// Texts are NUL-terminated; a size hands in the buffer's room and hands back what was
    /// written, or what would be needed.
    CLSERIAL_API int32_t CLSERIAL_CC clGetPortInfo(uint32_t anIndex, char* apManufacturer,
                                                   uint32_t* apManufacturerSize, char* apPortId,
                                                   uint32_t* apPortIdSize, uint32_t* apVersion);
    CLSERIAL_API int32_t CLSERIAL_CC clSerialInit(uint32_t anIndex, hSerRef* apRef);
    CLSERIAL_API void CLSERIAL_CC clSerialClose(hSerRef apRef);
    CLSERIAL_API int32_t CLSERIAL_CC clSetBaudRate(hSerRef apRef, uint32_t anBaudCode);
    CLSERIAL_API int32_t CLSERIAL_CC clGetNumBytesAvail(hSerRef apRef, uint32_t* apCount);
    CLSERIAL_API int32_t CLSERIAL_CC clSerialRead(hSerRef apRef, char* apBuffer,
                                                  uint32_t* apSize, uint32_t anTimeoutMs);
    CLSERIAL_API int32_t CLSERIAL_CC clSerialWrite(hSerRef apRef, char* apBuffer,
                                                   uint32_t* apSize, uint32_t anTimeoutMs);
    CLSERIAL_API int32_t CLSERIAL_CC clGetErrorText(const char* acManufacturer,
                                                    int32_t anStatus, char* apText,
                                                    uint32_t* apTextSize);

    // Of the standard as well, not used by the panel and therefore not asked of every library.
    CLSERIAL_API int32_t CLSERIAL_CC clGetSupportedBaudRates(hSerRef apRef, uint32_t* apCodes);
    CLSERIAL_API int32_t CLSERIAL_CC clFlushPort(hSerRef apRef);
    /// A read that times out hands over what has arrived, whatever clSerialRead does.
    CLSERIAL_API int32_t CLSERIAL_CC clSerialReadEx(hSerRef apRef, char* apBuffer,
                                                    uint32_t* apSize, uint32_t anTimeoutMs);
#ifdef __cplusplus
}
#endif

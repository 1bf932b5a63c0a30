#pragma once

/// Those functions of the TC-08 logger's driver that the panel calls, as the driver declares
/// them. Plain C, so that the panel and the virtual logger share one text.
///
/// A handle names an opened unit. Unless said otherwise a result of 1 is success and 0 failure.

#include <stdint.h> // NOLINT(modernize-deprecated-headers): plain C

#if defined(_WIN32) && !defined(_WIN64)
#define USBTC08_CC __stdcall
#else
#define USBTC08_CC
#endif

#define USBTC08_CHANNELS 9 ///< the cold junction and eight inputs
#define USBTC08_TYPE_K 'K'
#define USBTC08_MAINS_60HZ 1
#define USBTC08_UNITS_CENTIGRADE 0

/// Handle of the next unit, 0 if there is none, -1 for a failure.
typedef int16_t(USBTC08_CC* usb_tc08_open_unit_t)(void);
/// A handle of 0 asks about the last attempt to open a unit.
typedef int16_t(USBTC08_CC* usb_tc08_get_last_error_t)(int16_t anHandle);
/// Rejects the hum of mains of 50 Hz (0) or 60 Hz (1).
typedef int16_t(USBTC08_CC* usb_tc08_set_mains_t)(int16_t anHandle, int16_t anSixtyHertz);
/// The type of thermocouple is a letter; a blank turns the channel off.
typedef int16_t(USBTC08_CC* usb_tc08_set_channel_t)(int16_t anHandle, int16_t anChannel,
                                                    char acType);
/// Milliseconds for one conversion of all channels in use; always 32 bits.
typedef int32_t(USBTC08_CC* usb_tc08_get_minimum_interval_ms_t)(int16_t anHandle);
/// One reading of all channels, into nine floats; bit n of the flags: channel n is out of
/// range. Takes up to a second, and leaves the floats alone when it fails.
typedef int16_t(USBTC08_CC* usb_tc08_get_single_t)(int16_t anHandle, float* apTemperatures,
                                                   int16_t* apOverflowFlags, int16_t anUnits);

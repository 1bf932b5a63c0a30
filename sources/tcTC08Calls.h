#pragma once

#include "sources/usbtc08.h"

#include <QStringList>
#include <QtGlobal>

#include <array>
#include <functional>

/// The driver's entry points, and the calls that the panel makes.
///
/// A copy of the table goes with the device loop, so that the loop needs nobody's object. Only
/// a table without missing() entries may be called.
class tcTC08Calls
{
public:
    struct tcEntry
    {
        const char* name;
        bool used;
    };
    /// In the order in which they are looked up.
    static constexpr std::array<tcEntry, 17> cEntries{{
        {"usb_tc08_set_channel", true},
        {"usb_tc08_run", false},
        {"usb_tc08_get_temp", false},
        {"usb_tc08_get_temp_deskew", false},
        {"usb_tc08_get_single", true},
        {"usb_tc08_open_unit", true},
        {"usb_tc08_open_unit_async", false},
        {"usb_tc08_open_unit_progress", false},
        {"usb_tc08_close_unit", false},
        {"usb_tc08_stop", false},
        {"usb_tc08_set_mains", true},
        {"usb_tc08_get_minimum_interval_ms", true},
        {"usb_tc08_get_unit_info", false},
        {"usb_tc08_get_unit_info_v2", false},
        {"usb_tc08_get_unit_info2", false},
        {"usb_tc08_get_formatted_info", false},
        {"usb_tc08_get_last_error", true},
    }};
    using tcResolver = std::function<QFunctionPointer(const char* acName)>;

    /// Looks every entry up; those that the library lacks are null.
    void resolve(const tcResolver& acResolver);
    QFunctionPointer pointer(const char* acName) const; ///< null for an unknown name too
    QStringList missing() const; ///< names of the used entries that are null

    qint16 openUnit() const;
    qint16 lastError(qint16 anHandle) const;
    void setMains(qint16 anHandle, qint16 anSixtyHertz) const;
    void setChannel(qint16 anHandle, qint16 anChannel, char acType) const;
    qint32 minimumIntervalMs(qint16 anHandle) const;
    void getSingle(qint16 anHandle, float* apTemperatures, qint16* apOverflowFlags,
                   qint16 anUnits) const;

private:
    std::array<QFunctionPointer, cEntries.size()> mPointers{};
};

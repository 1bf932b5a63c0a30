#include "sources/tcTC08Calls.h"

#include <cstring>

namespace
{

template <class tFunction>
tFunction as(QFunctionPointer aPointer)
{
    return reinterpret_cast<tFunction>(aPointer);
}

} // namespace

void tcTC08Calls::resolve(const tcResolver& acResolver)
{
    for (size_t row = 0; row < cEntries.size(); ++row)
        mPointers[row] = acResolver(cEntries[row].name);
}

QFunctionPointer tcTC08Calls::pointer(const char* acName) const
{
    for (size_t row = 0; row < cEntries.size(); ++row) {
        if (std::strcmp(cEntries[row].name, acName) == 0)
            return mPointers[row];
    }
    return nullptr;
}

QStringList tcTC08Calls::missing() const
{
    QStringList names;
    for (size_t row = 0; row < cEntries.size(); ++row) {
        if (cEntries[row].used && !mPointers[row])
            names.append(QString::fromLatin1(cEntries[row].name));
    }
    return names;
}

qint16 tcTC08Calls::openUnit() const
{
    return as<usb_tc08_open_unit_t>(pointer("usb_tc08_open_unit"))();
}

qint16 tcTC08Calls::lastError(qint16 anHandle) const
{
    return as<usb_tc08_get_last_error_t>(pointer("usb_tc08_get_last_error"))(anHandle);
}

void tcTC08Calls::setMains(qint16 anHandle, qint16 anSixtyHertz) const
{
    as<usb_tc08_set_mains_t>(pointer("usb_tc08_set_mains"))(anHandle, anSixtyHertz);
}

void tcTC08Calls::setChannel(qint16 anHandle, qint16 anChannel, char acType) const
{
    as<usb_tc08_set_channel_t>(pointer("usb_tc08_set_channel"))(anHandle, anChannel, acType);
}

qint32 tcTC08Calls::minimumIntervalMs(qint16 anHandle) const
{
    return as<usb_tc08_get_minimum_interval_ms_t>(pointer("usb_tc08_get_minimum_interval_ms"))(
        anHandle);
}

void tcTC08Calls::getSingle(qint16 anHandle, float* apTemperatures, qint16* apOverflowFlags,
                            qint16 anUnits) const
{
    as<usb_tc08_get_single_t>(pointer("usb_tc08_get_single"))(anHandle, apTemperatures,
                                                              apOverflowFlags, anUnits);
}

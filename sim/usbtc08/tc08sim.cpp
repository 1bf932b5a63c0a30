/// The exported functions of the virtual driver: those that the panel calls, and those simple
/// ones that it looks up beside them. Streaming is not imitated; a driver may lack functions.

#include "sim/usbtc08/tc08sim.h"

#include "sim/usbtc08/tcTC08Sim.h"
#include "sources/usbtc08.h"

#include <algorithm>
#include <cstring>

namespace
{

tcTC08Sim& sim()
{
    return tcTC08Sim::instance();
}

} // namespace

extern "C"
{
    TC08SIM_API int16_t USBTC08_CC usb_tc08_open_unit(void)
    {
        const tcTC08Sim::tcCall call("open_unit");
        return call.works() ? sim().openUnit() : int16_t(-1);
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_close_unit(int16_t anHandle)
    {
        const tcTC08Sim::tcCall call("close_unit");
        return call.works() && sim().closeUnit(anHandle) ? 1 : 0;
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_get_last_error(int16_t anHandle)
    {
        const tcTC08Sim::tcCall call("get_last_error");
        // Handle 0 asks about the last opening; there is no error of a unit that nobody has.
        return anHandle == 0 || sim().isOpen(anHandle) ? sim().lastError() : int16_t(0);
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_set_mains(int16_t anHandle, int16_t anSixtyHertz)
    {
        const tcTC08Sim::tcCall call("set_mains");
        return call.works() && sim().isOpen(anHandle) && sim().setMains(anSixtyHertz) ? 1 : 0;
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_set_channel(int16_t anHandle, int16_t anChannel,
                                                        char acType)
    {
        const tcTC08Sim::tcCall call("set_channel");
        return call.works() && sim().isOpen(anHandle) && sim().setChannel(anChannel, acType)
            ? 1
            : 0;
    }

    TC08SIM_API int32_t USBTC08_CC usb_tc08_get_minimum_interval_ms(int16_t anHandle)
    {
        const tcTC08Sim::tcCall call("get_minimum_interval_ms");
        return call.works() && sim().isOpen(anHandle) ? sim().conversionMs() : 0;
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_get_single(int16_t anHandle, float* apTemperatures,
                                                       int16_t* apOverflowFlags,
                                                       int16_t anUnits)
    {
        const tcTC08Sim::tcCall call("get_single");
        if (!call.works() || !sim().isOpen(anHandle))
            return 0;
        if (!apTemperatures || anUnits < 0 || anUnits > 3)
            return 0;
        sim().convert(apTemperatures, apOverflowFlags, anUnits);
        return 1;
    }

    TC08SIM_API int16_t USBTC08_CC usb_tc08_get_formatted_info(int16_t, char* apText,
                                                               int16_t anSize)
    {
        const tcTC08Sim::tcCall call("get_formatted_info");
        if (!call.works() || !apText || anSize <= 0)
            return 0;
        std::strncpy(apText, "virtual thermocouple logger", size_t(anSize) - 1);
        apText[anSize - 1] = '\0';
        return 1;
    }

    TC08SIM_API int tc08sim_command(const char* acDirectives)
    {
        return sim().command(acDirectives) ? 1 : 0;
    }

    TC08SIM_API int tc08sim_calls(const char* acFunction)
    {
        return sim().calls(acFunction);
    }

    TC08SIM_API int tc08sim_inside(const char* acFunction)
    {
        return sim().inside(acFunction);
    }

    TC08SIM_API int tc08sim_channel_type(int anChannel)
    {
        return sim().channelType(anChannel);
    }

    TC08SIM_API int tc08sim_mains(void)
    {
        return sim().mains();
    }

    TC08SIM_API int tc08sim_most_at_once(void)
    {
        return sim().mostAtOnce();
    }
}

#include "clallserial/tcHostDevice.h"

#include <libserialport.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace tcHostDevices
{
namespace
{

constexpr int cFirstBaud = 9600;

class tcSerialportDevice : public tcHostDevice
{
public:
    explicit tcSerialportDevice(sp_port* apPort) : mPort(apPort) { }

    ~tcSerialportDevice() override
    {
        if (mOpen)
            sp_close(mPort);
        sp_free_port(mPort);
    }

    bool open()
    {
        mOpen = sp_open(mPort, SP_MODE_READ_WRITE) == SP_OK;
        return mOpen && sp_set_bits(mPort, 8) == SP_OK
            && sp_set_parity(mPort, SP_PARITY_NONE) == SP_OK
            && sp_set_stopbits(mPort, 1) == SP_OK
            && sp_set_flowcontrol(mPort, SP_FLOWCONTROL_NONE) == SP_OK
            && sp_set_baudrate(mPort, cFirstBaud) == SP_OK && flush();
    }

    bool setBaud(uint32_t anBaud) override
    {
        return sp_set_baudrate(mPort, static_cast<int>(anBaud)) == SP_OK;
    }

    int read(char* apBuffer, size_t anSize) override
    {
        // The count fails when an adapter was pulled; a read may still say "nothing there".
        if (sp_input_waiting(mPort) < 0)
            return -1;
        return clipped(sp_nonblocking_read(mPort, apBuffer, anSize));
    }

    int write(const char* acBytes, size_t anSize) override
    {
        return clipped(sp_nonblocking_write(mPort, acBytes, anSize));
    }

    bool flush() override { return sp_flush(mPort, SP_BUF_BOTH) == SP_OK; }

    void pause(int anMs) override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::min(anMs, 1)));
    }

private:
    static int clipped(sp_return aResult) { return std::max<int>(aResult, -1); }

    sp_port* mPort; ///< owned
    bool mOpen = false;
};

} // namespace

std::vector<std::string> scan()
{
    std::vector<std::string> names;
    sp_port** ports = nullptr;
    if (sp_list_ports(&ports) != SP_OK)
        return names;
    for (sp_port** port = ports; *port; ++port)
        names.emplace_back(sp_get_port_name(*port));
    sp_free_port_list(ports);
    return names;
}

std::unique_ptr<tcHostDevice> open(const std::string& acName)
{
    sp_port* port = nullptr;
    if (sp_get_port_by_name(acName.c_str(), &port) != SP_OK)
        return openTerminal(acName);
    auto device = std::make_unique<tcSerialportDevice>(port);
    if (!device->open())
        return nullptr;
    return device;
}

} // namespace tcHostDevices

#pragma once

#include "camlink/clserial.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// An open serial port. Statuses are those of the serial library. Calls may come from several
/// threads; a read that waits does not keep others from writing unless the driver under it
/// does.
class tcSerialPort
{
public:
    virtual ~tcSerialPort() = default;

    virtual int32_t setBaudRate(uint32_t anBaudCode) = 0;
    virtual int32_t supportedBaudRates(uint32_t& arCodes) = 0;
    virtual int32_t available(uint32_t& arCount) = 0;
    /// arSize: room in, bytes read out; see the time-out behaviours of tcSerialConfig.
    virtual int32_t read(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) = 0;
    /// Hands over what has arrived in time, whatever the behaviour of read().
    virtual int32_t readPartial(char* apBuffer, uint32_t& arSize, uint32_t anTimeoutMs) = 0;
    virtual int32_t write(const char* acBytes, uint32_t& arSize, uint32_t anTimeoutMs) = 0;
    virtual int32_t flush() = 0;
    /// The port is about to be closed: calls that wait return as soon as they can.
    virtual void interrupt() = 0;
};

/// A family of ports: a maker's library, the computer's own ports, the virtual cameras.
class tcSerialBackend
{
public:
    struct tcEntry
    {
        std::string manufacturer;
        std::string portId;
        uint32_t version = 0; ///< code of the serial library's version
        std::string key;      ///< names the port for good, also when others come and go
    };

    virtual ~tcSerialBackend() = default;

    /// The ports there are now.
    virtual std::vector<tcEntry> ports() = 0;
    /// Null with a status other than 0.
    virtual std::unique_ptr<tcSerialPort> open(const std::string& acKey, int32_t& arStatus) = 0;
    /// The maker's own text: 0, or that this back end is not that maker, or has no such text.
    virtual int32_t errorText(const std::string& acManufacturer, int32_t anStatus,
                              std::string& arText)
        = 0;
};

/// Version code of libraries as of revision 1.1.
constexpr uint32_t cSerialVersion11 = 3;

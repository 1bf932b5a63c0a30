#include "clallserial/tcHostDevice.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace tcHostDevices
{
namespace
{

constexpr int cLeaveMs = 200;      // for the last command to get out before the port closes
constexpr DWORD cWriteMs = 5;      // a full line is given up after this long
constexpr DWORD cQueue = 65536;    // bytes that the system keeps for us
constexpr DWORD cFirstBaud = 9600; // as the standard has it
constexpr int cMostPorts = 256;

class tcComDevice : public tcHostDevice
{
public:
    explicit tcComDevice(HANDLE aPort) : mPort(aPort) { }

    ~tcComDevice() override
    {
        COMSTAT state{};
        for (int ms = 0; ms < cLeaveMs && look(state) && state.cbOutQue > 0; ++ms)
            Sleep(1);
        flush();
        CloseHandle(mPort);
    }

    bool setUp()
    {
        DCB settings{};
        settings.DCBlength = sizeof settings;
        if (!GetCommState(mPort, &settings))
            return false;
        settings.BaudRate = cFirstBaud;
        settings.ByteSize = 8;
        settings.Parity = NOPARITY;
        settings.StopBits = ONESTOPBIT;
        settings.fBinary = TRUE;
        settings.fParity = FALSE;
        settings.fOutxCtsFlow = FALSE;
        settings.fOutxDsrFlow = FALSE;
        settings.fDsrSensitivity = FALSE;
        settings.fOutX = FALSE;
        settings.fInX = FALSE;
        settings.fNull = FALSE;
        settings.fErrorChar = FALSE;
        settings.fAbortOnError = FALSE;
        settings.fDtrControl = DTR_CONTROL_ENABLE; // some level converters live on these
        settings.fRtsControl = RTS_CONTROL_ENABLE;
        COMMTIMEOUTS times{};
        times.ReadIntervalTimeout = MAXDWORD; // with zeros: what is there, at once
        times.WriteTotalTimeoutConstant = cWriteMs;
        SetupComm(mPort, cQueue, cQueue);
        return SetCommState(mPort, &settings) && SetCommTimeouts(mPort, &times) && flush();
    }

    bool setBaud(uint32_t anBaud) override
    {
        DCB settings{};
        settings.DCBlength = sizeof settings;
        if (!GetCommState(mPort, &settings))
            return false;
        settings.BaudRate = anBaud;
        return SetCommState(mPort, &settings) != FALSE;
    }

    int read(char* apBuffer, size_t anSize) override
    {
        COMSTAT state{};
        DWORD count = 0;
        if (!look(state)) // a pulled adapter shows here first
            return -1;
        const DWORD room = static_cast<DWORD>(std::min<size_t>(anSize, state.cbInQue));
        if (room == 0)
            return 0;
        return ReadFile(mPort, apBuffer, room, &count, nullptr) ? static_cast<int>(count) : -1;
    }

    int write(const char* acBytes, size_t anSize) override
    {
        const DWORD size = static_cast<DWORD>(std::min<size_t>(anSize, cQueue));
        DWORD count = 0;
        return WriteFile(mPort, acBytes, size, &count, nullptr) ? static_cast<int>(count) : -1;
    }

    bool flush() override { return PurgeComm(mPort, PURGE_RXCLEAR | PURGE_TXCLEAR) != FALSE; }

    void pause(int anMs) override { Sleep(static_cast<DWORD>(std::min(anMs, 1))); }

private:
    bool look(COMSTAT& arState)
    {
        DWORD errors = 0; // a damaged byte is the command language's business
        return ClearCommError(mPort, &errors, &arState) != FALSE;
    }

    HANDLE mPort; ///< owned
};

} // namespace

std::vector<std::string> scanTerminals()
{
    std::vector<std::string> names;
    for (int number = 1; number <= cMostPorts; ++number) {
        const std::string name = "COM" + std::to_string(number);
        std::array<char, 1024> target{};
        const DWORD room = static_cast<DWORD>(target.size());
        if (QueryDosDeviceA(name.c_str(), target.data(), room) != 0)
            names.push_back(name);
    }
    return names;
}

std::unique_ptr<tcHostDevice> openTerminal(const std::string& acPath)
{
    // The long form, without which COM10 and above are not found; nobody else may share it.
    const std::string path = acPath.compare(0, 4, "\\\\.\\") == 0 ? acPath : "\\\\.\\" + acPath;
    const HANDLE port = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (port == INVALID_HANDLE_VALUE)
        return nullptr;
    auto device = std::make_unique<tcComDevice>(port);
    if (!device->setUp())
        return nullptr;
    return device;
}

} // namespace tcHostDevices

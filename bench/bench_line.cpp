#include "clallserial/tcVirtualBackend.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

/// Does the virtual line hold 115200 baud? In real time, as the panel sees it, in both
/// directions: replies that follow each other without a gap, and commands that do.

namespace
{

using tcClock = std::chrono::steady_clock;

constexpr double cBytesPerSecond = 11520.0;
constexpr double cTolerance = 0.02;

double secondsSince(tcClock::time_point aStart)
{
    return std::chrono::duration<double>(tcClock::now() - aStart).count();
}

void send(tcSerialPort& arPort, const std::string& acBytes)
{
    auto size = static_cast<uint32_t>(acBytes.size());
    arPort.write(acBytes.data(), size, 10'000);
}

bool judge(const char* acName, double anBytes, double anSeconds)
{
    const double ratio = anBytes / anSeconds / cBytesPerSecond;
    const bool held = ratio > 1.0 - cTolerance && ratio < 1.0 + cTolerance;
    std::printf("%s %s: %.0f bytes in %.3f s, %.4f of 115200 baud (0.98 to 1.02)\n",
                held ? "PASS" : "FAIL", acName, anBytes, anSeconds, ratio);
    return held;
}

/// From the first byte to the last of so many replies, which are longer than their commands.
bool benchReplies(tcSerialPort& arPort)
{
    const std::string reply = "<SEXP 500><ACK>\r\n";
    constexpr int cReplies = 2000;
    std::string script;
    for (int turn = 0; turn < cReplies; ++turn)
        script += "<SEXP 500>\n";
    send(arPort, script);
    std::vector<char> bytes(reply.size() * cReplies);
    uint32_t size = 1;
    arPort.read(bytes.data(), size, 10'000);
    const auto start = tcClock::now();
    size = static_cast<uint32_t>(bytes.size() - 1);
    const bool complete = arPort.read(bytes.data() + 1, size, 60'000) == CL_ERR_NO_ERR;
    return judge("camera to host", size, secondsSince(start)) && complete;
}

/// Until the reply to the last of so many bytes, which is short.
bool benchCommands(tcSerialPort& arPort)
{
    const std::string noise = std::string(199, '.') + '\n';
    std::string script;
    for (int turn = 0; turn < 150; ++turn)
        script += noise;
    script += "<STOP>\n";
    const auto start = tcClock::now();
    send(arPort, script);
    char byte = '\0';
    uint32_t size = 1;
    const bool complete = arPort.read(&byte, size, 60'000) == CL_ERR_NO_ERR;
    return judge("host to camera", static_cast<double>(script.size() + 1), secondsSince(start))
        && complete;
}

} // namespace

int main()
{
    tcVirtualBackend backend{tcSerialConfig()};
    int32_t status = CL_ERR_NO_ERR;
    const auto port = backend.open("k20", status);
    if (!port)
        return 1;
    port->setBaudRate(CL_BAUDRATE_115200);
    const bool replies = benchReplies(*port);
    port->flush();
    const bool commands = benchCommands(*port);
    return replies && commands ? 0 : 1;
}

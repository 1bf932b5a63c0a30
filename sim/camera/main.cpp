#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraSim.h"
#include "sim/camera/tcPseudoTerminal.h"
#include "sim/camera/tcWireText.h"
#include "sim/replay/tcCameraReplay.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>

namespace
{

constexpr int64_t cNsPerMs = 1'000'000;
constexpr int64_t cIdleNs = 50 * cNsPerMs; // also how soon a signal is noticed
constexpr int64_t cNapNs = cNsPerMs / 2;

volatile std::sig_atomic_t quitRequested = 0;

struct tcArguments
{
    const tcCameraModel* model = tcCameraModels::find("k20-tec");
    uint64_t seed = 1;
    double speed = 1.0;
    std::string faults;
    std::string link;
    std::string replay;
    bool loop = false;
    bool help = false;
    bool list = false;
    std::string error;
};

void printHelp()
{
    std::puts(
        "Usage: vexa-camera-sim [options]\n"
        "\n"
        "Serves a virtual camera on a pseudo-terminal and prints that one's path. Any\n"
        "program that talks to a serial port can talk to the camera. Ends with Ctrl+C.\n"
        "\n"
        "  --model KEY    which camera, k20-tec unless given; --list shows them all\n"
        "  --seed N       start of everything random, 1 unless given\n"
        "  --speed X      how much faster heat flows than in earnest, 0.01 to 10000;\n"
        "                 of a replay too, then a whole number from 1 to 1000\n"
        "  --replay FILE  sensors read what a chart's file recorded of them (saved, logged\n"
        "                 or exported), from the first question on; what is not in the\n"
        "                 file stays the model's, and in the end the last values stay\n"
        "  --loop         begins the file again at its end\n"
        "  --link PATH    a symbolic link to the pseudo-terminal, removed at the end\n"
        "  --fault PLAN   what goes wrong, for example drop/10,delay@3=500; may be\n"
        "                 given several times. Kinds: nack, drop, corrupt, delay=MS,\n"
        "                 split=MS, flood=S, unplug=S; behind each may stand @N (reply\n"
        "                 N only), /N (each Nth) or %P (so many per cent)\n"
        "  --list         print the models and end\n"
        "  --help         print this text and end");
}

void printModels()
{
    for (const tcCameraModel& model : tcCameraModels::all())
        std::printf("%-10s %s, %d x %d\n", model.key, model.name, model.width, model.height);
}

/// False if the option's value can't be understood.
bool setOption(tcArguments& arArguments, const std::string& acOption,
               const std::string& acValue)
{
    if (acOption == "--model") {
        arArguments.model = tcCameraModels::find(acValue);
        return arArguments.model != nullptr;
    }
    if (acOption == "--seed") {
        const auto seed = tcWireText::integer(acValue);
        arArguments.seed = seed && *seed >= 0 ? static_cast<uint64_t>(*seed) : 0;
        return seed && *seed >= 0;
    }
    if (acOption == "--speed") {
        const auto speed = tcWireText::hundredths(acValue);
        arArguments.speed = speed ? static_cast<double>(*speed) / 100.0 : 0.0;
        return speed && *speed >= 1 && *speed <= 1'000'000;
    }
    if (acOption == "--replay") {
        arArguments.replay = acValue;
        return !acValue.empty();
    }
    if (acOption == "--link") {
        arArguments.link = acValue;
        return !acValue.empty();
    }
    std::string error;
    arArguments.faults += acValue + ',';
    return tcFaultPlan::parse(acValue, 1, error).has_value();
}

tcArguments parse(int anCount, char** apTexts)
{
    constexpr std::array<const char*, 6> cWithValue{
        {"--model", "--seed", "--speed", "--replay", "--link", "--fault"}};
    tcArguments arguments;
    for (int at = 1; at < anCount && arguments.error.empty(); ++at) {
        const std::string option = apTexts[at];
        if (option == "--help")
            arguments.help = true;
        else if (option == "--list")
            arguments.list = true;
        else if (option == "--loop")
            arguments.loop = true;
        else if (std::find(cWithValue.begin(), cWithValue.end(), option) == cWithValue.end())
            arguments.error = "unknown option " + option;
        else if (at + 1 >= anCount)
            arguments.error = option + " needs a value";
        else if (!setOption(arguments, option, apTexts[++at]))
            arguments.error = option + ": can't understand \"" + apTexts[at] + '"';
    }
    if (arguments.error.empty() && arguments.loop && arguments.replay.empty())
        arguments.error = "--loop needs --replay";
    return arguments;
}

int64_t nowNs()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

/// Until the camera is unplugged or the program is told to end.
void serve(tcCameraSim& arCamera, tcPseudoTerminal& arTerminal)
{
    std::array<char, 4096> block{};
    std::string outgoing;
    while (quitRequested == 0 && !arCamera.unplugged(nowNs())) {
        outgoing.append(block.data(), arCamera.read(nowNs(), block.data(), block.size()));
        if (!arTerminal.connected())
            outgoing.clear(); // a line with nobody at its end keeps nothing
        if (!outgoing.empty())
            outgoing.erase(0, arTerminal.write(outgoing.data(), outgoing.size()));
        const int64_t now = nowNs();
        const int64_t event = outgoing.empty() ? arCamera.nextEvent(now) : now + cNapNs;
        const int64_t until = std::min(std::max(event, now + cNapNs), now + cIdleNs);
        if (!arTerminal.wait(until - now))
            continue;
        const size_t room = std::min(block.size(), arCamera.writeRoom(nowNs()));
        const size_t count = arTerminal.read(block.data(), room);
        arCamera.write(nowNs(), block.data(), count);
    }
}

int run(const tcArguments& acArguments)
{
    tcCameraSim::tcOptions options;
    options.seed = acArguments.seed;
    options.speed = acArguments.speed;
    std::string error; // each plan has been read once already
    if (const auto plan = tcCameraSim::faultPlan(*acArguments.model, acArguments.faults,
                                                 acArguments.seed, error))
        options.faults = *plan;
    if (!acArguments.replay.empty()) {
        options.replay = tcCameraReplay::open({acArguments.replay.c_str(), acArguments.speed,
                                               acArguments.loop, acArguments.model->sensorBits},
                                              error);
        if (!error.empty())
            std::fprintf(stderr, "vexa-camera-sim: %s\n", error.c_str());
        if (!options.replay)
            return 1;
    }
    tcPseudoTerminal terminal;
    if (!terminal.open() || (!acArguments.link.empty() && !terminal.link(acArguments.link))) {
        std::fprintf(stderr, "vexa-camera-sim: %s\n", terminal.error().c_str());
        return 1;
    }
    std::printf("%s\n", terminal.path().c_str());
    std::fflush(stdout);
    tcCameraSim camera(*acArguments.model, options, nowNs());
    serve(camera, terminal);
    return 0;
}

} // namespace

int main(int anCount, char** apTexts)
{
    const tcArguments arguments = parse(anCount, apTexts);
    if (!arguments.error.empty()) {
        std::fprintf(stderr, "vexa-camera-sim: %s; see --help\n", arguments.error.c_str());
        return 2;
    }
    if (arguments.help) {
        printHelp();
        return 0;
    }
    if (arguments.list) {
        printModels();
        return 0;
    }
    const auto quit = [](int) { quitRequested = 1; };
    std::signal(SIGINT, quit);
    std::signal(SIGTERM, quit);
    return run(arguments);
}

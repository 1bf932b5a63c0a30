/// vexa-thermometer-sim: a serial thermometer on a pseudo-terminal, for the panel to be tried
/// without one. Prints the port's name and serves until it is interrupted. Lines typed in, or
/// given as --do, change how it behaves.

#include "sim/omega/tcOmegaSim.h"

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace
{

volatile std::sig_atomic_t gInterrupted = 0;

struct tcOptions
{
    std::string link;
    uint32_t seed = 1;
    std::vector<std::string> commands;
};

constexpr char cUsage[]
    = "usage: vexa-thermometer-sim [--link PATH] [--seed N] [--do COMMAND]...\n"
      "  --link PATH    soft link that names the port, whichever it is\n"
      "  --seed N       another course of temperatures\n"
      "  --do COMMAND   as if typed in: temp 23.4, temp auto, reply TEXT,\n"
      "                 silence, garbage, split BYTES MS, late MS, echo,\n"
      "                 flood LINES, normal, unplug, plug\n";

bool parse(int anCount, char** apArguments, tcOptions& arOptions)
{
    for (int at = 1; at < anCount; at += 2) {
        const std::string option = apArguments[at];
        if (at + 1 == anCount)
            return false;
        const std::string value = apArguments[at + 1];
        if (option == "--link")
            arOptions.link = value;
        else if (option == "--do")
            arOptions.commands.push_back(value);
        else if (option == "--seed")
            arOptions.seed = uint32_t(std::strtoul(value.c_str(), nullptr, 10));
        else
            return false;
    }
    return true;
}

void carryOut(tcOmegaSim& arSim, const std::string& acLine)
{
    if (!arSim.command(acLine))
        std::cerr << "not understood: " << acLine << std::endl;
    else if (acLine == "plug")
        std::cout << "thermometer on " << arSim.portName() << std::endl;
}

/// Lines of standard input, whole ones only, until it ends or somebody interrupts.
void serveInput(tcOmegaSim& arSim)
{
    std::string pending;
    bool open = true;
    while (gInterrupted == 0) {
        pollfd input = {open ? STDIN_FILENO : -1, POLLIN, 0};
        if (poll(&input, 1, 200) <= 0)
            continue;
        char bytes[256];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        open = count > 0;
        pending.append(bytes, open ? size_t(count) : 0);
        for (size_t end = pending.find('\n'); end != std::string::npos;
             end = pending.find('\n')) {
            if (end > 0)
                carryOut(arSim, pending.substr(0, end));
            pending.erase(0, end + 1);
        }
    }
}

} // namespace

int main(int anCount, char** apArguments)
{
    if (anCount == 2 && std::strcmp(apArguments[1], "--help") == 0) {
        std::cout << cUsage;
        return 0;
    }
    tcOptions options;
    if (!parse(anCount, apArguments, options)) {
        std::cerr << cUsage;
        return 2;
    }
    std::signal(SIGINT, [](int) { gInterrupted = 1; });
    std::signal(SIGTERM, [](int) { gInterrupted = 1; });

    tcOmegaSim sim(options.seed);
    if (!options.link.empty() && !sim.setLink(options.link)) {
        std::cerr << "can't make the link " << options.link << std::endl;
        return 1;
    }
    std::cout << "thermometer on " << sim.portName() << std::endl;
    for (const std::string& line : options.commands)
        carryOut(sim, line);
    serveInput(sim);
    return 0;
}

/// A program that quits while its instruments' drivers hang, each in the way that its argument
/// names; a second argument makes it a program with windows. "thirty" quits as the panel does,
/// when its event loop ends. Says "quitting" when it begins to.

#include "sim/omega/tcOmegaSim.h"
#include "sim/usbtc08/tc08sim.h"
#include "sources/tcDataSource.h"
#include "sources/tcSourceRegistry.h"
#include "tests/sources/tcHangingPort.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace
{

/// Whether it came to that within a time that is ample on any machine.
bool reaches(const std::function<bool()>& acState)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!acState() && !elapsed.hasExpired(30000))
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return acState();
}

int run(const QString& acCase)
{
    tcOmegaSim thermometer;
    const bool loggerReads = acCase == "logger-reads" || acCase == "both";
    const bool loggerOpens = acCase == "logger-opens";
    const bool port = acCase == "thermometer" || acCase == "both";
    const bool released = acCase == "released-at-the-end";
    tc08sim_command(loggerReads || released ? "hang=get_single" : "conversion_ms=0");
    if (loggerOpens)
        tc08sim_command("hang=open_unit");
    if (port)
        tcHangingPort::gate().shut();
    {
        const std::unique_ptr<tcDataSource> logger(
            tcSourceRegistry::createSource("Pico TC08", "CH1", nullptr));
        const std::unique_ptr<tcDataSource> monitor(tcSourceRegistry::createSource(
            "Omega UTC", QString::fromStdString(thermometer.portName()), nullptr));
        logger->start();
        monitor->start();
        const bool there = reaches([&] {
            if (port && tcHangingPort::gate().inside() == 0)
                return false;
            if (!port && thermometer.requests() == 0)
                return false;
            return tc08sim_calls(loggerOpens ? "open_unit" : "get_single") > 0;
        });
        if (!there)
            return 3;
        std::puts("quitting");
        std::fflush(stdout);
    }
    if (released) // the driver comes back while the program is being torn down
        std::atexit([] { tc08sim_command("release"); });
    return 0;
}

/// The event loop runs until the ports of thirty thermometers and the logger hang.
int runThirty(QCoreApplication& arApplication)
{
    constexpr int cPorts = 30;
    tc08sim_command("hang=get_single");
    std::vector<std::unique_ptr<tcOmegaSim>> thermometers;
    std::vector<std::unique_ptr<tcDataSource>> sources;
    sources.emplace_back(tcSourceRegistry::createSource("Pico TC08", "CH1", nullptr));
    for (int port = 0; port < cPorts; ++port) {
        thermometers.push_back(std::make_unique<tcOmegaSim>());
        sources.emplace_back(tcSourceRegistry::createSource(
            "Omega UTC", QString::fromStdString(thermometers.back()->portName()), nullptr));
    }
    tcHangingPort::gate().shut();
    for (const auto& source : sources)
        source->start();
    const bool there = reaches([] {
        return tcHangingPort::gate().inside() == cPorts && tc08sim_calls("get_single") > 0;
    });
    if (!there)
        return 3;
    QTimer::singleShot(0, &arApplication, [] {
        std::puts("quitting");
        std::fflush(stdout);
        QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}

} // namespace

int main(int anCount, char** apArguments)
{
    const QString what = QString::fromLatin1(apArguments[1]);
    if (anCount > 2) { // a program with windows
        const QApplication application(anCount, apArguments);
        return run(what);
    }
    QCoreApplication application(anCount, apArguments);
    return what == "thirty" ? runThirty(application) : run(what);
}

#include "tests/support/tcVirtualScreen.h"

#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>

#include <csignal>
#if defined(__linux__)
#include <sys/prctl.h>
#endif

namespace
{

constexpr int cStartLimitMs = 30000; ///< generous: a busy machine is no failure
constexpr int cStopLimitMs = 5000;
constexpr int cToolLimitMs = 20000;

// Knows no services to start: what a program says on it is heard by this test alone.
constexpr const char* cBusConfiguration = R"(<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
)";

} // namespace

bool tcChildProcess::stop()
{
    if (state() == NotRunning)
        return true;
    terminate();
    if (waitForFinished(cStopLimitMs))
        return true;
    kill();
    waitForFinished(cStopLimitMs);
    return false;
}

void tcChildProcess::setupChildProcess()
{
#if defined(__linux__)
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

QStringList tcVirtualScreen::missingTools()
{
    QStringList missing;
    for (const char* tool : {"Xvfb", "openbox", "xdotool", "xprop", "dbus-daemon"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            missing.append(QString::fromLatin1(tool));
    }
    return missing;
}

bool tcVirtualScreen::start(const QString& acFolder)
{
    return startBus(acFolder) && startDisplay() && startWindowManager();
}

QString tcVirtualScreen::firstLine(tcChildProcess& arProcess, const QString& acWhat)
{
    QElapsedTimer waited;
    waited.start();
    while (!arProcess.canReadLine() && waited.elapsed() < cStartLimitMs
           && arProcess.state() != QProcess::NotRunning)
        arProcess.waitForReadyRead(100);
    const QString line = QString::fromLocal8Bit(arProcess.readLine()).trimmed();
    if (line.isEmpty())
        mError = acWhat + " does not start: " + QString(arProcess.readAllStandardError());
    return line;
}

bool tcVirtualScreen::startBus(const QString& acFolder)
{
    QFile configuration(acFolder + "/bus.conf");
    if (!configuration.open(QIODevice::WriteOnly)) {
        mError = "no scratch file in " + acFolder;
        return false;
    }
    configuration.write(QString::fromLatin1(cBusConfiguration).arg(acFolder).toUtf8());
    configuration.close();
    mBus.start("dbus-daemon",
               {"--config-file=" + configuration.fileName(), "--nofork", "--print-address=1"});
    mBusAddress = firstLine(mBus, "dbus-daemon");
    mEnvironment.insert("DBUS_SESSION_BUS_ADDRESS", mBusAddress);
    mEnvironment.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    return !mBusAddress.isEmpty();
}

bool tcVirtualScreen::startDisplay()
{
    mDisplay.start(
        "Xvfb",
        {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp", "-noreset"});
    const QString number = firstLine(mDisplay, "Xvfb");
    mEnvironment.insert("DISPLAY", ":" + number);
    mEnvironment.insert("QT_QPA_PLATFORM", "xcb");
    // Where programs look for the bus on which they describe themselves.
    run("xprop", {"-root", "-f", "AT_SPI_BUS", "8s", "-set", "AT_SPI_BUS", mBusAddress});
    return !number.isEmpty();
}

bool tcVirtualScreen::startWindowManager()
{
    mManager.setProcessEnvironment(mEnvironment);
    // What it runs once it is in charge says so: before that, its keys do nothing.
    mManager.start("openbox", {"--sm-disable", "--startup", "echo ready"});
    QString line;
    while (line != "ready" && !(line = firstLine(mManager, "openbox")).isEmpty()) { }
    return !line.isEmpty();
}

QString tcVirtualScreen::run(const QString& acTool, const QStringList& acArguments) const
{
    QProcess process;
    process.setProcessEnvironment(mEnvironment);
    process.start(acTool, acArguments);
    if (!process.waitForFinished(cToolLimitMs) || process.exitCode() != 0)
        return {};
    return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

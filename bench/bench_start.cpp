// From the start to the first painted window: the panel against a program that is nothing but
// an empty main window, offscreen and, where DISPLAY names one, on a real display.
//
//   xvfb-run -a bench_start
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr int cRuns = 9;
constexpr double cRatioOffscreen = 3.5;
constexpr double cRatioDisplay = 1.8;
constexpr double cMoreMemoryKb = 12 * 1024;
constexpr double cIdleShare = 0.002;

struct tcStart
{
    double cpuMs = 0.0;
    double residentKb = 0.0;
    double idleShare = 0.0; ///< of one core
};

tcStart startOnce(const QString& acProgram, const QString& acPlatform, bool abIdle)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home.path());
    environment.insert("XDG_CONFIG_HOME", home.path());
    environment.insert("QT_QPA_PLATFORM", acPlatform);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "startwatch");
    environment.insert("QT_PLUGIN_PATH", BENCH_PLUGINS);
    environment.insert("STARTWATCH_FILE", home.filePath("start"));
    if (abIdle)
        environment.insert("STARTWATCH_IDLE", "1");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(acProgram, QStringList());
    process.waitForFinished(60000);
    QFile file(home.filePath("start"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s did not start: %s", qPrintable(acProgram), process.readAll().constData());
    const QList<QByteArray> numbers = file.readAll().simplified().split(' ');
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble(),
            numbers.value(2).toDouble()};
}

double median(QVector<double> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    return aValues.at(aValues.size() / 2);
}

const char* mark(double anValue, double anLimit)
{
    return anValue <= anLimit ? "pass" : "MISSED";
}

void compare(const QString& acPlatform, double anRatioLimit)
{
    QVector<double> ratios;
    QVector<double> panelCpu;
    QVector<double> emptyCpu;
    QVector<double> more;
    startOnce(BENCH_PANEL, acPlatform, false); // both once, so that all files are in memory
    startOnce(BENCH_EMPTY, acPlatform, false);
    for (int run = 0; run < cRuns; ++run) {
        const tcStart panel = startOnce(BENCH_PANEL, acPlatform, false);
        const tcStart empty = startOnce(BENCH_EMPTY, acPlatform, false);
        ratios.append(panel.cpuMs / empty.cpuMs);
        panelCpu.append(panel.cpuMs);
        emptyCpu.append(empty.cpuMs);
        more.append(panel.residentKb - empty.residentKb);
    }
    const double idle = startOnce(BENCH_PANEL, acPlatform, true).idleShare;
    std::printf("start on %s, medians of %d runs:\n", qPrintable(acPlatform), cRuns);
    std::printf("  CPU to the first painted window: panel %.1f ms, empty window %.1f ms\n",
                median(panelCpu), median(emptyCpu));
    std::printf("  ratio %.2f, at most %.1f wanted: %s\n", median(ratios), anRatioLimit,
                mark(median(ratios), anRatioLimit));
    std::printf("  resident memory %+.1f MB, at most %+.0f wanted: %s\n", median(more) / 1024.0,
                cMoreMemoryKb / 1024.0, mark(median(more), cMoreMemoryKb));
    std::printf("  idle %.2f %% of a core, at most %.1f wanted: %s\n", 100.0 * idle,
                100.0 * cIdleShare, mark(idle, cIdleShare));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    compare("offscreen", cRatioOffscreen);
    if (qEnvironmentVariableIsSet("DISPLAY"))
        compare("xcb", cRatioDisplay);
    return 0;
}

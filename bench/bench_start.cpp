// From the start to the first painted window: the panel against a program that is nothing but
// an empty main window, offscreen and, where DISPLAY names one, on a real display. There the
// empty window loads a driver of OpenGL and the panel does not, so they are compared once more
// with the driver in both.
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

/// Where both programs run.
struct tcSurroundings
{
    QString name;
    QString platform;
    bool withOpenGl = false; ///< in the panel too
    double ratio = 0.0;      ///< at most wanted
};

tcStart startOnce(const QString& acProgram, const tcSurroundings& acWhere, bool abIdle)
{
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home.path());
    environment.insert("XDG_CONFIG_HOME", home.path());
    environment.insert("QT_QPA_PLATFORM", acWhere.platform);
    if (acWhere.withOpenGl)
        environment.insert("QT_XCB_GL_INTEGRATION", "xcb_glx");
    else
        environment.remove("QT_XCB_GL_INTEGRATION");
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

void compare(const tcSurroundings& acWhere)
{
    QVector<double> ratios;
    QVector<double> panelCpu;
    QVector<double> emptyCpu;
    QVector<double> more;
    startOnce(BENCH_PANEL, acWhere, false); // both once, so that all files are in memory
    startOnce(BENCH_EMPTY, acWhere, false);
    for (int run = 0; run < cRuns; ++run) {
        const tcStart panel = startOnce(BENCH_PANEL, acWhere, false);
        const tcStart empty = startOnce(BENCH_EMPTY, acWhere, false);
        ratios.append(panel.cpuMs / empty.cpuMs);
        panelCpu.append(panel.cpuMs);
        emptyCpu.append(empty.cpuMs);
        more.append(panel.residentKb - empty.residentKb);
    }
    const double idle = startOnce(BENCH_PANEL, acWhere, true).idleShare;
    std::printf("start on %s, medians of %d runs:\n", qPrintable(acWhere.name), cRuns);
    std::printf("  CPU to the first painted window: panel %.1f ms, empty window %.1f ms\n",
                median(panelCpu), median(emptyCpu));
    std::printf("  ratio %.2f, at most %.1f wanted: %s\n", median(ratios), acWhere.ratio,
                mark(median(ratios), acWhere.ratio));
    std::printf("  resident memory %+.1f MB, at most %+.0f wanted: %s\n", median(more) / 1024.0,
                cMoreMemoryKb / 1024.0, mark(median(more), cMoreMemoryKb));
    std::printf("  idle %.2f %% of a core, at most %.1f wanted: %s\n", 100.0 * idle,
                100.0 * cIdleShare, mark(idle, cIdleShare));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    compare({"offscreen", "offscreen", false, cRatioOffscreen});
    if (qEnvironmentVariableIsSet("DISPLAY")) {
        compare({"a display", "xcb", false, cRatioDisplay});
        compare({"a display with OpenGL in both", "xcb", true, cRatioDisplay});
    }
    return 0;
}

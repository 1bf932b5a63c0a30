// A file of 1.5 million rows and fifteen columns in a chart: how long loading and saving take,
// and the longest time that the window does not answer meanwhile.
#include "bench/tcGoals.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

namespace
{

constexpr int cRows = 1500000;
constexpr int cColumns = 15;

void makeFile(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write");
    QByteArray header("ms since epoch,");
    for (int c = 0; c < cColumns; ++c)
        header += "Sensor " + QByteArray::number(c) + ',';
    file.write(header + '\n');
    for (int i = 0; i < cRows; ++i) {
        QByteArray row = QByteArray::number(qint64(1731681000000) + i * 1000LL);
        for (int c = 0; c < cColumns; ++c)
            row += ',' + QByteArray::number(20 + (i + c) % 10) + ".125";
        file.write(row + '\n');
    }
}

/// Looks every ten milliseconds how long ago it looked last.
class tcPulse
{
public:
    tcPulse()
    {
        QObject::connect(&mTimer, &QTimer::timeout, [this] { look(); });
        mTimer.start(10);
        mSinceLook.start();
        mSinceStart.start();
    }
    void look()
    {
        longest = std::max(longest, mSinceLook.restart());
        progress = progress || QApplication::activeModalWidget();
    }
    void end(const char* apWhat)
    {
        look();
        std::printf("%s: %.2f s, progress shown: %s\n", apWhat,
                    static_cast<double>(mSinceStart.elapsed()) / 1000.0,
                    progress ? "yes" : "no");
    }
    qint64 longest = 0; ///< ms
    bool progress = false;

private:
    QTimer mTimer;
    QElapsedTimer mSinceLook;
    QElapsedTimer mSinceStart;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("big.csv"));
    makeFile(path);
    tcScriptedDialogs dialogs;
    tcStripChart chart;
    chart.resize(1000, 600);
    chart.show();
    tcGoals goals;
    {
        tcPulse pulse;
        chart.loadCsvFile(path);
        pulse.end("load");
        goals.atMost("longest silence while loading, ms", static_cast<double>(pulse.longest),
                     200);
    }
    dialogs.fileAnswer = folder.filePath(QStringLiteral("again.csv"));
    {
        tcPulse pulse;
        chart.slotSave();
        pulse.end("save");
        goals.atMost("longest silence while saving, ms", static_cast<double>(pulse.longest),
                     200);
    }
    goals.atLeast("rows shown", static_cast<double>(chart.curves().first()->dataSize()), cRows);
    return goals.result();
}

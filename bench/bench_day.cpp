/// A day of watching: fifteen camera sensors at one poll a second, eight channels of a logger
/// and two thermometers, for 24 simulated hours through panel, monitor and chart. Prints what
/// grew, what was lost, and what share of a core it takes. The clock is not waited for: a
/// simulated second is the work of a second.

#include "camera/tcVexaK40.h"
#include "sources/tcDataSource.h"
#include "sources/tcSourceRegistry.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QLoggingCategory>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace
{

constexpr int cSecondsPerHour = 3600;
constexpr int cHours = 24;
constexpr int cThermometerReadingsPerSecond = 10;
constexpr int cCameraSensorsPlotted = 9; ///< as designed: replies of 10 to 15 are only logged

class tcBenchSource : public tcDataSource
{
public:
    tcBenchSource(const QString& acName, QObject* apParent)
        : tcDataSource(apParent), mName(acName)
    {
        all.append(this);
    }
    ~tcBenchSource() override { all.removeAll(this); }
    QStringList availableChannels() override { return {}; }
    QString displayName() override { return mName; }
    QString typeName() override { return QStringLiteral("Bench"); }
    void start() override { }
    void stop() override { }

    static inline QList<tcBenchSource*> all;

private:
    QString mName;
};

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr double cPagesPerMegabyte = 256;
    return file.readAll().split(' ').value(1).toDouble() / cPagesPerMegabyte;
}

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd")).count());
}

tcStripChart* chartOf()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* chart = qobject_cast<tcStripChart*>(window))
            return chart;
    }
    return nullptr;
}

class tcDay
{
public:
    tcDay() : mPanel(teCmvType::Cmv2000TEC)
    {
        tcSourceRegistry::registerBuilder(QStringLiteral("Bench"),
                                          [](const QString& acName, QObject* apParent) {
                                              return new tcBenchSource(acName, apParent);
                                          });
        auto* list = mPanel.findChild<QListWidget*>(QStringLiteral("sensorsLW"));
        for (int row = 0; row < list->count(); ++row)
            list->item(row)->setCheckState(Qt::Checked);
        for (int index = 0; index < 10; ++index) {
            auto* item = new QListWidgetItem(QStringLiteral("source %1").arg(index), list);
            item->setCheckState(Qt::Checked);
            item->setData(Qt::UserRole + 1, QString::number(index));
            item->setData(Qt::UserRole + 2, QStringLiteral("Bench"));
        }
        mPanel.findChild<QPushButton*>(QStringLiteral("tempsPB"))->click();
        mChart = chartOf();
        mChart->stopUpdates(); // its tick is called by the simulated clock
    }

    tcStripChart& chart() { return *mChart; }
    double longestGapMs() const { return mLongestGapMs; }
    qint64 sent() const { return mSent; }

    void second(qint64 anNow)
    {
        QElapsedTimer gap;
        gap.start();
        const double value = 25 + std::sin(double(anNow) / 60000.0);
        for (int number = 1; number <= 15; ++number)
            mPanel.handleReply(
                QStringLiteral("<SENS %1><ACK><%2>").arg(number).arg(value, 0, 'f', 2));
        for (int index = 0; index < tcBenchSource::all.size(); ++index) {
            const int count = index < 8 ? 1 : cThermometerReadingsPerSecond;
            for (int reading = 0; reading < count; ++reading)
                Q_EMIT tcBenchSource::all.at(index)->tempReading(anNow + reading * 100, value);
            mSent += count;
        }
        mSent += cCameraSensorsPlotted;
        mChart->tick();
        QCoreApplication::processEvents();
        mLongestGapMs = std::max(mLongestGapMs, double(gap.nsecsElapsed()) / 1e6);
    }

private:
    tcVexaK40 mPanel;
    tcStripChart* mChart = nullptr;
    qint64 mSent = 0;
    double mLongestGapMs = 0;
};

void line(const char* acWhat, double anValue, const char* acUnit, double anGoal)
{
    std::printf("%-52s %9.3f %-4s goal %g: %s\n", acWhat, anValue, acUnit, anGoal,
                anValue <= anGoal ? "PASS" : "MISSED");
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    tcDay day;
    qint64 now = 1700000000000;

    // An hour with the chart in sight.
    const double before = processorSeconds();
    for (int second = 0; second < cSecondsPerHour; ++second)
        day.second(now += 1000);
    const double visible = (processorSeconds() - before) / cSecondsPerHour;
    const double firstHour = residentMegabytes();
    const int files = openFiles();

    // The rest of the day with the chart closed.
    day.chart().hide();
    const double hidden = processorSeconds();
    constexpr int cRest = (cHours - 1) * cSecondsPerHour;
    for (int second = 0; second < cRest; ++second)
        day.second(now += 1000);
    const double closed = (processorSeconds() - hidden) / cRest;

    line("share of a core, chart visible", visible * 100, "%", 5);
    line("share of a core, chart closed", closed * 100, "%", 1);
    line("memory after 24 h against the first hour", residentMegabytes() / firstHour, "", 1.05);
    line("open files more than after the first hour", openFiles() - files, "", 0);
    line("longest gap of the event loop", day.longestGapMs(), "ms", 100);

    // What the store keeps at most of each curve must be there: the newest, to the last one.
    int full = 0;
    int curves = 0;
    for (const tcStripCurve* curve : day.chart().curves()) {
        const bool plotted = curve->dataSize() > 0;
        curves += plotted ? 1 : 0;
        full += plotted && int(curve->dataSize()) == curve->sampleCount() + 1 ? 1 : 0;
    }
    line("curves that miss readings", curves - full, "", 0);
    std::printf("%d curves, %lld readings\n", curves, static_cast<long long>(day.sent()));
    return 0;
}

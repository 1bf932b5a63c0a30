#include "stripchart/tcChartReplay.h"

#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/logic/tcReplay.h"
#include "stripchart/tcBusy.h"
#include "stripchart/tcStripCurve.h"
#include "widgets/tcDialogs.h"
#include "widgets/tcFileSync.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <limits>

tcChartReplay::tcChartReplay(QWidget& arChart, tcActions aActions)
    : mChart(arChart)
    , mActions(std::move(aActions))
    , mAction(new QAction(tr("Replay File..."), &arChart))
{
    mAction->setCheckable(true);
    connect(mAction, &QAction::toggled, this, &tcChartReplay::switchTo);
    mTimer.setObjectName(QStringLiteral("replaySteps"));
    mTimer.setParent(&arChart);
    mTimer.setInterval(cStepMs);
    connect(&mTimer, &QTimer::timeout, this, &tcChartReplay::step);
}

tcChartReplay::~tcChartReplay() = default;

void tcChartReplay::switchTo(bool abOn)
{
    // Setting the action's check state comes back here.
    if (mSwitching)
        return;
    mSwitching = true;
    const QPointer<tcChartReplay> self(this);
    stop();
    if (abOn)
        ask();
    if (!self)
        return;
    mAction->setChecked(isRunning());
    mSwitching = false;
}

void tcChartReplay::ask()
{
    const QPointer<tcChartReplay> self(this);
    const QString path
        = tcDialogs::current().openFile(&mChart, tr("Select CSV File to replay..."),
                                        mActions.folder(), tr("csv files (*.csv)"));
    if (!self || path.isEmpty())
        return;
    const std::optional<int> speed = tcDialogs::current().integer(
        &mChart, tr("Replay File"), tr("Speed (1 = as recorded):"),
        {mSpeed, tcReplay::cMinSpeed, tcReplay::cMaxSpeed, 1});
    if (!self || !speed)
        return;
    mSpeed = *speed;
    start(path, *speed);
}

void tcChartReplay::start(const QString& acFile, int anSpeed)
{
    const QPointer<tcChartReplay> self(this);
    const QString failure = tr("Error trying to load\n%1").arg(acFile);
    QFile file(acFile);
    if (tcFileSync::mayHang(acFile) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return tcDialogs::current().warning(&mChart, mActions.name(), failure);
    std::unique_ptr<tcReplay> replay = read(file, acFile, anSpeed);
    if (!self || !replay)
        return;
    mReplay = std::move(replay);
    mActions.showLive();
    makeCurves();
    mTimer.start();
    setStatus(
        tr(" - Replay: %1, %2x").arg(QFileInfo(acFile).fileName(), QString::number(anSpeed)));
    Q_EMIT fileUsed(acFile);
}

std::unique_ptr<tcReplay> tcChartReplay::read(QIODevice& arDevice, const QString& acFile,
                                              int anSpeed)
{
    const QPointer<tcChartReplay> self(this);
    tcCsvReader reader(arDevice);
    QString problem;
    bool whole = false;
    {
        tcBusy busy(mChart, tr("Loading %1").arg(QFileInfo(acFile).fileName()), Qt::BusyCursor);
        if (!reader.readHeader())
            problem = tr("Unable to load file.. not enough columns");
        else
            whole = reader.readRows(
                [&busy](qint64 anDone, qint64 anTotal) { return busy.step(anDone, anTotal); });
    }
    if (!self)
        return nullptr;
    if (reader.failed())
        problem = tr("Error trying to load\n%1").arg(acFile);
    if (!problem.isEmpty())
        tcDialogs::current().warning(&mChart, mActions.name(), problem);
    if (!self || !problem.isEmpty() || !whole)
        return nullptr;
    std::vector<tcReplay::tcColumn> columns;
    for (size_t i = 0; i < reader.columnCount(); ++i) {
        const tcColumnView view = reader.samples(i);
        columns.push_back({reader.title(i),
                           {view.times, view.times + view.count},
                           {view.values, view.values + view.count}});
        reader.release(i);
    }
    return std::make_unique<tcReplay>(std::move(columns), anSpeed, mActions.now());
}

void tcChartReplay::makeCurves()
{
    mCurves.clear();
    mKey = QUuid::createUuid();
    // Live curves of the same sensors may stand beside them, with the first colours.
    const int others = mActions.curveCount();
    for (size_t i = 0; i < mReplay->columnCount(); ++i) {
        const int index = static_cast<int>(i);
        auto curve = std::make_unique<tcStripCurve>(index);
        curve->setTitle(QwtText(mReplay->title(i), QwtText::PlainText));
        curve->setPen(tcStripCurve::stripCurveColor(others + index));
        mCurves.push_back(std::move(curve));
        mActions.fileCurve(mCurves.back().get(), mKey);
        // Filing gave it the capacity of live curves, seconds of a replay at full speed.
        const size_t most = std::numeric_limits<int>::max() - 1;
        const auto count = static_cast<int>(std::min(mReplay->readings(i), most));
        if (count > mCurves.back()->sampleCount())
            mCurves.back()->setSampleCount(count);
    }
}

void tcChartReplay::step()
{
    const bool more = mReplay
        && mReplay->step(
            mActions.now(), [this](size_t anColumn, qint64 anMsSinceEpoch, double anValue) {
                mActions.updateData(mKey, static_cast<int>(anColumn), anMsSinceEpoch, anValue);
            });
    if (!more)
        mAction->setChecked(false);
}

void tcChartReplay::stop()
{
    mTimer.stop();
    if (!mReplay)
        return;
    mReplay.reset();
    setStatus({});
}

void tcChartReplay::setStatus(const QString& acStatus)
{
    mStatus = acStatus;
    Q_EMIT statusChanged();
}

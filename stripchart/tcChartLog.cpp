#include "stripchart/tcChartLog.h"

#include "stripchart/logic/tcChartNames.h"
#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcCurveTable.h"
#include "stripchart/tcLogWriter.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"
#include "widgets/tcDialogs.h"

#include <QAction>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QStandardPaths>
#include <QWidget>

namespace
{

constexpr int cMaxMinutes = 86400;
constexpr qint64 cMsPerMinute = 60000;
/// A timer counts no more than some 24 days, a log may run for sixty.
constexpr qint64 cLongestTimerMs = 24LL * 60 * cMsPerMinute;

} // namespace

tcChartLog::tcChartLog(QWidget& arChart, QAction& arAction, const tcCurveTable& acCurves,
                       tcMarkerTable& arMarkers)
    : mChart(arChart), mAction(arAction), mCurves(acCurves), mMarkers(arMarkers)
{
    mDuration.setObjectName(QStringLiteral("logDuration"));
    mDuration.setParent(&arChart);
    mDuration.setSingleShot(true);
    mDuration.setTimerType(Qt::PreciseTimer);
    connect(&mDuration, &QTimer::timeout, this, &tcChartLog::passDuration);
}

tcChartLog::~tcChartLog()
{
    if (mWriter)
        mWriter->close();
}

QString tcChartLog::file() const
{
    return mWriter ? mWriter->fileName() : QString();
}

void tcChartLog::switchTo(bool abOn, const QString& acChartName)
{
    // Setting the action's check state comes back here.
    if (mSwitching)
        return;
    mSwitching = true;
    const QPointer<tcChartLog> self(this);
    stop();
    if (abOn)
        start(acChartName);
    if (!self)
        return;
    mAction.setChecked(isOpen());
    mSwitching = false;
}

void tcChartLog::start(const QString& acChartName)
{
    const QPointer<tcChartLog> self(this);
    const QString proposed = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
        + '/' + tcChartNames::logFile(acChartName, QDateTime::currentDateTime());
    const QString path
        = tcDialogs::current().saveFile(&mChart, tr("Select File to save data to..."), proposed,
                                        tr("csv files (*.csv);; Text file (*.txt)"));
    if (!self || path.isEmpty())
        return;
    Q_EMIT fileChosen(path);
    auto writer = std::make_unique<tcLogWriter>(path);
    if (!writer->open()) {
        qWarning() << "tcStripChart::logData" << acChartName << path << writer->errorString();
        setStatus(tr("- Unable to open %1").arg(QDir::toNativeSeparators(path)));
        return;
    }
    const std::optional<int> minutes = tcDialogs::current().integer(
        &mChart, tr("Log Duration"), tr("Minutes (0 = forever):"), {0, 0, cMaxMinutes, 1});
    if (!self)
        return;
    qInfo() << "tcStripChart::logData" << acChartName << "logging to " << path;
    mWriter = std::move(writer);
    mChartName = acChartName;
    mFailed = false;
    Q_EMIT started(path);
    runFor(minutes.value_or(0));
}

void tcChartLog::runFor(int anMinutes)
{
    mQuietStatus.clear();
    if (anMinutes > 0) {
        mMsLeft = anMinutes * cMsPerMinute;
        mDuration.start(static_cast<int>(std::min(mMsLeft, cLongestTimerMs)));
        const QDateTime end = QDateTime::currentDateTime().addSecs(anMinutes * 60LL);
        mQuietStatus = tr(" - End: %1").arg(end.toString(QStringLiteral("hh:mm:ss a")));
    }
    setStatus(mQuietStatus);
}

void tcChartLog::passDuration()
{
    mMsLeft -= std::min(mMsLeft, cLongestTimerMs);
    if (mMsLeft > 0)
        mDuration.start(static_cast<int>(std::min(mMsLeft, cLongestTimerMs)));
    else
        switchTo(false, mChartName);
}

void tcChartLog::stop()
{
    mDuration.stop();
    if (!mWriter)
        return;
    const QString path = mWriter->fileName();
    qInfo() << "tcStripChart::logData" << mChartName << "closing " << path;
    const bool complete = mWriter->close();
    mWriter.reset();
    if (!complete)
        qWarning() << "tcStripChart::logData" << mChartName << path
                   << "readings that the disk refused are missing at its end";
    setStatus(complete ? QString() : mStatus);
}

void tcChartLog::write(qint64 anNow)
{
    if (!mWriter)
        return;
    const bool failed = !mWriter->write(mCurves.curves(), anNow);
    if (failed != mFailed) {
        mFailed = failed;
        if (failed)
            qWarning() << "tcStripChart::logData" << mChartName << mWriter->fileName()
                       << mWriter->errorString();
        setStatus(
            failed
                ? tr("- Unable to write %1").arg(QDir::toNativeSeparators(mWriter->fileName()))
                : mQuietStatus);
    }
    writeMarkers();
}

void tcChartLog::writeMarkers()
{
    const QVector<QUuid> keys = mMarkers.unlogged();
    if (keys.isEmpty())
        return;
    mMarkers.setLogged();
    const QString path = tcChartNames::markerFile(mWriter->fileName());
    QFile file(path);
    // As designed: a path below a file opens nowhere today, and nobody is told.
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    tcCsvWriter lines(file);
    for (const QUuid& key : keys) {
        if (const tcStripMarker* marker = mMarkers.find(key))
            lines.marker(marker->xValue(), marker->yValue(), marker->label().text());
    }
    lines.flush();
}

void tcChartLog::setStatus(const QString& acStatus)
{
    mStatus = acStatus;
    Q_EMIT changed();
}

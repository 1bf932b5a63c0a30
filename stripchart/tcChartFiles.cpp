#include "stripchart/tcChartFiles.h"

#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcAxisControl.h"
#include "stripchart/tcBusy.h"
#include "stripchart/tcChartPanel.h"
#include "stripchart/tcCurveTable.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "ui_StripChart.h"
#include "widgets/tcDialogs.h"
#include "widgets/tcFileSync.h"
#include "widgets/tcWholeFile.h"

#include <QBuffer>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStandardPaths>

#include <cmath>

namespace
{

QString documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// What a chart holds at one moment: readings come and go while it is written.
class tcSnapshot
{
public:
    /// False when acStep said stop. Events run between two curves, so that some may be deleted.
    bool take(const QVector<tcStripCurve*>& acCurves, const tcMarkerTable& acMarkers,
              const tcProgress& acStep)
    {
        for (const tcStripMarker* marker : acMarkers.markers())
            mMarkers.append({marker->value(), marker->label().text()});
        std::vector<std::weak_ptr<const void>> lives;
        for (const tcStripCurve* curve : acCurves)
            lives.push_back(curve->lifetime());
        for (int i = 0; i < acCurves.size(); ++i) {
            if (!lives[static_cast<size_t>(i)].expired())
                add(*acCurves.at(i));
            if (!acStep(0, 1))
                return false;
        }
        return true;
    }

    bool write(QIODevice& arDevice, const tcProgress& acProgress) const
    {
        tcCsvWriter writer(arDevice);
        writer.header(tcCsvWriter::savedTimeTitle(), mTitles);
        tcRowMerge merge(mViews);
        if (!writer.rows(merge, acProgress))
            return false;
        writer.emptyLine();
        for (const auto& marker : mMarkers)
            writer.marker(marker.first.x(), marker.first.y(), marker.second);
        return writer.flush();
    }

private:
    void add(const tcStripCurve& acCurve)
    {
        const auto room = acCurve.dataSize();
        // Not set to zero first: at a million samples that takes as long as the copy.
        mNumbers.emplace_back(new double[room]);
        double* times = mNumbers.back().get();
        mNumbers.emplace_back(new double[room]);
        double* values = mNumbers.back().get();
        const int count = acCurve.copySamples(0, static_cast<int>(room), times, values);
        mTitles << acCurve.title().text();
        mViews.push_back({times, values, count});
    }

    QStringList mTitles;
    std::vector<std::unique_ptr<double[]>> mNumbers;
    std::vector<tcColumnView> mViews;
    QVector<QPair<QPointF, QString>> mMarkers;
};

const char* describe(tcCsvReport::teReason aReason)
{
    switch (aReason) {
    case tcCsvReport::teReason::TooFewFields:
        return "Malformed line";
    case tcCsvReport::teReason::BadTime:
        return "Row skipped, no time stamp:";
    case tcCsvReport::teReason::BadValue:
        return "Field skipped, no number:";
    case tcCsvReport::teReason::TooManyFields:
        return "Field skipped, too many in its row:";
    case tcCsvReport::teReason::BadMarker:
        return "Marker skipped, no point:";
    case tcCsvReport::teReason::TooManyMarkers:
        return "Marker skipped, too many:";
    }
    return "";
}

void logReport(const tcCsvReport& acReport, const QString& acFile)
{
    for (const auto& skipped : acReport.cases) {
        const bool malformed = skipped.reason == tcCsvReport::teReason::TooFewFields;
        (malformed ? qInfo() : qDebug())
            << describe(skipped.reason) << skipped.text << "line" << skipped.line;
    }
    if (acReport.skipped() > 0)
        qDebug() << acFile << "rows" << acReport.rows << "skipped rows" << acReport.skippedRows
                 << "skipped fields" << acReport.skippedFields << "skipped markers"
                 << acReport.skippedMarkers;
}

} // namespace

tcChartFiles::tcChartFiles(const tcParts& acParts, tcActions aActions)
    : mParts(acParts), mActions(std::move(aActions)), mFileMarkers(acParts.markers)
{
}

tcChartFiles::~tcChartFiles() = default;

void tcChartFiles::warn(const QString& acChartName, const QString& acText)
{
    tcDialogs::current().warning(&mParts.chart, acChartName, acText);
}

void tcChartFiles::setStatus(const QString& acStatus)
{
    mStatus = acStatus;
    Q_EMIT statusChanged();
}

void tcChartFiles::setReport(const tcCsvReport& acReport)
{
    mReport = acReport;
    Q_EMIT reportChanged();
}

void tcChartFiles::save(const QString& acChartName)
{
    if (mBusy || mParts.curves.isEmpty())
        return;
    const QPointer<tcChartFiles> self(this);
    const QString path = tcDialogs::current().saveFile(
        &mParts.chart, tr("Select File to save data to..."), documents(),
        tr("csv files (*.csv);; Text file (*.txt)"));
    if (!self || path.isEmpty())
        return;
    remember(path);
    mBusy = true;
    bool stopped = false;
    const bool saved = write(path, &stopped);
    if (!self)
        return;
    mBusy = false;
    if (saved)
        Q_EMIT fileUsed(path);
    else if (!stopped)
        warn(acChartName, tr("Error trying to save\n%1").arg(path));
}

bool tcChartFiles::write(const QString& acPath, bool* apStopped)
{
    tcBusy busy(mParts.chart, tr("Saving %1").arg(QFileInfo(acPath).fileName()),
                Qt::WaitCursor);
    const tcProgress step = [&busy, apStopped](qint64 anDone, qint64 anTotal) {
        *apStopped = !busy.step(anDone, anTotal);
        return !*apStopped;
    };
    tcWholeFile file(acPath);
    tcSnapshot snapshot;
    if (!file.open() || !snapshot.take(mParts.curves.curves(), mParts.markers, step)
        || !snapshot.write(file.device(), step))
        return false;
    return file.commit([&busy] { busy.step(1, 1); });
}

void tcChartFiles::load(const QString& acFile, const QString& acChartName)
{
    if (mBusy)
        return;
    const QPointer<tcChartFiles> self(this);
    const QString path = !acFile.isEmpty()
        ? acFile
        : tcDialogs::current().openFile(&mParts.chart,
                                        tr("Select CSV File to load data from..."), documents(),
                                        tr("csv files (*.csv)"));
    if (!self || path.isEmpty())
        return;
    QFile file(path);
    if (tcFileSync::mayHang(path) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return warn(acChartName, tr("Error trying to load\n%1").arg(path));
    remember(path);
    mBusy = true;
    showFile(file, path, acChartName);
    if (self)
        mBusy = false;
}

void tcChartFiles::showFile(QIODevice& arDevice, const QString& acFile,
                            const QString& acChartName)
{
    const QPointer<tcChartFiles> self(this);
    QString problem;
    {
        tcBusy busy(mParts.chart, tr("Loading %1").arg(QFileInfo(acFile).fileName()),
                    Qt::BusyCursor);
        tcCsvReader reader(arDevice);
        if (!reader.readHeader())
            problem = tr("Unable to load file.. not enough columns");
        else if (readRows(reader, [&busy](qint64 anDone, qint64 anTotal) {
                     return busy.step(anDone, anTotal);
                 })) {
            logReport(reader.report(), acFile);
            setStatus(tr("From: %1").arg(acFile));
            setReport(reader.report());
            Q_EMIT fileUsed(acFile);
            if (reader.failed())
                problem = tr("Error trying to load\n%1").arg(acFile);
        }
    }
    if (self && !problem.isEmpty())
        warn(acChartName, problem);
}

bool tcChartFiles::readRows(tcCsvReader& arReader, const tcLoadedFile::tcStep& acStep)
{
    constexpr int cReadingShare = 9; // of ten parts; making the curves takes the tenth
    const QPointer<tcChartFiles> self(this);
    const bool updating = mActions.stopUpdates();
    QwtPlot& plot = *mParts.form.qwtPlot;
    const bool autoReplot = plot.autoReplot();
    plot.setAutoReplot(false);
    const bool read = arReader.readRows([&acStep](qint64 anDone, qint64 anTotal) {
        return acStep(cReadingShare * anDone, (cReadingShare + 1) * anTotal);
    });
    if (!self)
        return false;
    if (read) {
        mLoaded.setLiveAside(mParts.curves);
        mActions.resetData();
        // Too late to go back: only a chart that vanished ends it.
        mLoaded.show(arReader, mActions.fileCurve, [&](qint64 anDone, qint64 anTotal) {
            acStep(cReadingShare * anTotal + anDone, (cReadingShare + 1) * anTotal);
            return !self.isNull();
        });
        if (!self)
            return false;
        showSpan();
        mFileMarkers.show(arReader.markers());
        mParts.form.spinBoxSamples->setEnabled(false);
        tcChartPanel::setLoadAction(mParts.form, mParts.form.actionResume_Feed);
    } else if (updating) {
        mActions.startUpdates();
    }
    plot.setAutoReplot(autoReplot);
    plot.replot();
    return read;
}

void tcChartFiles::showSpan()
{
    constexpr double cMsPerSecond = 1000;
    QSpinBox& seconds = *mParts.form.spinBoxSpanSec;
    if (mLiveSpan.seconds == 0)
        mLiveSpan = {seconds.value(), mParts.axes.spanMs()};
    double first = 0;
    double last = 0;
    if (!mLoaded.timeRange(&first, &last))
        return;
    const double span = std::ceil((last - first) / cMsPerSecond);
    seconds.setValue(static_cast<int>(std::min<double>(span, seconds.maximum())));
    // A single time stamp has no width of its own.
    mParts.axes.setXRange(first, last > first ? last : first + cMsPerSecond);
}

void tcChartFiles::resume()
{
    if (mBusy)
        return;
    const bool shown = mLoaded.isShown();
    // Curves that came while the file was shown are live ones too.
    if (shown)
        mLoaded.setLiveAside(mParts.curves);
    mActions.resetData();
    mParts.form.spinBoxSamples->setEnabled(true);
    tcChartPanel::setLoadAction(mParts.form, mParts.form.actionLoad_from_File);
    if (!shown)
        return;
    mLoaded.resume(mActions.fileCurve);
    mFileMarkers.clear();
    setReport({});
    mParts.form.spinBoxSpanSec->setValue(mLiveSpan.seconds);
    mParts.axes.setSpanMs(mLiveSpan.ms);
    mLiveSpan = {};
    setStatus({});
}

void tcChartFiles::keepReading(const QUuid& acKey, int anIndex, qint64 anMsSinceEpoch,
                               double anValue)
{
    if (tcStripCurve* curve = mLoaded.waiting(acKey, anIndex))
        curve->addSample(anMsSinceEpoch, anValue);
}

void tcChartFiles::savePicture(const QString& acFile, const QString& acChartName)
{
    const QPixmap picture = mParts.chart.grab();
    if (mBusy || picture.isNull())
        return;
    const QPointer<tcChartFiles> self(this);
    QString path = acFile;
    if (path.isEmpty()) {
        const QString folder = mFile.isEmpty() ? documents() : QFileInfo(mFile).absolutePath();
        path = tcDialogs::current().saveFile(
            &mParts.chart, tr("Select File to save chart to..."),
            QStringLiteral("%1/%2.png").arg(folder, acChartName), tr("PNG image file (*.png)"));
    }
    if (!self || path.isEmpty())
        return;
    remember(path);
    QBuffer image;
    image.open(QIODevice::WriteOnly);
    tcWholeFile file(path);
    const bool saved = picture.save(&image, QFileInfo(path).suffix().toLatin1().constData())
        && file.open() && file.device().write(image.data()) == image.size() && file.commit();
    if (!saved)
        warn(acChartName, tr("Error trying to save\n%1").arg(path));
}

#include "stripchart/tcChartExport.h"

#include "stripchart/logic/tcChartNames.h"
#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/logic/tcExportWriter.h"
#include "stripchart/tcBusy.h"
#include "stripchart/tcCurveTable.h"
#include "stripchart/tcStripCurve.h"
#include "widgets/tcDialogs.h"
#include "widgets/tcWholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <qwt_plot.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace
{

/// The visible samples as they are at one moment: readings come and go while they are written.
class tcVisible
{
public:
    /// False when acStep said stop. Events run between two curves, so that some may be deleted.
    bool take(const QVector<tcStripCurve*>& acCurves, double anFrom, double anTo,
              const tcProgress& acStep)
    {
        std::vector<std::weak_ptr<const void>> lives;
        for (const tcStripCurve* curve : acCurves)
            lives.push_back(curve->lifetime());
        for (int i = 0; i < acCurves.size(); ++i) {
            if (!lives[static_cast<size_t>(i)].expired())
                add(*acCurves.at(i), anFrom, anTo);
            if (!acStep(0, 1))
                return false;
        }
        return true;
    }

    bool write(QIODevice& arDevice, const tcProgress& acProgress) const
    {
        std::vector<tcColumnView> views;
        views.reserve(mColumns.size());
        for (const tcColumn& column : mColumns)
            views.push_back({column.times.data(), column.values.data(),
                             static_cast<qint64>(column.times.size())});
        tcExportWriter writer(arDevice);
        writer.header(mTitles);
        tcRowMerge merge(views);
        return writer.rows(merge, acProgress) && writer.flush();
    }

private:
    struct tcColumn
    {
        std::vector<double> times;
        std::vector<double> values;
    };

    void add(const tcStripCurve& acCurve, double anFrom, double anTo)
    {
        const size_t room = acCurve.dataSize();
        tcColumn column{std::vector<double>(room), std::vector<double>(room)};
        const auto count = static_cast<size_t>(acCurve.copySamples(
            0, static_cast<int>(room), column.times.data(), column.values.data()));
        size_t kept = 0;
        for (size_t i = 0; i < count; ++i) {
            if (column.times[i] < anFrom || column.times[i] > anTo)
                continue;
            column.times[kept] = column.times[i];
            column.values[kept] = column.values[i];
            ++kept;
        }
        column.times.resize(kept);
        column.values.resize(kept);
        mTitles << acCurve.title().text();
        mColumns.push_back(std::move(column));
    }

    QStringList mTitles;
    std::vector<tcColumn> mColumns;
};

QVector<tcStripCurve*> visible(const tcCurveTable& acCurves)
{
    QVector<tcStripCurve*> curves = acCurves.curves();
    const auto hidden = [](const tcStripCurve* apCurve) { return !apCurve->isVisible(); };
    curves.erase(std::remove_if(curves.begin(), curves.end(), hidden), curves.end());
    return curves;
}

} // namespace

tcChartExport::tcChartExport(QWidget& arChart, QwtPlot& arPlot, const tcCurveTable& acCurves)
    : mChart(arChart), mPlot(arPlot), mCurves(acCurves)
{
}

void tcChartExport::run(const QString& acChartName, const QString& acFolder)
{
    if (mBusy)
        return;
    if (visible(mCurves).isEmpty())
        return tcDialogs::current().information(&mChart, acChartName,
                                                tr("There is no visible curve to export."));
    const QPointer<tcChartExport> self(this);
    const QwtScaleDiv range = mPlot.axisScaleDiv(QwtPlot::xBottom);
    const QDateTime from = QDateTime::fromMSecsSinceEpoch(
        std::llround(std::min(range.lowerBound(), range.upperBound())));
    const QString path = tcDialogs::current().saveFile(
        &mChart, tr("Select File to export data to..."),
        QDir(acFolder).filePath(tcChartNames::exportFile(acChartName, from)),
        tr("csv files (*.csv)"));
    if (!self || path.isEmpty())
        return;
    mBusy = true;
    bool cancelled = false;
    const bool saved = write(path, std::min(range.lowerBound(), range.upperBound()),
                             std::max(range.lowerBound(), range.upperBound()), &cancelled);
    if (!self)
        return;
    mBusy = false;
    if (saved)
        Q_EMIT fileUsed(path);
    else if (!cancelled)
        tcDialogs::current().warning(&mChart, acChartName,
                                     tr("Error trying to save\n%1").arg(path));
}

bool tcChartExport::write(const QString& acFile, double anFrom, double anTo, bool* apCancelled)
{
    tcBusy busy(mChart, tr("Saving %1").arg(QFileInfo(acFile).fileName()), Qt::WaitCursor);
    const tcProgress step = [&busy, apCancelled](qint64 anDone, qint64 anTotal) {
        *apCancelled = !busy.step(anDone, anTotal);
        return !*apCancelled;
    };
    tcWholeFile file(acFile);
    tcVisible samples;
    return file.open() && samples.take(visible(mCurves), anFrom, anTo, step)
        && samples.write(file.device(), step) && file.commit([&busy] { busy.step(1, 1); });
}

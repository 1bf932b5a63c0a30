#include "stripchart/tcFileTools.h"

#include "stripchart/tcChartFiles.h"
#include "stripchart/tcChartLog.h"

#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

tcFileTools::tcFileTools(const tcParts& acParts, const std::function<QString()>& acName)
    : mParts(acParts)
    , mName(acName)
    , mExport(acParts.chart, acParts.plot, acParts.curves)
    , mRecent(acParts.chart, acName)
    , mSkipped(acParts.chart)
    , mDrop(acParts.chart)
    , mMenu(std::make_unique<QMenu>(tr("Data Files"), &acParts.chart))
{
    connect(mMenu->addAction(tr("Export Visible Range...")), &QAction::triggered, this,
            &tcFileTools::exportRange);
    mMenu->addActions({mRecent.action(), mSkipped.action()});
    // The plot menu is long already and should fit the screen of a notebook.
    mParts.chart.addAction(mMenu->menuAction());

    connect(&mRecent, &tcRecentFiles::chosen, this, &tcFileTools::load);
    connect(&mDrop, &tcFileDrop::dropped, this, &tcFileTools::load);
    connect(&mExport, &tcChartExport::fileUsed, &mRecent, &tcRecentFiles::add);
    connect(&mParts.files, &tcChartFiles::fileUsed, &mRecent, &tcRecentFiles::add);
    connect(&mParts.log, &tcChartLog::started, &mRecent, &tcRecentFiles::add);
    connect(&mParts.files, &tcChartFiles::reportChanged, &mSkipped,
            [this] { mSkipped.setReport(mParts.files.report()); });
}

tcFileTools::~tcFileTools() = default;

void tcFileTools::load(const QString& acFile)
{
    mParts.files.load(acFile, mName());
}

void tcFileTools::exportRange()
{
    const QString last = mParts.files.rememberedFile();
    mExport.run(mName(),
                last.isEmpty()
                    ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                    : QFileInfo(last).absolutePath());
}

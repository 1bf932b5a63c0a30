#include "stripchart/tcFileTools.h"

#include "stripchart/tcChartFiles.h"
#include "stripchart/tcChartLog.h"
#include "stripchart/tcCurveTable.h"

#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

tcFileTools::tcFileTools(const tcParts& acParts, const tcActions& acActions)
    : mParts(acParts)
    , mName(acActions.name)
    , mExport(acParts.chart, acParts.plot, acParts.curves)
    , mRecent(acParts.chart, acActions.name)
    , mSkipped(acParts.chart)
    , mDrop(acParts.chart)
    , mReplay(acParts.chart, replayActions(acActions))
    , mMenu(std::make_unique<QMenu>(tr("Data Files"), &acParts.chart))
{
    connect(mMenu->addAction(tr("Export Visible Range...")), &QAction::triggered, this,
            &tcFileTools::exportRange);
    mMenu->addActions({mRecent.action(), mSkipped.action(), mReplay.action()});
    // The plot menu is long already and should fit the screen of a notebook.
    mParts.chart.addAction(mMenu->menuAction());

    connect(&mRecent, &tcRecentFiles::chosen, this, &tcFileTools::load);
    connect(&mDrop, &tcFileDrop::dropped, this, &tcFileTools::load);
    connect(&mExport, &tcChartExport::fileUsed, &mRecent, &tcRecentFiles::add);
    connect(&mReplay, &tcChartReplay::statusChanged, this, &tcFileTools::statusChanged);
    connect(&mReplay, &tcChartReplay::fileUsed, &mRecent, &tcRecentFiles::add);
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
    mExport.run(mName(), folder());
}

QString tcFileTools::folder() const
{
    const QString last = mParts.files.rememberedFile();
    return last.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                          : QFileInfo(last).absolutePath();
}

tcChartReplay::tcActions tcFileTools::replayActions(const tcActions& acActions) const
{
    tcChartReplay::tcActions actions;
    actions.fileCurve = acActions.fileCurve;
    actions.updateData = acActions.updateData;
    // Live curves scroll only while no file is shown.
    actions.showLive = [this, resumeFeed = acActions.resumeFeed] {
        if (mParts.files.loadedFile().isShown())
            resumeFeed();
    };
    actions.curveCount = [this] { return mParts.curves.curves().size(); };
    actions.now = acActions.now;
    actions.name = acActions.name;
    actions.folder = [this] { return folder(); };
    return actions;
}

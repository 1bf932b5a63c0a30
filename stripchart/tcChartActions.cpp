#include "stripchart/tcChartActions.h"

#include "stripchart/tcLimitAlarm.h"
#include "stripchart/tcLimitsDialog.h"
#include "stripchart/tcMeasuringCursors.h"
#include "stripchart/tcPanning.h"
#include "stripchart/tcPlotTools.h"
#include "stripchart/tcStatisticsDialog.h"
#include "stripchart/tcStripCurve.h"

#include <QMenu>
#include <qwt_plot.h>

tcChartActions::tcChartActions(const tcParts& acParts, const std::function<bool()>& acIsLive,
                               const std::function<void()>& acScroll)
    : mParts(acParts)
    , mMenu(std::make_unique<QMenu>(tr("Measure"), &acParts.chart))
    , mScroll(acScroll)
    , mCursors(std::make_unique<tcMeasuringCursors>(mParts.plot, mParts.replot))
    , mPanning(
          std::make_unique<tcPanning>(mParts.plot, mParts.axes, mParts.tools, mParts.replot))
    , mAlarm(std::make_unique<tcLimitAlarm>(mParts.plot, mParts.legend, acIsLive))
    , mFollow(mMenu->addAction(tr("Follow")))
{
    mParts.chart.addAction(mMenu->menuAction());
    QAction* cursors = mMenu->addAction(tr("Measuring Cursors"));
    cursors->setCheckable(true);
    connect(cursors, &QAction::toggled, mCursors.get(), &tcMeasuringCursors::setShown);
    connect(mMenu->addAction(tr("Statistics...")), &QAction::triggered, this,
            &tcChartActions::showStatistics);
    connect(mMenu->addAction(tr("Limits...")), &QAction::triggered, this,
            &tcChartActions::showLimits);
    connect(mAlarm.get(), &tcLimitAlarm::crossed, this, &tcChartActions::limitCrossed);
    connectPanning();
}

tcChartActions::~tcChartActions()
{
    delete mStatistics.data();
    delete mLimits.data();
}

void tcChartActions::showStatistics()
{
    if (!mStatistics)
        mStatistics = new tcStatisticsDialog(mParts.plot, *mCursors, &mParts.plot);
    mStatistics->setAttribute(Qt::WA_DeleteOnClose);
    mStatistics->show();
    mStatistics->raise();
    mStatistics->activateWindow();
}

void tcChartActions::connectPanning()
{
    mFollow->setShortcut(Qt::Key_Home);
    mFollow->setShortcutContext(Qt::WidgetShortcut);
    // A widget's shortcut needs the action on the widget: the plot's canvas has the focus.
    mParts.plot.canvas()->addAction(mFollow);
    mFollow->setEnabled(false);
    connect(mFollow, &QAction::triggered, this, &tcChartActions::follow);
    connect(mPanning.get(), &tcPanning::changed, this, &tcChartActions::enableFollow);
    connect(&mParts.tools, &tcPlotTools::zoomed, this, &tcChartActions::enableFollow);
}

void tcChartActions::enableFollow()
{
    mFollow->setEnabled(mPanning->isMoved() || mParts.tools.isZoomed());
}

void tcChartActions::follow()
{
    mPanning->giveBack();
    mScroll();
    enableFollow();
}

void tcChartActions::forgetView()
{
    mPanning->release();
}

void tcChartActions::showLimits()
{
    if (!mLimits) {
        QStringList names;
        for (const QwtPlotItem* item : mParts.plot.itemList(tcStripCurve::cRtti))
            names.append(item->title().text());
        names.removeDuplicates();
        mLimits = new tcLimitsDialog(*mAlarm, names, &mParts.plot);
    }
    mLimits->setAttribute(Qt::WA_DeleteOnClose);
    mLimits->show();
    mLimits->raise();
    mLimits->activateWindow();
}

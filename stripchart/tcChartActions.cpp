#include "stripchart/tcChartActions.h"

#include "stripchart/tcMeasuringCursors.h"
#include "stripchart/tcPanning.h"
#include "stripchart/tcPlotTools.h"
#include "stripchart/tcStatisticsDialog.h"

#include <QMenu>
#include <qwt_plot.h>

tcChartActions::tcChartActions(const tcParts& acParts, const std::function<void()>& acScroll)
    : mParts(acParts)
    , mMenu(std::make_unique<QMenu>(tr("Measure"), &acParts.chart))
    , mScroll(acScroll)
    , mCursors(std::make_unique<tcMeasuringCursors>(mParts.plot, mParts.replot))
    , mPanning(
          std::make_unique<tcPanning>(mParts.plot, mParts.axes, mParts.tools, mParts.replot))
    , mFollow(mMenu->addAction(tr("Follow")))
{
    mParts.chart.addAction(mMenu->menuAction());
    QAction* cursors = mMenu->addAction(tr("Measuring Cursors"));
    cursors->setCheckable(true);
    connect(cursors, &QAction::toggled, mCursors.get(), &tcMeasuringCursors::setShown);
    connect(mMenu->addAction(tr("Statistics...")), &QAction::triggered, this,
            &tcChartActions::showStatistics);
    connectPanning();
}

tcChartActions::~tcChartActions()
{
    delete mStatistics.data();
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

#include "stripchart/tcChartActions.h"

#include "stripchart/tcMeasuringCursors.h"
#include "stripchart/tcStatisticsDialog.h"

#include <QMenu>
#include <qwt_plot.h>

tcChartActions::tcChartActions(const tcParts& acParts)
    : mParts(acParts)
    , mMenu(std::make_unique<QMenu>())
    , mCursors(std::make_unique<tcMeasuringCursors>(mParts.plot, mParts.replot))
{
    mMenu->setTitle(tr("Measure"));
    mParts.chart.addAction(mMenu->menuAction());
    QAction* cursors = mMenu->addAction(tr("Measuring Cursors"));
    cursors->setCheckable(true);
    connect(cursors, &QAction::toggled, mCursors.get(), &tcMeasuringCursors::setShown);
    connect(mMenu->addAction(tr("Statistics...")), &QAction::triggered, this,
            &tcChartActions::showStatistics);
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

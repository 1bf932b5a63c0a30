// What of the chart tells whom: the connections that its constructor makes.

#include "stripchart/tcAxisControl.h"
#include "stripchart/tcChartActions.h"
#include "stripchart/tcChartDialogs.h"
#include "stripchart/tcChartFiles.h"
#include "stripchart/tcChartLog.h"
#include "stripchart/tcChartMenu.h"
#include "stripchart/tcFileTools.h"
#include "stripchart/tcLegendControl.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcMinMaxLines.h"
#include "stripchart/tcPlotTools.h"
#include "stripchart/tcReplotRequest.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "ui_StripChart.h"

#include <qwt_legend.h>

void tcStripChart::connectPlot()
{
    connect(mForm->qwtPlot, &QwtPlot::itemAttached, this,
            [this](QwtPlotItem* apItem, bool abOn) {
                if (!abOn)
                    mCurves.forget(apItem);
            });
    connect(mForm->spinBoxSamples, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &tcStripChart::setSampleCount);
    connect(mForm->actionClear_Samples, &QAction::triggered, this, &tcStripChart::clearSamples);
    connect(mForm->actionPause_Updates, &QAction::toggled, this, &tcStripChart::slot_Pause);
    connect(mForm->actionResume_Feed, &QAction::triggered, this, &tcStripChart::resumeFeed);
    connect(mForm->actionSave, &QAction::triggered, this, &tcStripChart::slotSave);
    connect(mForm->actionLoad_from_File, &QAction::triggered, this, [this] { loadCsvFile(); });
    connect(mLogAction, &QAction::toggled, this, &tcStripChart::logData);
}

void tcStripChart::connectAxes()
{
    const auto valueChanged = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    connect(mForm->doubleSpinBoxYMin, valueChanged, this, &tcStripChart::updateY1Axis);
    connect(mForm->doubleSpinBoxYMax, valueChanged, this, &tcStripChart::updateY1Axis);
    connect(mForm->doubleSpinBoxY2Min, valueChanged, this, &tcStripChart::updateY2Axis);
    connect(mForm->doubleSpinBoxY2Max, valueChanged, this, &tcStripChart::updateY2Axis);
    connect(mForm->spinBoxSpanSec, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int anSeconds) { mAxes->changeSpan(anSeconds, mClock()); });
    connect(mForm->actionShow_X_Axis, &QAction::toggled, this, &tcStripChart::slot_showXAxis);
    connect(mForm->actionShow_ms, &QAction::toggled, this, &tcStripChart::slot_showMs);
}

void tcStripChart::connectLegend()
{
    QwtLegend& legend = mLegend->legend();
    connect(&legend, &QwtLegend::checked, this, &tcStripChart::slot_LegendItemChecked);
    connect(&legend, &QwtLegend::clicked, this, &tcStripChart::slot_LegendItemClicked);
    connect(&legend, &QWidget::customContextMenuRequested, this,
            &tcStripChart::slot_LegendContextMenu);
    connect(mLegend.get(), &tcLegendControl::visibilityChanged, this,
            [this] { mMinMax->keepHidden(); });
    connect(mLegend.get(), &tcLegendControl::minMaxWanted, this, &tcStripChart::followMinMax);
    connect(mLegend.get(), &tcLegendControl::minMaxResetWanted, this,
            &tcStripChart::resetMinMax);
    connect(mLegend.get(), &tcLegendControl::autoscaleWanted, this,
            [this](tcStripCurve* apCurve) {
                autoscaleY(apCurve->yAxis() == QwtPlot::yRight ? 1 : 0, apCurve);
            });
    connect(mForm->actionShow_Min_Max_Markers, &QAction::toggled, this,
            &tcStripChart::showMinMax);
    connect(mForm->actionReset_Min_Max, &QAction::triggered, this, &tcStripChart::resetMinMax);
}

void tcStripChart::connectMenus()
{
    connect(mForm->qwtPlot, &QWidget::customContextMenuRequested, this,
            &tcStripChart::slot_CustomContextMenu);
    connect(mMenu.get(), &tcChartMenu::axisChooserWanted, this,
            [this] { mDialogs->showAxisChooser(curves()); });
    connect(mMenu.get(), &tcChartMenu::markerWanted, this, &tcStripChart::markerRequest);
    connect(mMenu.get(), &tcChartMenu::pictureWanted, this, [this] { savePicture(); });
    connect(mMenu.get(), &tcChartMenu::resetWanted, this, &tcStripChart::resetData);
    connect(mForm->actionMarkers, &QAction::triggered, this,
            [this] { mDialogs->showMarkerInfo(*mMarkers); });
    connect(mDialogs.get(), &tcChartDialogs::axisChosen, this, &tcStripChart::assignAxis);
    connect(mDialogs.get(), &tcChartDialogs::markerChanged, this, &tcStripChart::markerChanged);
    connect(mForm->actionShow_Left, &QAction::toggled, mForm->widgetLeft, &QWidget::setVisible);
}

void tcStripChart::connectTools()
{
    connect(mTools.get(), &tcPlotTools::zoomed, this, &tcStripChart::zoomed);
    connect(mTools.get(), &tcPlotTools::markerRequest, this, &tcStripChart::markerRequest);
}

void tcStripChart::makeFiles()
{
    mLog = std::make_unique<tcChartLog>(*this, *mLogAction, mCurves, *mMarkers);
    mFiles = std::make_unique<tcChartFiles>(
        tcChartFiles::tcParts{*this, *mForm, mCurves, *mMarkers, *mAxes},
        tcChartFiles::tcActions{[this](tcStripCurve* apCurve, const QUuid& acKey) {
                                    return addCurve(apCurve, acKey);
                                },
                                [this] { resetData(); }, [this] { return stopUpdates(); },
                                [this] { startUpdates(); }});
    mFileTools = std::make_unique<tcFileTools>(
        tcFileTools::tcParts{*this, *mForm->qwtPlot, mCurves, *mFiles, *mLog},
        tcFileTools::tcActions{
            [this] { return mName; },
            [this](tcStripCurve* apCurve, const QUuid& acKey) {
                return addCurve(apCurve, acKey);
            },
            [this](const QUuid& acKey, int anIndex, qint64 anMsSinceEpoch, double anValue) {
                updateData(acKey, anIndex, anMsSinceEpoch, anValue);
            },
            [this] { resumeFeed(); }, [this] { return mClock(); }});
    const auto show
        = [this] { setStatus(mFiles->status() + mLog->status() + mFileTools->status()); };
    connect(mLog.get(), &tcChartLog::changed, this, show);
    connect(mFiles.get(), &tcChartFiles::statusChanged, this, show);
    connect(mLog.get(), &tcChartLog::fileChosen, mFiles.get(), &tcChartFiles::remember);
    connect(mFileTools.get(), &tcFileTools::statusChanged, this, show);
}

void tcStripChart::makeActions()
{
    mActions = std::make_unique<tcChartActions>(
        tcChartActions::tcParts{*this, *mForm->qwtPlot, *mReplot, *mAxes, *mTools,
                                mLegend->legend()},
        [this] { return isUpdating(); },
        [this] {
            if (isUpdating())
                tick();
        });
    connect(mFiles.get(), &tcChartFiles::reportChanged, mActions.get(),
            &tcChartActions::forgetView);
    connect(mForm->actionResume_Feed, &QAction::triggered, mActions.get(),
            &tcChartActions::forgetView);
    connect(mActions.get(), &tcChartActions::limitCrossed, this, &tcStripChart::limitCrossed);
}

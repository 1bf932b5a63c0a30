#include "stripchart/tcStripChart.h"

#include "app/tcSettings.h"
#include "stripchart/logic/tcChartNames.h"
#include "stripchart/tcAxisControl.h"
#include "stripchart/tcChartAccess.h"
#include "stripchart/tcChartActions.h"
#include "stripchart/tcChartDialogs.h"
#include "stripchart/tcChartFiles.h"
#include "stripchart/tcChartLog.h"
#include "stripchart/tcChartMenu.h"
#include "stripchart/tcChartPanel.h"
#include "stripchart/tcChartSettings.h"
#include "stripchart/tcFileTools.h"
#include "stripchart/tcLegendControl.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcMinMaxLines.h"
#include "stripchart/tcPlotTools.h"
#include "stripchart/tcReplotRequest.h"
#include "stripchart/tcStripCurve.h"
#include "ui_StripChart.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QMenu>
#include <QTimerEvent>
#include <qwt_legend.h>

namespace
{
constexpr int cTimerIntervalMs = 1000;
constexpr int cMinimumHeight = 250; ///< pixels; a lower chart shows no times
constexpr int cPlotMinimumHeight = 120;
constexpr int cPlotMinimumWidth = 240; ///< of which two value axes take half
} // namespace

tcStripChart::tcStripChart(QWidget* apParent)
    : QFrame(apParent)
    , mForm(std::make_unique<Ui::StripChart>())
    , mLogAction(new QAction(tr("Log Data..."), this))
    , mClock(&QDateTime::currentMSecsSinceEpoch)
    , mTitle(tcChartNames::defaultTitle())
{
    tcChartAccess::install(); // before anybody asks about a part
    mForm->setupUi(this);
    mForm->qwtPlot->setMinimumSize(cPlotMinimumWidth, cPlotMinimumHeight);
    mForm->qwtPlot->setAutoDelete(false);
    mForm->qwtPlot->canvas()->setAccessibleName(tr("Chart"));
    mReplot = std::make_unique<tcReplotRequest>(*mForm->qwtPlot);
    mTools = std::make_unique<tcPlotTools>(*mForm->qwtPlot);
    mAxes = std::make_unique<tcAxisControl>(*mForm, mTools->grid());
    mMinMax = std::make_unique<tcMinMaxLines>(*mForm->qwtPlot);
    mMarkers = std::make_unique<tcMarkerTable>(*mForm->qwtPlot);
    mLegend = std::make_unique<tcLegendControl>(*mForm->qwtPlot, *mForm->verticalLayoutLegend);
    mMenu = std::make_unique<tcChartMenu>(*mForm, *mLogAction);
    mDialogs = std::make_unique<tcChartDialogs>(*mForm->qwtPlot);
    mLogAction->setCheckable(true);
    mTools->prepareMouse(*mMarkers);
    mTools->showMinorGrid(false);
    tcChartPanel::connectButtons(*mForm, *mLogAction);
    tcChartPanel::connectTools(*mForm, *mTools);
    makeFiles();
    connectPlot();
    connectAxes();
    connectLegend();
    connectMenus();
    connectTools();
    makeActions();
    startUpdates();
}

tcStripChart::~tcStripChart()
{
    // The plot outlives the members: what it still tells must find nobody here. Detaching now
    // lets open menus and dialogs learn that their curves are out of reach.
    disconnect(mForm->qwtPlot, nullptr, this, nullptr);
    mForm->qwtPlot->detachItems(tcStripCurve::cRtti, false);
    stopUpdates();
}

void tcStripChart::setChartName(const QString& acName)
{
    mName = acName;
    setWindowTitle(mName);
    restoreSettings();
}

void tcStripChart::updateTitle(const QString& acName)
{
    if (acName.isEmpty())
        mTitle = tcChartNames::titleOfCurves(mCurves.firstTitle(), mCurves.sourceCount());
    setWindowTitle(tcChartNames::windowTitle(
        {mTitle, acName, mStatus, QDir::toNativeSeparators(mLog->file())}));
}

void tcStripChart::setStatus(const QString& acStatus)
{
    mStatus = acStatus;
    updateTitle(mName);
}

QUuid tcStripChart::addCurve(tcStripCurve* apCurve, const QUuid& acKey)
{
    if (!apCurve || apCurve->index() < 0)
        return {};
    if (mName.isEmpty()) {
        mName = apCurve->title().text();
        updateTitle(mName);
        restoreSettings();
    }
    apCurve->setSampleCount(mForm->spinBoxSamples->value());
    apCurve->attach(mForm->qwtPlot);
    const QUuid key = mCurves.file(apCurve, acKey);
    mAxes->includeTimesOf(*apCurve);
    mLegend->setItemVisible(*apCurve, true);
    return key;
}

void tcStripChart::removeCurve(tcStripCurve* apCurve)
{
    if (apCurve && apCurve->plot() == mForm->qwtPlot)
        apCurve->detach();
    mCurves.forget(apCurve);
    mFiles->loadedFile().forget(apCurve);
    mReplot->request();
}

void tcStripChart::removeCurves(const QUuid& acKey)
{
    const QVector<tcStripCurve*> curves = mCurves.curves(acKey);
    for (tcStripCurve* curve : curves)
        removeCurve(curve);
    mFiles->loadedFile().forget(acKey);
}

void tcStripChart::assignAxis(tcStripCurve* apCurve, int axis)
{
    if (apCurve)
        mAxes->assign(*apCurve, axis);
}

void tcStripChart::setYRange(int axis, double from, double to)
{
    mAxes->setYRange(axis, from, to);
}

void tcStripChart::autoscaleY(int axis, const tcStripCurve* apCurve)
{
    mAxes->fitY(axis, apCurve);
}

void tcStripChart::setXRange(double from, double to)
{
    mAxes->setXRange(from, to);
}

void tcStripChart::setSpanMs(qint64 anSpanMs)
{
    mAxes->setSpanMs(anSpanMs);
}

QUuid tcStripChart::addLineMarker(const QString& acName, double anValue)
{
    mReplot->request();
    return mMarkers->addLine(acName, anValue);
}

bool tcStripChart::setLineMarker(const QUuid& acId, double anValue, const QPen& acPen)
{
    mReplot->request();
    return mMarkers->setLine(acId, anValue, acPen);
}

tcStripMarker* tcStripChart::marker(const QUuid& acId) const
{
    return mMarkers->find(acId);
}

void tcStripChart::startUpdates()
{
    if (mTimerId == -1)
        mTimerId = startTimer(cTimerIntervalMs, Qt::CoarseTimer);
}

bool tcStripChart::stopUpdates()
{
    const bool ran = isUpdating();
    if (ran)
        killTimer(mTimerId);
    mTimerId = -1;
    return ran;
}

void tcStripChart::resumeFeed()
{
    mFiles->resume();
    startUpdates();
}

void tcStripChart::tick()
{
    if (!mPaused) {
        mMinMax->refresh();
        // One interval ahead of the clock, so that the newest readings have room to appear.
        if (mAxes->spanMs() != 0)
            mAxes->scrollTo(mClock() + cTimerIntervalMs);
        mReplot->request();
    }
    mTools->keepZoomBase();
    mLog->write(mClock());
}

void tcStripChart::setVerbosity(int anLevel)
{
    mVerbosity = anLevel;
    mAxes->setVerbosity(anLevel);
}

std::unique_ptr<QMenu> tcStripChart::plotMenu(const QPoint& pos)
{
    return mMenu->menuAt(pos, {mMinMax->isFollowing(), actions()});
}

std::unique_ptr<QMenu> tcStripChart::legendMenu(const QPoint& pos)
{
    return mLegend->menuAt(pos);
}

void tcStripChart::updateData(const QUuid& acKey, int anIndex, qint64 anMsSinceEpoch,
                              double anValue)
{
    tcStripCurve* curve = mCurves.find(acKey, anIndex);
    if (!curve)
        return mFiles->keepReading(acKey, anIndex, anMsSinceEpoch, anValue);
    curve->addSample(anMsSinceEpoch, anValue);
    mMinMax->widen(*curve);
    mReplot->request();
}

void tcStripChart::slotSave()
{
    mFiles->save(mName);
}

void tcStripChart::clearSamples()
{
    mLog->write(mClock()); // what is about to go
    const QwtPlotItemList items = mForm->qwtPlot->itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items)
        static_cast<tcStripCurve*>(item)->clear();
    mMinMax->toExtremes();
    mReplot->request();
}

void tcStripChart::showLegend(bool abOn)
{
    mForm->groupBoxLegend->setVisible(abOn);
    mForm->groupBoxAxes->setVisible(abOn);
}

void tcStripChart::logData(bool abOn)
{
    mLog->switchTo(abOn, mName);
}

void tcStripChart::setSampleCount(int value)
{
    mLog->write(mClock()); // what is about to go
    const QwtPlotItemList items = mForm->qwtPlot->itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items)
        static_cast<tcStripCurve*>(item)->setSampleCount(value);
    mReplot->request();
}

void tcStripChart::showMinMax(bool abOn)
{
    if (mForm->actionShow_Min_Max_Markers->isChecked() != abOn)
        return mForm->actionShow_Min_Max_Markers->setChecked(abOn);
    if (abOn)
        resetMinMax();
    mMinMax->setShown(abOn);
    mForm->qwtPlot->replot();
}

void tcStripChart::resetMinMax()
{
    mMinMax->toExtremes();
    mMinMax->refresh();
    mForm->qwtPlot->replot();
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface has it by value
void tcStripChart::loadCsvFile(QString arFile)
{
    mFiles->load(arFile, mName);
}

void tcStripChart::markerChanged(int marker_id)
{
    if (mMarkers->find(mMarkers->order().value(marker_id)))
        mForm->qwtPlot->replot();
}

void tcStripChart::slot_LegendItemChecked(const QVariant& itemInfo, bool abOn, int)
{
    if (QwtPlotItem* item = mLegend->itemOf(itemInfo))
        mLegend->setItemVisible(*item, abOn);
}

void tcStripChart::slot_LegendItemClicked(const QVariant& itemInfo, int)
{
    mLegend->itemOf(itemInfo);
}

void tcStripChart::slot_CustomContextMenu(const QPoint& pos)
{
    tcChartDialogs::popUp(plotMenu(pos), mForm->qwtPlot->mapToGlobal(pos));
}

void tcStripChart::slot_Pause(bool abChecked)
{
    mPaused = abChecked;
}

void tcStripChart::slot_showXAxis(bool abOn)
{
    mAxes->showTimeLabels(abOn);
}

void tcStripChart::slot_showMs(bool abOn)
{
    mAxes->showMilliseconds(abOn);
}

void tcStripChart::updateY1Axis()
{
    updateYAxis(0);
}

void tcStripChart::updateY2Axis()
{
    updateYAxis(1);
}

void tcStripChart::updateYAxis(int axis)
{
    mAxes->applyBoxes(axis);
}

void tcStripChart::resetData()
{
    const QVector<tcStripCurve*> curves = mCurves.takeAll();
    for (tcStripCurve* curve : curves)
        curve->detach();
    mReplot->request();
}

void tcStripChart::zoomed(const QRectF& arRect)
{
    mAxes->takeZoom(arRect);
}

void tcStripChart::slot_LegendContextMenu(const QPoint& pos)
{
    tcChartDialogs::popUp(legendMenu(pos), mLegend->legend().mapToGlobal(pos));
}

void tcStripChart::markerRequest(const QPoint& pos)
{
    tcMarkerTable::askText(mMarkers.get(), mMarkers->place(pos));
}

void tcStripChart::timerEvent(QTimerEvent* apEvent)
{
    if (apEvent->timerId() == mTimerId)
        tick();
    else
        QFrame::timerEvent(apEvent);
}

void tcStripChart::resizeEvent(QResizeEvent* apEvent)
{
    QFrame::resizeEvent(apEvent);
    const bool isLow = height() < cMinimumHeight;
    if (isLow && mVerbosity >= 1)
        qDebug() << windowTitle() << "Height below minimum, hiding X axis";
    if (isLow)
        mForm->actionShow_X_Axis->setChecked(false);
    mAxes->fitHeight(isLow);
}

void tcStripChart::closeEvent(QCloseEvent* apEvent)
{
    tcChartSettings::save(*tcSettings::create(), *this, mName);
    QFrame::closeEvent(apEvent);
}

void tcStripChart::followMinMax(tcStripCurve* apCurve)
{
    mMinMax->follow(apCurve);
    mForm->actionShow_Min_Max_Markers->setChecked(true);
    mMinMax->setShown(true);
    mMinMax->refresh();
    mForm->qwtPlot->replot();
}

void tcStripChart::savePicture(const QString& acFile)
{
    mFiles->savePicture(acFile, mName);
}

void tcStripChart::restoreSettings()
{
    tcChartSettings::restore(*tcSettings::create(), *this, mName);
}

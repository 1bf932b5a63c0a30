#pragma once

#include "stripchart/tcCurveTable.h"

#include <QFrame>

#include <functional>
#include <memory>

class QMenu;
class QPen;
class QRectF;
class QVariant;
class tcAxisControl;
class tcChartActions;
class tcChartDialogs;
class tcChartFiles;
class tcChartLog;
class tcChartMenu;
class tcFileTools;
class tcLegendControl;
class tcMarkerTable;
class tcMinMaxLines;
class tcPlotTools;
class tcReplotRequest;
class tcStripMarker;
namespace Ui
{
class StripChart;
}

/// A chart that scrolls with the clock and shows any number of curves on two value axes, with
/// legend, markers and menus. GUI thread only; readings of other threads come by queued signals
/// into updateData().
///
/// It owns its markers and all tools on the plot. Curves belong to their makers, who may delete
/// them at any time, also while a menu or dialog of the chart refers to them.
class tcStripChart : public QFrame
{
    Q_OBJECT

public:
    using tcClock = std::function<qint64()>; ///< the present, in ms since the epoch

    explicit tcStripChart(QWidget* apParent = nullptr);
    ~tcStripChart() override;

    /// Titles the window with the name and restores the settings saved under it. A chart that
    /// was given none takes the title of its first curve.
    void setChartName(const QString& acName);
    QString chartName() const { return mName; }
    /// Builds the window title anew from title, name, status and log file.
    void updateTitle(const QString& acName);
    /// What follows the name in the window title, written as it is.
    void setStatus(const QString& acStatus);

    /// Files the curve under the source's key and its own index, shows it and returns the key,
    /// a new one when acKey is null. Curves filed under the key at higher indices drop out of
    /// the table, not off the plot. A curve that is null or has a negative index is refused
    /// with a null key.
    QUuid addCurve(tcStripCurve* apCurve, const QUuid& acKey = QUuid());
    void removeCurve(tcStripCurve* apCurve); ///< off the plot and out of the table; not deleted
    void removeCurves(const QUuid& acKey);   ///< the same for all curves filed under the key
    QVector<tcStripCurve*> curves() const { return mCurves.curves(); }
    tcStripCurve* curve(const QUuid& acKey, int anIndex) const
    {
        return mCurves.find(acKey, anIndex); ///< null when there is none
    }
    /// Moves the curve to the left (0) or right (1) axis, which becomes visible.
    void assignAxis(tcStripCurve* apCurve, int axis);

    /// Shows [from, to] on the left (0) or right (1) axis, which becomes visible, and in its
    /// boxes. A range whose end is not above its start is ignored, here and below.
    void setYRange(int axis, double from, double to);
    /// Fits the left (0) or right (1) axis to the curve, or without one to all visible curves
    /// on it. A curve that is hidden or on the other axis changes nothing.
    void autoscaleY(int axis, const tcStripCurve* apCurve = nullptr);
    void setXRange(double from, double to); ///< ms since the epoch
    void setSpanMs(qint64 anSpanMs);        ///< of the scrolling window; 0 stops the scrolling

    /// A horizontal line that tells its name and value; returns its identifier among the
    /// markers.
    QUuid addLineMarker(const QString& acName, double anValue);
    /// Moves the line, with its label; false for an unknown identifier.
    bool setLineMarker(const QUuid& acId, double anValue, const QPen& acPen);
    tcStripMarker* marker(const QUuid& acId) const; ///< null for an unknown identifier
    tcMarkerTable& markers() const { return *mMarkers; }
    const tcMinMaxLines& minMaxLines() const { return *mMinMax; }

    QAction* logAction() const { return mLogAction; }
    bool isPaused() const { return mPaused; }
    bool isUpdating() const { return mTimerId != -1; } ///< whether the update timer runs
    bool stopUpdates();                                ///< whether they ran
    void startUpdates();
    void resumeFeed(); ///< back from a loaded file to live readings
    void tick();       ///< one pass of the update loop; the timer calls it

    void savePicture(const QString& acFile = QString()); ///< asks for the file unless given

    void setClock(tcClock aClock) { mClock = std::move(aClock); }
    void setVerbosity(int anLevel); ///< 0 keeps the debug log silent

    /// The menus as they are shown; pos in pixels of the plot and of the legend.
    std::unique_ptr<QMenu> plotMenu(const QPoint& pos);
    std::unique_ptr<QMenu> legendMenu(const QPoint& pos);

Q_SIGNALS:
    /// Readings of a curve left their limits or came back; for the operator.
    void limitCrossed(const QString& acText);

public Q_SLOTS:
    // The order of the chart's interface.
    void updateData(const QUuid& acKey, int anIndex, qint64 anMsSinceEpoch, double anValue);
    void slotSave();
    void clearSamples();
    void showLegend(bool abOn);
    void logData(bool abOn);
    void setSampleCount(int value);
    void showMinMax(bool abOn);
    void resetMinMax();
    void loadCsvFile(QString arFile = QString());
    void markerChanged(int marker_id);
    void slot_LegendItemChecked(const QVariant& itemInfo, bool abOn, int idx);
    void slot_LegendItemClicked(const QVariant& itemInfo, int idx);
    void slot_CustomContextMenu(const QPoint& pos);
    void slot_Pause(bool abChecked);
    void slot_showXAxis(bool abOn);
    void slot_showMs(bool abOn);
    void updateY1Axis();
    void updateY2Axis();
    void updateYAxis(int axis);
    void resetData();
    void zoomed(const QRectF& arRect);
    void slot_LegendContextMenu(const QPoint& pos);
    void markerRequest(const QPoint& pos);

protected:
    void timerEvent(QTimerEvent* apEvent) override;
    void resizeEvent(QResizeEvent* apEvent) override;
    void closeEvent(QCloseEvent* apEvent) override;

private:
    void connectPlot();
    void connectAxes();
    void connectLegend();
    void connectMenus();
    void connectTools();
    void makeFiles();
    void makeActions();

    void followMinMax(tcStripCurve* apCurve);
    void restoreSettings();

    std::unique_ptr<Ui::StripChart> mForm;
    std::unique_ptr<tcReplotRequest> mReplot;
    std::unique_ptr<tcPlotTools> mTools;
    std::unique_ptr<tcAxisControl> mAxes;
    std::unique_ptr<tcMinMaxLines> mMinMax;
    std::unique_ptr<tcMarkerTable> mMarkers;
    std::unique_ptr<tcLegendControl> mLegend;
    std::unique_ptr<tcChartMenu> mMenu;
    std::unique_ptr<tcChartDialogs> mDialogs;
    tcCurveTable mCurves;
    std::unique_ptr<tcChartLog> mLog;
    std::unique_ptr<tcChartFiles> mFiles;
    std::unique_ptr<tcFileTools> mFileTools;
    std::unique_ptr<tcChartActions> mActions;
    QAction* mLogAction; ///< owned by this
    tcClock mClock;
    QString mTitle;
    QString mName;
    QString mStatus;
    int mTimerId = -1;
    int mVerbosity = 0;
    bool mPaused = false;
};

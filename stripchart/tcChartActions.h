#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class QAction;
class QMenu;
class QwtLegend;
class QwtPlot;
class tcAxisControl;
class tcLimitAlarm;
class tcLimitsDialog;
class tcMeasuringCursors;
class tcPanning;
class tcPlotTools;
class tcReplotRequest;
class tcStatisticsDialog;

/// The chart's own actions, which end the menu of the plot: what the operator measures with.
/// They stand in a menu of their own, since that of the plot is long for a low screen. All of
/// it costs nothing until it is asked for. The actions have no object names, by which their
/// check states would be kept between runs.
class tcChartActions : public QObject
{
    Q_OBJECT

public:
    /// What it works on; all of it outlives the actions.
    struct tcParts
    {
        QWidget& chart; ///< whose actions these become
        QwtPlot& plot;
        tcReplotRequest& replot;
        tcAxisControl& axes;
        tcPlotTools& tools;
        QwtLegend& legend;
    };

    /// acIsLive tells whether the chart runs, acScroll brings the newest readings into view.
    tcChartActions(const tcParts& acParts, const std::function<bool()>& acIsLive,
                   const std::function<void()>& acScroll);
    ~tcChartActions() override;

    tcMeasuringCursors& cursors() const { return *mCursors; }
    void showStatistics();
    void showLimits();
    /// Back from moving and zooming to the live window and the values shown before.
    void follow();
    /// Another set of readings is shown: what was moved away from is no more.
    void forgetView();

Q_SIGNALS:
    void limitCrossed(const QString& acText); ///< for the operator

private:
    void connectPanning();
    void enableFollow();

    tcParts mParts;
    std::unique_ptr<QMenu> mMenu;
    std::function<void()> mScroll;
    std::unique_ptr<tcMeasuringCursors> mCursors;
    std::unique_ptr<tcPanning> mPanning;
    std::unique_ptr<tcLimitAlarm> mAlarm;
    QPointer<tcLimitsDialog> mLimits;         ///< as mStatistics
    QAction* mFollow;                         ///< owned by the menu
    QPointer<tcStatisticsDialog> mStatistics; ///< deleted with this, if it is not closed before
};

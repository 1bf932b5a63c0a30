#pragma once

#include <QObject>
#include <QPointer>

#include <memory>

class QMenu;
class QwtPlot;
class tcMeasuringCursors;
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
    };

    explicit tcChartActions(const tcParts& acParts);
    ~tcChartActions() override;

    tcMeasuringCursors& cursors() const { return *mCursors; }
    void showStatistics();

private:
    tcParts mParts;
    std::unique_ptr<QMenu> mMenu;
    std::unique_ptr<tcMeasuringCursors> mCursors;
    QPointer<tcStatisticsDialog> mStatistics; ///< deleted with this, if it is not closed before
};

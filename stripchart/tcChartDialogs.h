#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>

class QDialog;
class QMenu;
class QPoint;
class QwtPlot;
class tcAxisChooser;
class tcMarkerInfo;
class tcMarkerTable;
class tcStripCurve;

/// Opens what the chart shows beside itself. Nothing here is modal: readings go on meanwhile,
/// and whoever owns the chart may delete it with all that is open.
class tcChartDialogs : public QObject
{
    Q_OBJECT

public:
    explicit tcChartDialogs(QwtPlot& arPlot) : mPlot(arPlot) { }

    /// Each dialog is there once; asked for again it comes to the front.
    void showAxisChooser(const QVector<tcStripCurve*>& acCurves);
    void showMarkerInfo(tcMarkerTable& arMarkers);

    static void popUp(std::unique_ptr<QMenu> apMenu, const QPoint& acGlobalPos);

Q_SIGNALS:
    void axisChosen(tcStripCurve* apCurve, int anAxis); ///< 0 left, 1 right
    void markerChanged(int marker_id);

private:
    static void show(QDialog& arDialog);

    QwtPlot& mPlot;
    QPointer<tcAxisChooser> mAxisChooser; ///< owned by the plot
    QPointer<tcMarkerInfo> mMarkerInfo;   ///< owned by the plot
};

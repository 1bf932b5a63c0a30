#include "stripchart/tcChartDialogs.h"

#include "stripchart/tcAxisChooser.h"
#include "stripchart/tcMarkerInfo.h"

#include <QMenu>
#include <qwt_plot.h>

void tcChartDialogs::showAxisChooser(const QVector<tcStripCurve*>& acCurves)
{
    if (!mAxisChooser) {
        mAxisChooser = new tcAxisChooser(mPlot, acCurves, &mPlot);
        connect(mAxisChooser, &tcAxisChooser::axisChosen, this, &tcChartDialogs::axisChosen);
    }
    show(*mAxisChooser);
}

void tcChartDialogs::showMarkerInfo(tcMarkerTable& arMarkers)
{
    if (!mMarkerInfo) {
        mMarkerInfo = new tcMarkerInfo(arMarkers, &mPlot);
        connect(mMarkerInfo, &tcMarkerInfo::markerChanged, this,
                &tcChartDialogs::markerChanged);
    }
    show(*mMarkerInfo);
}

void tcChartDialogs::popUp(std::unique_ptr<QMenu> apMenu, const QPoint& acGlobalPos)
{
    QMenu* menu = apMenu.release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(acGlobalPos);
}

void tcChartDialogs::show(QDialog& arDialog)
{
    arDialog.setAttribute(Qt::WA_DeleteOnClose);
    arDialog.show();
    arDialog.raise();
    arDialog.activateWindow();
}

#include "stripchart/tcChartMenu.h"

#include "ui_StripChart.h"

#include <QClipboard>
#include <QMenu>

tcChartMenu::tcChartMenu(Ui::StripChart& arForm, QAction& arLogAction)
    : mForm(arForm), mLogAction(arLogAction)
{
}

std::unique_ptr<QMenu> tcChartMenu::menuAt(const QPoint& acPos, const tcContext& acContext)
{
    auto menu = std::make_unique<QMenu>(mForm.qwtPlot);
    menu->setToolTipsVisible(true);
    const QPoint canvasPos = mForm.qwtPlot->canvas()->mapFrom(mForm.qwtPlot, acPos);

    menu->addActions({mForm.actionPause_Updates, mForm.actionGrid, mForm.actionMinor_Grid});
    if (acContext.hasMinMaxCurve)
        menu->addActions({mForm.actionShow_Min_Max_Markers, mForm.actionReset_Min_Max});
    menu->addActions({mForm.actionZoom_Out, mForm.actionClear_Samples, mForm.actionAutoScale_Y,
                      mForm.actionAutoScale_Y2});
    connect(menu->addAction(tr("Assign Axis...")), &QAction::triggered, this,
            &tcChartMenu::axisChooserWanted);
    menu->addAction(mForm.actionMarkers);
    connect(menu->addAction(tr("Add marker here")), &QAction::triggered, this,
            [this, canvasPos] { Q_EMIT markerWanted(canvasPos); });
    menu->addActions({mForm.actionAutoScale_X, mForm.actionShow_X_Axis, mForm.actionShow_Left,
                      mForm.actionSave});
    connect(menu->addAction(tr("Copy")), &QAction::triggered, this, &tcChartMenu::copyPicture);
    connect(menu->addAction(tr("Save PNG")), &QAction::triggered, this,
            &tcChartMenu::pictureWanted);
    menu->addAction(&mLogAction);
    menu->addSeparator();
    connect(menu->addAction(tr("Reset")), &QAction::triggered, this, &tcChartMenu::resetWanted);
    menu->addSeparator();
    menu->addActions(acContext.ownActions);
    return menu;
}

void tcChartMenu::copyPicture() const
{
    QGuiApplication::clipboard()->setPixmap(mForm.qwtPlot->grab());
}

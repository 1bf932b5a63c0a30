#include "stripchart/tcChartPanel.h"

#include "stripchart/tcPlotTools.h"
#include "ui_StripChart.h"

#include <algorithm>

namespace
{
void connectButton(QAbstractButton* apButton, QAction* apAction)
{
    QObject::connect(apButton, &QAbstractButton::clicked, apAction, &QAction::trigger);
}

// Both keep their own texts, so the button can't simply show the action.
void connectSwitch(QAbstractButton* apButton, QAction* apAction)
{
    apButton->setChecked(apAction->isChecked());
    QObject::connect(apButton, &QAbstractButton::toggled, apAction, &QAction::setChecked);
    QObject::connect(apAction, &QAction::toggled, apButton, &QAbstractButton::setChecked);
}

// A splitter asks for the width once, long before all texts and fonts are known.
void fitSplitter(QSplitter& arSplitter, tcPanelArea& arArea)
{
    arSplitter.setStretchFactor(0, 0);
    arSplitter.setStretchFactor(1, 1);
    const auto fit = [&arSplitter, &arArea] {
        const int needed = arArea.neededWidth();
        arSplitter.setSizes({needed, std::max(arSplitter.width() - needed, 1)});
    };
    const auto fitting
        = QObject::connect(&arArea, &tcPanelArea::contentChanged, &arSplitter, fit);
    // The operator knows better.
    QObject::connect(&arSplitter, &QSplitter::splitterMoved, &arSplitter,
                     [fitting] { QObject::disconnect(fitting); });
}
} // namespace

void tcChartPanel::connectButtons(Ui::StripChart& arForm, QAction& arLogAction)
{
    arForm.toolButton_Pause->setDefaultAction(arForm.actionPause_Updates);
    arForm.toolButton_Log->setDefaultAction(&arLogAction);
    setLoadAction(arForm, arForm.actionLoad_from_File);
    connectButton(arForm.toolButtonClear, arForm.actionClear_Samples);
    connectButton(arForm.toolButtonMarkers, arForm.actionMarkers);
    connectButton(arForm.toolButton_Save, arForm.actionSave);
    connectButton(arForm.toolButtonAutoScaleX, arForm.actionAutoScale_X);
    connectButton(arForm.toolButtonAutoScaleY, arForm.actionAutoScale_Y);
    connectButton(arForm.toolButtonAutoScaleY2, arForm.actionAutoScale_Y2);
    connectSwitch(arForm.toolButton_showX, arForm.actionShow_X_Axis);
    connectSwitch(arForm.toolButton_showMs, arForm.actionShow_ms);
    fitSplitter(*arForm.splitter, *arForm.scrollAreaLeft);
}

void tcChartPanel::setLoadAction(Ui::StripChart& arForm, QAction* apAction)
{
    QToolButton& button = *arForm.toolButton_Load;
    const QList<QAction*> before = button.actions();
    button.setDefaultAction(apAction);
    // A button keeps its earlier actions and offers them in a menu of its own.
    for (QAction* action : before)
        if (action != apAction)
            button.removeAction(action);
}

void tcChartPanel::connectTools(Ui::StripChart& arForm, tcPlotTools& arTools)
{
    QObject::connect(arForm.actionGrid, &QAction::toggled, &arTools, &tcPlotTools::showGrid);
    QObject::connect(arForm.actionMinor_Grid, &QAction::toggled, &arTools,
                     &tcPlotTools::showMinorGrid);
    QObject::connect(arForm.actionZoom_Out, &QAction::triggered, &arTools,
                     &tcPlotTools::zoomOut);
}

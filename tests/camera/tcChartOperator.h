#pragma once

#include "stripchart/tcLimitsDialog.h"
#include "stripchart/tcStripChart.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QMenu>

/// What an operator does with the chart of a panel that is plotting: finds its window and sets
/// limits in the dialog.
namespace tcChartOperator
{

inline tcStripChart* shownChart()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* chart = qobject_cast<tcStripChart*>(window);
        if (chart && chart->isVisible())
            return chart;
    }
    return nullptr;
}

inline tcLimitsDialog* openLimits(tcStripChart& arChart)
{
    for (const QAction* action : arChart.actions()) {
        for (QAction* entry : action->menu() ? action->menu()->actions() : QList<QAction*>()) {
            if (entry->text() == QLatin1String("Limits..."))
                entry->trigger();
        }
    }
    return arChart.findChild<tcLimitsDialog*>();
}

template <class Widget>
Widget* named(const tcLimitsDialog& acDialog, const QString& acName)
{
    for (Widget* each : acDialog.findChildren<Widget*>()) {
        if (each->accessibleName() == acName)
            return each;
    }
    qFatal("no \"%s\" among the limits", qPrintable(acName));
    return nullptr;
}

inline void setUpperLimit(tcLimitsDialog& arDialog, const QString& acCurve, double anLimit)
{
    named<QDoubleSpinBox>(arDialog, "Upper limit of " + acCurve)->setValue(anLimit);
    named<QCheckBox>(arDialog, "Watch the upper limit of " + acCurve)->setChecked(true);
}

inline void switchBell(const tcLimitsDialog& acDialog, bool abOn)
{
    for (QCheckBox* each : acDialog.findChildren<QCheckBox*>()) {
        if (each->text().contains(QLatin1String("bell")))
            each->setChecked(abOn);
    }
}

} // namespace tcChartOperator

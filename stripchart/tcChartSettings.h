#pragma once

#include <QString>

class QSettings;
class QWidget;

/// What a chart keeps between runs under its name: where its window was, the check states of
/// its actions and the values of its boxes, each under its object name.
namespace tcChartSettings
{

/// "tcStripChart", extended by the chart's name where it has one.
QString group(const QString& acChartName);

/// Pausing and logging belong to the moment and are left out, both ways.
void restore(QSettings& arSettings, QWidget& arChart, const QString& acChartName);
void save(QSettings& arSettings, const QWidget& acChart, const QString& acChartName);

} // namespace tcChartSettings

#pragma once

#include <QString>

/// How a chart is called in its window title.
namespace tcChartNames
{
/// What stands in the title when a chart holds no curves: "Trend Chart:".
QString defaultTitle();

/// The title of a chart without a name: its first curve and how many sources there are beside
/// that curve's own.
QString titleOfCurves(const QString& acFirstCurve, int anSources);

struct tcTitleParts
{
    QString title;
    QString name;
    QString status;  ///< follows the name as it is
    QString logFile; ///< native separators; empty while nothing is logged
};

/// Title, blank, name, status and log file. A chart without a name shows no title.
QString windowTitle(const tcTitleParts& acParts);
} // namespace tcChartNames

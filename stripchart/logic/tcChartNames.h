#pragma once

#include <QDateTime>
#include <QString>

/// How a chart is called in its window title, and its files.
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

/// Proposed for a log started at that time, without its folder: the chart's name, what no file
/// system allows in it replaced by "_", and the time.
QString logFile(const QString& acChartName, const QDateTime& acStart);

/// The same for an export of what was read from that time on.
QString exportFile(const QString& acChartName, const QDateTime& acFrom);

/// The file beside a log that takes its markers. Empty where the log itself is not to be found.
QString markerFile(const QString& acLogFile);
} // namespace tcChartNames

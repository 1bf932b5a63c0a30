#pragma once

#include <QDateTime>
#include <QString>

/// How a chart, its files and what it holds are called: in window title, folders and menus.
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

/// What an operator named, as an entry of a menu shows it: an ampersand there would be taken
/// for the mark of a shortcut.
QString menuText(QString aName);

/// Proposed for a log started at that time, without its folder: the chart's name, what no file
/// system allows in it replaced by "_", and the time.
QString logFile(const QString& acChartName, const QDateTime& acStart);

/// The same for an export of what was read from that time on.
QString exportFile(const QString& acChartName, const QDateTime& acFrom);

/// The file beside a log that takes its markers. Empty where the log itself is not to be found.
QString markerFile(const QString& acLogFile);
} // namespace tcChartNames

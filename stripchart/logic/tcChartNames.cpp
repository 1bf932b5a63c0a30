#include "stripchart/logic/tcChartNames.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>

namespace
{
QString fileOf(const QString& acChartName, const char* apKind, const QDateTime& acTime)
{
    static const QRegularExpression refused(QStringLiteral("[\\\\/:*?\"<>|]"));
    QString name = acChartName;
    name.replace(refused, QStringLiteral("_"));
    return name + QLatin1String(apKind) + acTime.toString(QStringLiteral("yyyyMMdd_HHmmss"))
        + QStringLiteral(".csv");
}
} // namespace

namespace tcChartNames
{
QString defaultTitle()
{
    return QCoreApplication::translate("tcStripChart", "Trend Chart:");
}

QString titleOfCurves(const QString& acFirstCurve, int anSources)
{
    QString title = defaultTitle() + acFirstCurve;
    if (anSources > 1)
        title += QCoreApplication::translate("tcStripChart", " + %1 more").arg(anSources - 1);
    return title;
}

QString windowTitle(const tcTitleParts& acParts)
{
    QString text;
    if (!acParts.name.isEmpty())
        text = QStringLiteral("%1 %2").arg(acParts.title, acParts.name);
    text += acParts.status;
    if (!acParts.logFile.isEmpty())
        text += QCoreApplication::translate("tcStripChart", "- logging to %1")
                    .arg(acParts.logFile);
    return text;
}

QString menuText(QString aName)
{
    return aName.replace('&', QLatin1String("&&"));
}

QString logFile(const QString& acChartName, const QDateTime& acStart)
{
    return fileOf(acChartName, "_chart_log_", acStart);
}

QString exportFile(const QString& acChartName, const QDateTime& acFrom)
{
    return fileOf(acChartName, "_export_", acFrom);
}

QString markerFile(const QString& acLogFile)
{
    const QFileInfo log(acLogFile);
    const QString path = log.canonicalFilePath();
    // As designed: under the log's own path, not beside it. Where a log has vanished its path
    // is empty, and the root folder is nobody's place for markers.
    return path.isEmpty() ? QString()
                          : path + '/' + log.baseName() + QStringLiteral("_meta.txt");
}
} // namespace tcChartNames

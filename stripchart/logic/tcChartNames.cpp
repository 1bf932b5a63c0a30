#include "stripchart/logic/tcChartNames.h"

#include <QCoreApplication>

namespace
{
QString tr(const char* apText)
{
    return QCoreApplication::translate("tcStripChart", apText);
}
} // namespace

namespace tcChartNames
{
QString defaultTitle()
{
    return tr(QT_TRANSLATE_NOOP("tcStripChart", "Trend Chart:"));
}

QString titleOfCurves(const QString& acFirstCurve, int anSources)
{
    QString title = defaultTitle() + acFirstCurve;
    if (anSources > 1)
        title += tr(QT_TRANSLATE_NOOP("tcStripChart", " + %1 more")).arg(anSources - 1);
    return title;
}

QString windowTitle(const tcTitleParts& acParts)
{
    QString text;
    if (!acParts.name.isEmpty())
        text = QStringLiteral("%1 %2").arg(acParts.title, acParts.name);
    text += acParts.status;
    if (!acParts.logFile.isEmpty())
        text += tr(QT_TRANSLATE_NOOP("tcStripChart", "- logging to %1")).arg(acParts.logFile);
    return text;
}
} // namespace tcChartNames

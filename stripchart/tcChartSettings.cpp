#include "stripchart/tcChartSettings.h"

#include "app/tcSettings.h"
#include "stripchart/PrecisionScaleDraw.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <qwt_plot.h>

namespace
{

constexpr char cGeometry[] = "Geometry";
constexpr char cReportPrecision[] = "ReportPrecision"; ///< also a property of the chart
constexpr int cDefaultPrecision = 3;
constexpr int cMaxPrecision = 15;

/// Actions and boxes of the form, not those of dialogs that happen to be open.
template <typename T>
QList<T*> controls(const QWidget& acChart)
{
    QList<T*> named;
    for (T* control : acChart.findChildren<T*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))
            || name == QLatin1String("actionPause_Updates"))
            continue;
        named.append(control);
    }
    return named;
}

/// Decimals of the left axis until a range of its own decides them anew.
void restorePrecision(const QSettings& acSettings, QWidget& arChart)
{
    bool ok = false;
    const int precision = acSettings.value(cReportPrecision).toInt(&ok);
    auto* plot = arChart.findChild<QwtPlot*>();
    if (!ok || precision < 0 || precision > cMaxPrecision || !plot)
        return;
    arChart.setProperty(cReportPrecision, precision);
    if (precision == cDefaultPrecision)
        return;
    if (auto* left = dynamic_cast<PrecisionScaleDraw*>(plot->axisScaleDraw(QwtPlot::yLeft)))
        left->setPrecision(precision);
}

int precisionOf(const QWidget& acChart)
{
    const QVariant stored = acChart.property(cReportPrecision);
    return stored.isValid() ? stored.toInt() : cDefaultPrecision;
}

} // namespace

QString tcChartSettings::group(const QString& acChartName)
{
    const QString name = QStringLiteral("tcStripChart");
    return acChartName.isEmpty() ? name : name + '_' + acChartName;
}

void tcChartSettings::restore(QSettings& arSettings, QWidget& arChart,
                              const QString& acChartName)
{
    arSettings.beginGroup(group(acChartName));
    if (arSettings.contains(cGeometry))
        arChart.restoreGeometry(arSettings.value(cGeometry).toByteArray());
    restorePrecision(arSettings, arChart);
    for (QAction* action : controls<QAction>(arChart))
        tcSettings::restore(arSettings, *action);
    for (QSpinBox* box : controls<QSpinBox>(arChart))
        tcSettings::restore(arSettings, *box);
    for (QDoubleSpinBox* box : controls<QDoubleSpinBox>(arChart))
        tcSettings::restore(arSettings, *box);
    arSettings.endGroup();
}

void tcChartSettings::save(QSettings& arSettings, const QWidget& acChart,
                           const QString& acChartName)
{
    arSettings.beginGroup(group(acChartName));
    arSettings.setValue(cGeometry, acChart.saveGeometry());
    arSettings.setValue(cReportPrecision, precisionOf(acChart));
    for (const QAction* action : controls<QAction>(acChart))
        tcSettings::save(arSettings, *action);
    for (const QSpinBox* box : controls<QSpinBox>(acChart))
        tcSettings::save(arSettings, *box);
    for (const QDoubleSpinBox* box : controls<QDoubleSpinBox>(acChart))
        tcSettings::save(arSettings, *box);
    arSettings.endGroup();
    arSettings.sync();
}

#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"

#include <QAction>
#include <QMenu>
#include <QTest>

#include <limits>

//! [action]
/// An entry of the chart's menu that says, behind the chart's name, how far the readings
/// spread.
QAction* addSpreadAction(tcStripChart& arChart)
{
    auto* action = new QAction(QStringLiteral("Show spread"), &arChart);
    QObject::connect(action, &QAction::triggered, &arChart, [&arChart] {
        double lowest = std::numeric_limits<double>::max();
        double highest = std::numeric_limits<double>::lowest();
        for (const tcStripCurve* curve : arChart.curves()) {
            double low = 0;
            double high = 0;
            if (!curve->finiteYRange(&low, &high))
                continue; // no readings yet
            lowest = std::min(lowest, low);
            highest = std::max(highest, high);
        }
        if (lowest <= highest)
            arChart.setStatus(QStringLiteral(" - spread %1").arg(highest - lowest));
    });
    arChart.addAction(action);
    return action;
}
//! [action]

/// The worked example of a chart action.
class tst_ChartAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsInTheMenu();
    void saysTheSpread();
    void saysNothingWithoutReadings();
};

void tst_ChartAction::standsInTheMenu()
{
    tcStripChart chart;
    QAction* action = addSpreadAction(chart);
    QVERIFY(chart.plotMenu({10, 10})->actions().contains(action));
}

void tst_ChartAction::saysTheSpread()
{
    tcStripCurve curve(0);
    tcStripCurve empty(1);
    tcStripChart chart;
    chart.setChartName("Test");
    const QUuid key = chart.addCurve(&curve);
    chart.addCurve(&empty, key);
    curve.addSample(1000, 20.5);
    curve.addSample(2000, 23.0);
    addSpreadAction(chart)->trigger();
    QVERIFY2(chart.windowTitle().endsWith(" - spread 2.5"), qPrintable(chart.windowTitle()));
}

void tst_ChartAction::saysNothingWithoutReadings()
{
    tcStripChart chart;
    chart.setChartName("Test");
    const QString title = chart.windowTitle();
    addSpreadAction(chart)->trigger();
    QCOMPARE(chart.windowTitle(), title);
}

QTEST_MAIN(tst_ChartAction)
#include "tst_chartaction.moc"

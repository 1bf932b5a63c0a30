#include "stripchart/tcMinMaxLines.h"
#include "tests/stripchart/tcChartProbe.h"

#include <QMetaMethod>
#include <QSplitter>
#include <QtTest>
#include <qwt_plot_grid.h>

class tst_StripChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slotsInTheirOrder();
    void defaultsAtConstruction();
    void spanBoxShows99WhileSpanIsTenSeconds();
    void firstCurveNamesTheChart();
    void givenNameTitlesTheWindow();
    void titleOfChartWithoutName();
    void statusFollowsTheName();
    void addedCurveIsFiledAndShown();
    void addedCurveTakesTheSampleCount();
    void addedCurveWidensTheTimeAxis();
    void emptyCurveLeavesTheTimeAxis();
    void lowerIndexDropsHigherOnesOutOfTheTable();
    void refusedCurves();
};

void tst_StripChart::slotsInTheirOrder()
{
    const QStringList expected{"updateData(QUuid,int,qlonglong,double)",
                               "slotSave()",
                               "clearSamples()",
                               "showLegend(bool)",
                               "logData(bool)",
                               "setSampleCount(int)",
                               "showMinMax(bool)",
                               "resetMinMax()",
                               "loadCsvFile(QString)",
                               "loadCsvFile()",
                               "markerChanged(int)",
                               "slot_LegendItemChecked(QVariant,bool,int)",
                               "slot_LegendItemClicked(QVariant,int)",
                               "slot_CustomContextMenu(QPoint)",
                               "slot_Pause(bool)",
                               "slot_showXAxis(bool)",
                               "slot_showMs(bool)",
                               "updateY1Axis()",
                               "updateY2Axis()",
                               "updateYAxis(int)",
                               "resetData()",
                               "zoomed(QRectF)",
                               "slot_LegendContextMenu(QPoint)",
                               "markerRequest(QPoint)"};
    QStringList found;
    const QMetaObject& meta = tcStripChart::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() != QMetaMethod::Slot)
            continue;
        QCOMPARE(method.access(), QMetaMethod::Public);
        found += QString::fromLatin1(method.methodSignature()).replace("qint64", "qlonglong");
    }
    QCOMPARE(found, expected);
}

void tst_StripChart::defaultsAtConstruction()
{
    tcChartProbe probe;
    QCOMPARE(probe.plot->minimumHeight(), 120);
    QVERIFY(!probe.plot->autoDelete());
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(0.0, 100.0));
    QCOMPARE(probe.plot->axisFont(QwtPlot::xBottom).pixelSize(), 9);
    QCOMPARE(probe.child<QSpinBox>("spinBoxSamples")->value(), 1000);
    QCOMPARE(probe.child<QSpinBox>("spinBoxSamples")->minimum(), 100);
    QCOMPARE(probe.child<QSpinBox>("spinBoxSamples")->maximum(), 100000);
    QVERIFY(!probe.chart->isPaused());
    QVERIFY(probe.chart->isUpdating());
    QVERIFY(!probe.plot->axisEnabled(QwtPlot::yRight));
    QVERIFY(!probe.chart->minMaxLines().isShown());
    QCOMPARE(probe.legend->maxColumns(), 1u);
    QCOMPARE(probe.legend->defaultItemMode(), QwtLegendData::Checkable);
    QVERIFY(probe.child<QWidget>("groupBoxLegend")->isAncestorOf(probe.legend));
    QVERIFY(probe.child<QSplitter>("splitter")->isAncestorOf(probe.plot));
    QVERIFY(probe.plot->canvasBackground().color().lightness() < 32);
    QCOMPARE(probe.plot->itemList(QwtPlotItem::Rtti_PlotGrid).size(), 1);
    const auto* grid
        = static_cast<QwtPlotGrid*>(probe.plot->itemList(QwtPlotItem::Rtti_PlotGrid).first());
    QVERIFY(grid->isVisible() && grid->xEnabled() && grid->yEnabled());
    QVERIFY(!grid->xMinEnabled() && !grid->yMinEnabled());
    QVERIFY(probe.chart->logAction()->isCheckable());
    QCOMPARE(probe.chart->logAction()->text(), QString("Log Data..."));
    QCOMPARE(probe.child<QToolButton>("toolButton_Log")->defaultAction(),
             probe.chart->logAction());
}

void tst_StripChart::spanBoxShows99WhileSpanIsTenSeconds()
{
    tcChartProbe probe;
    const auto* span = probe.child<QSpinBox>("spinBoxSpanSec");
    QCOMPARE(span->value(), 99);
    QCOMPARE(span->minimum(), 1);
    QCOMPARE(span->maximum(), 86400);
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom).width(), 10000.0);
}

void tst_StripChart::firstCurveNamesTheChart()
{
    tcChartProbe probe;
    const auto a = probe.curve("A");
    const auto b = probe.curve("B", 1);
    const QUuid key = probe.chart->addCurve(a.get());
    probe.chart->addCurve(b.get(), key);
    QCOMPARE(probe.chart->chartName(), QString("A"));
    QCOMPARE(probe.chart->windowTitle(), QString("Trend Chart: A"));
}

void tst_StripChart::givenNameTitlesTheWindow()
{
    tcChartProbe probe;
    probe.chart->setChartName("Sensors");
    QCOMPARE(probe.chart->windowTitle(), QString("Sensors"));
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    QCOMPARE(probe.chart->chartName(), QString("Sensors"));
    QCOMPARE(probe.chart->windowTitle(), QString("Sensors"));
}

void tst_StripChart::titleOfChartWithoutName()
{
    tcChartProbe probe;
    probe.chart->updateTitle("");
    QCOMPARE(probe.chart->windowTitle(), QString());
    const auto a = probe.curve("A");
    const auto b = probe.curve("B");
    probe.chart->addCurve(a.get(), QUuid("{00000000-0000-0000-0000-000000000001}"));
    probe.chart->addCurve(b.get(), QUuid("{00000000-0000-0000-0000-000000000002}"));
    probe.chart->updateTitle("");
    QCOMPARE(probe.chart->windowTitle(), QString());
    probe.chart->updateTitle("X");
    QCOMPARE(probe.chart->windowTitle(), QString("Trend Chart:A + 1 more X"));
}

void tst_StripChart::statusFollowsTheName()
{
    tcChartProbe probe;
    probe.chart->setChartName("Sensors");
    probe.chart->setStatus("- Unable to open x.csv");
    QCOMPARE(probe.chart->windowTitle(), QString("Trend Chart: Sensors- Unable to open x.csv"));
    probe.chart->setStatus("");
    QCOMPARE(probe.chart->windowTitle(), QString("Trend Chart: Sensors"));
}

void tst_StripChart::addedCurveIsFiledAndShown()
{
    tcChartProbe probe;
    const auto a = probe.curve("A", 2);
    a->setVisible(false);
    const QUuid key = probe.chart->addCurve(a.get());
    QVERIFY(!key.isNull());
    QCOMPARE(probe.chart->curve(key, 2), a.get());
    QCOMPARE(probe.chart->curve(key, 0), nullptr);
    QCOMPARE(a->plot(), probe.plot);
    QVERIFY(a->isVisible());
    QVERIFY(probe.label(a.get()));
    QVERIFY(probe.label(a.get())->isChecked());
    const QUuid own = QUuid::createUuid();
    const auto b = probe.curve("B");
    QCOMPARE(probe.chart->addCurve(b.get(), own), own);
}

void tst_StripChart::addedCurveTakesTheSampleCount()
{
    tcChartProbe probe;
    probe.child<QSpinBox>("spinBoxSamples")->setValue(2500);
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    QCOMPARE(a->sampleCount(), 2500);
}

void tst_StripChart::addedCurveWidensTheTimeAxis()
{
    tcChartProbe probe;
    probe.chart->setXRange(5000.0, 6000.0);
    const auto a = probe.curve("A");
    a->addSample(4000, 1.0);
    a->addSample(7000, 2.0);
    probe.chart->addCurve(a.get());
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(4000.0, 7000.0));
    const auto b = probe.curve("B", 1);
    b->addSample(5500, 1.0);
    probe.chart->addCurve(b.get());
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(4000.0, 7000.0));
}

void tst_StripChart::emptyCurveLeavesTheTimeAxis()
{
    tcChartProbe probe;
    probe.chart->setXRange(5000.0, 6000.0);
    const auto a = probe.curve("A");
    probe.chart->addCurve(a.get());
    QCOMPARE(probe.shown(QwtPlot::xBottom), QwtInterval(5000.0, 6000.0));
}

void tst_StripChart::lowerIndexDropsHigherOnesOutOfTheTable()
{
    tcChartProbe probe;
    const auto three = probe.curve("three", 3);
    const auto zero = probe.curve("zero", 0);
    const QUuid key = probe.chart->addCurve(three.get());
    probe.chart->addCurve(zero.get(), key);
    QCOMPARE(probe.chart->curve(key, 3), nullptr);
    QCOMPARE(probe.chart->curve(key, 0), zero.get());
    QCOMPARE(probe.chart->curves(), QVector<tcStripCurve*>{zero.get()});
    QCOMPARE(three->plot(), probe.plot);
}

void tst_StripChart::refusedCurves()
{
    tcChartProbe probe;
    QVERIFY(probe.chart->addCurve(nullptr).isNull());
    tcStripCurve negative(-1);
    QVERIFY(probe.chart->addCurve(&negative).isNull());
    QVERIFY(!negative.plot());
}

QTEST_MAIN(tst_StripChart)
#include "tst_stripchart.moc"

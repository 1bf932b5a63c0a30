#include "stripchart/tcMarkerInfo.h"
#include "stripchart/tcMarkerTable.h"
#include "tests/stripchart/tcThreeCurves.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QtTest>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(tcThreeCurves&)>)

/// Whatever changes what the curves look like is seen at once, with no reading to help it.
class tst_ChartRepaints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actions_data();
    void actions();
    void menuEntries_data();
    void menuEntries();
    void boxes_data();
    void boxes();
    void legendClick();
    void addedCurve();
    void textOfAMarkerInItsList();
    void slotsOfTheChart_data();
    void slotsOfTheChart();

private:
    /// Three curves with samples in sight, one on the right axis, nothing left to paint.
    static std::unique_ptr<tcThreeCurves> quietChart()
    {
        auto probe = std::make_unique<tcThreeCurves>();
        for (tcStripCurve* curve : probe->chart->curves()) {
            curve->addSample(probe->now - 4000, 20.0);
            curve->addSample(probe->now - 2000, 30.0);
        }
        probe->chart->assignAxis(probe->c.get(), 1);
        entry(*probe->menuOf(probe->a.get()), "Show Min/Max markers for A")->trigger();
        probe->chart->markerRequest({60, 40});
        probe->chart->tick();
        probe->settle();
        return probe;
    }
    static bool isPainted(tcThreeCurves& arProbe, const std::function<void()>& acAct)
    {
        tcPaintCounter counter(arProbe.plot->canvas());
        acAct();
        return QTest::qWaitFor([&counter] { return counter.count > 0; }, cPatienceMs);
    }
};

void tst_ChartRepaints::actions_data()
{
    QTest::addColumn<QString>("what");
    for (const char* name :
         {"actionGrid", "actionMinor_Grid", "actionZoom_Out", "actionAutoScale_Y",
          "actionAutoScale_Y2", "actionAutoScale_X", "actionClear_Samples",
          "actionShow_Min_Max_Markers", "actionReset_Min_Max"})
        QTest::newRow(name) << QString(name);
}

void tst_ChartRepaints::actions()
{
    QFETCH(QString, what);
    const auto probe = quietChart();
    QAction* action = probe->action(qPrintable(what));
    QVERIFY(isPainted(*probe, [action] { action->trigger(); }));
}

void tst_ChartRepaints::menuEntries_data()
{
    QTest::addColumn<QString>("what");
    for (const char* text :
         {"Hide all", "Hide all except A", "Show Min/Max markers for A",
          "Reset Min/Max markers for A", "Autoscale for A", "Add marker here", "Reset"})
        QTest::newRow(text) << QString(text);
}

void tst_ChartRepaints::menuEntries()
{
    QFETCH(QString, what);
    const auto probe = quietChart();
    const auto ofLegend = probe->menuOf(probe->a.get());
    const auto ofPlot = probe->chart->plotMenu({100, 100});
    QAction* action = entry(*ofLegend, what);
    if (!action)
        action = entry(*ofPlot, what);
    QVERIFY(action);
    QVERIFY(isPainted(*probe, [action] { action->trigger(); }));
}

void tst_ChartRepaints::boxes_data()
{
    QTest::addColumn<QString>("what");
    for (const char* name : {"doubleSpinBoxYMin", "doubleSpinBoxYMax", "doubleSpinBoxY2Min",
                             "doubleSpinBoxY2Max", "spinBoxSpanSec"})
        QTest::newRow(name) << QString(name);
}

void tst_ChartRepaints::boxes()
{
    QFETCH(QString, what);
    const auto probe = quietChart();
    auto* box = probe->child<QAbstractSpinBox>(qPrintable(what));
    QVERIFY(isPainted(*probe, [box] { box->stepUp(); }));
}

void tst_ChartRepaints::legendClick()
{
    const auto probe = quietChart();
    QVERIFY(isPainted(
        *probe, [&probe] { QTest::mouseClick(probe->label(probe->b.get()), Qt::LeftButton); }));
}

void tst_ChartRepaints::addedCurve()
{
    const auto probe = quietChart();
    probe->chart->removeCurve(probe->b.get());
    probe->settle();
    QVERIFY(isPainted(*probe, [&probe] { probe->chart->addCurve(probe->b.get()); }));
}

void tst_ChartRepaints::textOfAMarkerInItsList()
{
    const auto probe = quietChart();
    probe->action("actionMarkers")->trigger();
    auto* list = probe->child<tcMarkerInfo>("tcMarkerInfo");
    QVERIFY(QTest::qWaitForWindowExposed(list));
    probe->settle();
    auto* edit = list->findChild<QLineEdit*>();
    QVERIFY(isPainted(*probe, [edit] { edit->setText("warm"); }));
}

void tst_ChartRepaints::slotsOfTheChart_data()
{
    using tcAct = std::function<void(tcThreeCurves&)>;
    QTest::addColumn<tcAct>("act");
    QTest::newRow("assigned axis")
        << tcAct([](tcThreeCurves& arProbe) { arProbe.chart->assignAxis(arProbe.b.get(), 1); });
    QTest::newRow("deleted marker") << tcAct([](tcThreeCurves& arProbe) {
        arProbe.chart->markers().remove(arProbe.chart->markers().order().first());
    });
    QTest::newRow("tick") << tcAct([](tcThreeCurves& arProbe) { arProbe.chart->tick(); });
    QTest::newRow("reading") << tcAct([](tcThreeCurves& arProbe) {
        arProbe.chart->updateData(arProbe.key, 0, arProbe.now, 25.0);
    });
    QTest::newRow("samples kept")
        << tcAct([](tcThreeCurves& arProbe) { arProbe.chart->setSampleCount(500); });
}

void tst_ChartRepaints::slotsOfTheChart()
{
    QFETCH(std::function<void(tcThreeCurves&)>, act);
    const auto probe = quietChart();
    QVERIFY(isPainted(*probe, [&] { act(*probe); }));
}

QTEST_MAIN(tst_ChartRepaints)
#include "tst_chartrepaints.moc"

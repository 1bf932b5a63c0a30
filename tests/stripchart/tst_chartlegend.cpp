#include "stripchart/tcMinMaxLines.h"
#include "tests/stripchart/tcThreeCurves.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QtTest>

class tst_ChartLegend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setApplicationDisplayName("Vexa Tarvik"); }

    void legendMenuBesideLabels();
    void legendMenuOnALabel();
    void legendMenuBetweenTwoLabels();
    void legendMenuOnALabelOfNoStripCurve();
    void legendMenuEscapesAmpersands();
    void legendMenuOpensOnRequest();
    void hideAllAndShowAll();
    void hideAllExcept();
    void legendCheckBoxHidesTheCurve();
    void minMaxFromTheLegend();
    void resetMinMaxFromTheLegend();
    void autoscaleFromTheLegend();
    void autoscaleOfOneCurve();
    void renameChangesTheLegend();
    void renameToNothingIsIgnored();
    void renamedCurveKeepsItsCheckMark();
    void curveDestroyedWhileRenaming();
    void chartDestroyedWhileRenaming();
    void curveDestroyedWhileItsMenuIsOpen();
    void curveMovedAndHiddenWhileItsMenuIsOpen();
    void staleLegendInformationIsIgnored();
    void legendClickHasNoEffect();
    void longNamesAreCut();
};

void tst_ChartLegend::legendMenuBesideLabels()
{
    tcThreeCurves probe;
    QCOMPARE(texts(*probe.chart->legendMenu(probe.beside())),
             (QStringList{"Hide all", "Show all"}));
}

void tst_ChartLegend::legendMenuOnALabel()
{
    tcThreeCurves probe;
    QCOMPARE(
        texts(*probe.menuOf(probe.b.get())),
        (QStringList{"Hide all", "Show all", "Hide all except B", "Show Min/Max markers for B",
                     "Reset Min/Max markers for B", "Autoscale for B", "Rename B"}));
}

void tst_ChartLegend::legendMenuBetweenTwoLabels()
{
    tcThreeCurves probe;
    const int x = probe.at(probe.a.get()).x();
    for (int y = probe.at(probe.a.get()).y(); y <= probe.at(probe.c.get()).y(); ++y)
        QVERIFY2(probe.chart->legendMenu({x, y})->actions().size() > 2,
                 qPrintable(QString("nothing at %1").arg(y)));
}

void tst_ChartLegend::legendMenuOnALabelOfNoStripCurve()
{
    tcThreeCurves probe;
    QwtPlotCurve reference("Reference");
    reference.attach(probe.plot);
    QTRY_VERIFY(probe.label(&reference)->isVisible());
    const auto menu = probe.menuOf(&reference);
    QCOMPARE(texts(*menu), (QStringList{"Hide all", "Show all", "Hide all except Reference"}));
    entry(*menu, "Hide all except Reference")->trigger();
    QVERIFY(reference.isVisible());
    for (tcStripCurve* curve : probe.chart->curves())
        QVERIFY(!curve->isVisible() && !probe.label(curve)->isChecked());
    reference.detach();
    entry(*menu, "Show all")->trigger();
    entry(*menu, "Hide all except Reference")->trigger(); // it is gone
    for (tcStripCurve* curve : probe.chart->curves())
        QVERIFY(curve->isVisible());
}

void tst_ChartLegend::legendMenuEscapesAmpersands()
{
    tcThreeCurves probe;
    probe.b->setTitle(QString("B & %1"));
    QCOMPARE(texts(*probe.menuOf(probe.b.get())).at(2), QString("Hide all except B && %1"));
}

void tst_ChartLegend::legendMenuOpensOnRequest()
{
    tcThreeCurves probe;
    QContextMenuEvent request(QContextMenuEvent::Mouse, probe.at(probe.b.get()),
                              probe.legend->mapToGlobal(probe.at(probe.b.get())));
    QApplication::sendEvent(probe.legend, &request);
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    QCOMPARE(texts(*menu).last(), QString("Rename B"));
    menu->close();
}

void tst_ChartLegend::hideAllAndShowAll()
{
    tcThreeCurves probe;
    entry(*probe.chart->legendMenu(probe.beside()), "Hide all")->trigger();
    for (tcStripCurve* curve : probe.chart->curves()) {
        QVERIFY(!curve->isVisible());
        QVERIFY(!probe.label(curve)->isChecked());
    }
    entry(*probe.chart->legendMenu(probe.beside()), "Show all")->trigger();
    for (tcStripCurve* curve : probe.chart->curves()) {
        QVERIFY(curve->isVisible());
        QVERIFY(probe.label(curve)->isChecked());
    }
}

void tst_ChartLegend::hideAllExcept()
{
    tcThreeCurves probe;
    entry(*probe.menuOf(probe.a.get()), "Hide all except A")->trigger();
    for (tcStripCurve* curve : probe.chart->curves()) {
        QCOMPARE(curve->isVisible(), curve == probe.a.get());
        QCOMPARE(probe.label(curve)->isChecked(), curve == probe.a.get());
    }
}

void tst_ChartLegend::legendCheckBoxHidesTheCurve()
{
    tcThreeCurves probe;
    QTest::mouseClick(probe.label(probe.b.get()), Qt::LeftButton);
    QVERIFY(!probe.b->isVisible());
    QVERIFY(!probe.label(probe.b.get())->isChecked());
    QTest::mouseClick(probe.label(probe.b.get()), Qt::LeftButton);
    QVERIFY(probe.b->isVisible());
    QVERIFY(probe.label(probe.b.get())->isChecked());
}

void tst_ChartLegend::minMaxFromTheLegend()
{
    tcThreeCurves probe;
    probe.b->addSample(1000, 7.0);
    entry(*probe.menuOf(probe.b.get()), "Show Min/Max markers for B")->trigger();
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    QVERIFY(probe.action("actionShow_Min_Max_Markers")->isChecked());
    QVERIFY(lines.minLine().isVisible() && lines.maxLine().isVisible());
    QCOMPARE(lines.minLine().curve(), probe.b.get());
    QCOMPARE(lines.maxLine().curve(), probe.b.get());
    QCOMPARE(lines.minLine().yValue(), 7.0);
    QCOMPARE(lines.minLine().linePen().color(), probe.b->pen().color());
}

void tst_ChartLegend::resetMinMaxFromTheLegend()
{
    tcThreeCurves probe;
    probe.b->addSample(1000, 7.0);
    entry(*probe.menuOf(probe.b.get()), "Show Min/Max markers for B")->trigger();
    probe.b->clear();
    probe.b->addSample(1000, 9.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 7.0);
    entry(*probe.menuOf(probe.c.get()), "Reset Min/Max markers for C")->trigger();
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 9.0);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), 9.0);
}

void tst_ChartLegend::autoscaleFromTheLegend()
{
    tcThreeCurves probe;
    probe.a->addSample(1000, 900.0);
    probe.b->addSample(1000, 3.2);
    probe.b->addSample(1000, 47.9);
    entry(*probe.menuOf(probe.b.get()), "Autoscale for B")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 50.0));
    probe.chart->assignAxis(probe.b.get(), 1);
    entry(*probe.menuOf(probe.b.get()), "Autoscale for B")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yRight), QwtInterval(0.0, 50.0));
}

void tst_ChartLegend::autoscaleOfOneCurve()
{
    tcThreeCurves probe;
    probe.a->addSample(1000, 3.2);
    probe.a->addSample(1000, 47.9);
    probe.b->addSample(1000, 95.0);
    probe.chart->autoscaleY(0, probe.a.get());
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 50.0));
    probe.chart->autoscaleY(0);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    const QwtInterval right = probe.shown(QwtPlot::yRight);
    probe.chart->autoscaleY(1, probe.a.get()); // which is on the other axis
    QCOMPARE(probe.shown(QwtPlot::yRight), right);
    probe.a->setVisible(false);
    probe.chart->autoscaleY(0, probe.a.get());
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

void tst_ChartLegend::renameChangesTheLegend()
{
    tcThreeCurves probe;
    probe.dialogs.textAnswer = QString("Oven");
    entry(*probe.menuOf(probe.b.get()), "Rename B")->trigger();
    QCOMPARE(probe.dialogs.asked.first().text, QString("Curve Title:"));
    QCOMPARE(probe.dialogs.asked.first().detail, QString("B"));
    QCOMPARE(probe.b->title().text(), QString("Oven"));
    QCOMPARE(probe.label(probe.b.get())->text().text(), QString("Oven"));
}

void tst_ChartLegend::renameToNothingIsIgnored()
{
    tcThreeCurves probe;
    probe.dialogs.textAnswer = QString();
    entry(*probe.menuOf(probe.b.get()), "Rename B")->trigger();
    QCOMPARE(probe.b->title().text(), QString("B"));
    probe.dialogs.textAnswer.reset();
    entry(*probe.menuOf(probe.b.get()), "Rename B")->trigger();
    QCOMPARE(probe.b->title().text(), QString("B"));
}

void tst_ChartLegend::renamedCurveKeepsItsCheckMark()
{
    tcThreeCurves probe;
    QTest::mouseClick(probe.label(probe.b.get()), Qt::LeftButton);
    probe.b->setTitle(QString("Renamed by its maker"));
    QVERIFY(!probe.label(probe.b.get())->isChecked());
    probe.a->setTitle(QString("Renamed too"));
    QVERIFY(probe.label(probe.a.get())->isChecked());
}

void tst_ChartLegend::curveDestroyedWhileRenaming()
{
    tcThreeCurves probe;
    probe.dialogs.textAnswer = QString("late");
    probe.dialogs.whileOpen = [&] { probe.b.reset(); };
    entry(*probe.menuOf(probe.b.get()), "Rename B")->trigger();
    QCOMPARE(probe.chart->curves().size(), 2);
}

void tst_ChartLegend::chartDestroyedWhileRenaming()
{
    tcThreeCurves probe;
    probe.dialogs.textAnswer = QString("late");
    probe.dialogs.whileOpen = [&] { probe.chart.reset(); };
    probe.chart->slot_LegendContextMenu(probe.at(probe.b.get()));
    entry(*openMenu(), "Rename B")->trigger();
    QCOMPARE(probe.b->title().text(), QString("B"));
}

void tst_ChartLegend::curveDestroyedWhileItsMenuIsOpen()
{
    tcThreeCurves probe;
    probe.chart->slot_LegendContextMenu(probe.at(probe.b.get()));
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    const QList<QAction*> entries = menu->actions();
    probe.b.reset();
    QVERIFY(!menu->isVisible());
    for (QAction* action : entries)
        action->trigger();
    QVERIFY(probe.dialogs.asked.isEmpty());
    QVERIFY(!probe.chart->minMaxLines().isFollowing());
    QTRY_VERIFY(!menu);
}

void tst_ChartLegend::curveMovedAndHiddenWhileItsMenuIsOpen()
{
    tcThreeCurves probe;
    probe.b->addSample(1000, 3.2);
    probe.b->addSample(1000, 47.9);
    const auto menu = probe.menuOf(probe.b.get());
    probe.chart->assignAxis(probe.b.get(), 1);
    entry(*menu, "Autoscale for B")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yRight), QwtInterval(0.0, 50.0));
    const QwtInterval left = probe.shown(QwtPlot::yLeft);
    probe.b->setVisible(false);
    probe.chart->assignAxis(probe.b.get(), 0);
    entry(*menu, "Autoscale for B")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), left); // a hidden curve counts for nothing
}

void tst_ChartLegend::staleLegendInformationIsIgnored()
{
    tcThreeCurves probe;
    const QVariant info = probe.plot->itemToInfo(probe.b.get());
    probe.b.reset();
    probe.chart->slot_LegendItemChecked(info, false, 0);
    probe.chart->slot_LegendItemClicked(info, 0);
    probe.chart->slot_LegendItemChecked(QVariant(), false, 0);
    QVERIFY(probe.a->isVisible() && probe.c->isVisible());
}

void tst_ChartLegend::legendClickHasNoEffect()
{
    tcThreeCurves probe;
    probe.chart->slot_LegendItemClicked(probe.plot->itemToInfo(probe.b.get()), 0);
    QVERIFY(probe.b->isVisible());
    QVERIFY(probe.label(probe.b.get())->isChecked());
}

void tst_ChartLegend::longNamesAreCut()
{
    tcThreeCurves probe;
    const QString name("A name that no legend beside a plot could ever show in one line");
    const int before = probe.child<QWidget>("widgetLeft")->width();
    probe.b->setTitle(name);
    probe.chart->grab();
    QCOMPARE(probe.child<QWidget>("widgetLeft")->width(), before);
    QVERIFY(!probe.legend->horizontalScrollBar()->isVisible());
    QCOMPARE(probe.label(probe.b.get())->toolTip(), name);
    QCOMPARE(probe.label(probe.a.get())->toolTip(), QString());
}

QTEST_MAIN(tst_ChartLegend)
#include "tst_chartlegend.moc"

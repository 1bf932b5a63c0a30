#include "stripchart/tcAxisChooser.h"
#include "stripchart/tcMarkerTable.h"
#include "tests/stripchart/tcThreeCurves.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QToolTip>
#include <QtTest>
#include <qwt_plot_grid.h>

class tst_ChartMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setApplicationDisplayName("Vexa Tarvik"); }
    void formActions_data();
    void formActions();
    void leftPanelTexts_data();
    void leftPanelTexts();
    void buttonsShowTheirActions();
    void loadButtonOffersOneActionAtATime();
    void buttonsTriggerTheirActions_data();
    void buttonsTriggerTheirActions();
    void gridActions();
    void leftPanelAction();
    void plotMenuInItsOrder();
    void plotMenuWithMinMaxCurve();
    void plotMenuEndsWithOwnActions();
    void plotMenuOpensAtThePosition();
    void copyPutsThePlotOnTheClipboard();
    void addMarkerHereUsesCanvasPixels();
    void resetEntry();
    void smallestAxisChooser();
    void axisChooser();
    void axisChooserFollowsATitle();
    void axisChooserShowsAnAmpersand();
    void plotMenuShowsItsTips();
    void axisChooserOutlivesItsCurves();
    void axisChooserScrollsManyCurves();
    void chartDestroyedWhilePlotMenuIsOpen();
    void chartDestroyedWhileLegendMenuIsOpen();
    void chartDestroyedFromAMenuEntry();
};

void tst_ChartMenus::formActions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("checked");
    QTest::newRow("actionGrid") << "Grid"
                                << "Show/Hide the grid" << true << true;
    QTest::newRow("actionZoom_Out") << "Zoom Out"
                                    << "" << false << false;
    QTest::newRow("actionAutoScale_Y")
        << "AutoScale Y"
        << "Set Y extents based on displayed curves" << false << false;
    QTest::newRow("actionMinor_Grid") << "Minor Grid"
                                      << "Show the grid minor ticks" << true << false;
    QTest::newRow("actionShow_X_Axis") << "Show X Axis"
                                       << "" << true << true;
    QTest::newRow("actionPause_Updates") << "Pause Updates"
                                         << "Pause plot updates" << true << false;
    QTest::newRow("actionShow_ms") << "Show ms"
                                   << "show milliseconds on X (time) axis" << true << false;
    QTest::newRow("actionShow_Left") << "Show Left Panel"
                                     << "Show Left Panel controls" << true << true;
    QTest::newRow("actionSave") << "Save"
                                << "Save data to a CSV file..." << false << false;
    QTest::newRow("actionShow_Min_Max_Markers")
        << "Show Min Max Markers"
        << "Show Markers at Min and Max Y values" << true << false;
    QTest::newRow("actionClear_Samples")
        << "Clear Samples"
        << "Reset and clear all samples from plot" << false << false;
    QTest::newRow("actionAutoScale_X")
        << "AutoScale X"
        << "Set X extents based on displayed curves" << false << false;
    QTest::newRow("actionReset_Min_Max") << "Reset Min/Max"
                                         << "Reset the Min/Max values" << false << false;
    QTest::newRow("actionAutoScale_Y2")
        << "AutoScale Y2"
        << "Set Y2 extents based on displayed curves" << false << false;
    QTest::newRow("actionLoad_from_File") << "Load from File"
                                          << "Load data from a CSV file" << false << false;
    QTest::newRow("actionResume_Feed") << "Resume Feed"
                                       << "Go back to live updates" << false << false;
    QTest::newRow("actionMarkers") << "Markers"
                                   << "" << false << false;
}

void tst_ChartMenus::formActions()
{
    QFETCH(QString, toolTip);
    tcChartProbe probe;
    const QAction* action = probe.action(QTest::currentDataTag());
    QVERIFY(action);
    QTEST(action->text(), "text");
    QCOMPARE(action->toolTip(), toolTip.isEmpty() ? action->text() : toolTip);
    QTEST(action->isCheckable(), "checkable");
    QTEST(action->isChecked(), "checked");
}

void tst_ChartMenus::leftPanelTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("toolButtonAutoScaleY") << "AutoScale";
    QTest::newRow("toolButtonAutoScaleY2") << "AutoScale";
    QTest::newRow("toolButtonAutoScaleX") << "AutoScale";
    QTest::newRow("toolButton_showMs") << "Show X ms";
    QTest::newRow("toolButton_showX") << "Show X Axis";
    QTest::newRow("toolButtonClear") << "Clear Samples";
    QTest::newRow("toolButtonMarkers") << "Markers...";
    QTest::newRow("pushButton_getYLimits") << "get Y limits";
    QTest::newRow("toolButton_Save") << "Save to File...";
}

void tst_ChartMenus::leftPanelTexts()
{
    tcChartProbe probe;
    const auto* button = probe.child<QAbstractButton>(QTest::currentDataTag());
    QVERIFY(button);
    QTEST(button->text(), "text");
    QVERIFY(probe.child<QWidget>("widgetLeft")->isAncestorOf(button));
    QCOMPARE(probe.child<QGroupBox>("groupBoxLegend")->title(), QString("Items"));
    QCOMPARE(probe.child<QGroupBox>("groupBoxAxes")->title(), QString("Axes"));
    const auto* tabs = probe.child<QTabWidget>("tabWidgetAxes");
    QCOMPARE(tabs->tabText(tabs->indexOf(probe.child<QWidget>("tabYLeft"))), QString("Left"));
    QCOMPARE(tabs->tabText(tabs->indexOf(probe.child<QWidget>("tabYRight"))), QString("Right"));
    QCOMPARE(tabs->tabText(2), QString("X Axis"));
    QStringList labels;
    for (const QLabel* label : tabs->findChildren<QLabel*>())
        labels += label->text();
    labels.sort();
    QCOMPARE(labels, (QStringList{"Max", "Max", "Min", "Min", "Samples", "Span(s)"}));
}

void tst_ChartMenus::buttonsShowTheirActions()
{
    tcChartProbe probe;
    QCOMPARE(probe.child<QToolButton>("toolButton_Pause")->defaultAction(),
             probe.action("actionPause_Updates"));
    QCOMPARE(probe.child<QToolButton>("toolButton_Log")->defaultAction(),
             probe.chart->logAction());
    QCOMPARE(probe.child<QToolButton>("toolButton_Load")->defaultAction(),
             probe.action("actionLoad_from_File"));
}

// More than one would give the button a menu, and "Resume Feed" in it clears a live chart.
void tst_ChartMenus::loadButtonOffersOneActionAtATime()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("t,X\n5000,1\n");
    file.close();
    tcChartProbe probe;
    const auto* button = probe.child<QToolButton>("toolButton_Load");
    probe.chart->loadCsvFile(file.fileName());
    QCOMPARE(button->actions(), QList<QAction*>{probe.action("actionResume_Feed")});
    QCOMPARE(button->defaultAction(), probe.action("actionResume_Feed"));
    probe.action("actionResume_Feed")->trigger();
    QCOMPARE(button->actions(), QList<QAction*>{probe.action("actionLoad_from_File")});
    QCOMPARE(button->defaultAction(), probe.action("actionLoad_from_File"));
}

void tst_ChartMenus::buttonsTriggerTheirActions_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("toolButtonAutoScaleY") << "actionAutoScale_Y";
    QTest::newRow("toolButtonAutoScaleY2") << "actionAutoScale_Y2";
    QTest::newRow("toolButtonAutoScaleX") << "actionAutoScale_X";
    QTest::newRow("toolButtonClear") << "actionClear_Samples";
    QTest::newRow("toolButtonMarkers") << "actionMarkers";
    QTest::newRow("toolButton_Save") << "actionSave";
}

void tst_ChartMenus::buttonsTriggerTheirActions()
{
    QFETCH(QString, action);
    tcScriptedDialogs dialogs;
    tcChartProbe probe;
    QSignalSpy triggered(probe.action(qPrintable(action)), &QAction::triggered);
    probe.child<QAbstractButton>(QTest::currentDataTag())->click();
    QCOMPARE(triggered.size(), 1);
}

void tst_ChartMenus::gridActions()
{
    tcChartProbe probe;
    const auto* grid
        = static_cast<QwtPlotGrid*>(probe.plot->itemList(QwtPlotItem::Rtti_PlotGrid).first());
    probe.action("actionGrid")->setChecked(false);
    QVERIFY(!grid->isVisible());
    probe.action("actionGrid")->setChecked(true);
    QVERIFY(grid->isVisible());
    probe.action("actionMinor_Grid")->setChecked(true);
    QVERIFY(grid->xMinEnabled() && grid->yMinEnabled());
    probe.action("actionMinor_Grid")->setChecked(false);
    QVERIFY(!grid->xMinEnabled() && !grid->yMinEnabled());
}

void tst_ChartMenus::leftPanelAction()
{
    tcChartProbe probe;
    probe.action("actionShow_Left")->setChecked(false);
    QVERIFY(probe.child<QWidget>("widgetLeft")->isHidden());
    probe.action("actionShow_Left")->setChecked(true);
    QVERIFY(!probe.child<QWidget>("widgetLeft")->isHidden());
}

void tst_ChartMenus::plotMenuInItsOrder()
{
    tcChartProbe probe;
    QStringList own;
    for (const QAction* action : probe.chart->actions())
        own << (action->isSeparator() ? cSeparator : action->text());
    QCOMPARE(
        texts(*probe.chart->plotMenu({10, 10})),
        (QStringList{
             "Pause Updates", "Grid",         "Minor Grid",      "Zoom Out", "Clear Samples",
             "AutoScale Y",   "AutoScale Y2", "Assign Axis...",  "Markers",  "Add marker here",
             "AutoScale X",   "Show X Axis",  "Show Left Panel", "Save",     "Copy",
             "Save PNG",      "Log Data...",  cSeparator,        "Reset",    cSeparator}
         + own));
}

void tst_ChartMenus::plotMenuWithMinMaxCurve()
{
    tcThreeCurves probe;
    entry(*probe.menuOf(probe.a.get()), "Show Min/Max markers for A")->trigger();
    QCOMPARE(texts(*probe.chart->plotMenu({10, 10})).mid(0, 6),
             (QStringList{"Pause Updates", "Grid", "Minor Grid", "Show Min Max Markers",
                          "Reset Min/Max", "Zoom Out"}));
}

void tst_ChartMenus::plotMenuEndsWithOwnActions()
{
    tcChartProbe probe;
    QAction own("Own");
    probe.chart->addAction(&own);
    QCOMPARE(probe.chart->plotMenu({10, 10})->actions().last(), &own);
}

void tst_ChartMenus::plotMenuOpensAtThePosition()
{
    // Where the screen has room for all of it.
    const QFont before = QApplication::font("QMenu");
    QFont small = before;
    small.setPixelSize(8);
    QApplication::setFont(small, "QMenu");
    tcThreeCurves probe;
    probe.chart->slot_CustomContextMenu({100, 50});
    QPointer<QMenu> menu = openMenu();
    QApplication::setFont(before, "QMenu");
    QVERIFY(menu);
    QCOMPARE(menu->pos(), probe.plot->mapToGlobal({100, 50}));
    menu->close();
    QTRY_VERIFY(!menu);
}

void tst_ChartMenus::copyPutsThePlotOnTheClipboard()
{
    tcThreeCurves probe;
    probe.settle();
    QGuiApplication::clipboard()->clear();
    entry(*probe.chart->plotMenu({10, 10}), "Copy")->trigger();
    const QImage copied = QGuiApplication::clipboard()->image();
    QCOMPARE(copied, probe.plot->grab().toImage().convertToFormat(copied.format()));
}

void tst_ChartMenus::addMarkerHereUsesCanvasPixels()
{
    tcThreeCurves probe;
    const QPoint onCanvas(60, 40);
    const QPoint onPlot = probe.plot->canvas()->mapTo(probe.plot, onCanvas);
    QVERIFY(onPlot != onCanvas);
    entry(*probe.chart->plotMenu(onPlot), "Add marker here")->trigger();
    QVERIFY(probe.chart->markers().markerAt(onCanvas));
    QCOMPARE(probe.dialogs.asked.size(), 1);
}

void tst_ChartMenus::resetEntry()
{
    tcThreeCurves probe;
    entry(*probe.chart->plotMenu({10, 10}), "Reset")->trigger();
    QVERIFY(probe.chart->curves().isEmpty());
    QVERIFY(!probe.a->plot());
}

void tst_ChartMenus::smallestAxisChooser()
{
    const tcChartProbe probe;
    const tcAxisChooser dialog(*probe.plot, {}, nullptr);
    QCOMPARE(dialog.size(), QSize(145, 109));
}

void tst_ChartMenus::axisChooser()
{
    tcThreeCurves probe;
    probe.chart->assignAxis(probe.b.get(), 1);
    entry(*probe.chart->plotMenu({10, 10}), "Assign Axis...")->trigger();
    auto* dialog = probe.child<tcAxisChooser>("tcAxisChooser");
    QVERIFY(dialog);
    QVERIFY(dialog->width() >= 145 && dialog->height() >= 109);
    auto* rows = dialog->findChild<QFormLayout*>("formLayout");
    QCOMPARE(rows->rowCount(), 3);
    const QVector<tcStripCurve*> curves{probe.a.get(), probe.b.get(), probe.c.get()};
    for (int row = 0; row < 3; ++row) {
        auto* box
            = qobject_cast<QComboBox*>(rows->itemAt(row, QFormLayout::FieldRole)->widget());
        auto* label
            = qobject_cast<QLabel*>(rows->itemAt(row, QFormLayout::LabelRole)->widget());
        QCOMPARE(label->text(), curves.at(row)->title().text());
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->itemText(0), QString("Left"));
        QCOMPARE(box->itemText(1), QString("Right"));
        QCOMPARE(box->currentIndex(), row == 1 ? 1 : 0);
        QCOMPARE(box->property("curve").value<tcStripCurve*>(), curves.at(row));
        box->setCurrentIndex(1 - box->currentIndex());
    }
    QCOMPARE(probe.a->yAxis(), int(QwtPlot::yRight));
    QCOMPARE(probe.b->yAxis(), int(QwtPlot::yLeft));
    QCOMPARE(probe.c->yAxis(), int(QwtPlot::yRight));
    QVERIFY(probe.plot->axisEnabled(QwtPlot::yRight));
}

void tst_ChartMenus::axisChooserFollowsATitle()
{
    tcThreeCurves probe;
    entry(*probe.chart->plotMenu({10, 10}), "Assign Axis...")->trigger();
    const auto* rows
        = probe.child<tcAxisChooser>("tcAxisChooser")->findChild<QFormLayout*>("formLayout");
    probe.b->setTitle(QString("Oven"));
    QStringList titles;
    for (int row = 0; row < 3; ++row)
        titles += qobject_cast<QLabel*>(rows->itemAt(row, QFormLayout::LabelRole)->widget())
                      ->text();
    QCOMPARE(titles, (QStringList{"A", "Oven", "C"}));
}

void tst_ChartMenus::axisChooserShowsAnAmpersand()
{
    tcThreeCurves probe;
    const QString title("Hot & cold");
    probe.a->setTitle(title);
    entry(*probe.chart->plotMenu({10, 10}), "Assign Axis...")->trigger();
    const auto* rows
        = probe.child<tcAxisChooser>("tcAxisChooser")->findChild<QFormLayout*>("formLayout");
    const auto* label
        = qobject_cast<QLabel*>(rows->itemAt(0, QFormLayout::LabelRole)->widget());
    const auto* box
        = qobject_cast<QComboBox*>(rows->itemAt(0, QFormLayout::FieldRole)->widget());
    QCOMPARE(label->text(), title);
    // Taken for the mark of a key it would be missing, and the text be narrower.
    QCOMPARE(label->sizeHint(), QLabel(title).sizeHint());
    QCOMPARE(box->accessibleName(), title);
}

void tst_ChartMenus::plotMenuShowsItsTips()
{
    const tcThreeCurves probe;
    const auto menu = probe.chart->plotMenu({10, 10});
    menu->popup({0, 0});
    const QRect minorGrid = menu->actionGeometry(entry(*menu, "Minor Grid"));
    QHelpEvent asked(QEvent::ToolTip, minorGrid.center(),
                     menu->mapToGlobal(minorGrid.center()));
    QCoreApplication::sendEvent(menu.get(), &asked);
    QCOMPARE(QToolTip::text(), QString("Show the grid minor ticks"));
}

void tst_ChartMenus::axisChooserOutlivesItsCurves()
{
    tcThreeCurves probe;
    entry(*probe.chart->plotMenu({10, 10}), "Assign Axis...")->trigger();
    QPointer<tcAxisChooser> dialog = probe.child<tcAxisChooser>("tcAxisChooser");
    auto* rows = dialog->findChild<QFormLayout*>("formLayout");
    probe.b.reset();
    QCOMPARE(rows->rowCount(), 2);
    probe.chart->resetData();
    QCOMPARE(rows->rowCount(), 0);
    probe.chart.reset();
    QVERIFY(!dialog);
}

void tst_ChartMenus::axisChooserScrollsManyCurves()
{
    tcChartProbe probe;
    std::vector<std::unique_ptr<tcStripCurve>> many;
    for (int i = 0; i < 100; ++i) {
        many.push_back(probe.curve(QString("Curve %1").arg(i)));
        probe.chart->addCurve(many.back().get());
    }
    entry(*probe.chart->plotMenu({10, 10}), "Assign Axis...")->trigger();
    const auto* dialog = probe.child<tcAxisChooser>("tcAxisChooser");
    QVERIFY(dialog->height() <= dialog->screen()->availableSize().height());
    QCOMPARE(dialog->findChildren<QComboBox*>().size(), 100);
    probe.chart.reset();
}

void tst_ChartMenus::chartDestroyedWhilePlotMenuIsOpen()
{
    tcThreeCurves probe;
    probe.chart->slot_CustomContextMenu({100, 50});
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    probe.chart.reset();
    QVERIFY(!menu);
    QVERIFY(!openMenu());
}

void tst_ChartMenus::chartDestroyedWhileLegendMenuIsOpen()
{
    tcThreeCurves probe;
    probe.chart->slot_LegendContextMenu(probe.at(probe.b.get()));
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    probe.chart.reset();
    QVERIFY(!menu);
}

void tst_ChartMenus::chartDestroyedFromAMenuEntry()
{
    tcThreeCurves probe;
    QAction own("Close for good");
    probe.chart->addAction(&own);
    connect(&own, &QAction::triggered, this, [&] { probe.chart.release()->deleteLater(); });
    probe.chart->slot_CustomContextMenu({100, 50});
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    own.trigger();
    QTRY_VERIFY(!menu);
    QVERIFY(!probe.a->plot());
}

QTEST_MAIN(tst_ChartMenus)
#include "tst_chartmenus.moc"

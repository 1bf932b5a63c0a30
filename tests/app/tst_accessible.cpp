#include "app/tcMainWindow.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripLegend.h"
#include "tests/app/tcFirstStart.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryFile>
#include <QTest>
#include <qwt_plot.h>

#include <memory>

/// Every control that an operator can reach: whether a screen reader can call it something, and
/// whether the keyboard alone gets there.
class tst_Accessible : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theCheckFindsWhatIsWrong();
    void cameraPanels_data();
    void cameraPanels();
    void chart_data();
    void chart();
    void legendEntriesAreCheckBoxes();
    void canvasIsAChart();
    void tabsHaveNames();
    void dialogsOfTheChart_data();
    void dialogsOfTheChart();
    void findBarOfAView_data();
    void findBarOfAView();
    void everyMenuEntryHasAName();

private:
    void openWindow();
    QWidget* visible(const QString& acName) const;
    tcStripChart* openChart(int anSensors);
    static void toCheckEachTab(QWidget& arWindow);

    std::unique_ptr<tcMainWindow> mWindow;
};

namespace
{

/// Below a window, seen now, and taking the focus for themselves.
QList<QWidget*> focusable(const QWidget& acWindow)
{
    QList<QWidget*> found;
    for (QWidget* widget : acWindow.findChildren<QWidget*>()) {
        if (widget->window() == &acWindow && widget->isVisible() && widget->isEnabled()
            && !widget->focusProxy() && (widget->focusPolicy() & Qt::TabFocus))
            found.append(widget);
    }
    return found;
}

QString described(const QWidget& acWidget)
{
    return QStringLiteral("%1 \"%2\" in \"%3\"")
        .arg(QString::fromLatin1(acWidget.metaObject()->className()), acWidget.objectName(),
             acWidget.parentWidget() ? acWidget.parentWidget()->objectName() : QString());
}

QStringList nameless(const QWidget& acWindow)
{
    QStringList found;
    for (QWidget* widget : focusable(acWindow)) {
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(widget);
        if (!reader || reader->text(QAccessible::Name).trimmed().isEmpty())
            found.append(described(*widget));
    }
    return found;
}

QStringList unreachable(QWidget& arWindow)
{
    QList<QWidget*> left = focusable(arWindow);
    const int most = 4 * left.size() + 8;
    for (int step = 0; step < most && !left.isEmpty(); ++step) {
        QWidget* now = QApplication::focusWidget();
        left.removeAll(now);
        QTest::keyClick(now ? now : &arWindow, Qt::Key_Tab);
    }
    QStringList found;
    for (const QWidget* widget : qAsConst(left))
        found.append(described(*widget));
    return found;
}

} // namespace

/// Windows keeps settings below the program's name, which a main window gives it: without one
/// the first test would write them elsewhere than its window reads.
void tst_Accessible::initTestCase()
{
    const tcMainWindow named;
}

void tst_Accessible::init()
{
    tcFirstStart::prepare();
}

void tst_Accessible::cleanup()
{
    mWindow.reset();
}

void tst_Accessible::openWindow()
{
    mWindow = std::make_unique<tcMainWindow>();
    mWindow->show();
    mWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mWindow.get()));
}

QWidget* tst_Accessible::visible(const QString& acName) const
{
    for (QWidget* widget : mWindow->findChildren<QWidget*>(acName)) {
        if (widget->isVisible())
            return widget;
    }
    return nullptr;
}

/// The chart of the full panel with so many curves; null if it does not come.
tcStripChart* tst_Accessible::openChart(int anSensors)
{
    tcFirstStart::chooseCamera("Vexa-K50", false);
    openWindow();
    auto* list = qobject_cast<QListWidget*>(visible("sensorsLW"));
    auto* plot = qobject_cast<QPushButton*>(visible("tempsPB"));
    if (!list || !plot)
        return nullptr;
    for (int row = 0; row < anSensors; ++row)
        list->item(row)->setCheckState(Qt::Checked);
    plot->click();
    tcStripChart* chart = tcFirstStart::chartInSight();
    if (!chart)
        return nullptr;
    chart->activateWindow();
    return QTest::qWaitForWindowActive(chart) ? chart : nullptr;
}

/// What a tab hides is looked at when the tab is in front.
void tst_Accessible::toCheckEachTab(QWidget& arWindow)
{
    QCOMPARE(nameless(arWindow).join("; "), QString());
    QCOMPARE(unreachable(arWindow).join("; "), QString());
    for (QTabWidget* tabs : arWindow.findChildren<QTabWidget*>()) {
        if (!tabs->isVisible())
            continue;
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            QCOMPARE(nameless(arWindow).join("; "), QString());
            QCOMPARE(unreachable(arWindow).join("; "), QString());
        }
        tabs->setCurrentIndex(0);
    }
}

void tst_Accessible::theCheckFindsWhatIsWrong()
{
    QWidget window;
    QPushButton silent(&window);
    QComboBox spoken(&window);
    spoken.setAccessibleName("Spoken");
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    silent.setObjectName("silent");
    QCOMPARE(nameless(window).size(), 1);
    QVERIFY(nameless(window).first().contains("silent"));
    QCOMPARE(unreachable(window), QStringList());

    // A control that keeps Tab to itself hides what comes behind it.
    QPlainTextEdit keeper(&window);
    keeper.setTabChangesFocus(false);
    keeper.setAccessibleName("Keeper");
    keeper.show();
    QPushButton behind("Behind", &window);
    behind.show();
    silent.setFocus();
    QCOMPARE(unreachable(window).size(), 1);
    QVERIFY(unreachable(window).first().startsWith("QPushButton"));
}

void tst_Accessible::cameraPanels_data()
{
    QTest::addColumn<QString>("camera");
    QTest::addColumn<bool>("advanced");
    QTest::newRow("basic R60") << "Vexa-R60" << false;
    QTest::newRow("basic R70") << "Vexa-R70" << false;
    QTest::newRow("full") << "Vexa-K20 (Temp controlled)" << false;
    QTest::newRow("full, all buttons") << "Vexa-K50" << true;
}

void tst_Accessible::cameraPanels()
{
    QFETCH(QString, camera);
    QFETCH(bool, advanced);
    tcFirstStart::chooseCamera(camera, advanced);
    openWindow();
    QCOMPARE(mWindow->findChild<QComboBox*>("cameraCB")->currentText(), camera);
    QVERIFY(focusable(*mWindow).size() >= 8);
    toCheckEachTab(*mWindow);
}

void tst_Accessible::chart_data()
{
    QTest::addColumn<int>("sensors");
    QTest::newRow("without curves") << 0;
    QTest::newRow("with curves") << 3;
}

void tst_Accessible::chart()
{
    QFETCH(int, sensors);
    tcStripChart* chart = openChart(sensors);
    QVERIFY(chart);
    QVERIFY(focusable(*chart).size() >= 10);
    toCheckEachTab(*chart);
}

void tst_Accessible::legendEntriesAreCheckBoxes()
{
    tcStripChart* chart = openChart(2);
    QVERIFY(chart);
    auto* label = chart->findChild<tcLegendLabel*>();
    QVERIFY(label);
    QAccessibleInterface* entry = QAccessible::queryAccessibleInterface(label);
    QVERIFY(entry);
    QCOMPARE(entry->role(), QAccessible::CheckBox);
    QCOMPARE(entry->text(QAccessible::Name), label->text().text());
    QVERIFY(entry->state().checkable && entry->state().checked);
    QVERIFY(entry->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::toggleAction()));
    entry->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!entry->state().checked);
    QVERIFY(!chart->curves().first()->isVisible());
    QTest::keyClick(label, Qt::Key_Space);
    QVERIFY(entry->state().checked);
    QVERIFY(chart->curves().first()->isVisible());

    QCOMPARE(entry->text(QAccessible::Description), QString());
    label->setAlarm(true); // which its colour alone would tell
    QCOMPARE(entry->text(QAccessible::Description), QString("Outside its limits"));
    label->setAlarm(false);
    QCOMPARE(entry->text(QAccessible::Description), QString());
}

void tst_Accessible::canvasIsAChart()
{
    tcStripChart* chart = openChart(0);
    QVERIFY(chart);
    QAccessibleInterface* canvas
        = QAccessible::queryAccessibleInterface(chart->findChild<QwtPlot*>()->canvas());
    QVERIFY(canvas);
    QCOMPARE(canvas->role(), QAccessible::Chart);
    QCOMPARE(canvas->text(QAccessible::Name), QString("Chart"));
}

void tst_Accessible::tabsHaveNames()
{
    tcStripChart* chart = openChart(0);
    QVERIFY(chart);
    const QList<QTabWidget*> all
        = mWindow->findChildren<QTabWidget*>() + chart->findChildren<QTabWidget*>();
    QVERIFY(all.size() > 6);
    for (QTabWidget* tabs : all) {
        const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(tabs);
        QVERIFY2(!reader->text(QAccessible::Name).isEmpty(), qPrintable(described(*tabs)));
    }
}

void tst_Accessible::dialogsOfTheChart_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("name");
    QTest::newRow("axes") << "Assign Axis..."
                          << "tcAxisChooser";
    QTest::newRow("markers") << "Markers"
                             << "tcMarkerInfo";
    QTest::newRow("statistics") << "Statistics..."
                                << "tcStatisticsDialog";
    QTest::newRow("limits") << "Limits..."
                            << "tcLimitsDialog";
    QTest::newRow("skipped rows") << "Skipped Rows..."
                                  << "QDialog";
}

void tst_Accessible::dialogsOfTheChart()
{
    QFETCH(QString, entry);
    QFETCH(QString, name);
    tcStripChart* chart = openChart(3);
    QVERIFY(chart);
    if (entry == "Skipped Rows...") { // which is there for a file with such rows alone
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("time,A\n1000,1\nnever,2\n");
        file.close();
        chart->loadCsvFile(file.fileName());
    }
    const auto menu = chart->plotMenu({10, 10});
    QList<QAction*> entries = menu->actions();
    for (const QAction* action : menu->actions()) {
        if (action->menu())
            entries += action->menu()->actions();
    }
    for (QAction* action : qAsConst(entries)) {
        if (action->text() == entry)
            action->trigger();
    }
    QDialog* dialog = nullptr;
    for (QDialog* candidate : chart->findChildren<QDialog*>()) {
        if (qPrintable(name) == QByteArray(candidate->metaObject()->className()))
            dialog = candidate;
    }
    QVERIFY(dialog && dialog->isVisible());
    QTRY_COMPARE(QApplication::activeWindow(), dialog);
    QVERIFY(!focusable(*dialog).isEmpty());
    toCheckEachTab(*dialog);
}

void tst_Accessible::findBarOfAView_data()
{
    QTest::addColumn<QString>("view");
    QTest::newRow("log") << "PortRespPTE";
    QTest::newRow("last reply") << "lastRespPTE";
}

void tst_Accessible::findBarOfAView()
{
    QFETCH(QString, view);
    tcFirstStart::chooseCamera("Vexa-K50", false);
    openWindow();
    QWidget* log = visible(view);
    QVERIFY(log);
    const int before = focusable(*mWindow).size();
    log->setFocus();
    QTest::keyClick(log, Qt::Key_F, Qt::ControlModifier);
    QTRY_COMPARE(focusable(*mWindow).size(), before + 3); // the text and two arrows
    QVERIFY(QApplication::focusWidget() && QApplication::focusWidget() != log);
    toCheckEachTab(*mWindow);
}

void tst_Accessible::everyMenuEntryHasAName()
{
    tcStripChart* chart = openChart(3);
    QVERIFY(chart);
    const auto plotMenu = chart->plotMenu({10, 10});
    QList<QMenu*> menus = mWindow->findChildren<QMenu*>() + plotMenu->findChildren<QMenu*>();
    menus.append(plotMenu.get());
    QVERIFY(menus.size() >= 5);
    for (const QMenu* menu : qAsConst(menus)) {
        for (const QAction* action : menu->actions())
            QVERIFY2(action->isSeparator() || !action->text().isEmpty(),
                     qPrintable(menu->title()));
    }
}

QTEST_MAIN(tst_Accessible)
#include "tst_accessible.moc"

#include "app/tcMainWindow.h"
#include "app/tcTranslation.h"
#include "stripchart/tcStripChart.h"
#include "tests/app/tcFirstStart.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMultiMap>
#include <QShortcut>
#include <QTabBar>
#include <QTest>
#include <QTranslator>
#include <qwt_legend.h>

#include <memory>

/// Keys that an operator can press in a window or a menu: none may stand for two things there,
/// in whatever language, since then it does neither.
class tst_Keys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theCheckFindsWhatIsWrong();
    void panels_data();
    void panels();
    void chart_data() { languages(); }
    void chart();
    void shortcutsStandInTheTips();

private:
    static void languages();
    void openWindow(const QString& acLanguage, const QString& acCamera);

    std::unique_ptr<tcMainWindow> mWindow;
};

namespace
{

#ifdef Q_OS_WIN
constexpr int cMadeBySystem = 1; ///< Shift+F10
#else
constexpr int cMadeBySystem = 0;
#endif

/// What each key stands for.
using tcKeys = QMultiMap<QString, QString>;

void add(tcKeys& arKeys, const QKeySequence& acKey, const QString& acWhat)
{
    if (!acKey.isEmpty())
        arKeys.insert(acKey.toString(), acWhat);
}

void addAction(tcKeys& arKeys, const QAction& acAction)
{
    const QList<QKeySequence> shortcuts = acAction.shortcuts();
    for (const QKeySequence& key : shortcuts)
        add(arKeys, key, acAction.text());
}

void addMenuBar(tcKeys& arKeys, const QMenuBar& acBar)
{
    for (const QAction* title : acBar.actions()) {
        add(arKeys, QKeySequence::mnemonic(title->text()), title->text());
        for (const QAction* entry : title->menu()->actions())
            addAction(arKeys, *entry);
    }
}

void addWidget(tcKeys& arKeys, const QWidget& acWidget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&acWidget))
        add(arKeys, button->shortcut(), button->objectName());
    if (const auto* label = qobject_cast<const QLabel*>(&acWidget)) {
        if (label->buddy())
            add(arKeys, QKeySequence::mnemonic(label->text()), label->text());
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&acWidget))
        add(arKeys, QKeySequence::mnemonic(group->title()), group->title());
    if (const auto* tabs = qobject_cast<const QTabBar*>(&acWidget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            add(arKeys, QKeySequence::mnemonic(tabs->tabText(tab)), tabs->tabText(tab));
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(&acWidget))
        addMenuBar(arKeys, *bar);
}

/// Of all that is seen in the window now.
tcKeys keysOf(const QWidget& acWindow)
{
    tcKeys keys;
    QList<const QAction*> actions;
    QList<const QWidget*> widgets{&acWindow};
    for (const QWidget* widget : acWindow.findChildren<QWidget*>()) {
        if (widget->window() == &acWindow && widget->isVisible())
            widgets.append(widget);
    }
    for (const QWidget* widget : qAsConst(widgets)) {
        addWidget(keys, *widget);
        for (const QAction* action : widget->actions()) {
            if (!actions.contains(action) && !qobject_cast<const QMenuBar*>(widget))
                addAction(keys, *action);
            actions.append(action);
        }
        const auto shortcuts
            = widget->findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QShortcut* shortcut : shortcuts)
            add(keys, shortcut->key(), QStringLiteral("shortcut"));
    }
    return keys;
}

/// Letters of the entries that are seen at once.
tcKeys keysOf(const QMenu& acMenu)
{
    tcKeys keys;
    for (const QAction* entry : acMenu.actions())
        add(keys, QKeySequence::mnemonic(entry->text()), entry->text());
    return keys;
}

QString givenTwice(const tcKeys& acKeys)
{
    QStringList found;
    for (const QString& key : acKeys.uniqueKeys()) {
        if (acKeys.count(key) > 1)
            found += key + ": " + QStringList(acKeys.values(key)).join(", ");
    }
    return found.join("; ");
}

void checkMenu(const QMenu& acMenu)
{
    QVERIFY(!acMenu.actions().isEmpty());
    QCOMPARE(givenTwice(keysOf(acMenu)), QString());
    for (const QAction* entry : acMenu.actions()) {
        if (entry->menu() && !entry->menu()->actions().isEmpty())
            checkMenu(*entry->menu());
    }
}

} // namespace

/// Windows keeps settings below the program's name, which a main window gives it.
void tst_Keys::initTestCase()
{
    const tcMainWindow named;
}

void tst_Keys::init()
{
    tcFirstStart::prepare();
}

void tst_Keys::cleanup()
{
    mWindow.reset();
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
}

void tst_Keys::languages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << QString();
#ifdef TARVIK_CATALOGUES
    QTest::newRow("German") << "de";
#endif
}

void tst_Keys::openWindow(const QString& acLanguage, const QString& acCamera)
{
    tcFirstStart::chooseCamera(acCamera, true);
    tcTranslation::install(acLanguage);
    mWindow = std::make_unique<tcMainWindow>();
    mWindow->show();
    QCOMPARE(mWindow->menuBar()->actions().first()->text(),
             QString(acLanguage.isEmpty() ? "File" : "Datei"));
}

void tst_Keys::theCheckFindsWhatIsWrong()
{
    QMainWindow window;
    window.menuBar()->addMenu("&File");
    auto* group = new QGroupBox("&Ranges");
    window.setCentralWidget(group);
    window.show();
    QCOMPARE(givenTwice(keysOf(window)), QString());
    auto* label = new QLabel("&Rows", group);
    label->setBuddy(group);
    label->show();
    QCOMPARE(givenTwice(keysOf(window)).section(':', 0, 0), QString("Alt+R"));
    label->setText("Rows");
    new QShortcut(QKeySequence("Ctrl+F"), group);
    auto* find = new QAction("Find", group);
    find->setShortcut(QKeySequence("Ctrl+F"));
    group->addAction(find);
    QCOMPARE(givenTwice(keysOf(window)).section(':', 0, 0), QString("Ctrl+F"));

    QMenu menu;
    menu.addActions({new QAction("&Copy", &menu), new QAction("&Clear", &menu)});
    QCOMPARE(givenTwice(keysOf(menu)).section(':', 0, 0), QString("Alt+C"));
}

void tst_Keys::panels_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("camera");
    QTest::addColumn<int>("keys");
    QStringList all{QString()};
#ifdef TARVIK_CATALOGUES
    all.append("de");
#endif
    for (const QString& language : qAsConst(all)) {
        for (const char* camera : {"Vexa-K50", "Vexa-R60", "Vexa-R70"})
            QTest::addRow("%s %s", camera, qPrintable(language))
                << language << camera
                << (QByteArray(camera) == "Vexa-K50" ? 11 : 8) - cMadeBySystem;
    }
}

void tst_Keys::panels()
{
    QFETCH(QString, language);
    QFETCH(QString, camera);
    openWindow(language, camera);
    const tcKeys keys = keysOf(*mWindow);
    QCOMPARE(givenTwice(keys), QString());
    // F10, Shift+F10 where the system does not make it, Ctrl+O, F5, Ctrl+Return and three to
    // find; a full panel has three more.
    QTEST(static_cast<int>(keys.size()), "keys");
    for (const QAction* title : mWindow->menuBar()->actions())
        checkMenu(*title->menu());
}

void tst_Keys::chart()
{
    QFETCH(QString, language);
    openWindow(language, "Vexa-K50");
    for (auto* list : mWindow->findChildren<QListWidget*>("sensorsLW")) {
        if (list->isVisible())
            list->item(0)->setCheckState(Qt::Checked);
    }
    for (auto* plot : mWindow->findChildren<QAbstractButton*>("tempsPB")) {
        if (plot->isVisible())
            plot->click();
    }
    tcStripChart* chart = tcFirstStart::chartInSight();
    QVERIFY(chart);
    QCOMPARE(givenTwice(keysOf(*chart)), QString());
    checkMenu(*chart->plotMenu({10, 10}));
    auto* legend = chart->findChild<QwtLegend*>();
    const QWidget* entry = legend->contentsWidget()->childAt(5, 5);
    const auto menu = chart->legendMenu(entry->mapTo(legend, QPoint(1, 1)));
    QVERIFY(menu->actions().size() > 2); // those of a curve
    checkMenu(*menu);
}

void tst_Keys::shortcutsStandInTheTips()
{
    openWindow(QString(), "Vexa-K50");
    int seen = 0;
    for (const QAbstractButton* button : mWindow->findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->shortcut().isEmpty())
            continue;
        ++seen;
        QVERIFY2(button->toolTip().contains('(' + button->shortcut().toString() + ')'),
                 qPrintable(button->objectName()));
    }
    QCOMPARE(seen, 4);
}

QTEST_MAIN(tst_Keys)
#include "tst_keys.moc"

#include "app/tcMainWindow.h"
#include "stripchart/tcStripChart.h"
#include "tests/support/tcFakeSerial.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <qwt_plot.h>

#include <memory>

class tst_MenuKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void f10OpensTheMenuBar();
    void shiftF10OpensTheMenuOfAView();
    void shiftF10OpensTheMenuOfTheChart();

private:
    static QMenu* popup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static bool offers(const QMenu* apMenu, const QString& acEntry);

    std::unique_ptr<tcMainWindow> mWindow;
};

void tst_MenuKeys::init()
{
    tcFakeSerial::instance().reset();
    QDir(QStandardPaths::writableLocation(QStandardPaths::ConfigLocation)).removeRecursively();
    mWindow = std::make_unique<tcMainWindow>();
    mWindow->show();
    mWindow->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mWindow.get()));
}

void tst_MenuKeys::cleanup()
{
    if (popup())
        popup()->close();
    mWindow.reset();
}

bool tst_MenuKeys::offers(const QMenu* apMenu, const QString& acEntry)
{
    for (const QAction* action : apMenu->actions()) {
        if (action->text() == acEntry)
            return true;
    }
    return false;
}

void tst_MenuKeys::f10OpensTheMenuBar()
{
    QTest::keyClick(mWindow.get(), Qt::Key_F10);
    QVERIFY(popup());
    QCOMPARE(popup()->title(), QString("File"));
    QTest::keyClick(popup(), Qt::Key_Right);
    QTRY_VERIFY(popup() && popup()->title() == "Help");
    QTest::keyClick(popup(), Qt::Key_Escape);
    QVERIFY(!popup());
    // The titles stay as they are.
    QCOMPARE(mWindow->menuBar()->actions().first()->text(), QString("File"));
}

void tst_MenuKeys::shiftF10OpensTheMenuOfAView()
{
#ifdef Q_OS_WIN
    QSKIP("the system does this");
#endif
    for (auto* view : mWindow->findChildren<QPlainTextEdit*>("PortRespPTE")) {
        if (view->isVisible())
            view->setFocus();
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(popup());
    QVERIFY(offers(popup(), "Log session to file..."));
}

void tst_MenuKeys::shiftF10OpensTheMenuOfTheChart()
{
#ifdef Q_OS_WIN
    QSKIP("the system does this");
#endif
    for (auto* plot : mWindow->findChildren<QPushButton*>("tempsPB")) {
        if (plot->isVisible())
            plot->click();
    }
    tcStripChart* chart = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<tcStripChart*>(window))
            chart = qobject_cast<tcStripChart*>(window);
    }
    QVERIFY(chart);
    chart->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(chart));
    QWidget* canvas = chart->findChild<QwtPlot*>()->canvas();
    canvas->setFocus();
    QTest::keyClick(canvas, Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(popup());
    QVERIFY(offers(popup(), "Assign Axis..."));
}

QTEST_MAIN(tst_MenuKeys)
#include "tst_menukeys.moc"

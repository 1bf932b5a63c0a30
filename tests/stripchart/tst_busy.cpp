#include "stripchart/tcBusy.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QWindow>
#include <QtTest>

#include <functional>

class tst_Busy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortWorkShowsNoProgress();
    void progressStandsInFrontOfItsWindow();
    void progressNamesTheFileAsItIs();
    void cancelledInEveryWay_data();
    void cancelledInEveryWay();
};

namespace
{

using tcDo = std::function<void(QProgressDialog&)>;

/// Works until it is told to stop; at a sight of the progress it does what is given.
int workUntilStopped(QWidget& arWindow, const tcDo& acAtSight)
{
    int sights = 0;
    tcBusy busy(arWindow, QStringLiteral("Saving <b>x</b>.csv"), Qt::WaitCursor);
    while (busy.step(3, 10)) {
        auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (dialog && ++sights == 3) // when it is there for good
            acAtSight(*dialog);
    }
    return sights;
}

} // namespace

void tst_Busy::shortWorkShowsNoProgress()
{
    QWidget window;
    tcBusy busy(window, QString(), Qt::WaitCursor);
    QVERIFY(busy.step(1, 2));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_Busy::progressStandsInFrontOfItsWindow()
{
    QWidget window;
    window.resize(300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.move(400, 350); // away from the middle of the screen
    QPoint off(1000, 1000);
    bool inFront = false;
    workUntilStopped(window, [&](QProgressDialog& arDialog) {
        off = arDialog.mapToGlobal(arDialog.rect().center()) - window.frameGeometry().center();
        inFront = arDialog.windowHandle()->transientParent() == window.windowHandle();
        arDialog.cancel();
    });
    QVERIFY(inFront);
    QVERIFY2(off.manhattanLength() < 50, // but for the dialog's own frame
             qPrintable(QString("%1, %2 off").arg(off.x()).arg(off.y())));
}

void tst_Busy::progressNamesTheFileAsItIs()
{
    QWidget window;
    window.show();
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    workUntilStopped(window, [&](QProgressDialog& arDialog) {
        text = arDialog.labelText();
        format = arDialog.findChild<QLabel*>()->textFormat();
        arDialog.cancel();
    });
    QCOMPARE(text, QString("Saving <b>x</b>.csv"));
    QCOMPARE(format, Qt::PlainText); // what stands in brackets is no tag
}

void tst_Busy::cancelledInEveryWay_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("Escape") << "escape";
    QTest::newRow("its button") << "button";
    QTest::newRow("closed") << "close";
}

void tst_Busy::cancelledInEveryWay()
{
    QFETCH(QString, way);
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const int sights = workUntilStopped(window, [&way](QProgressDialog& arDialog) {
        QCOMPARE(arDialog.labelText(), QString("Saving <b>x</b>.csv"));
        QCOMPARE(arDialog.value() * 10, arDialog.maximum() * 3);
        if (way == "escape")
            QTest::keyClick(&arDialog, Qt::Key_Escape);
        else if (way == "button")
            QTest::mouseClick(arDialog.findChild<QPushButton*>(), Qt::LeftButton);
        else
            arDialog.close();
    });
    QVERIFY(sights >= 3);
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(tst_Busy)
#include "tst_busy.moc"

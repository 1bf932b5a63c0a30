#include "stripchart/tcCursorItem.h"
#include "tests/stripchart/tcChartProbe.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QMenu>
#include <QtTest>
#include <qwt_plot_zoomer.h>

#include <cmath>
#include <limits>

namespace
{
/// A chart of a minute that ends now, with a curve that climbs one degree a second.
struct tcCursorChart : tcChartProbe
{
    tcCursorChart()
    {
        a = curve("A");
        key = chart->addCurve(a.get());
        for (int i = 0; i <= 60; ++i)
            a->addSample(cNow - 60000 + i * 1000, i);
        chart->setYRange(0, 0.0, 100.0);
        show();
        settle();
        chart->setXRange(cNow - 60000.0, cNow);
        plot->replot();
    }
    QWidget* canvas() const { return plot->canvas(); }
    QAction* action() const { return own("Measuring Cursors"); }
    const tcCursorItem* item() const
    {
        for (QwtPlotItem* item : plot->itemList())
            if (const auto* cursors = dynamic_cast<tcCursorItem*>(item))
                return cursors;
        return nullptr;
    }
    QPoint on(int anCursor) const { return {pixel(item()->time(anCursor), 0).x(), 100}; }
    void press(const QPoint& acPos, Qt::KeyboardModifiers aModifiers = {})
    {
        QTest::mousePress(canvas(), Qt::LeftButton, aModifiers, acPos);
    }
    void move(const QPoint& acPos, Qt::MouseButtons aButtons = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, acPos, Qt::NoButton, aButtons, Qt::NoModifier);
        QApplication::sendEvent(canvas(), &event);
    }
    void release(const QPoint& acPos)
    {
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, acPos);
    }
    void drag(const QPoint& acFrom, const QPoint& acTo)
    {
        press(acFrom);
        move((acFrom + acTo) / 2);
        move(acTo);
        release(acTo);
    }
    double timeAt(int anX) const { return plot->invTransform(QwtPlot::xBottom, anX); }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
};
} // namespace

class tst_MeasuringCursors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anOwnActionAtTheEndOfThePlotMenu();
    void nothingIsOnThePlotUntilAskedFor();
    void comeUpAtThirds();
    void tellChangeAndRate();
    void namesAreNotCutForAPartOfAPixel();
    void namesGiveWayToTheNumbers();
    void hiddenCurvesAreLeftOut();
    void curveWithoutReadingsThere();
    void curveGoesWhileTheyAreShown();
    void noCurves();
    void draggedWithTheLeftButton();
    void grabbedWithinFourPixels_data();
    void grabbedWithinFourPixels();
    void dragEndsAtTheCanvas();
    void crossedLinesStillTellEarlierToLater();
    void pressElsewhereGoesToTheZoomer();
    void altClickOnALineStillMarks();
    void arrowKeysMoveTheOneClickedLast();
    void digitsChooseOneForTheArrowKeys();
    void escapeLetsGo();
    void pointerTellsOfTheGrip();
    void switchedOffInTheMiddleOfADrag();
    void chartDestroyedWhileTheyAreShown();
    void checkStateIsNotKept();
};

void tst_MeasuringCursors::anOwnActionAtTheEndOfThePlotMenu()
{
    tcCursorChart probe;
    QVERIFY(probe.action());
    QVERIFY(probe.action()->isCheckable());
    QVERIFY(!probe.action()->isChecked());
    const auto menu = probe.chart->plotMenu({50, 50});
    const QList<QAction*> own = probe.chart->actions();
    QCOMPARE(menu->actions().mid(menu->actions().size() - own.size()), own);
}

void tst_MeasuringCursors::nothingIsOnThePlotUntilAskedFor()
{
    tcCursorChart probe;
    QVERIFY(!probe.item());
    probe.action()->trigger();
    QVERIFY(probe.item());
    probe.action()->trigger();
    QVERIFY(!probe.item());
    QVERIFY(!probe.canvas()->hasMouseTracking());
}

void tst_MeasuringCursors::comeUpAtThirds()
{
    tcCursorChart probe;
    probe.action()->trigger();
    QCOMPARE(probe.item()->time(0), probe.cNow - 40000.0);
    QCOMPARE(probe.item()->time(1), probe.cNow - 20000.0);
}

void tst_MeasuringCursors::tellChangeAndRate()
{
    tcCursorChart probe;
    probe.action()->trigger();
    const QVector<tcCursorItem::tcRow> rows = probe.item()->rows();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0).change, QStringLiteral("20.000 s"));
    QCOMPARE(rows.at(1).name, QStringLiteral("A"));
    QCOMPARE(rows.at(1).color, probe.a->pen().color());
    QCOMPARE(rows.at(1).change, QStringLiteral("+20.000"));
    QCOMPARE(rows.at(1).rate, QStringLiteral("+60.000/min"));
}

void tst_MeasuringCursors::namesAreNotCutForAPartOfAPixel()
{
    QFont font;
    font.setHintingPreference(QFont::PreferNoHinting); // so that letters have parts of pixels
    for (int tenths = 60; tenths < 160; ++tenths) {
        font.setPointSizeF(tenths / 10.0);
        const QFontMetrics metrics(font);
        const QString name = QString("Sensor %1").arg(tenths % 10);
        const int width = tcCursorItem::nameWidth({{QColor(), name, {}, {}}}, metrics, 1000);
        QCOMPARE(metrics.elidedText(name, Qt::ElideRight, width), name);
    }
    const QString endless(500, 'x');
    const QFontMetrics metrics(font);
    QVERIFY(tcCursorItem::nameWidth({{QColor(), endless, {}, {}}}, metrics, 100000)
            < metrics.horizontalAdvance(endless) / 4);
}

void tst_MeasuringCursors::namesGiveWayToTheNumbers()
{
    const QFontMetrics metrics{QFont()};
    const QVector<tcCursorItem::tcRow> rows{{QColor(), "Thermistor Temperature", {}, {}}};
    QCOMPARE(tcCursorItem::nameWidth(rows, metrics, 30), 30);
    QCOMPARE(tcCursorItem::nameWidth(rows, metrics, -20), 0);

    // On a canvas that is too narrow for both, the read-out still ends before the edge.
    tcCursorChart probe;
    probe.a->setTitle(QString("Thermistor Temperature of the second camera"));
    probe.chart->resize(640, 400);
    probe.child<QAction>("actionShow_Left")->setChecked(false);
    probe.chart->resize(280, 400);
    probe.settle();
    probe.action()->trigger();
    probe.plot->replot();
    const QImage picture = probe.canvas()->grab().toImage();
    const int row = 14; // within the read-out, above its letters
    const QRgb shade = picture.pixel(12, row);
    QVERIFY(shade != picture.pixel(4, row));
    QCOMPARE(picture.pixel(picture.width() - 4, row), picture.pixel(4, row));
}

void tst_MeasuringCursors::hiddenCurvesAreLeftOut()
{
    tcCursorChart probe;
    probe.action()->trigger();
    probe.a->setVisible(false);
    QCOMPARE(probe.item()->rows().size(), 1);
}

void tst_MeasuringCursors::curveWithoutReadingsThere()
{
    tcCursorChart probe;
    const auto b = probe.curve("B", 1);
    probe.chart->addCurve(b.get(), probe.key);
    b->addSample(probe.cNow - 30000, std::numeric_limits<double>::quiet_NaN());
    probe.action()->trigger();
    QCOMPARE(probe.item()->rows().at(2).change, QStringLiteral("\u2013"));
    QCOMPARE(probe.item()->rows().at(2).rate, QStringLiteral("\u2013/min"));
}

void tst_MeasuringCursors::curveGoesWhileTheyAreShown()
{
    tcCursorChart probe;
    probe.action()->trigger();
    probe.a.reset();
    probe.plot->replot();
    QCOMPARE(probe.item()->rows().size(), 1);
}

void tst_MeasuringCursors::noCurves()
{
    tcChartProbe probe;
    probe.show();
    probe.own("Measuring Cursors")->trigger();
    probe.plot->replot();
    QVERIFY(!probe.plot->grab().isNull());
}

void tst_MeasuringCursors::draggedWithTheLeftButton()
{
    tcCursorChart probe;
    probe.action()->trigger();
    const QwtInterval before = probe.shown(QwtPlot::xBottom);
    const double other = probe.item()->time(1);
    const QPoint to = probe.on(0) - QPoint(90, 40);
    probe.drag(probe.on(0), to);
    QCOMPARE(probe.item()->time(0), probe.timeAt(to.x()));
    QCOMPARE(probe.item()->time(1), other);
    QCOMPARE(probe.shown(QwtPlot::xBottom), before);
    probe.move(to + QPoint(50, 0), Qt::NoButton);
    QCOMPARE(probe.item()->time(0), probe.timeAt(to.x()));
}

void tst_MeasuringCursors::grabbedWithinFourPixels_data()
{
    QTest::addColumn<int>("off");
    QTest::addColumn<bool>("grabs");
    QTest::newRow("on it") << 0 << true;
    QTest::newRow("left") << -3 << true;
    QTest::newRow("right") << 3 << true;
    QTest::newRow("beside it") << 7 << false;
}

void tst_MeasuringCursors::grabbedWithinFourPixels()
{
    QFETCH(int, off);
    tcCursorChart probe;
    probe.action()->trigger();
    const QPoint from = probe.on(1) + QPoint(off, 0);
    probe.press(from);
    QTEST(probe.item()->chosen() == 1, "grabs");
    probe.release(from);
}

void tst_MeasuringCursors::dragEndsAtTheCanvas()
{
    tcCursorChart probe;
    probe.action()->trigger();
    probe.drag(probe.on(1), QPoint(5000, 100));
    QCOMPARE(probe.item()->time(1), probe.timeAt(probe.canvas()->width() - 1));
}

void tst_MeasuringCursors::crossedLinesStillTellEarlierToLater()
{
    tcCursorChart probe;
    probe.action()->trigger();
    probe.drag(probe.on(0), probe.on(1) + QPoint(60, 0));
    QVERIFY(probe.item()->time(0) > probe.item()->time(1));
    QVERIFY(probe.item()->span().first < probe.item()->span().second);
    QVERIFY(probe.item()->rows().at(1).change.startsWith('+'));
}

void tst_MeasuringCursors::pressElsewhereGoesToTheZoomer()
{
    tcCursorChart probe;
    probe.action()->trigger();
    const QPoint start = probe.on(0) + QPoint(20, 0);
    probe.drag(start, start + QPoint(60, 60));
    QCOMPARE(probe.canvas()->findChild<QwtPlotZoomer*>()->zoomRectIndex(), 1u);
}

void tst_MeasuringCursors::altClickOnALineStillMarks()
{
    tcCursorChart probe;
    probe.action()->trigger();
    tcScriptedDialogs dialogs;
    probe.press(probe.on(0), Qt::AltModifier);
    QCOMPARE(dialogs.asked.size(), 1);
    QCOMPARE(probe.item()->chosen(), -1);
}

void tst_MeasuringCursors::arrowKeysMoveTheOneClickedLast()
{
    tcCursorChart probe;
    probe.action()->trigger();
    const QPoint place = probe.on(1);
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, {}, place);
    QCOMPARE(probe.item()->chosen(), 1);
    const double pixel = probe.timeAt(1) - probe.timeAt(0);
    const double first = probe.item()->time(0);
    const double before = probe.item()->time(1);
    QTest::keyClick(probe.canvas(), Qt::Key_Right);
    QVERIFY(std::abs(probe.item()->time(1) - before - pixel) < 0.01);
    QTest::keyClick(probe.canvas(), Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(std::abs(probe.item()->time(1) - before + 9 * pixel) < 0.01);
    QCOMPARE(probe.item()->time(0), first);
}

void tst_MeasuringCursors::digitsChooseOneForTheArrowKeys()
{
    tcCursorChart probe;
    QTest::keyClick(probe.canvas(), Qt::Key_1); // nobody's while there are no cursors
    probe.action()->trigger();
    QCOMPARE(probe.item()->chosen(), -1);
    QTest::keyClick(probe.canvas(), Qt::Key_1);
    QCOMPARE(probe.item()->chosen(), 0);
    QTest::keyClick(probe.canvas(), Qt::Key_2, Qt::KeypadModifier);
    QCOMPARE(probe.item()->chosen(), 1);
    QTest::keyClick(probe.canvas(), Qt::Key_1, Qt::ControlModifier);
    QTest::keyClick(probe.canvas(), Qt::Key_3);
    QCOMPARE(probe.item()->chosen(), 1);
    const double before = probe.item()->time(1);
    QTest::keyClick(probe.canvas(), Qt::Key_Left);
    QVERIFY(probe.item()->time(1) < before);
    probe.press(probe.on(1));
    QTest::keyClick(probe.canvas(), Qt::Key_1); // not in the middle of a drag
    QCOMPARE(probe.item()->chosen(), 1);
    probe.release(probe.on(1));
}

void tst_MeasuringCursors::escapeLetsGo()
{
    tcCursorChart probe;
    probe.action()->trigger();
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, {}, probe.on(1));
    QTest::keyClick(probe.canvas(), Qt::Key_Escape);
    QCOMPARE(probe.item()->chosen(), -1);
    const double before = probe.item()->time(1);
    QTest::keyClick(probe.canvas(), Qt::Key_Right);
    QCOMPARE(probe.item()->time(1), before);
}

void tst_MeasuringCursors::pointerTellsOfTheGrip()
{
    tcCursorChart probe;
    const Qt::CursorShape usual = probe.canvas()->cursor().shape();
    probe.action()->trigger();
    probe.move(probe.on(0), Qt::NoButton);
    QCOMPARE(probe.canvas()->cursor().shape(), Qt::SplitHCursor);
    probe.move(probe.on(0) + QPoint(20, 0), Qt::NoButton);
    QCOMPARE(probe.canvas()->cursor().shape(), usual);
    probe.move(probe.on(0), Qt::NoButton);
    probe.action()->trigger();
    QCOMPARE(probe.canvas()->cursor().shape(), usual);
}

void tst_MeasuringCursors::switchedOffInTheMiddleOfADrag()
{
    tcCursorChart probe;
    probe.action()->trigger();
    const QPoint place = probe.on(0);
    probe.press(place);
    probe.action()->trigger();
    probe.move(place + QPoint(30, 0));
    probe.release(place);
    probe.action()->trigger();
    QCOMPARE(probe.item()->chosen(), -1);
    QCOMPARE(probe.item()->time(0), probe.cNow - 40000.0);
}

void tst_MeasuringCursors::chartDestroyedWhileTheyAreShown()
{
    tcCursorChart probe;
    probe.action()->trigger();
    probe.press(probe.on(0));
    probe.chart.reset();
    QVERIFY(!probe.a->plot());
}

void tst_MeasuringCursors::checkStateIsNotKept()
{
    // States are kept by object name.
    tcChartProbe probe;
    const QList<QAction*> own = probe.own("Measure")->menu()->actions();
    QVERIFY(!own.isEmpty());
    for (const QAction* action : own)
        QVERIFY2(action->objectName().isEmpty(), qPrintable(action->text()));
}

QTEST_MAIN(tst_MeasuringCursors)
#include "tst_measuringcursors.moc"

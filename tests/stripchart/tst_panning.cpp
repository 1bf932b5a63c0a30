#include "tests/stripchart/tcChartProbe.h"

#include <QApplication>
#include <QtTest>
#include <qwt_plot_zoomer.h>

#include <cmath>

namespace
{
/// A chart of ten seconds that stands still: its clock moves only when a test says so.
struct tcMovedChart : tcChartProbe
{
    tcMovedChart()
    {
        a = curve("A");
        key = chart->addCurve(a.get());
        chart->setYRange(0, 0.0, 100.0);
        show();
        settle();
        chart->startUpdates();
        chart->tick();
        plot->replot();
        live = shown(QwtPlot::xBottom);
    }
    QWidget* canvas() const { return plot->canvas(); }
    void press(const QPoint& acPos, Qt::MouseButton aeButton = Qt::MiddleButton)
    {
        QTest::mousePress(canvas(), aeButton, {}, acPos);
    }
    void move(const QPoint& acPos, Qt::MouseButtons aButtons = Qt::MiddleButton)
    {
        QMouseEvent event(QEvent::MouseMove, acPos, Qt::NoButton, aButtons, Qt::NoModifier);
        QApplication::sendEvent(canvas(), &event);
    }
    void drag(const QPoint& acFrom, const QPoint& acTo,
              Qt::MouseButton aeButton = Qt::MiddleButton)
    {
        press(acFrom, aeButton);
        move((acFrom + acTo) / 2, aeButton);
        move(acTo, aeButton);
        QTest::mouseRelease(canvas(), aeButton, {}, acTo);
    }
    void zoom() { drag({100, 100}, {300, 200}, Qt::LeftButton); }
    QAction* follow() const { return own("Follow"); }
    QwtPlotZoomer* zoomer() const { return canvas()->findChild<QwtPlotZoomer*>(); }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
    QwtInterval live;
};

bool isNear(const QwtInterval& acActual, double anFrom, double anTo)
{
    const double error = std::abs(anTo - anFrom) * 1e-6;
    return std::abs(acActual.minValue() - anFrom) < error
        && std::abs(acActual.maxValue() - anTo) < error;
}
} // namespace

class tst_Panning : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void middleDragMovesTimeAndLeftAxis();
    void rightAxisStays();
    void boxesKeepWhatWasSet();
    void middleClickMovesNothing();
    void middleClickStillZoomsOneStepBack();
    void middleDragIsNoZoomStep();
    void noMoveInTheMiddleOfAFrame();
    void lostReleaseEndsTheMove();
    void arrowKeysMoveATenth_data();
    void arrowKeysMoveATenth();
    void arrowKeyWithModifierIsNotOurs();
    void scrollingStopsReadingsGoOn();
    void unmovedChartScrolls();
    void followGoesBack();
    void followAfterZoom();
    void followAfterMoveAndZoom();
    void followAfterZoomAndMove();
    void followWhilePaused();
    void followIsOfferedWhenNeeded();
    void homeFollows();
    void resumedFeedScrolls();
    void pointerTellsOfTheGrip();
    void chartDestroyedInTheMiddleOfADrag();
};

void tst_Panning::middleDragMovesTimeAndLeftAxis()
{
    tcMovedChart probe;
    const double perPixel = probe.live.width() / (probe.canvas()->width() - 1);
    const double valuePerPixel = 100.0 / (probe.canvas()->height() - 1);
    probe.drag({200, 100}, {260, 140});
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    QVERIFY(std::abs(times.minValue() - (probe.live.minValue() - 60 * perPixel))
            < 2 * perPixel);
    QVERIFY(std::abs(times.width() - probe.live.width()) < 1.0);
    const QwtInterval values = probe.shown(QwtPlot::yLeft);
    QVERIFY(std::abs(values.minValue() - 40 * valuePerPixel) < 2 * valuePerPixel);
    QVERIFY(std::abs(values.width() - 100.0) < 1e-6);
}

void tst_Panning::rightAxisStays()
{
    tcMovedChart probe;
    const QwtInterval before = probe.shown(QwtPlot::yRight);
    probe.drag({200, 100}, {260, 140});
    QCOMPARE(probe.shown(QwtPlot::yRight), before);
}

void tst_Panning::boxesKeepWhatWasSet()
{
    tcMovedChart probe;
    probe.drag({200, 100}, {260, 140});
    QCOMPARE(probe.box("doubleSpinBoxYMin")->value(), 0.0);
    QCOMPARE(probe.box("doubleSpinBoxYMax")->value(), 100.0);
}

void tst_Panning::middleClickMovesNothing()
{
    tcMovedChart probe;
    QTest::mouseClick(probe.canvas(), Qt::MiddleButton, {}, {200, 100});
    QCOMPARE(probe.shown(QwtPlot::xBottom), probe.live);
    QVERIFY(!probe.follow()->isEnabled());
}

void tst_Panning::middleClickStillZoomsOneStepBack()
{
    tcMovedChart probe;
    probe.zoom();
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 1u);
    QTest::mouseClick(probe.canvas(), Qt::MiddleButton, {}, {200, 100});
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
}

void tst_Panning::middleDragIsNoZoomStep()
{
    tcMovedChart probe;
    probe.zoom();
    probe.drag({200, 100}, {260, 140});
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 1u);
}

void tst_Panning::noMoveInTheMiddleOfAFrame()
{
    tcMovedChart probe;
    probe.press({100, 100}, Qt::LeftButton);
    const auto both = Qt::LeftButton | Qt::MiddleButton;
    QMouseEvent second(QEvent::MouseButtonPress, QPoint(200, 150), Qt::MiddleButton, both,
                       Qt::NoModifier);
    QApplication::sendEvent(probe.canvas(), &second);
    probe.move({260, 190}, both);
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    const bool moved = probe.follow()->isEnabled();
    for (const auto button : {Qt::MiddleButton, Qt::LeftButton})
        QTest::mouseRelease(probe.canvas(), button, {}, {260, 190});
    QCOMPARE(times, probe.live);
    QVERIFY(!moved);
}

// Where the pointer left the program in between, nobody tells of the release.
void tst_Panning::lostReleaseEndsTheMove()
{
    tcMovedChart probe;
    probe.canvas()->setMouseTracking(true); // as the measuring cursors do
    probe.press({200, 100});
    probe.move({260, 140}, Qt::NoButton);
    QTest::mouseRelease(probe.canvas(), Qt::MiddleButton, {}, {260, 140});
    QCOMPARE(probe.shown(QwtPlot::xBottom), probe.live);
    QVERIFY(!probe.follow()->isEnabled());
}

void tst_Panning::arrowKeysMoveATenth_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("times");
    QTest::addColumn<double>("values");
    QTest::newRow("left") << int(Qt::Key_Left) << -0.1 << 0.0;
    QTest::newRow("right") << int(Qt::Key_Right) << 0.1 << 0.0;
    QTest::newRow("up") << int(Qt::Key_Up) << 0.0 << 10.0;
    QTest::newRow("down") << int(Qt::Key_Down) << 0.0 << -10.0;
}

void tst_Panning::arrowKeysMoveATenth()
{
    QFETCH(int, key);
    QFETCH(double, times);
    QFETCH(double, values);
    tcMovedChart probe;
    QTest::keyClick(probe.canvas(), static_cast<Qt::Key>(key));
    const double moved = (probe.shown(QwtPlot::xBottom).minValue() - probe.live.minValue())
        / probe.live.width();
    QVERIFY2(std::abs(moved - times) < 0.002, qPrintable(QString::number(moved)));
    const double raised = probe.shown(QwtPlot::yLeft).minValue();
    QVERIFY2(std::abs(raised - values) < 0.2, qPrintable(QString::number(raised)));
}

void tst_Panning::arrowKeyWithModifierIsNotOurs()
{
    tcMovedChart probe;
    QTest::keyClick(probe.canvas(), Qt::Key_Left, Qt::ControlModifier);
    QVERIFY(!probe.follow()->isEnabled());
}

void tst_Panning::scrollingStopsReadingsGoOn()
{
    tcMovedChart probe;
    QTest::keyClick(probe.canvas(), Qt::Key_Left);
    const QwtInterval moved = probe.shown(QwtPlot::xBottom);
    probe.now += 5000;
    probe.chart->updateData(probe.key, 0, probe.now, 21.0);
    probe.chart->tick();
    QCOMPARE(probe.shown(QwtPlot::xBottom), moved);
    QCOMPARE(probe.a->dataSize(), std::size_t(1));
}

void tst_Panning::unmovedChartScrolls()
{
    tcMovedChart probe;
    probe.now += 5000;
    probe.chart->tick();
    QVERIFY(isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue() + 5000,
                   probe.live.maxValue() + 5000));
}

void tst_Panning::followGoesBack()
{
    tcMovedChart probe;
    const QList<double> ticks = probe.ticks(QwtPlot::yLeft);
    probe.drag({200, 100}, {260, 140});
    probe.now += 5000;
    probe.follow()->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    QCOMPARE(probe.ticks(QwtPlot::yLeft), ticks);
    QVERIFY(isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue() + 5000,
                   probe.live.maxValue() + 5000));
    probe.now += 1000;
    probe.chart->tick();
    QVERIFY(isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue() + 6000,
                   probe.live.maxValue() + 6000));
}

void tst_Panning::followAfterZoom()
{
    tcMovedChart probe;
    probe.zoom();
    QVERIFY(probe.follow()->isEnabled());
    probe.follow()->trigger();
    QVERIFY(
        isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue(), probe.live.maxValue()));
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    QVERIFY(!probe.follow()->isEnabled());
}

void tst_Panning::followAfterMoveAndZoom()
{
    tcMovedChart probe;
    probe.drag({200, 100}, {260, 140});
    probe.chart->tick();
    probe.zoom();
    probe.follow()->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    QCOMPARE(probe.box("doubleSpinBoxYMin")->value(), 0.0);
    QCOMPARE(probe.box("doubleSpinBoxYMax")->value(), 100.0);
    QVERIFY(
        isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue(), probe.live.maxValue()));
}

void tst_Panning::followAfterZoomAndMove()
{
    tcMovedChart probe;
    probe.zoom();
    probe.drag({200, 100}, {260, 140});
    probe.follow()->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    QVERIFY(
        isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue(), probe.live.maxValue()));
}

void tst_Panning::followWhilePaused()
{
    tcMovedChart probe;
    probe.action("actionPause_Updates")->setChecked(true);
    probe.drag({200, 100}, {260, 140});
    probe.now += 5000;
    probe.follow()->trigger();
    QVERIFY(
        isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue(), probe.live.maxValue()));
}

void tst_Panning::followIsOfferedWhenNeeded()
{
    tcMovedChart probe;
    QVERIFY(!probe.follow()->isEnabled());
    QTest::keyClick(probe.canvas(), Qt::Key_Up);
    QVERIFY(probe.follow()->isEnabled());
    probe.follow()->trigger();
    QVERIFY(!probe.follow()->isEnabled());
}

void tst_Panning::homeFollows()
{
    tcMovedChart probe;
    QCOMPARE(probe.follow()->shortcut(), QKeySequence(Qt::Key_Home));
    QTest::keyClick(probe.canvas(), Qt::Key_Up);
    QApplication::setActiveWindow(probe.chart.get());
    probe.canvas()->setFocus();
    QTRY_VERIFY(probe.canvas()->hasFocus());
    QTest::keyClick(probe.canvas(), Qt::Key_Home);
    QVERIFY(!probe.follow()->isEnabled());
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

void tst_Panning::resumedFeedScrolls()
{
    tcMovedChart probe;
    QTest::keyClick(probe.canvas(), Qt::Key_Left);
    probe.action("actionResume_Feed")->trigger();
    QVERIFY(!probe.follow()->isEnabled());
    probe.now += 5000;
    probe.chart->tick();
    QVERIFY(isNear(probe.shown(QwtPlot::xBottom), probe.live.minValue() + 5000,
                   probe.live.maxValue() + 5000));
}

void tst_Panning::pointerTellsOfTheGrip()
{
    tcMovedChart probe;
    const Qt::CursorShape usual = probe.canvas()->cursor().shape();
    probe.press({200, 100});
    probe.move({240, 100});
    QCOMPARE(probe.canvas()->cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseRelease(probe.canvas(), Qt::MiddleButton, {}, {240, 100});
    QCOMPARE(probe.canvas()->cursor().shape(), usual);
}

void tst_Panning::chartDestroyedInTheMiddleOfADrag()
{
    tcMovedChart probe;
    probe.press({200, 100});
    probe.move({240, 100});
    probe.chart.reset();
    QVERIFY(!probe.a->plot());
}

QTEST_MAIN(tst_Panning)
#include "tst_panning.moc"

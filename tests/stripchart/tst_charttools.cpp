#include "stripchart/TimeScalePicker.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMagnifier.h"
#include "stripchart/tcStripMarker.h"
#include "tests/stripchart/tcChartProbe.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QWheelEvent>
#include <QtTest>
#include <qwt_picker_machine.h>
#include <qwt_plot_zoomer.h>

#include <cmath>

namespace
{
struct tcToolChart : tcChartProbe
{
    tcToolChart()
    {
        a = curve("A");
        key = chart->addCurve(a.get());
        chart->setYRange(0, 0.0, 100.0);
        show();
        settle();
        chart->tick();
        plot->replot();
    }
    QWidget* canvas() const { return plot->canvas(); }
    void wheel(const QPoint& acPos, int anSteps)
    {
        QWheelEvent event(acPos, canvas()->mapToGlobal(acPos), {}, QPoint(0, anSteps * 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas(), &event);
    }
    void drag(const QPoint& acFrom, const QPoint& acTo, Qt::KeyboardModifiers aModifiers = {})
    {
        QTest::mousePress(canvas(), Qt::LeftButton, aModifiers, acFrom);
        move((acFrom + acTo) / 2, aModifiers);
        move(acTo, aModifiers);
        QTest::mouseRelease(canvas(), Qt::LeftButton, aModifiers, acTo);
    }
    void move(const QPoint& acPos, Qt::KeyboardModifiers aModifiers)
    {
        QMouseEvent event(QEvent::MouseMove, acPos, Qt::NoButton, Qt::LeftButton, aModifiers);
        QApplication::sendEvent(canvas(), &event);
    }
    /// A press and what the desktop sends after it.
    void rightPress(const QPoint& acPos, Qt::KeyboardModifiers aModifiers = {})
    {
        QTest::mousePress(canvas(), Qt::RightButton, aModifiers, acPos);
        QContextMenuEvent request(QContextMenuEvent::Mouse, acPos, canvas()->mapToGlobal(acPos),
                                  aModifiers);
        QApplication::sendEvent(canvas(), &request);
    }
    QwtPlotZoomer* zoomer() const { return canvas()->findChild<QwtPlotZoomer*>(); }
    TimeScalePicker* picker() const { return canvas()->findChild<TimeScalePicker*>(); }
    double valueAt(const QPoint& acPos) const
    {
        return plot->invTransform(QwtPlot::yLeft, acPos.y());
    }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
    tcScriptedDialogs dialogs;
};

QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// Counts how often the plot hands out its scales: once for each replot.
class tcScaleWatch
{
public:
    explicit tcScaleWatch(QwtPlot& arPlot)
    {
        mItem.attach(&arPlot);
        mItem.count = 0;
    }
    int updates() const { return mItem.count; }

private:
    class tcItem : public QwtPlotItem
    {
    public:
        tcItem() { setItemInterest(QwtPlotItem::ScaleInterest, true); }
        void draw(QPainter*, const QwtScaleMap&, const QwtScaleMap&,
                  const QRectF&) const override
        {
        }
        void updateScaleDiv(const QwtScaleDiv&, const QwtScaleDiv&) override { ++count; }
        int count = 0;
    };
    tcItem mItem;
};

class tcTextPicker : public TimeScalePicker
{
public:
    using TimeScalePicker::TimeScalePicker;
    using TimeScalePicker::trackerTextF;
};
} // namespace

class tst_ChartTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pickerLooks();
    void trackerText();
    void altClickAsksForAMarker();
    void altClickGoesNoFurther();
    void plainClickAsksForNone();
    void rightPressOverAMarkerOpensItsMenuOnly();
    void otherPressesOverAMarkerOpenNoMenu();
    void rightPressElsewhereOpensThePlotMenu();
    void deletingTheMarkerFromItsMenu();
    void chartDestroyedWhileMarkerMenuIsOpen();
    void markerGoneWhileItsMenuIsOpen();
    void zoomerPatterns();
    void draggedRectangleZooms();
    void zoomOutGoesBackToWhatWasShown();
    void zoomOutLeavesAllZoomsAtOnce();
    void zoomOutWithoutZoomChangesNothing();
    void shiftRightZoomsOutAndOpensNoMenu();
    void controlDragIsNoZoom();
    void magnifierIsForTheLeftAxis();
    void wheelBringsThePointToTheMiddle();
    void plusAndMinusZoom_data();
    void plusAndMinusZoom();
    void frameShowsWhereTheKeysGo();
    void escapeGoesBackFromAZoomAlone();
    void wheelWithoutFactorDoesNotPan();
    void wheelLeavesTheTimeAxis();
    void wheelWorksOnTheRightAxisWhenEnabled();
    void panByNothing();
    void panByPixels();
    void panByPixelsOfTime();
    void panReplotsOnce();
    void panKeepsWhetherThePlotReplotsItself();
    void wheelStopsBeforeNumbersEnd();
    void rightDragDoesNotZoom();
};

void tst_ChartTools::pickerLooks()
{
    tcToolChart probe;
    const TimeScalePicker* picker = probe.picker();
    QCOMPARE(picker->xAxis(), int(QwtPlot::xBottom));
    QCOMPARE(picker->yAxis(), int(QwtPlot::yLeft));
    QCOMPARE(picker->rubberBand(), QwtPicker::CrossRubberBand);
    QCOMPARE(picker->rubberBandPen().color(), QColor(Qt::green));
    QCOMPARE(picker->trackerPen().color(), QColor(Qt::white));
    QVERIFY(dynamic_cast<const QwtPickerDragPointMachine*>(picker->stateMachine()));
    const auto& pattern = picker->mousePattern().at(QwtEventPattern::MouseSelect1);
    QCOMPARE(pattern.button, Qt::LeftButton);
    QCOMPARE(pattern.modifiers, Qt::KeyboardModifiers(Qt::ControlModifier));
}

void tst_ChartTools::trackerText()
{
    tcToolChart probe;
    const tcTextPicker picker(probe.canvas(), probe.chart->markers());
    QCOMPARE(picker.trackerTextF({1700000000123.0, 21.5}).text(),
             QString("23:13:20.123,21.500"));
    QCOMPARE(picker.trackerTextF({1700000000123.0, -0.00049}).text(),
             QString("23:13:20.123,-0.000"));
}

void tst_ChartTools::altClickAsksForAMarker()
{
    tcToolChart probe;
    QSignalSpy requests(probe.picker(), &TimeScalePicker::markerRequest);
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, Qt::AltModifier, {120, 80});
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.first().first().toPoint(), QPoint(120, 80));
    QCOMPARE(probe.chart->markers().markers().size(), 1);
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
    QVERIFY(!probe.zoomer()->isActive());
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, Qt::AltModifier | Qt::ShiftModifier,
                      {160, 80});
    QCOMPARE(requests.size(), 2);
}

void tst_ChartTools::altClickGoesNoFurther()
{
    class tcWatch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* apEvent) override
        {
            presses += apEvent->type() == QEvent::MouseButtonPress ? 1 : 0;
            return false;
        }
        int presses = 0;
    };
    tcToolChart probe;
    tcWatch behindTheCanvas;
    probe.plot->installEventFilter(&behindTheCanvas);
    QTest::mousePress(probe.canvas(), Qt::MiddleButton, {}, {120, 80});
    QCOMPARE(behindTheCanvas.presses, 1);
    QTest::mouseRelease(probe.canvas(), Qt::MiddleButton, {}, {120, 80});
    QTest::mousePress(probe.canvas(), Qt::LeftButton, Qt::AltModifier, {120, 80});
    QCOMPARE(behindTheCanvas.presses, 1);
}

void tst_ChartTools::plainClickAsksForNone()
{
    tcToolChart probe;
    QSignalSpy requests(probe.picker(), &TimeScalePicker::markerRequest);
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, {}, {120, 80});
    QTest::mouseClick(probe.canvas(), Qt::LeftButton, Qt::ControlModifier, {120, 80});
    QTest::mouseClick(probe.canvas(), Qt::RightButton, Qt::AltModifier, {120, 80});
    QCOMPARE(requests.size(), 0);
}

void tst_ChartTools::rightPressOverAMarkerOpensItsMenuOnly()
{
    tcToolChart probe;
    probe.dialogs.textAnswer = QString("hot");
    probe.chart->markerRequest({120, 80});
    QSignalSpy plotMenus(probe.plot, &QWidget::customContextMenuRequested);
    probe.rightPress({121, 81});
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QString("Delete Marker \"hot\""));
    QCOMPARE(plotMenus.size(), 0);
    menu->close();
}

void tst_ChartTools::otherPressesOverAMarkerOpenNoMenu()
{
    tcToolChart probe;
    probe.chart->markerRequest({120, 80});
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) {
        QTest::mouseClick(probe.canvas(), button, {}, {120, 80});
        QVERIFY(!openMenu());
    }
}

void tst_ChartTools::rightPressElsewhereOpensThePlotMenu()
{
    tcToolChart probe;
    probe.chart->markerRequest({120, 80});
    probe.rightPress({120, 80});
    openMenu()->close();
    probe.rightPress({200, 120});
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    QCOMPARE(menu->actions().first(), probe.action("actionPause_Updates"));
    menu->close();
}

void tst_ChartTools::deletingTheMarkerFromItsMenu()
{
    tcToolChart probe;
    probe.chart->markerRequest({120, 80});
    probe.rightPress({120, 80});
    openMenu()->actions().first()->trigger();
    QVERIFY(probe.chart->markers().markers().isEmpty());
    QVERIFY(!probe.chart->grab().isNull());
    openMenu()->close();
}

void tst_ChartTools::chartDestroyedWhileMarkerMenuIsOpen()
{
    tcToolChart probe;
    probe.chart->markerRequest({120, 80});
    probe.rightPress({120, 80});
    QPointer<QMenu> menu = openMenu();
    QVERIFY(menu);
    probe.chart.reset();
    QVERIFY(!menu);
}

void tst_ChartTools::markerGoneWhileItsMenuIsOpen()
{
    tcToolChart probe;
    probe.chart->markerRequest({120, 80});
    probe.rightPress({120, 80});
    probe.chart->markers().remove(probe.chart->markers().order().first());
    openMenu()->actions().first()->trigger();
    QVERIFY(probe.chart->markers().markers().isEmpty());
    openMenu()->close();
}

void tst_ChartTools::zoomerPatterns()
{
    tcToolChart probe;
    const auto& pattern = probe.zoomer()->mousePattern().at(QwtEventPattern::MouseSelect2);
    QCOMPARE(pattern.button, Qt::RightButton);
    QCOMPARE(pattern.modifiers, Qt::KeyboardModifiers(Qt::ShiftModifier));
}

void tst_ChartTools::draggedRectangleZooms()
{
    tcToolChart probe;
    const double top = probe.valueAt({100, 60});
    const double bottom = probe.valueAt({300, 160});
    probe.drag({100, 60}, {300, 160});
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 1u);
    QVERIFY(std::abs(probe.shown(QwtPlot::yLeft).minValue() - bottom) < 0.5);
    QVERIFY(std::abs(probe.shown(QwtPlot::yLeft).maxValue() - top) < 0.5);
    QCOMPARE(probe.box("doubleSpinBoxYMin")->value(), probe.shown(QwtPlot::yLeft).minValue());
    QCOMPARE(probe.ticks(QwtPlot::yLeft).size(), 11);
}

void tst_ChartTools::zoomOutGoesBackToWhatWasShown()
{
    tcToolChart probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    probe.drag({100, 60}, {300, 160});
    QVERIFY(probe.shown(QwtPlot::yLeft) != QwtInterval(10.0, 50.0));
    QVERIFY(probe.shown(QwtPlot::xBottom) != times);
    probe.action("actionZoom_Out")->trigger();
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
    QCOMPARE(probe.shown(QwtPlot::xBottom), times);
}

void tst_ChartTools::zoomOutLeavesAllZoomsAtOnce()
{
    tcToolChart probe;
    probe.drag({100, 60}, {300, 160});
    probe.drag({120, 60}, {250, 140});
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 2u);
    probe.action("actionZoom_Out")->trigger();
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
}

void tst_ChartTools::zoomOutWithoutZoomChangesNothing()
{
    tcToolChart probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    probe.action("actionZoom_Out")->trigger();
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
    QCOMPARE(probe.shown(QwtPlot::xBottom), times);
}

void tst_ChartTools::shiftRightZoomsOutAndOpensNoMenu()
{
    tcToolChart probe;
    probe.chart->setYRange(0, 10.0, 50.0);
    probe.drag({100, 60}, {300, 160});
    probe.rightPress({150, 100}, Qt::ShiftModifier);
    QTest::mouseRelease(probe.canvas(), Qt::RightButton, Qt::ShiftModifier, {150, 100});
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(10.0, 50.0));
    QVERIFY(!openMenu());
}

void tst_ChartTools::controlDragIsNoZoom()
{
    tcToolChart probe;
    probe.drag({100, 60}, {300, 160}, Qt::ControlModifier);
    QCOMPARE(probe.zoomer()->zoomRectIndex(), 0u);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

void tst_ChartTools::magnifierIsForTheLeftAxis()
{
    tcToolChart probe;
    const auto* magnifier = probe.canvas()->findChild<tcStripMagnifier*>();
    QVERIFY(magnifier->isAxisEnabled(QwtPlot::yLeft));
    QVERIFY(!magnifier->isAxisEnabled(QwtPlot::yRight));
    QVERIFY(!magnifier->isAxisEnabled(QwtPlot::xBottom));
    QVERIFY(!magnifier->isAxisEnabled(QwtPlot::xTop));
}

void tst_ChartTools::wheelBringsThePointToTheMiddle()
{
    tcToolChart probe;
    const QPoint pos(150, probe.canvas()->height() / 4);
    const double value = probe.valueAt(pos);
    probe.wheel(pos, 1);
    const QwtInterval shown = probe.shown(QwtPlot::yLeft);
    const double perPixel = shown.width() / probe.canvas()->height();
    QVERIFY(std::abs((shown.minValue() + shown.maxValue()) / 2.0 - value) <= perPixel);
    QVERIFY(shown.width() != 100.0);
    const double width = shown.width();
    probe.wheel(probe.canvas()->rect().center(), -1);
    QVERIFY(std::abs(probe.shown(QwtPlot::yLeft).width() - 100.0) < 0.5);
    QVERIFY(width != probe.shown(QwtPlot::yLeft).width());
}

void tst_ChartTools::plusAndMinusZoom_data()
{
    QTest::addColumn<int>("modifier");
    QTest::newRow("plain") << int(Qt::NoModifier);
    QTest::newRow("typed with Shift") << int(Qt::ShiftModifier);
    QTest::newRow("among the digits") << int(Qt::KeypadModifier);
}

void tst_ChartTools::plusAndMinusZoom()
{
    QFETCH(int, modifier);
    tcToolChart probe;
    const Qt::KeyboardModifiers modifiers(QFlag{modifier});
    const double before = probe.shown(QwtPlot::yLeft).width();
    QTest::keyClick(probe.canvas(), Qt::Key_Plus, modifiers);
    const double closer = probe.shown(QwtPlot::yLeft).width();
    QVERIFY(closer < before);
    QTest::keyClick(probe.canvas(), Qt::Key_Minus, modifiers);
    QVERIFY(probe.shown(QwtPlot::yLeft).width() > closer);
    QTest::keyClick(probe.canvas(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(probe.shown(QwtPlot::yLeft).width(), before);
}

void tst_ChartTools::frameShowsWhereTheKeysGo()
{
    tcToolChart probe;
    const auto colors = [&probe] {
        probe.settle();
        const QImage picture = probe.canvas()->grab().toImage();
        return QPair<QColor, QColor>(picture.pixelColor(0, 40), picture.pixelColor(3, 40));
    };
    const auto tell = [&probe](QEvent::Type aeType, Qt::FocusReason aeReason) {
        QFocusEvent event(aeType, aeReason);
        QApplication::sendEvent(probe.canvas(), &event);
    };
    const auto without = colors();
    tell(QEvent::FocusIn, Qt::TabFocusReason);
    const auto with = colors();
    QVERIFY(with.first != without.first);
    QCOMPARE(with.second, without.second); // the curves keep their colours
    // Until it comes back from a menu or another window.
    tell(QEvent::FocusOut, Qt::PopupFocusReason);
    tell(QEvent::FocusIn, Qt::PopupFocusReason);
    QCOMPARE(colors(), with);
    tell(QEvent::FocusOut, Qt::TabFocusReason);
    QCOMPARE(colors(), without);
    tell(QEvent::FocusIn, Qt::BacktabFocusReason);
    QCOMPARE(colors(), with);
    tell(QEvent::FocusIn, Qt::MouseFocusReason);
    QCOMPARE(colors(), without);
}

void tst_ChartTools::escapeGoesBackFromAZoomAlone()
{
    tcToolChart probe;
    const QList<double> before = probe.ticks(QwtPlot::yLeft);
    QTest::keyClick(probe.canvas(), Qt::Key_Escape);
    QCOMPARE(probe.ticks(QwtPlot::yLeft), before);
    const double width = probe.shown(QwtPlot::yLeft).width();
    probe.drag({60, 20}, {160, 90});
    QVERIFY(probe.shown(QwtPlot::yLeft).width() < width);
    QTest::keyClick(probe.canvas(), Qt::Key_Escape);
    QCOMPARE(probe.shown(QwtPlot::yLeft).width(), width);
}

void tst_ChartTools::wheelWithoutFactorDoesNotPan()
{
    tcToolChart probe;
    probe.canvas()->findChild<tcStripMagnifier*>()->setWheelFactor(0.0);
    probe.wheel({150, 20}, 1);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

void tst_ChartTools::wheelLeavesTheTimeAxis()
{
    tcToolChart probe;
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    probe.wheel({20, 20}, 2);
    QCOMPARE(probe.shown(QwtPlot::xBottom), times);
}

void tst_ChartTools::wheelWorksOnTheRightAxisWhenEnabled()
{
    tcToolChart probe;
    probe.chart->setYRange(1, 0.0, 10.0);
    probe.plot->replot();
    auto* magnifier = probe.canvas()->findChild<tcStripMagnifier*>();
    magnifier->setAxisEnabled(QwtPlot::yRight, true);
    magnifier->pan(0, 20);
    QVERIFY(probe.shown(QwtPlot::yRight).minValue() > 0.0);
    QVERIFY(std::abs(probe.shown(QwtPlot::yRight).width() - 10.0) < 0.1);
}

void tst_ChartTools::panByNothing()
{
    tcToolChart probe;
    const tcScaleWatch watch(*probe.plot);
    probe.canvas()->findChild<tcStripMagnifier*>()->pan(0, 0);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    QCOMPARE(watch.updates(), 0);
}

void tst_ChartTools::panByPixels()
{
    tcToolChart probe;
    auto* magnifier = probe.canvas()->findChild<tcStripMagnifier*>();
    const double perPixel = 100.0
        / (probe.plot->transform(QwtPlot::yLeft, 0.0)
           - probe.plot->transform(QwtPlot::yLeft, 100.0));
    for (const char* other :
         {"\"Axis 1\" not enabled", "\"Axis 2\" not enabled", "\"Axis 3\" not enabled"})
        QTest::ignoreMessage(QtDebugMsg, other);
    QTest::ignoreMessage(
        QtDebugMsg,
        QRegularExpression("^\"Axis 0\" dx= 3 dy= 10 p1= .* p2= .* d1= .* d2= .*$"));
    magnifier->pan(3, 10);
    QVERIFY(std::abs(probe.shown(QwtPlot::yLeft).minValue() - 10.0 * perPixel) < 1e-6);
    QVERIFY(std::abs(probe.shown(QwtPlot::yLeft).width() - 100.0) < 1e-6);
}

void tst_ChartTools::panByPixelsOfTime()
{
    tcToolChart probe;
    auto* magnifier = probe.canvas()->findChild<tcStripMagnifier*>();
    magnifier->setAxisEnabled(QwtPlot::xBottom, true);
    const QwtInterval times = probe.shown(QwtPlot::xBottom);
    const double perPixel = probe.plot->invTransform(QwtPlot::xBottom, 1.0)
        - probe.plot->invTransform(QwtPlot::xBottom, 0.0);
    magnifier->pan(20, 0);
    const double way = times.minValue() - probe.shown(QwtPlot::xBottom).minValue();
    QVERIFY(std::abs(way - 20.0 * perPixel) < 0.1);
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

void tst_ChartTools::panReplotsOnce()
{
    tcToolChart probe;
    probe.plot->setAutoReplot(true);
    const tcScaleWatch watch(*probe.plot);
    probe.canvas()->findChild<tcStripMagnifier*>()->pan(0, 10);
    QCOMPARE(watch.updates(), 1);
}

void tst_ChartTools::panKeepsWhetherThePlotReplotsItself()
{
    tcToolChart probe;
    auto* magnifier = probe.canvas()->findChild<tcStripMagnifier*>();
    for (const bool on : {true, false}) {
        probe.plot->setAutoReplot(on);
        magnifier->pan(0, 10);
        QCOMPARE(probe.plot->autoReplot(), on);
    }
}

void tst_ChartTools::wheelStopsBeforeNumbersEnd()
{
    tcToolChart probe;
    for (const int steps : {1, -1}) {
        for (int i = 0; i < 1000; ++i)
            probe.wheel(probe.canvas()->rect().center(), steps);
        const QwtInterval shown = probe.shown(QwtPlot::yLeft);
        QVERIFY(shown.width() > 1e-6);
        QVERIFY(shown.width() < 1e16);
        QVERIFY(!probe.chart->grab().isNull());
    }
}

void tst_ChartTools::rightDragDoesNotZoom()
{
    tcToolChart probe;
    QTest::mousePress(probe.canvas(), Qt::RightButton, {}, {100, 60});
    probe.move({100, 160}, {});
    probe.move({100, 200}, {});
    QCOMPARE(probe.shown(QwtPlot::yLeft), QwtInterval(0.0, 100.0));
}

QTEST_MAIN(tst_ChartTools)
#include "tst_charttools.moc"

#include "stripchart/tcMinMaxLines.h"
#include "tests/stripchart/tcMarkedChart.h"

#include <QMenu>
#include <QPen>
#include <QtTest>

#include <cmath>

namespace
{
constexpr double cAboveAll = 1.7976931348623157e308;
constexpr double cBelowAll = 2.2250738585072014e-308;

/// Where the label of a line is drawn in the plot.
QRect labelInk(const tcStripMarker& acLine)
{
    const QwtPlot& plot = *acLine.plot();
    QImage image(plot.canvas()->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    acLine.draw(&painter, plot.canvasMap(acLine.xAxis()), plot.canvasMap(acLine.yAxis()),
                image.rect());
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) > 200)
                ink |= QRect(x, y, 1, 1);
    return ink;
}
} // namespace

class tst_MinMaxLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void minMaxLinesAtStart();
    void refreshFollowsTheCurve();
    void refreshKeepsWhatWasReached();
    void pausedTickLeavesTheLines();
    void followingAnotherCurveRefreshes();
    void refreshFromZeroTakesTheSmallest();
    void refreshOfAnEmptyCurveChangesNothing();
    void readingWidensWithoutLabel();
    void labelOfAFollowingLineWaitsForTheTick();
    void readingOfAnotherCurveWidensToo();
    void readingLeavesHiddenLines();
    void resetWithoutCurveStaysAtTheExtremes();
    void resetBeginsAtOnceWithWhatTheCurveHolds();
    void resetLinesAreNotDrawn();
    void allNegativeMaximumStaysAboveZero();
    void showMinMaxResetsAndShows();
    void hiddenLinesStayHiddenWhenTheirCurveIsShown();
    void followedCurveDestroyed();
    void labelsNeverLieOnEachOther_data();
    void labelsNeverLieOnEachOther();
};

void tst_MinMaxLines::minMaxLinesAtStart()
{
    tcChartProbe probe;
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    QCOMPARE(lines.minLine().name(), QString("Min:"));
    QCOMPARE(lines.maxLine().name(), QString("Max:"));
    for (const tcStripMarker* line : {&lines.minLine(), &lines.maxLine()}) {
        QCOMPARE(line->lineStyle(), QwtPlotMarker::HLine);
        QCOMPARE(line->labelAlignment(), Qt::AlignRight | Qt::AlignBottom);
        QVERIFY(!line->isVisible());
        QCOMPARE(line->plot(), probe.plot);
    }
    QCOMPARE(lines.minLine().yValue(), cAboveAll);
}

void tst_MinMaxLines::refreshFollowsTheCurve()
{
    tcMarkedChart probe;
    probe.a->addSample(probe.now - 3000, 12.3451);
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    for (QAction* action : menu->actions())
        if (action->text().startsWith("Show Min/Max"))
            action->trigger();
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    QVERIFY(lines.isFollowing());
    QCOMPARE(lines.minLine().yValue(), 12.3451);
    QCOMPARE(lines.minLine().label().text(), QString("Min: 12.345"));
    QCOMPARE(lines.maxLine().label().text(), QString("Max: 40.000"));
    probe.a->addSample(probe.now - 2000, 55.0);
    probe.chart->tick();
    QCOMPARE(lines.maxLine().label().text(), QString("Max: 55.000"));
    QCOMPARE(lines.minLine().yAxis(), probe.a->yAxis());
}

/// The lines remember what the curve holds no longer.
void tst_MinMaxLines::refreshKeepsWhatWasReached()
{
    tcMarkedChart probe;
    probe.a->addSample(probe.now - 3000, 12.5);
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    probe.a->clear();
    probe.a->addSample(probe.now - 1000, 20.0);
    probe.chart->tick();
    QCOMPARE(lines.minLine().label().text(), QString("Min: 12.500"));
    QCOMPARE(lines.maxLine().label().text(), QString("Max: 40.000"));
}

void tst_MinMaxLines::pausedTickLeavesTheLines()
{
    tcMarkedChart probe;
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    probe.chart->slot_Pause(true);
    probe.a->addSample(probe.now - 2000, 55.0);
    probe.chart->tick();
    QCOMPARE(lines.maxLine().yValue(), 40.0);
    probe.chart->slot_Pause(false);
    probe.chart->tick();
    QCOMPARE(lines.maxLine().yValue(), 55.0);
}

void tst_MinMaxLines::followingAnotherCurveRefreshes()
{
    tcMarkedChart probe;
    const auto b = probe.curve("B", 1);
    b->addSample(probe.now, 70.0);
    probe.chart->addCurve(b.get(), probe.key);
    QCoreApplication::processEvents();
    for (tcStripCurve* curve : {probe.a.get(), b.get()}) {
        auto menu
            = probe.chart->legendMenu(probe.label(curve)->mapTo(probe.legend, QPoint(5, 5)));
        menu->actions().at(3)->trigger();
    }
    QCOMPARE(probe.chart->minMaxLines().minLine().label().text(), QString("Min: 70.000"));
    QCOMPARE(probe.chart->minMaxLines().maxLine().label().text(), QString("Max: 70.000"));
}

void tst_MinMaxLines::refreshFromZeroTakesTheSmallest()
{
    QwtPlot plot;
    plot.setAutoDelete(false);
    tcMinMaxLines lines(plot);
    tcStripCurve first(0);
    tcStripCurve second(1);
    second.addSample(1, 30.0);
    lines.follow(&first);
    lines.follow(&second); // leaving a curve sets the value to zero
    QCOMPARE(lines.minLine().yValue(), 0.0);
    lines.refresh();
    QCOMPARE(lines.minLine().yValue(), 30.0);
}

void tst_MinMaxLines::refreshOfAnEmptyCurveChangesNothing()
{
    QwtPlot plot;
    plot.setAutoDelete(false);
    tcMinMaxLines lines(plot);
    tcStripCurve curve(0);
    lines.follow(&curve);
    lines.refresh();
    QCOMPARE(lines.minLine().yValue(), cAboveAll);
    curve.addSample(1, std::nan(""));
    lines.refresh();
    QCOMPARE(lines.minLine().yValue(), cAboveAll);
}

void tst_MinMaxLines::readingWidensWithoutLabel()
{
    tcMarkedChart probe;
    probe.chart->showMinMax(true);
    const QString before = probe.chart->minMaxLines().minLine().label().text();
    probe.chart->updateData(probe.key, 0, probe.now, 15.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 15.0);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), 40.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().label().text(), before);
}

void tst_MinMaxLines::labelOfAFollowingLineWaitsForTheTick()
{
    tcMarkedChart probe;
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    probe.chart->updateData(probe.key, 0, probe.now, 55.0);
    const tcStripMarker& line = probe.chart->minMaxLines().maxLine();
    QCOMPARE(line.yValue(), 55.0);
    QCOMPARE(line.label().text(), QString("Max: 40.000"));
    probe.chart->tick();
    QCOMPARE(line.label().text(), QString("Max: 55.000"));
}

void tst_MinMaxLines::readingOfAnotherCurveWidensToo()
{
    tcMarkedChart probe;
    const auto b = probe.curve("B", 1);
    probe.chart->addCurve(b.get(), probe.key);
    probe.chart->showMinMax(true);
    probe.chart->updateData(probe.key, 1, probe.now, 90.0);
    probe.chart->updateData(probe.key, 0, probe.now, 41.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 40.0);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), 90.0);
}

void tst_MinMaxLines::readingLeavesHiddenLines()
{
    tcMarkedChart probe;
    probe.chart->updateData(probe.key, 0, probe.now, 15.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), cAboveAll);
}

void tst_MinMaxLines::resetWithoutCurveStaysAtTheExtremes()
{
    tcMarkedChart probe;
    probe.chart->showMinMax(true);
    probe.chart->updateData(probe.key, 0, probe.now, 15.0);
    probe.action("actionReset_Min_Max")->trigger();
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), cAboveAll);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), cBelowAll);
}

void tst_MinMaxLines::resetBeginsAtOnceWithWhatTheCurveHolds()
{
    tcMarkedChart probe;
    probe.a->addSample(probe.now - 3000, 12.5);
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    probe.a->clear();
    probe.a->addSample(probe.now - 2000, 20.0);
    probe.a->addSample(probe.now - 1000, 30.0);
    probe.action("actionReset_Min_Max")->trigger();
    const tcMinMaxLines& lines = probe.chart->minMaxLines();
    QCOMPARE(lines.minLine().label().text(), QString("Min: 20.000"));
    QCOMPARE(lines.maxLine().label().text(), QString("Max: 30.000"));
}

void tst_MinMaxLines::resetLinesAreNotDrawn()
{
    tcMarkedChart probe;
    probe.chart->setYRange(0, 10.0, 50.0); // the range begins above the line of the maximum
    const QImage without = probe.plot->canvas()->grab().toImage();
    probe.chart->showMinMax(true);
    const QImage with = probe.plot->canvas()->grab().toImage();
    QCOMPARE(with, without);
}

void tst_MinMaxLines::allNegativeMaximumStaysAboveZero()
{
    tcMarkedChart probe;
    probe.a->clear();
    probe.chart->showMinMax(true);
    probe.chart->updateData(probe.key, 0, probe.now, -5.0);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), -5.0);
    QCOMPARE(probe.chart->minMaxLines().maxLine().yValue(), cBelowAll);
}

void tst_MinMaxLines::showMinMaxResetsAndShows()
{
    tcMarkedChart probe;
    QVERIFY(!probe.action("actionShow_Min_Max_Markers")->isChecked());
    probe.chart->showMinMax(true);
    QVERIFY(probe.action("actionShow_Min_Max_Markers")->isChecked());
    QVERIFY(probe.chart->minMaxLines().minLine().isVisible());
    QVERIFY(probe.chart->minMaxLines().maxLine().isVisible());
    probe.chart->updateData(probe.key, 0, probe.now, 15.0);
    probe.action("actionShow_Min_Max_Markers")->setChecked(false);
    QVERIFY(!probe.chart->minMaxLines().minLine().isVisible());
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 15.0);
    probe.action("actionShow_Min_Max_Markers")->setChecked(true);
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), cAboveAll);
}

void tst_MinMaxLines::hiddenLinesStayHiddenWhenTheirCurveIsShown()
{
    tcMarkedChart probe;
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    QVERIFY(probe.chart->minMaxLines().isShown());
    probe.action("actionShow_Min_Max_Markers")->setChecked(false);
    menu->actions().at(0)->trigger();
    menu->actions().at(1)->trigger();
    QVERIFY(probe.a->isVisible());
    QVERIFY(!probe.chart->minMaxLines().minLine().isVisible());
}

void tst_MinMaxLines::followedCurveDestroyed()
{
    tcMarkedChart probe;
    auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    probe.a.reset();
    QVERIFY(!probe.chart->minMaxLines().isFollowing());
    QCOMPARE(probe.chart->minMaxLines().minLine().yValue(), 0.0);
    probe.chart->tick();
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_MinMaxLines::labelsNeverLieOnEachOther_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("far apart") << 20.0 << 80.0;
    QTest::newRow("a little apart") << 50.0 << 52.0;
    QTest::newRow("the same") << 50.0 << 50.0;
    QTest::newRow("at the top") << 98.0 << 99.0;
    QTest::newRow("at the bottom") << 1.0 << 2.0;
    QTest::newRow("just above a label that stands on its line") << 1.0 << 6.0;
}

void tst_MinMaxLines::labelsNeverLieOnEachOther()
{
    QFETCH(double, low);
    QFETCH(double, high);
    tcMarkedChart probe;
    probe.a->clear();
    probe.a->addSample(probe.now - 3000, low);
    probe.a->addSample(probe.now - 2000, high);
    const auto menu = probe.chart->legendMenu(
        probe.label(probe.a.get())->mapTo(probe.legend, QPoint(5, 5)));
    menu->actions().at(3)->trigger();
    const QRect lower = labelInk(probe.chart->minMaxLines().minLine());
    const QRect upper = labelInk(probe.chart->minMaxLines().maxLine());
    QVERIFY(lower.height() >= 6);
    QVERIFY(upper.height() >= 6);
    QVERIFY2(!lower.intersects(upper),
             qPrintable(QStringLiteral("%1 to %2 and %3 to %4")
                            .arg(lower.top())
                            .arg(lower.bottom())
                            .arg(upper.top())
                            .arg(upper.bottom())));
}

QTEST_MAIN(tst_MinMaxLines)
#include "tst_minmaxlines.moc"

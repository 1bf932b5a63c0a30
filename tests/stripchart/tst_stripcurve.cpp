#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"

#include <QtTest>
#include <qwt_plot.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>

namespace
{

constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

void fill(tcStripCurve& arCurve, int anCount, double anFactor = 1.0)
{
    for (int i = 0; i < anCount; ++i)
        arCurve.addSample(1000 + i, i * anFactor);
}

/// Counts its replots.
class tcCountingPlot : public QwtPlot
{
public:
    tcCountingPlot() { setAutoDelete(false); }
    void replot() override
    {
        ++replots;
        lastThread = QThread::currentThread();
        QwtPlot::replot();
    }
    int replots = 0;
    QThread* lastThread = nullptr;
};

} // namespace

class tst_StripCurve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newCurve()
    {
        tcStripCurve curve(7);
        QCOMPARE(curve.index(), 7);
        QCOMPARE(curve.rtti(), 1000);
        QCOMPARE(curve.title().text(), QString());
        QVERIFY(curve.testRenderHint(QwtPlotItem::RenderAntialiased));
        QCOMPARE(curve.sampleCount(), 100);
        QCOMPARE(curve.dataSize(), size_t(0));
        QCOMPARE(curve.boundingRect(), QRectF(1, 1, -2, -2));
        QVERIFY(curve.markers().isEmpty());
    }

    void colorsComeFromTheTable()
    {
        QCOMPARE(tcStripCurve::stripCurveColor(0), QColor(Qt::green));
        QCOMPARE(tcStripCurve::stripCurveColor(14), QColor(Qt::darkCyan));
        QCOMPARE(tcStripCurve::stripCurveColor(15), QColor(Qt::green));
    }

    void fullCurveHoldsOneMoreThanItsSampleCountAsDesigned()
    {
        tcStripCurve curve(0);
        fill(curve, 150);
        QCOMPARE(curve.dataSize(), size_t(101));
        QCOMPARE(curve.sample(0), QPointF(1049, 49));
        QCOMPARE(curve.sample(100), QPointF(1149, 149));
    }

    void bulkDropsLikeSingleSamples()
    {
        tcStripCurve curve(0);
        QVector<double> times;
        QVector<double> values;
        for (int i = 0; i < 150; ++i) {
            times << i;
            values << i * 2;
        }
        curve.addSamples(times.constData(), values.constData(), 150);
        QCOMPARE(curve.dataSize(), size_t(101));
        QCOMPARE(curve.sample(0), QPointF(49, 98));
        curve.addSamples(nullptr, nullptr, 0);
        QCOMPARE(curve.dataSize(), size_t(101));
    }

    void loweringTheSampleCountDrawsTheShorterRowAsDesigned()
    {
        tcStripCurve curve(0);
        curve.setSampleCount(1000);
        fill(curve, 800);
        curve.setSampleCount(500);
        QCOMPARE(curve.sampleCount(), 500);
        QCOMPARE(curve.dataSize(), size_t(500));
        QCOMPARE(curve.maxYValue(), 499.0);
        // The values kept their number, so the next append drops one and draws 500 again.
        curve.addSample(5000, 5000);
        QCOMPARE(curve.dataSize(), size_t(500));
        QCOMPARE(curve.sample(499), QPointF(5000, 500));
    }

    void raisingTheSampleCountChangesNoSample()
    {
        tcStripCurve curve(0);
        fill(curve, 150);
        curve.setSampleCount(1000);
        QCOMPARE(curve.dataSize(), size_t(101));
        QCOMPARE(curve.sample(0), QPointF(1049, 49));
    }

    void clearEmptiesTheCurve()
    {
        tcStripCurve curve(0);
        curve.clear();
        QCOMPARE(curve.dataSize(), size_t(0));
        fill(curve, 120);
        curve.clear();
        QCOMPARE(curve.dataSize(), size_t(0));
        QCOMPARE(curve.boundingRect(), QRectF(1, 1, -2, -2));
        curve.addSample(5, 6);
        QCOMPARE(curve.dataSize(), size_t(1));
        QCOMPARE(curve.sample(0), QPointF(5, 6));
        QCOMPARE(curve.boundingRect(), QRectF(5, 6, 0, 0));
    }

    void whatIsDrawnIsTheStoreAfterEveryChange()
    {
        tcStripCurve curve(0);
        curve.setSampleCount(3);
        curve.clear();
        const QwtSeriesData<QPointF>* series = curve.data();
        for (int i = 0; i < 20; ++i) {
            curve.addSample(i, 100 - i);
            const int size = int(curve.dataSize());
            QCOMPARE(size, qMin(i + 1, 4));
            QCOMPARE(curve.data(), series);
            QCOMPARE(curve.sample(size - 1), QPointF(i, 100 - i));
            QCOMPARE(curve.minYValue(), 100.0 - i);
            QCOMPARE(curve.maxYValue(), 100.0 - i + size - 1);
            QCOMPARE(curve.boundingRect(), QRectF(i - size + 1, 100 - i, size - 1, size - 1));
        }
    }

    void sampleBeyondTheEndIsANullPoint()
    {
        tcStripCurve curve(0);
        fill(curve, 3);
        QCOMPARE(curve.sample(3), QPointF());
        QCOMPARE(curve.sample(-1), QPointF());
    }

    void readingsWithoutAPlaceOnTheAxis_data()
    {
        QTest::addColumn<QVector<double>>("values");
        QTest::addColumn<bool>("any");
        QTest::addColumn<double>("lowest");
        QTest::addColumn<double>("highest");
        QTest::newRow("no sample") << QVector<double>() << false << 1.0 << -1.0;
        QTest::newRow("NaN only") << QVector<double>{cNan, cNan} << false << 1.0 << -1.0;
        QTest::newRow("infinities only")
            << QVector<double>{cInfinity, -cInfinity} << false << 1.0 << -1.0;
        QTest::newRow("NaN last") << QVector<double>{5, 9, cNan} << true << 5.0 << 9.0;
        QTest::newRow("NaN first") << QVector<double>{cNan, 5, 9} << true << 5.0 << 9.0;
        QTest::newRow("infinity among them")
            << QVector<double>{5, cInfinity, 9} << true << 5.0 << 9.0;
        QTest::newRow("huge") << QVector<double>{1e308, -1e308} << true << -1e308 << 1e308;
        QTest::newRow("what a height would round")
            << QVector<double>{-1.0, 1e-20} << true << -1.0 << 1e-20;
    }

    void readingsWithoutAPlaceOnTheAxis()
    {
        QFETCH(QVector<double>, values);
        QFETCH(bool, any);
        tcStripCurve curve(0);
        for (int i = 0; i < values.size(); ++i)
            curve.addSample(i, values[i]);
        double lowest = -77;
        double highest = -77;
        QCOMPARE(curve.finiteYRange(&lowest, &highest), any);
        QTEST(curve.minYValue(), "lowest");
        QTEST(curve.maxYValue(), "highest");
        if (any) {
            QTEST(lowest, "lowest");
            QTEST(highest, "highest");
        } else {
            QCOMPARE(lowest, -77.0);
            QCOMPARE(curve.boundingRect(), QRectF(1, 1, -2, -2));
        }
    }

    void rangesMayBeAskedForOneEnd()
    {
        tcStripCurve curve(0);
        fill(curve, 3);
        double latest = 0;
        QVERIFY(curve.finiteXRange(nullptr, &latest));
        QCOMPARE(latest, 1002.0);
        QVERIFY(curve.finiteYRange(nullptr, nullptr));
    }

    void autoscalingAPlotOfNothingButNaNIsSafe()
    {
        tcCountingPlot plot;
        tcStripCurve curve(0);
        curve.attach(&plot);
        curve.addSample(1000, cNan);
        curve.addSample(1001, cNan);
        plot.setAxisAutoScale(QwtPlot::yLeft, true);
        plot.setAxisAutoScale(QwtPlot::xBottom, true);
        plot.replot();
        QVERIFY(std::isfinite(plot.axisScaleDiv(QwtPlot::yLeft).lowerBound()));
        QVERIFY(std::isfinite(plot.axisScaleDiv(QwtPlot::yLeft).upperBound()));
    }

    void copySamplesTakesAStretch()
    {
        tcStripCurve curve(0);
        fill(curve, 50, 0.5);
        double times[10] = {};
        double values[10] = {};
        QCOMPARE(curve.copySamples(45, 10, times, values), 5);
        QCOMPARE(times[0], 1045.0);
        QCOMPARE(values[4], 24.5);
        QCOMPARE(curve.copySamples(50, 10, times, values), 0);
    }

    void markersAreShownAndHiddenWithTheCurve()
    {
        tcStripCurve curve(0);
        tcStripLineMarker one("a");
        tcStripPointMarker two("b");
        one.setCurve(&curve);
        two.setCurve(&curve);
        curve.setVisible(false);
        QVERIFY(!curve.isVisible());
        QVERIFY(!one.isVisible());
        QVERIFY(!two.isVisible());
        static_cast<QwtPlotItem&>(curve).show();
        QVERIFY(curve.isVisible());
        QVERIFY(one.isVisible());
        QVERIFY(two.isVisible());
    }

    void aMarkerIsListedOnceAndTheRestKeepTheirOrder()
    {
        tcStripCurve curve(0);
        tcStripPointMarker a("a");
        tcStripPointMarker b("b");
        tcStripPointMarker c("c");
        for (tcStripMarker* marker : {&a, &b, &c, &a})
            curve.addMarker(marker);
        QCOMPARE(curve.markers(), (QVector<tcStripMarker*>{&a, &b, &c}));
        curve.removeMarker(&b);
        QCOMPARE(curve.markers(), (QVector<tcStripMarker*>{&a, &c}));
        curve.removeMarker(&b);
        curve.removeMarker(&a);
        curve.removeMarker(&c);
    }

    void destroyedCurveLeavesItsMarkersAlive()
    {
        tcStripLineMarker one("a");
        tcStripPointMarker two("b");
        {
            tcStripCurve curve(0);
            one.setCurve(&curve);
            two.setCurve(&curve);
            one.setYValue(4);
            two.setValue(3, 5);
        }
        QVERIFY(!one.curve());
        QVERIFY(!two.curve());
        QCOMPARE(one.yValue(), 0.0);
        QCOMPARE(two.value(), QPointF(3, 0));
    }

    void destroyedCurveLeavesItsPlot()
    {
        tcCountingPlot plot;
        {
            tcStripCurve curve(0);
            curve.attach(&plot);
            QCOMPARE(plot.itemList().size(), 1);
        }
        QVERIFY(plot.itemList().isEmpty());
        plot.replot();
    }

    void automaticReplotComesAfterTheSampleIsIn()
    {
        // With an autoscaled axis the replot asks for the bounding rectangle: the lock must be
        // free by then.
        tcCountingPlot plot;
        plot.setAutoReplot(true);
        plot.setAxisAutoScale(QwtPlot::yLeft, true);
        tcStripCurve curve(0);
        curve.attach(&plot);
        const int before = plot.replots;
        curve.addSample(1, 900);
        QCOMPARE(plot.replots, before + 1);
        QVERIFY(plot.axisScaleDiv(QwtPlot::yLeft).upperBound() >= 900);
        const double times[] = {2, 3, 4};
        const double values[] = {1, 2, 3};
        curve.addSamples(times, values, 3);
        QCOMPARE(plot.replots, before + 2);
        curve.clear();
        QCOMPARE(plot.replots, before + 3);
        curve.setSampleCount(50);
        QCOMPARE(plot.replots, before + 4);
        curve.setSampleCount(50); // nothing new
        QCOMPARE(plot.replots, before + 4);
    }

    void automaticReplotHappensInTheGuiThreadOnly()
    {
        tcCountingPlot plot;
        plot.setAutoReplot(true);
        tcStripCurve curve(0);
        curve.attach(&plot);
        QCoreApplication::processEvents(); // the plot's own polishing replots once
        const int before = plot.replots;
        std::thread worker([&curve] {
            for (int i = 0; i < 50; ++i)
                curve.addSample(i, i);
        });
        worker.join();
        QCOMPARE(plot.replots, before);
        QCOMPARE(curve.dataSize(), size_t(50));
        QTRY_COMPARE(plot.replots, before + 1);
        QCOMPARE(plot.lastThread, thread());
    }

    void curveDestroyedBeforeTheGuiHeardOfItsSamples()
    {
        {
            tcStripCurve curve(0);
            std::thread worker([&curve] { curve.addSample(1, 1); });
            worker.join();
        }
        QCoreApplication::processEvents();
    }

    void samplesFromSeveralThreadsWhilePainting()
    {
        tcCountingPlot plot;
        plot.resize(500, 300);
        tcStripCurve curve(0);
        curve.setSampleCount(2000);
        curve.attach(&plot);
        plot.setAxisScale(QwtPlot::xBottom, 0, 20000);
        constexpr int cThreads = 3;
        constexpr int cEach = 6000;
        std::atomic<int> running{cThreads};
        std::vector<std::thread> workers;
        for (int t = 0; t < cThreads; ++t) {
            workers.emplace_back([&curve, &running, t] {
                for (int i = 0; i < cEach; i += 3) {
                    curve.addSample(i * 3, t * 10.0);
                    const double times[] = {i * 3.0 + 1, i * 3.0 + 2};
                    const double values[] = {t * 10.0 + 1, cNan};
                    curve.addSamples(times, values, 2);
                }
                --running;
            });
        }
        while (running > 0) {
            plot.grab();
            curve.boundingRect();
            std::vector<double> times(3000);
            curve.copySamples(0, 3000, times.data(), nullptr);
            QCoreApplication::processEvents();
        }
        for (std::thread& worker : workers)
            worker.join();
        QCOMPARE(curve.dataSize(), size_t(2001));
    }
};

QTEST_MAIN(tst_StripCurve)
#include "tst_stripcurve.moc"

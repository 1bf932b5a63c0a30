// Frames of fifteen curves on a canvas of 900 x 400, antialiased: strip curves, stock Qwt and,
// where it is installed, QCustomPlot. Then how the pictures compare.
#include "bench/tcGoals.h"
#include "stripchart/tcStripCurve.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <qwt_plot.h>
#ifdef TARVIK_WITH_QCUSTOMPLOT
#include <qcustomplot.h>
#endif

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace
{

constexpr int cCurves = 15;
constexpr int cRuns = 7;
constexpr QSize cCanvas(900, 400);

struct tcData
{
    QVector<double> times;
    QVector<double> values;
};

/// What the curves show. Stock drawing takes as long as its samples are far apart, whatever
/// can be seen of that, so what counts as smooth decides over its share:
/// clean: a wave that rises at most a few pixels from column to column, and no noise at all.
/// sensor: the same wave with one percent of the axis in noise, as a sensor gives.
/// noise: every sample anywhere between bottom and top.
enum class tcKind
{
    clean,
    sensor,
    noise
};

const char* name(tcKind aKind)
{
    return aKind == tcKind::clean ? "clean" : aKind == tcKind::sensor ? "sensor" : "noise";
}

tcData data(int anCurve, int anCount, tcKind aKind)
{
    std::mt19937 random(static_cast<unsigned>(anCurve));
    tcData result;
    for (int i = 0; i < anCount; ++i) {
        const double noise = static_cast<double>(random()) / static_cast<double>(random.max());
        const double wave = 0.5 + 0.4 * std::sin(anCurve + i * 20.0 / anCount);
        result.times << i;
        const double jitter = aKind == tcKind::sensor ? 0.01 * noise : 0.0;
        result.values << (aKind == tcKind::noise ? noise : wave + jitter);
    }
    return result;
}

tcData last(const tcData& acData, int anCount)
{
    const int from = acData.times.size() - anCount;
    return {acData.times.mid(from), acData.values.mid(from)};
}

std::unique_ptr<QwtPlotCurve> stripCurve(int anCurve, const tcData& acData)
{
    auto curve = std::make_unique<tcStripCurve>(anCurve);
    curve->setSampleCount(std::max(100, acData.times.size()));
    curve->addSamples(acData.times.constData(), acData.values.constData(), acData.times.size());
    return curve;
}

std::unique_ptr<QwtPlotCurve> stockCurve(int, const tcData& acData)
{
    auto curve = std::make_unique<QwtPlotCurve>();
    curve->setRenderHint(QwtPlotItem::RenderAntialiased);
    curve->setSamples(acData.times, acData.values);
    return curve;
}

using tcMaker = std::unique_ptr<QwtPlotCurve> (*)(int, const tcData&);

/// A Qwt plot with fifteen curves, its canvas of the agreed size.
class tcQwtFrame
{
public:
    /// Of anCount samples each.
    tcQwtFrame(tcMaker aMaker, int anCount, tcKind aKind)
        : tcQwtFrame(aMaker, anCount, aKind, anCount)
    {
    }
    /// The last anKept of anCount samples.
    tcQwtFrame(tcMaker aMaker, int anCount, tcKind aKind, int anKept, int anCurves = cCurves)
    {
        mPlot.setAutoDelete(false);
        mPlot.setAutoReplot(false);
        for (int i = 0; i < anCurves; ++i) {
            mCurves.push_back(aMaker(i, last(data(i, anCount, aKind), anKept)));
            mCurves.back()->setPen(tcStripCurve::stripCurveColor(i));
            mCurves.back()->attach(&mPlot);
        }
        mPlot.setAxisScale(QwtPlot::yLeft, 0, 1);
        setWindow(anCount - anKept, anCount);
        mPlot.resize(1000, 500);
        mPlot.show();
        QCoreApplication::processEvents();
        const QSize frame = mPlot.size() - mPlot.canvas()->contentsRect().size();
        mPlot.resize(cCanvas + frame);
        QCoreApplication::processEvents();
    }

    void setWindow(double anFrom, double anTo)
    {
        mPlot.setAxisScale(QwtPlot::xBottom, anFrom, anTo);
    }

    void paint()
    {
        mPlot.replot();
        mPlot.canvas()->repaint();
    }

private:
    QwtPlot mPlot;
    std::vector<std::unique_ptr<QwtPlotCurve>> mCurves;
};

#ifdef TARVIK_WITH_QCUSTOMPLOT
/// The same with QCustomPlot.
class tcCustomFrame
{
public:
    tcCustomFrame(int anCount, tcKind aKind)
    {
        mPlot.setAntialiasedElements(QCP::aeAll);
        for (int i = 0; i < cCurves; ++i) {
            const tcData samples = data(i, anCount, aKind);
            mPlot.addGraph()->setData(samples.times, samples.values, true);
            mPlot.graph(i)->setPen(QPen(tcStripCurve::stripCurveColor(i), 0));
            mPlot.graph(i)->setAdaptiveSampling(true);
        }
        mPlot.xAxis->setRange(0, anCount);
        mPlot.yAxis->setRange(0, 1);
        mPlot.resize(cCanvas);
        mPlot.show();
        QCoreApplication::processEvents();
        mPlot.resize(2 * cCanvas - mPlot.axisRect()->size());
        QCoreApplication::processEvents();
    }

    void paint() { mPlot.replot(QCustomPlot::rpImmediateRefresh); }

private:
    QCustomPlot mPlot;
};
#endif

void print(const char* apName, tcKind aKind, double anK1, double anK100)
{
    std::printf("%-14s %-6s 15 x 1k / 100k: %8.2f / %8.2f ms\n", apName, name(aKind),
                anK1 * 1e3, anK100 * 1e3);
    std::fflush(stdout);
}

void compareFrames(tcGoals& arGoals, tcKind aKind)
{
    const bool noise = aKind == tcKind::noise;
    const QByteArray kind = name(aKind);
    tcQwtFrame strip1(stripCurve, 1000, aKind);
    tcQwtFrame strip100(stripCurve, 100000, aKind);
    tcQwtFrame stock1(stockCurve, 1000, aKind);
    tcQwtFrame stock100(stockCurve, 100000, aKind);
    std::vector<tcGoals::tcContender> contenders{{[&] { strip1.paint(); }, 20},
                                                 {[&] { strip100.paint(); }, 20},
                                                 {[&] { stock1.paint(); }, 20},
                                                 {[&] { stock100.paint(); }, noise ? 1 : 3}};
#ifdef TARVIK_WITH_QCUSTOMPLOT
    tcCustomFrame custom1(1000, aKind);
    tcCustomFrame custom100(100000, aKind);
    contenders.push_back({[&] { custom1.paint(); }, 20});
    contenders.push_back({[&] { custom100.paint(); }, 5});
#endif
    const std::vector<double> times = tcGoals::medians(cRuns, contenders);
    print("strip curves", aKind, times[0], times[1]);
    print("stock Qwt", aKind, times[2], times[3]);
    arGoals.atMost(kind + ": 15 x 100k over 15 x 1k", times[1] / times[0], 1.5);
    arGoals.atLeast(kind + ": stock over strip, 100k", times[3] / times[1], noise ? 80 : 50);
    arGoals.atMost(kind + ": strip over stock, 1k", times[0] / times[2], 1.0);
#ifdef TARVIK_WITH_QCUSTOMPLOT
    print("QCustomPlot", aKind, times[4], times[5]);
    arGoals.atLeast(kind + ": QCustomPlot over strip, 100k", times[5] / times[1],
                    noise ? 4 : 2.5);
#endif
}

void compareSizes(tcGoals& arGoals)
{
    constexpr int cSeen = 1000;
    tcQwtFrame none(stripCurve, 1000, tcKind::sensor, 1000, 0);
    tcQwtFrame hundred(stripCurve, 100000, tcKind::sensor);
    tcQwtFrame million(stripCurve, 1000000, tcKind::sensor);
    tcQwtFrame alone(stripCurve, 100000, tcKind::sensor, cSeen);
    tcQwtFrame window(stripCurve, 100000, tcKind::sensor);
    window.setWindow(100000 - cSeen, 100000);
    const std::vector<double> times = tcGoals::medians(cRuns,
                                                       {{[&] { none.paint(); }, 50},
                                                        {[&] { hundred.paint(); }, 20},
                                                        {[&] { million.paint(); }, 10},
                                                        {[&] { alone.paint(); }, 50},
                                                        {[&] { window.paint(); }, 50}});
    std::printf("plot without curves: %.2f ms\n", times[0] * 1e3);
    arGoals.atMost("sensor: 15 x 1M over 15 x 100k", times[2] / times[1], 4);
    arGoals.atMost("window of 1000 in 100k over those 1000 alone", times[4] / times[3], 1.1);
}

QImage picture(tcMaker aMaker, tcKind aKind, bool abSmoothEdges)
{
    QImage image(cCanvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setClipRect(image.rect());
    painter.setRenderHint(QPainter::Antialiasing, abSmoothEdges);
    const auto curve = aMaker(0, data(0, 100000, aKind));
    curve->setPen(Qt::green);
    QwtScaleMap x;
    x.setScaleInterval(0, 100000);
    x.setPaintInterval(0, cCanvas.width() - 1);
    QwtScaleMap y;
    y.setScaleInterval(0, 1);
    y.setPaintInterval(cCanvas.height() - 1, 0);
    curve->drawSeries(&painter, x, y, image.rect(), 0, -1);
    return image;
}

bool isInk(const QImage& acImage, int anX, int anY)
{
    return acImage.rect().contains(anX, anY) && qGreen(acImage.pixel(anX, anY)) > 20;
}

int strayInk(const QImage& acOne, const QImage& acOther)
{
    int count = 0;
    for (int y = 0; y < acOne.height(); ++y) {
        for (int x = 0; x < acOne.width(); ++x) {
            if (isInk(acOne, x, y) && !isInk(acOther, x, y) && !isInk(acOther, x - 1, y)
                && !isInk(acOther, x + 1, y) && !isInk(acOther, x, y - 1)
                && !isInk(acOther, x, y + 1))
                ++count;
        }
    }
    return count;
}

void comparePictures(tcGoals& arGoals, tcKind aKind)
{
    const QImage strip = picture(stripCurve, aKind, false);
    const QImage stock = picture(stockCurve, aKind, false);
    int differing = 0;
    for (int y = 0; y < strip.height(); ++y) {
        for (int x = 0; x < strip.width(); ++x)
            differing += strip.pixel(x, y) != stock.pixel(x, y);
    }
    const QByteArray kind = name(aKind);
    arGoals.atMost(kind + ": pixels that differ, %",
                   100.0 * differing / (strip.width() * strip.height()),
                   aKind == tcKind::noise ? 1 : 0.05);
    const QImage stripEdges = picture(stripCurve, aKind, true);
    const QImage stockEdges = picture(stockCurve, aKind, true);
    arGoals.atMost(kind + ": antialiased ink off by more than a pixel",
                   strayInk(stripEdges, stockEdges) + strayInk(stockEdges, stripEdges), 0);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    tcGoals goals;
    for (tcKind kind : {tcKind::clean, tcKind::sensor, tcKind::noise}) {
        compareFrames(goals, kind);
        comparePictures(goals, kind);
    }
    compareSizes(goals);
    return goals.result();
}

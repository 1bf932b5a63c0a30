#include "stripchart/tcStripCurve.h"

#include <QImage>
#include <QPainter>
#include <QtTest>
#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <cmath>
#include <limits>
#include <random>

namespace
{

constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr int cWidth = 300;
constexpr int cHeight = 200;

struct tcCase
{
    QVector<QPointF> samples;
    double from = 0;
    double to = 1;
    bool noise = false;
};

QVector<QPointF> series(int anCount, const std::function<double(int)>& acValue)
{
    QVector<QPointF> result;
    result.reserve(anCount);
    for (int i = 0; i < anCount; ++i)
        result << QPointF(i, acValue(i));
    return result;
}

QVector<QPointF> noise(int anCount, unsigned anSeed)
{
    std::mt19937 random(anSeed);
    return series(anCount, [&](int) { return double(random()) / double(random.max()); });
}

QVector<QPointF> smooth(int anCount, double anWaves)
{
    return series(anCount, [&](int i) {
        return 0.5 + 0.45 * std::sin(i * anWaves * 6.2831853 / anCount);
    });
}

QwtScaleMap map(double anFrom, double anTo, double anFirstPixel, double anLastPixel)
{
    QwtScaleMap result;
    result.setScaleInterval(anFrom, anTo);
    result.setPaintInterval(anFirstPixel, anLastPixel);
    return result;
}

QImage canvas(double anRatio)
{
    QImage image(QSize(cWidth, cHeight) * anRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(anRatio);
    image.fill(Qt::black);
    return image;
}

void draw(QImage& arImage, const QwtPlotCurve& acCurve, const tcCase& acCase, bool abSmooth)
{
    QPainter painter(&arImage);
    const QRectF rect(0, 0, cWidth, cHeight);
    painter.setClipRect(rect);
    painter.setRenderHint(QPainter::Antialiasing, abSmooth);
    acCurve.drawSeries(&painter, map(acCase.from, acCase.to, 0, cWidth - 1),
                       map(0, 1, cHeight - 1, 0), rect, 0, -1);
}

/// The plot's own drawing of all samples; each stretch between gaps is a curve of its own.
QImage drawFully(const tcCase& acCase, const QPen& acPen, bool abSmooth, double anRatio)
{
    QImage image = canvas(anRatio);
    QVector<QPointF> stretch;
    const auto drawStretch = [&] {
        QwtPlotCurve curve;
        curve.setPen(acPen);
        curve.setSamples(stretch);
        draw(image, curve, acCase, abSmooth);
        stretch.clear();
    };
    for (const QPointF& sample : acCase.samples) {
        if (std::isfinite(sample.x()) && std::isfinite(sample.y()))
            stretch << QPointF(sample.x(), qBound(-1e5, sample.y(), 1e5));
        else
            drawStretch();
    }
    drawStretch();
    return image;
}

QImage drawReduced(const tcCase& acCase, const QPen& acPen, bool abSmooth, double anRatio)
{
    tcStripCurve curve(0);
    curve.setPen(acPen);
    curve.setSampleCount(std::max(100, acCase.samples.size()));
    QVector<double> times;
    QVector<double> values;
    for (const QPointF& sample : acCase.samples) {
        times << sample.x();
        values << sample.y();
    }
    curve.addSamples(times.constData(), values.constData(), times.size());
    QImage image = canvas(anRatio);
    draw(image, curve, acCase, abSmooth);
    return image;
}

/// Ink of a picture, with a border without.
class tcInk
{
public:
    explicit tcInk(const QImage& acImage)
        : mWidth(acImage.width() + 2 * cBorder)
        , mHeight(acImage.height() + 2 * cBorder)
        , mPixels(std::size_t(mWidth * mHeight), 0)
    {
        for (int y = 0; y < acImage.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(acImage.constScanLine(y));
            char* pixels = &mPixels[std::size_t((y + cBorder) * mWidth + cBorder)];
            for (int x = 0; x < acImage.width(); ++x)
                pixels[x] = qGreen(line[x]) > 20;
        }
    }

    /// Pixels of ink that have none of the other within anReach pixels.
    int strayFrom(const tcInk& acOther, int anReach) const
    {
        int count = 0;
        for (int i = cBorder * mWidth; i < mWidth * (mHeight - cBorder); ++i) {
            if (mPixels[std::size_t(i)] && !acOther.mPixels[std::size_t(i)]
                && !acOther.isNear(i, anReach))
                ++count;
        }
        return count;
    }

private:
    static constexpr int cBorder = 2;

    bool isNear(int anPlace, int anReach) const
    {
        for (int y = -anReach; y <= anReach; ++y) {
            for (int x = -anReach; x <= anReach; ++x) {
                if (mPixels[std::size_t(anPlace + y * mWidth + x)])
                    return true;
            }
        }
        return false;
    }

    int mWidth;
    int mHeight;
    std::vector<char> mPixels;
};

int differing(const QImage& acOne, const QImage& acOther)
{
    int count = 0;
    for (int y = 0; y < acOne.height(); ++y) {
        const auto* one = reinterpret_cast<const QRgb*>(acOne.constScanLine(y));
        const auto* other = reinterpret_cast<const QRgb*>(acOther.constScanLine(y));
        for (int x = 0; x < acOne.width(); ++x)
            count += one[x] != other[x];
    }
    return count;
}

} // namespace

Q_DECLARE_METATYPE(tcCase)

class tst_CurveDrawing : public QObject
{
    Q_OBJECT

    static QVector<QPair<QByteArray, tcCase>> cases()
    {
        QVector<QPair<QByteArray, tcCase>> all;
        const auto add = [&](const char* acName, const QVector<QPointF>& acSamples,
                             double anFrom, double anTo, bool abNoise = false) {
            all << qMakePair(QByteArray(acName), tcCase{acSamples, anFrom, anTo, abNoise});
        };
        add("two samples", {{0, 0.2}, {1, 0.8}}, 0, 1);
        add("1k smooth", smooth(1000, 5), 0, 1000);
        add("1k in few pixels each", smooth(1000, 7), 0, 1000);
        add("dense smooth", smooth(30000, 5), 0, 30000);
        add("dense steep waves", smooth(30000, 20), 0, 30000);
        add("waves as fine as the columns", smooth(30000, 230), 0, 30000, true);
        add("dense noise", noise(7000, 3), 0, 7000, true);
        add("noise, window inside", noise(50000, 4), 20000, 30000, true);
        add("100k, 1000 in the window", smooth(100000, 300), 70000, 71000);
        add("100k, two in the window", noise(100000, 5), 70000.2, 70002.5);
        add("100k, none in the window", noise(100000, 5), 70000.2, 70000.4);
        add("window before the samples", smooth(1000, 5), -500, -100);
        add("window half filled", smooth(7000, 5), -7000, 7000);
        add("constant", series(7000, [](int) { return 0.5; }), 0, 7000);
        add("ramp", series(7000, [](int i) { return i / 7000.0; }), 0, 7000);
        add("square wave", series(50000, [](int i) { return i / 1000 % 2 ? 0.9 : 0.1; }), 0,
            50000);
        add("spikes of one sample",
            series(30000, [](int i) { return i % 7001 == 3500 ? 0.95 : 0.1; }), 0, 30000);
        add("spikes side by side",
            series(30000, [](int i) { return i % 331 == 3 ? 0.95 : 0.1; }), 0, 30000);
        add("smooth with a little noise",
            series(30000,
                   [](int i) {
                       return 0.5 + 0.4 * std::sin(i / 9000.0) + (i * 7919 % 101) / 20000.0;
                   }),
            0, 30000);
        add("steep with a little noise",
            series(30000,
                   [](int i) {
                       return 0.5 + 0.4 * std::sin(i / 500.0) + (i * 7919 % 101) / 20000.0;
                   }),
            0, 30000);
        add("beyond the canvas",
            series(30000, [](int i) { return 0.5 + 3 * std::sin(i / 3000.0); }), 0, 30000);
        add("noise beyond the canvas",
            series(30000, [](int i) { return 0.5 + 3 * std::sin(i * 1.7); }), 0, 30000, true);
        add("huge values",
            series(2000,
                   [](int i) { return i % 100 == 0 ? 1e308
                                   : i % 100 == 50 ? -1e308
                                                   : 0.5; }),
            0, 2000);
        addDisordered(add);
        addWithGaps(add);
        return all;
    }

    template <class Add>
    static void addDisordered(const Add& acAdd)
    {
        QVector<QPointF> back = smooth(60000, 3);
        for (int i = 30000; i < 60000; ++i)
            back[i].rx() -= 20000;
        acAdd("clock steps back once", back, 0, 40000, false);
        acAdd("clock steps back, window inside", back, 15000, 16000, false);
        QVector<QPointF> padded = smooth(5000, 3);
        for (int i = 0; i < 2000; ++i)
            padded << QPointF(-1e12, 0.5);
        acAdd("padded with zeros long ago", padded, 0, 5000, false);
        QVector<QPointF> falling = smooth(10000, 3);
        std::reverse(falling.begin(), falling.end());
        acAdd("times falling", falling, 0, 10000, false);
        std::mt19937 random(9);
        QVector<QPointF> shuffled = smooth(3000, 3);
        std::shuffle(shuffled.begin(), shuffled.end(), random);
        acAdd("any order", shuffled, 0, 3000, true);
        QVector<QPointF> jitter = smooth(20000, 3);
        for (int i = 0; i + 1 < jitter.size(); i += 2)
            std::swap(jitter[i], jitter[i + 1]);
        acAdd("neighbours swapped", jitter, 0, 20000, false);
        QVector<QPointF> across;
        for (int i = 0; i < 100; ++i)
            across << QPointF(-1000 - i, i / 100.0) << QPointF(3000, 1 - i / 100.0);
        acAdd("lines across a window without samples", across, 0, 1000, true);
        acAdd("equal times", series(7000, [](int i) { return (i % 97) / 97.0; }), 0, 7000,
              true);
        QVector<QPointF> same;
        for (int i = 0; i < 5000; ++i)
            same << QPointF(i / 500 * 500, (i % 91) / 91.0);
        acAdd("times in ten groups", same, 0, 5000, false);
    }

    template <class Add>
    static void addWithGaps(const Add& acAdd)
    {
        acAdd("gaps in few samples",
              series(500, [](int i) { return i % 50 < 5 ? cNan : (i % 50) / 50.0; }), 0, 500,
              false);
        acAdd("long gaps",
              series(30000,
                     [](int i) {
                         return i % 20000 < 9000 ? cNan : 0.5 + 0.3 * std::sin(i / 2000.0);
                     }),
              0, 30000, false);
        acAdd("gaps of one sample",
              series(30000,
                     [](int i) {
                         return i % 5000 == 0 ? cNan : 0.5 + 0.3 * std::sin(i / 2000.0);
                     }),
              0, 30000, false);
        acAdd("infinities",
              series(30000,
                     [](int i) {
                         return i % 5000 == 0 ? (i % 10000 ? -1 : 1) * INFINITY
                                              : 0.5 + 0.3 * std::sin(i / 2000.0);
                     }),
              0, 30000, false);
        acAdd("every other sample missing",
              series(2000, [](int i) { return i % 2 ? cNan : 0.5; }), 0, 2000, false);
        acAdd("gap at the window's edge",
              series(100000,
                     [](int i) {
                         return i == 40000 || i == 39999 ? cNan
                                                         : 0.5 + 0.3 * std::sin(i / 2000.0);
                     }),
              40000, 41000, false);
        acAdd("nothing but gaps", series(2000, [](int) { return cNan; }), 0, 2000, false);
        acAdd("one sample", {{5, 0.5}}, 0, 10, false);
        acAdd("no sample", {}, 0, 10, false);
    }

    /// Every case with a thin line. Broad ones have their own caps and bars, not their own way
    /// through gaps and disorder: one case each.
    static void addRows()
    {
        const QByteArrayList broad{"1k smooth",
                                   "dense noise",
                                   "spikes of one sample",
                                   "steep with a little noise",
                                   "noise beyond the canvas",
                                   "long gaps",
                                   "any order"};
        QTest::addColumn<tcCase>("test");
        QTest::addColumn<double>("penWidth");
        int broadOnes = 0;
        for (const auto& one : cases()) {
            QTest::addRow("%s, pen 1", one.first.constData()) << one.second << 1.0;
            if (!broad.contains(one.first))
                continue;
            QTest::addRow("%s, pen 2", one.first.constData()) << one.second << 2.0;
            ++broadOnes;
        }
        QCOMPARE(broadOnes, broad.size());
    }

private Q_SLOTS:
    void reducedEqualsFull_data() { addRows(); }

    void reducedEqualsFull()
    {
        QFETCH(tcCase, test);
        QFETCH(double, penWidth);
        const QPen pen(Qt::green, penWidth);
        // Broad lines are split every few points for speed, which leaves a cap at each cut.
        // Where that speed is not needed the lines are compared without.
        QwtPainter::setPolylineSplitting(test.noise);
        const QImage full = drawFully(test, pen, false, 1);
        const QImage reduced = drawReduced(test, pen, false, 1);
        const double share = differing(full, reduced) / double(cWidth * cHeight);
        const double allowed = test.noise ? 0.01 : 0.0005;
        QVERIFY2(share <= allowed, qPrintable(QString("%1 %").arg(share * 100)));
    }

    void antialiasedInkIsWithinAPixel_data() { addRows(); }

    void antialiasedInkIsWithinAPixel()
    {
        QFETCH(tcCase, test);
        QFETCH(double, penWidth);
        const QPen pen(Qt::green, penWidth);
        // Broad lines are split every few points for speed, which leaves a cap at each cut.
        // Where that speed is not needed the lines are compared without.
        QwtPainter::setPolylineSplitting(test.noise);
        for (int ratio = 1; ratio <= (penWidth > 1 || test.noise ? 1 : 2); ++ratio) {
            const QImage full = drawFully(test, pen, true, ratio);
            const QImage reduced = drawReduced(test, pen, true, ratio);
            // A cap at a cut reaches another pixel beyond.
            const int reach = ratio + (penWidth > 1 && test.noise ? 1 : 0);
            const int extra = tcInk(reduced).strayFrom(tcInk(full), reach);
            const int missing = tcInk(full).strayFrom(tcInk(reduced), reach);
            QVERIFY2(extra == 0 && missing == 0,
                     qPrintable(QString("ratio %1: %2 pixels too many, %3 missing")
                                    .arg(ratio)
                                    .arg(extra)
                                    .arg(missing)));
        }
    }
};

QTEST_MAIN(tst_CurveDrawing)
#include "tst_curvedrawing.moc"

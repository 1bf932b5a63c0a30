#include "stripchart/logic/tcColumnReduction.h"
#include "stripchart/logic/tcSampleStore.h"

#include <QtTest>

#include <limits>
#include <random>

namespace
{

constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr int cRight = 99;

/// One unit of the scale is one pixel; values grow downwards.
constexpr tcPixelMap cPixels{0.0, 0.0, 1.0};

tcSampleStore store(const QVector<QPointF>& acSamples)
{
    tcSampleStore result;
    result.setCapacity(std::max(tcSampleStore::cDefaultCapacity, acSamples.size()));
    for (const QPointF& sample : acSamples)
        result.append(sample.x(), sample.y());
    return result;
}

/// Every 1/100 pixel from anFirst to anEnd a sample of the same value.
QVector<QPointF> dense(double anFirst, double anEnd, double anValue)
{
    QVector<QPointF> result;
    const int count = qRound((anEnd - anFirst) * 100);
    for (int i = 0; i < count; ++i)
        result << QPointF(anFirst + i / 100.0, anValue);
    return result;
}

std::vector<tcPixelColumn> reduced(const QVector<QPointF>& acSamples)
{
    const tcSampleStore samples = store(acSamples);
    tcColumnReduction reduction(cPixels, cPixels, 0, cRight);
    reduction.add(samples, 0, samples.size());
    return reduction.columns();
}

QString text(const tcPixelColumn& acColumn)
{
    return QString("%1%2: %3 %4..%5 %6")
        .arg(acColumn.joined ? "-" : "")
        .arg(acColumn.x)
        .arg(acColumn.first)
        .arg(acColumn.top)
        .arg(acColumn.bottom)
        .arg(acColumn.last);
}

QStringList texts(const QVector<QPointF>& acSamples)
{
    QStringList result;
    for (const tcPixelColumn& column : reduced(acSamples))
        result << text(column);
    return result;
}

} // namespace

class tst_ColumnReduction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pixelIsRounded_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<int>("pixel");
        QTest::newRow("whole") << 3.0 << 3;
        QTest::newRow("below half") << 3.49 << 3;
        QTest::newRow("half") << 3.5 << 4;
        QTest::newRow("negative half") << -3.5 << -3;
        QTest::newRow("below negative half") << -3.51 << -4;
        QTest::newRow("just below zero") << -0.4 << 0;
        QTest::newRow("far right") << 1e300 << 1000000000;
        QTest::newRow("far left") << -1e300 << -1000000000;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 1000000000;
        QTest::newRow("no number") << cNan << -1000000000;
    }

    void pixelIsRounded()
    {
        QFETCH(double, number);
        QTEST(cPixels.at(number), "pixel");
    }

    void pixelFindsItsNumber()
    {
        const tcPixelMap falling{10.0, 400.0, -2.0};
        QCOMPARE(falling.at(10.0), 400);
        QCOMPARE(falling.at(110.0), 200);
        QCOMPARE(falling.numberAt(200.0), 110.0);
    }

    void fewSamplesAreKeptAsTheyAre()
    {
        QCOMPARE(texts({{1, 5}, {2.2, 7}, {2.3, 3}}),
                 QStringList({"1: 5 5..5 5", "-2: 7 7..7 7", "-2: 3 3..3 3"}));
    }

    void columnOfManyShowsItsEndsAndExtremes()
    {
        QVector<QPointF> samples = dense(0, 10, 50);
        samples[260].setY(20); // column 3 holds 250 to 349
        samples[300].setY(90);
        samples[250].setY(55);
        samples[349].setY(45);
        const QStringList columns = texts(samples);
        QCOMPARE(columns.size(), 11); // half a column at either end
        QCOMPARE(columns.at(0), "0: 50 50..50 50");
        QCOMPARE(columns.at(2), "-2: 50 50..50 50");
        QCOMPARE(columns.at(3), "-3: 55 20..90 45");
        QCOMPARE(columns.at(4), "-4: 50 50..50 50");
    }

    void spikeOfOneSampleSurvivesWhereverItIs()
    {
        for (int spike = 0; spike < 1000; ++spike) {
            QVector<QPointF> samples = dense(0, 10, 50);
            samples[spike].setY(5);
            int found = 0;
            for (const tcPixelColumn& column : reduced(samples)) {
                if (column.top != 5)
                    continue;
                ++found;
                QCOMPARE(column.x, cPixels.at(samples[spike].x()));
            }
            QCOMPARE(found, 1);
        }
    }

    void columnsOfAnUnevenFeedAreThoseOfItsSamples_data()
    {
        QTest::addColumn<double>("pace"); // samples per pixel
        QTest::addColumn<bool>("mirrored");
        for (const double pace : {7.0, 111.4, 1300.0}) {
            QTest::addRow("%g a pixel", pace) << pace << false;
            QTest::addRow("%g a pixel, time to the left", pace) << pace << true;
        }
    }

    void columnsOfAnUnevenFeedAreThoseOfItsSamples()
    {
        QFETCH(double, pace);
        QFETCH(bool, mirrored);
        const tcPixelMap x{0.0, mirrored ? double(cRight) : 0.0, mirrored ? -1.0 : 1.0};
        const tcPixelMap y{0.0, 200.0, -1.0};
        std::mt19937 random(11);
        QVector<QPointF> samples;
        std::vector<tcPixelColumn> expected;
        double time = 0;
        while (time < cRight - 1) {
            // Now and then a pause, or a burst at one time.
            const auto kind = random() % 1000;
            time += kind == 0 ? 2.5 : kind < 20 ? 0.0 : double(random() % 2001) / 1000 / pace;
            const QPointF sample(time, double(random() % 200) + (random() % 400 == 0 ? 90 : 0));
            samples << sample;
            const int at = y.at(sample.y());
            if (expected.empty() || expected.back().x != x.at(time))
                expected.push_back({x.at(time), at, at, at, at, !expected.empty()});
            tcPixelColumn& column = expected.back();
            column.top = std::min(column.top, at);
            column.bottom = std::max(column.bottom, at);
            column.last = at;
        }
        const tcSampleStore stored = store(samples);
        tcColumnReduction reduction(x, y, 0, cRight);
        reduction.add(stored, 0, stored.size());
        QCOMPARE(reduction.columns().size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            QCOMPARE(text(reduction.columns()[i]), text(expected[i]));
    }

    void gapInterruptsTheLine_data()
    {
        QTest::addColumn<double>("missing");
        QTest::newRow("no number") << cNan;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("negative infinite") << -std::numeric_limits<double>::infinity();
    }

    void gapInterruptsTheLine()
    {
        QFETCH(double, missing);
        QCOMPARE(texts({{1, 5}, {2, missing}, {3, 6}}),
                 QStringList({"1: 5 5..5 5", "3: 6 6..6 6"}));
        QVector<QPointF> samples = dense(0, 10, 50);
        samples[300].setY(missing);
        const std::vector<tcPixelColumn> columns = reduced(samples);
        QCOMPARE(int(std::count_if(columns.begin(), columns.end(),
                                   [](const tcPixelColumn& acOne) { return !acOne.joined; })),
                 2);
        for (const tcPixelColumn& column : columns)
            QCOMPARE(text(column).section(' ', 1), "50 50..50 50");
    }

    void onlyWhatMayBeSeenAndItsNeighboursAreKept()
    {
        QVector<QPointF> samples;
        for (int i = -1000; i <= 1000; i += 30)
            samples << QPointF(i, 1);
        const std::vector<tcPixelColumn> columns = reduced(samples);
        QCOMPARE(columns.size(), std::size_t(7));
        QCOMPARE(columns.front().x, -1000); // the far ends, for lines that cross the window
        QCOMPARE(columns[1].x, -10);
        QCOMPARE(columns[2].x, 20);
        QCOMPARE(columns[4].x, 80);
        QCOMPARE(columns[5].x, 110);
        QCOMPARE(columns.back().x, 980);
    }

    void clockThatStepsBackStartsAnotherPass()
    {
        QVector<QPointF> samples = dense(0, 10, 50);
        samples += dense(5, 15, 60);
        const std::vector<tcPixelColumn> columns = reduced(samples);
        QCOMPARE(columns.size(), std::size_t(22));
        QCOMPARE(text(columns[10]), "-10: 50 50..50 50");
        QCOMPARE(text(columns[11]), "-5: 60 60..60 60");
    }

    void manySamplesInAnyOrderShareARecordWithTheirNeighbours()
    {
        QVector<QPointF> samples;
        for (int i = 0; i < 500; ++i) // to and fro within a pixel
            samples << QPointF(20 + (i % 2 ? 0.2 : 0.0), 10 + i % 7);
        QCOMPARE(texts(samples), QStringList({"20: 10 10..16 12"}));
    }

    void nothingComesOfNothing()
    {
        QVERIFY(reduced({}).empty());
        QVERIFY(reduced({{1, cNan}, {2, cNan}}).empty());
        QVERIFY(reduced({{cNan, 1}}).empty());
    }
};

QTEST_APPLESS_MAIN(tst_ColumnReduction)
#include "tst_columnreduction.moc"

#include "stripchart/logic/tcSampleStore.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace
{

constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

/// The rules in the plainest words: two vectors.
struct tcPlainStore
{
    std::vector<double> times;
    std::vector<double> values;
    int capacity = 100;

    void append(double anTime, double anValue)
    {
        if (int(values.size()) > capacity) {
            values.erase(values.begin());
            if (!times.empty())
                times.erase(times.begin());
        }
        times.push_back(anTime);
        values.push_back(anValue);
    }
    void setCapacity(int anCapacity)
    {
        if (anCapacity < capacity)
            times.resize(size_t(anCapacity), 0.0);
        capacity = anCapacity;
    }
    int size() const { return int(std::min(times.size(), values.size())); }
    static tcExtent extent(const std::vector<double>& acNumbers, int anFirst, int anCount)
    {
        tcExtent result = tcExtent::none();
        for (int i = anFirst; i < anFirst + anCount; ++i) {
            const double number = acNumbers[size_t(i)];
            if (!std::isfinite(number))
                continue;
            result.lowest = std::min(result.lowest, number);
            result.highest = std::max(result.highest, number);
        }
        return result;
    }
};

bool same(const tcExtent& acOne, const tcExtent& acOther)
{
    return acOne.lowest == acOther.lowest && acOne.highest == acOther.highest;
}

bool sameNumber(double anOne, double anOther)
{
    return anOne == anOther || (std::isnan(anOne) && std::isnan(anOther));
}

/// Everything that the store tells, against the plain one.
void compare(const tcSampleStore& acStore, const tcPlainStore& acPlain)
{
    QCOMPARE(acStore.times().size(), int(acPlain.times.size()));
    QCOMPARE(acStore.values().size(), int(acPlain.values.size()));
    QCOMPARE(acStore.size(), acPlain.size());
    const int size = acPlain.size();
    std::vector<double> times(size_t(size) + 1, -7.0);
    std::vector<double> values(size_t(size) + 1, -7.0);
    QCOMPARE(acStore.copy(0, size, times.data(), values.data()), size);
    QCOMPARE(times.back(), -7.0);
    QCOMPARE(values.back(), -7.0);
    int nextStep = size;
    for (int i = size - 1; i >= 0; --i) {
        QVERIFY(sameNumber(acStore.time(i), acPlain.times[size_t(i)]));
        QVERIFY(sameNumber(times[size_t(i)], acPlain.times[size_t(i)]));
        QVERIFY(sameNumber(acStore.value(i), acPlain.values[size_t(i)]));
        QVERIFY(sameNumber(values[size_t(i)], acPlain.values[size_t(i)]));
        QCOMPARE(acStore.nextStepBack(i), nextStep);
        if (i > 0 && !(acPlain.times[size_t(i)] >= acPlain.times[size_t(i - 1)]))
            nextStep = i;
    }
    QVERIFY(same(acStore.timeExtent(), tcPlainStore::extent(acPlain.times, 0, size)));
    QVERIFY(same(acStore.valueExtent(), tcPlainStore::extent(acPlain.values, 0, size)));
}

/// Everything that one store tells, against the other.
void compareStores(const tcSampleStore& acStore, const tcSampleStore& acOther,
                   std::mt19937& arRandom)
{
    tcPlainStore plain;
    for (int i = 0; i < acOther.times().size(); ++i)
        plain.times.push_back(acOther.times().at(i));
    for (int i = 0; i < acOther.values().size(); ++i)
        plain.values.push_back(acOther.values().at(i));
    compare(acStore, plain);
    for (int i = 0; i < acOther.size(); ++i)
        QCOMPARE(acStore.nextGap(i), acOther.nextGap(i));
    for (int i = 0; i < 20 && acOther.size() > 0; ++i) {
        const int first = int(arRandom() % unsigned(acOther.size()));
        const int count = int(arRandom() % unsigned(acOther.size() - first + 1));
        QVERIFY(same(acStore.values().extent(first, count),
                     tcPlainStore::extent(plain.values, first, count)));
    }
    QCOMPARE(acStore.appended(), acOther.appended());
    std::vector<double> since[4];
    const auto seen = acOther.appended()
        - static_cast<long long>(arRandom() % unsigned(acOther.size() + 1));
    acStore.copyAppendedSince(seen, since[0], since[1]);
    acOther.copyAppendedSince(seen, since[2], since[3]);
    QVERIFY(std::equal(since[0].begin(), since[0].end(), since[2].begin(), since[2].end(),
                       sameNumber));
    QVERIFY(std::equal(since[1].begin(), since[1].end(), since[3].begin(), since[3].end(),
                       sameNumber));
}

} // namespace

class tst_SampleStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsOneMoreThanItsCapacityAsDesigned()
    {
        tcSampleStore store;
        QCOMPARE(store.capacity(), 100);
        for (int i = 0; i < 150; ++i)
            store.append(i, i * 10.0);
        QCOMPARE(store.size(), 101);
        QCOMPARE(store.time(0), 49.0);
        QCOMPARE(store.value(0), 490.0);
        QCOMPARE(store.time(100), 149.0);
    }

    void dropsOneSampleEachTimeAsDesigned()
    {
        tcSampleStore store;
        store.setCapacity(1000);
        for (int i = 0; i < 800; ++i)
            store.append(i, i);
        store.setCapacity(500);
        store.append(800, 800);
        QCOMPARE(store.values().size(), 800);
        QCOMPARE(store.values().at(0), 1.0);
        QCOMPARE(store.times().size(), 500);
        QCOMPARE(store.times().at(0), 1.0);
        QCOMPARE(store.times().at(499), 800.0);
    }

    void loweringTheCapacityCutsTheTimesOnlyAsDesigned()
    {
        tcSampleStore store;
        store.setCapacity(1000);
        for (int i = 0; i < 800; ++i)
            store.append(i, i);
        store.setCapacity(500);
        QCOMPARE(store.times().size(), 500);
        QCOMPARE(store.values().size(), 800);
        QCOMPARE(store.size(), 500);
        QCOMPARE(store.time(499), 499.0);
        QCOMPARE(store.valueExtent().highest, 499.0);
    }

    void loweringTheCapacityPadsTheTimesWithZerosAsDesigned()
    {
        tcSampleStore store;
        store.append(5, 50);
        store.setCapacity(4);
        QCOMPARE(store.times().size(), 4);
        QCOMPARE(store.times().at(0), 5.0);
        QCOMPARE(store.times().at(1), 0.0);
        QCOMPARE(store.times().at(3), 0.0);
        QCOMPARE(store.size(), 1);
        store.append(9, 90);
        QCOMPARE(store.size(), 2);
        QCOMPARE(store.time(1), 0.0);
        QCOMPARE(store.value(1), 90.0);
    }

    void raisingTheCapacityChangesNoSample()
    {
        tcSampleStore store;
        for (int i = 0; i < 150; ++i)
            store.append(i, i);
        store.setCapacity(1000);
        QCOMPARE(store.size(), 101);
        QCOMPARE(store.time(0), 49.0);
        store.append(150, 150);
        QCOMPARE(store.size(), 102);
    }

    void sameCapacityChangesNothing()
    {
        tcSampleStore store;
        store.append(1, 1);
        store.setCapacity(100);
        QCOMPARE(store.times().size(), 1);
    }

    void negativeCapacityIsNone()
    {
        tcSampleStore store;
        store.append(1, 1);
        store.setCapacity(-5);
        QCOMPARE(store.capacity(), 0);
        QCOMPARE(store.times().size(), 0);
        store.append(2, 2);
        store.append(3, 3);
        QCOMPARE(store.values().size(), 1);
        QCOMPARE(store.value(0), 3.0);
    }

    void clearEmptiesBothAndStartsAnew()
    {
        tcSampleStore store;
        store.clear();
        QCOMPARE(store.size(), 0);
        for (int i = 0; i < 5000; ++i)
            store.append(5000 - i, i);
        store.clear();
        QCOMPARE(store.size(), 0);
        QVERIFY(store.valueExtent().isEmpty());
        QCOMPARE(store.nextStepBack(0), 0);
        store.append(3, 30);
        QCOMPARE(store.size(), 1);
        QCOMPARE(store.valueExtent().highest, 30.0);
        QCOMPARE(store.valueExtent().lowest, 30.0);
        QCOMPARE(store.nextStepBack(0), 1);
    }

    void clearKeepsItsMemory()
    {
        tcSampleStore store;
        store.setCapacity(5000);
        for (int i = 0; i < 5000; ++i)
            store.append(i, i);
        const std::size_t before = store.bytes();
        store.clear();
        for (int i = 0; i < 5000; ++i)
            store.append(i, i);
        QCOMPARE(store.bytes(), before);
    }

    void extentLeavesOutWhatIsNoPlaceOnAnAxis_data()
    {
        QTest::addColumn<QVector<double>>("values");
        QTest::addColumn<bool>("any");
        QTest::addColumn<double>("lowest");
        QTest::addColumn<double>("highest");
        QTest::newRow("none") << QVector<double>() << false << 0.0 << 0.0;
        QTest::newRow("one") << QVector<double>{4} << true << 4.0 << 4.0;
        QTest::newRow("NaN first") << QVector<double>{cNan, 4, 2} << true << 2.0 << 4.0;
        QTest::newRow("NaN between") << QVector<double>{4, cNan, 2} << true << 2.0 << 4.0;
        QTest::newRow("NaN last") << QVector<double>{4, 2, cNan} << true << 2.0 << 4.0;
        QTest::newRow("NaN only") << QVector<double>{cNan, cNan} << false << 0.0 << 0.0;
        QTest::newRow("infinities")
            << QVector<double>{-cInfinity, 1, cInfinity} << true << 1.0 << 1.0;
        QTest::newRow("huge") << QVector<double>{1e308, -1e308} << true << -1e308 << 1e308;
        QTest::newRow("negative") << QVector<double>{-3, -2} << true << -3.0 << -2.0;
    }

    void extentLeavesOutWhatIsNoPlaceOnAnAxis()
    {
        QFETCH(QVector<double>, values);
        QFETCH(bool, any);
        tcSampleStore store;
        for (int i = 0; i < values.size(); ++i)
            store.append(i, values[i]);
        QCOMPARE(!store.valueExtent().isEmpty(), any);
        if (!any)
            return;
        QTEST(store.valueExtent().lowest, "lowest");
        QTEST(store.valueExtent().highest, "highest");
    }

    void nextStepBackFindsWhereTimeStepsBack()
    {
        tcSampleStore store;
        const QVector<double> times{1, 2, 2, 1, 5, cNan, 6};
        for (double time : times)
            store.append(time, 0);
        QCOMPARE(store.nextStepBack(0), 3);
        QCOMPARE(store.nextStepBack(2), 3);
        QCOMPARE(store.nextStepBack(3), 5);
        QCOMPARE(store.nextStepBack(5), 6);
        QCOMPARE(store.nextStepBack(6), 7);
    }

    void copyStaysWithinWhatThereIs()
    {
        tcSampleStore store;
        for (int i = 0; i < 10; ++i)
            store.append(i, i * 2.0);
        double times[4] = {-1, -1, -1, -1};
        QCOMPARE(store.copy(8, 4, times, nullptr), 2);
        QCOMPARE(times[1], 9.0);
        QCOMPARE(times[2], -1.0);
        double values[1] = {-1};
        QCOMPARE(store.copy(-3, 1, nullptr, values), 1);
        QCOMPARE(values[0], 0.0);
        QCOMPARE(store.copy(10, 4, times, values), 0);
        QCOMPARE(store.copy(0, -1, times, values), 0);
    }

    void extentOfAnyStretch()
    {
        std::mt19937 random(3);
        tcSampleColumn column;
        std::vector<double> plain;
        for (int i = 0; i < 6000; ++i) {
            const double number = random() % 50 == 0 ? cNan : double(random() % 100000);
            column.append(number);
            plain.push_back(number);
        }
        for (int i = 0; i < 1500; ++i)
            column.dropFirst();
        plain.erase(plain.begin(), plain.begin() + 1500);
        for (int i = 0; i < 500; ++i) {
            const int first = int(random() % plain.size());
            const int count = int(random() % (plain.size() - size_t(first) + 1));
            QVERIFY(
                same(column.extent(first, count), tcPlainStore::extent(plain, first, count)));
        }
    }

    /// What was summed up of numbers that were cut off must not show.
    void extentOfAnyStretchAfterACut()
    {
        std::mt19937 random(4);
        for (int round = 0; round < 40; ++round) {
            tcSampleColumn column;
            for (int i = 0; i < 2500; ++i)
                column.append(1e9 + i);
            const int left = 1 + int(random() % 2400);
            column.resize(left);
            std::vector<double> plain;
            for (int i = 0; i < left; ++i)
                plain.push_back(1e9 + i);
            for (int i = int(random() % 300); i > 0; --i) {
                plain.push_back(double(random() % 1000));
                column.append(plain.back());
            }
            for (int i = 0; i < 20; ++i) {
                const int first = int(random() % plain.size());
                const int count = int(random() % (plain.size() - size_t(first) + 1));
                QVERIFY(same(column.extent(first, count),
                             tcPlainStore::extent(plain, first, count)));
            }
        }
    }

    void agreesWithTwoPlainVectors_data()
    {
        QTest::addColumn<int>("seed");
        QTest::addColumn<int>("largest");
        for (int seed = 0; seed < 6; ++seed)
            QTest::addRow("small %d", seed) << seed << 40;
        for (int seed = 6; seed < 12; ++seed)
            QTest::addRow("over several blocks %d", seed) << seed << 5000;
    }

    void agreesWithTwoPlainVectors()
    {
        QFETCH(int, seed);
        QFETCH(int, largest);
        std::mt19937 random(static_cast<unsigned>(seed));
        tcSampleStore store;
        tcPlainStore plain;
        double time = 1e12;
        for (int round = 0; round < 60; ++round) {
            const int count = int(random() % unsigned(largest));
            for (int i = 0; i < count; ++i) {
                time += random() % 300 == 0 ? -5000.0 : double(random() % 20);
                const double value = random() % 40 == 0
                    ? cNan
                    : std::ldexp(double(random()) - 2e9, int(random() % 8));
                const double stored = random() % 500 == 0 ? cNan : time;
                store.append(stored, value);
                plain.append(stored, value);
            }
            if (random() % 4 == 0) {
                const int capacity = int(random() % unsigned(largest));
                store.setCapacity(capacity);
                plain.setCapacity(capacity);
            }
            if (random() % 15 == 0) {
                store.clear();
                plain.times.clear();
                plain.values.clear();
            }
            compare(store, plain);
            if (QTest::currentTestFailed())
                return;
        }
    }

    void manyAtOnceAreAsOneByOne_data() { agreesWithTwoPlainVectors_data(); }

    void manyAtOnceAreAsOneByOne()
    {
        QFETCH(int, seed);
        QFETCH(int, largest);
        std::mt19937 random(static_cast<unsigned>(seed));
        tcSampleStore store;
        tcSampleStore oneByOne;
        for (int round = 0; round < 15; ++round) {
            const auto count = std::size_t(random() % unsigned(largest));
            const unsigned rare = random() % 2 == 0 ? 40 : 5000;
            std::vector<double> times;
            std::vector<double> values;
            for (std::size_t i = 0; i < count; ++i) {
                times.push_back(random() % rare == 0 ? cNan : double(random() % 2 + 2 * i));
                values.push_back(random() % rare == 0 ? cInfinity : double(random()) - 2e9);
                oneByOne.append(times.back(), values.back());
            }
            store.append(times.data(), values.data(), int(count));
            if (random() % 4 == 0) {
                const int capacity = int(random() % unsigned(2 * largest));
                store.setCapacity(capacity);
                oneByOne.setCapacity(capacity);
            }
            compareStores(store, oneByOne, random);
            if (QTest::currentTestFailed())
                return;
        }
    }

    void manyAtOnceWithAnyCapacity()
    {
        const std::vector<double> numbers(40, 1.0);
        for (const int capacity : {0, 1, 38, 39, 40, std::numeric_limits<int>::max()}) {
            tcSampleStore store;
            store.setCapacity(capacity);
            store.append(numbers.data(), numbers.data(), 40);
            QCOMPARE(store.values().size(), capacity < 39 ? capacity + 1 : 40);
            QCOMPARE(store.appended(), 40LL);
            store.append(numbers.data(), numbers.data(), 0);
            QCOMPARE(store.appended(), 40LL);
        }
    }

    void givesWhatWasAppendedSince()
    {
        tcSampleStore store;
        std::vector<double> times;
        std::vector<double> values;
        for (int i = 0; i < 150; ++i)
            store.append(i, i * 10.0);
        QCOMPARE(store.appended(), 150LL);
        store.copyAppendedSince(148, times, values);
        QCOMPARE(times, (std::vector<double>{148, 149}));
        QCOMPARE(values, (std::vector<double>{1480, 1490}));
        store.copyAppendedSince(0, times, values);
        QCOMPARE(times.size(), std::size_t(101));
        QCOMPARE(times.front(), 49.0);
        store.copyAppendedSince(150, times, values);
        QVERIFY(times.empty() && values.empty());
        store.clear();
        store.append(200, 5);
        store.copyAppendedSince(100, times, values);
        QCOMPARE(times, (std::vector<double>{200}));
    }

    void everySampleKeepsItsOwnTimeAfterTheCapacityWasLowered_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("after");
        QTest::newRow("times cut") << 800 << 300;
        QTest::newRow("times cut, then all replaced") << 800 << 900;
        QTest::newRow("times padded") << 200 << 100;
        QTest::newRow("times padded, then all replaced") << 200 << 1500;
    }

    void everySampleKeepsItsOwnTimeAfterTheCapacityWasLowered()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        tcSampleStore store;
        store.setCapacity(1000);
        for (int i = 0; i < before; ++i)
            store.append(i + 1, i + 1);
        store.setCapacity(500);
        for (int i = 0; i < after; ++i)
            store.append(before + i + 1, before + i + 1);
        std::vector<double> times;
        std::vector<double> values;
        store.copyAppendedSince(0, times, values);
        QVERIFY(times.size() <= std::size_t(store.size()));
        QCOMPARE(times, values);
        QCOMPARE(times.back(), double(before + after));
        store.copyAppendedSince(before + after - 7, times, values);
        QCOMPARE(times.size(), std::size_t(7));
        QCOMPARE(times, values);
    }

    void risingAndFallingValuesLeaveTheExtentRight()
    {
        // The worst order for a running extent: each sample dropped is the extreme one.
        tcSampleStore store;
        store.setCapacity(3000);
        for (int i = 0; i < 12000; ++i) {
            store.append(i, i);
            QCOMPARE(store.valueExtent().lowest, std::max(0.0, i - 3000.0));
            QCOMPARE(store.valueExtent().highest, double(i));
        }
    }

    void takesLittleMoreThanItsNumbers()
    {
        tcSampleStore store;
        store.setCapacity(100000);
        for (int i = 0; i < 300000; ++i)
            store.append(i, std::sin(i));
        QVERIFY2(double(store.bytes()) / store.size() <= 28.0,
                 qPrintable(QString::number(double(store.bytes()) / store.size())));
    }
};

QTEST_APPLESS_MAIN(tst_SampleStore)
#include "tst_samplestore.moc"

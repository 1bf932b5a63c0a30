#include "stripchart/logic/tcRowMerge.h"

#include <QtTest>

#include <limits>
#include <map>
#include <random>

namespace
{

struct tcCurve
{
    std::vector<double> times;
    std::vector<double> values;
};

std::vector<tcColumnView> views(const std::vector<tcCurve>& acCurves)
{
    std::vector<tcColumnView> all;
    for (const tcCurve& curve : acCurves)
        all.push_back(
            {curve.times.data(), curve.values.data(), static_cast<qint64>(curve.times.size())});
    return all;
}

/// Rows as text: "time:value,value" with "-" for none.
QStringList rows(const std::vector<tcCurve>& acCurves)
{
    tcRowMerge merge(views(acCurves));
    QStringList all;
    while (merge.next()) {
        QStringList fields;
        for (const double* value : merge.values())
            fields << (value ? QString::number(*value) : "-");
        all << QString::number(merge.time()) + ':' + fields.join(',');
    }
    return all;
}

} // namespace

class tst_RowMerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noCurves() { QCOMPARE(rows({}), QStringList()); }

    void emptyCurves() { QCOMPARE(rows({{}, {}}), QStringList()); }

    void samplesOfOneTimeShareARow()
    {
        QCOMPARE(rows({{{1000, 2000}, {1.5, 3}}, {{1000}, {2}}}),
                 QStringList({"1000:1.5,2", "2000:3,-"}));
    }

    void timesAscendOverAllCurves()
    {
        QCOMPARE(rows({{{3, 5}, {30, 50}}, {{1, 4}, {10, 40}}}),
                 QStringList({"1:-,10", "3:30,-", "4:-,40", "5:50,-"}));
    }

    void laterSampleOfTheSameTimeStands()
    {
        QCOMPARE(rows({{{1, 1, 2}, {10, 11, 20}}}), QStringList({"1:11", "2:20"}));
    }

    void timesThatGoBackAreSortedAndTheLaterStillStands()
    {
        QCOMPARE(rows({{{5, 1, 5, 3}, {50, 10, 51, 30}}, {{1}, {7}}}),
                 QStringList({"1:10,7", "3:30,-", "5:51,-"}));
    }

    void fractionsOfAMillisecondShareARow()
    {
        QCOMPARE(rows({{{1.2, 1.9, 2.0}, {1, 2, 3}}}), QStringList({"1:2", "2:3"}));
    }

    void timesThatAreNoNumberBelongToNoRow()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QCOMPARE(rows({{{nan}, {1}}}), QStringList());
        QCOMPARE(rows({{{nan, 1, nan, 2}, {9, 10, 9, 20}}}), QStringList({"1:10", "2:20"}));
    }

    void extremeTimes()
    {
        const double inf = std::numeric_limits<double>::infinity();
        QCOMPARE(rows({{{-inf, -1e300, 0, 1e300, inf}, {1, 2, 3, 4, 5}}, {{1}, {8}}}),
                 QStringList({"-9223372036854775808:2,-", "0:3,-", "1:-,8",
                              "9223372036854775807:5,-"}));
    }

    void countsWhatIsDone()
    {
        const std::vector<tcCurve> curves{{{1, 2, 2}, {1, 2, 3}}, {{1}, {1}}};
        tcRowMerge merge(views(curves));
        QCOMPARE(merge.total(), qint64(4));
        QCOMPARE(merge.done(), qint64(0));
        QVERIFY(merge.next());
        QCOMPARE(merge.done(), qint64(2));
        QVERIFY(merge.next());
        QCOMPARE(merge.done(), qint64(4));
        QVERIFY(!merge.next());
        QVERIFY(!merge.next());
    }

    void agreesWithAMapOfAllSamples()
    {
        std::mt19937 random(42);
        for (int round = 0; round < 200; ++round) {
            std::vector<tcCurve> curves(1 + random() % 6);
            std::map<qint64, std::vector<QString>> expected;
            for (size_t c = 0; c < curves.size(); ++c) {
                double time = 0;
                const bool sorted = random() % 2;
                for (unsigned i = random() % 40; i > 0; --i) {
                    time = sorted ? time + random() % 3 : random() % 50;
                    const double value = random() % 1000;
                    curves[c].times.push_back(time);
                    curves[c].values.push_back(value);
                    auto& row = expected[static_cast<qint64>(time)];
                    row.resize(curves.size(), "-");
                    row[c] = QString::number(value);
                }
            }
            QStringList lines;
            for (const auto& row : expected) {
                const QStringList fields(row.second.begin(), row.second.end());
                lines << QString::number(row.first) + ':' + fields.join(',');
            }
            QCOMPARE(rows(curves), lines);
        }
    }
};

QTEST_APPLESS_MAIN(tst_RowMerge)
#include "tst_rowmerge.moc"

#include "stripchart/logic/tcReplay.h"

#include <QtTest>

namespace
{

constexpr qint64 cNow = 1700000000000;

/// "column@ms after cNow=value" of one step.
QStringList stepTo(tcReplay& arReplay, qint64 anMs, bool* apMore = nullptr)
{
    QStringList all;
    const bool more
        = arReplay.step(cNow + anMs, [&all](size_t anColumn, qint64 anTime, double anValue) {
              all << QStringLiteral("%1@%2=%3").arg(anColumn).arg(anTime - cNow).arg(anValue);
          });
    if (apMore)
        *apMore = more;
    return all;
}

tcReplay twoColumns(int anSpeed)
{
    return tcReplay({{"A", {5000, 6000, 8000}, {1, 2, 3}}, {"B", {6000, 7000}, {10, 20}}},
                    anSpeed, cNow);
}

} // namespace

class tst_Replay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void handsOutWhatIsDue()
    {
        tcReplay replay = twoColumns(1);
        QCOMPARE(replay.columnCount(), size_t(2));
        QCOMPARE(replay.title(1), QString("B"));
        bool more = false;
        QCOMPARE(stepTo(replay, -1), QStringList());
        QCOMPARE(stepTo(replay, 0), QStringList("0@0=1"));
        QCOMPARE(stepTo(replay, 999), QStringList());
        QCOMPARE(stepTo(replay, 1000), QStringList({"0@1000=2", "1@1000=10"}));
        QCOMPARE(stepTo(replay, 1000, &more), QStringList());
        QVERIFY(more);
        QCOMPARE(stepTo(replay, 9000, &more), QStringList({"1@2000=20", "0@3000=3"}));
        QVERIFY(!more);
    }

    void speedShortensTheTimes()
    {
        tcReplay replay = twoColumns(100);
        QCOMPARE(stepTo(replay, 30),
                 QStringList({"0@0=1", "0@10=2", "1@10=10", "1@20=20", "0@30=3"}));
    }

    void speedsStayWithinTheirRange_data()
    {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("taken");
        QTest::newRow("below") << 0 << 1;
        QTest::newRow("negative") << -5 << 1;
        QTest::newRow("lowest") << 1 << 1;
        QTest::newRow("highest") << 1000 << 1000;
        QTest::newRow("above") << 1001 << 1000;
    }
    void speedsStayWithinTheirRange()
    {
        QFETCH(int, asked);
        QFETCH(int, taken);
        QCOMPARE(twoColumns(asked).speed(), taken);
    }

    void timesThatGoBackwardsAreSorted()
    {
        tcReplay replay({{"A", {3000, 1000, 2000, 1000}, {3, 1, 2, 1.5}}}, 1, cNow);
        QCOMPARE(stepTo(replay, 5000),
                 QStringList({"0@0=1", "0@0=1.5", "0@1000=2", "0@2000=3"}));
    }

    void clockThatGoesBackWaits()
    {
        tcReplay replay = twoColumns(1);
        stepTo(replay, 1000);
        QCOMPARE(stepTo(replay, 0), QStringList());
        QCOMPARE(stepTo(replay, 2000), QStringList("1@2000=20"));
    }

    void nothingToReplay()
    {
        bool more = true;
        tcReplay none({}, 1, cNow);
        QCOMPARE(stepTo(none, 1000, &more), QStringList());
        QVERIFY(!more);
        tcReplay empty({{"A", {}, {}}}, 1, cNow);
        more = true;
        QCOMPARE(stepTo(empty, 1000, &more), QStringList());
        QVERIFY(!more);
    }

    void lateStepIsHandedOutInPieces()
    {
        std::vector<double> times;
        for (int i = 0; i < 2 * tcReplay::cMaxPerStep + 1; ++i)
            times.push_back(i);
        tcReplay replay({{"A", times, times}}, 1, cNow);
        bool more = false;
        QCOMPARE(stepTo(replay, 1000000, &more).size(), tcReplay::cMaxPerStep);
        QVERIFY(more);
        QCOMPARE(stepTo(replay, 1000000, &more).size(), tcReplay::cMaxPerStep);
        QVERIFY(more);
        QCOMPARE(stepTo(replay, 1000000, &more).size(), 1);
        QVERIFY(!more);
    }

    void beginsAnew()
    {
        tcReplay replay = twoColumns(10);
        QCOMPARE(replay.duration(), qint64(300));
        stepTo(replay, 100);
        replay.restart(cNow + 1000);
        QCOMPARE(replay.duration(), qint64(300));
        QCOMPARE(stepTo(replay, 999), QStringList());
        QCOMPARE(stepTo(replay, 1100), QStringList({"0@1000=1", "0@1100=2", "1@1100=10"}));
    }

    void nothingLastsNoTime()
    {
        QCOMPARE(tcReplay({}, 1, cNow).duration(), qint64(0));
        QCOMPARE(tcReplay({{"A", {}, {}}}, 1, cNow).duration(), qint64(0));
        QCOMPARE(tcReplay({{"A", {7000}, {1}}}, 1, cNow).duration(), qint64(0));
    }

    void timesOfAllTheWorldHaveAMoment()
    {
        tcReplay replay({{"A", {-9.2e18, 9.2e18}, {1, 2}}}, 1, cNow);
        QCOMPARE(stepTo(replay, 0), QStringList("0@0=1"));
        bool more = false;
        QCOMPARE(stepTo(replay, 1000000000, &more), QStringList());
        QVERIFY(more);
        QVERIFY(replay.duration() > 1000000000);
    }

    void dayAtFullSpeedComesInSmallSteps()
    {
        constexpr int cSeconds = 86400;
        std::vector<double> times;
        std::vector<double> values;
        for (int i = 0; i < cSeconds; ++i) {
            times.push_back(1600000000000.0 + i * 1000.0);
            values.push_back(i);
        }
        tcReplay replay({{"A", times, values}}, tcReplay::cMaxSpeed, cNow);
        int total = 0;
        bool more = true;
        for (qint64 ms = 0; more; ms += 50) {
            const int step = stepTo(replay, ms, &more).size();
            QVERIFY(step <= 50);
            total += step;
        }
        QCOMPARE(total, cSeconds);
    }
};

QTEST_APPLESS_MAIN(tst_Replay)
#include "tst_replay.moc"

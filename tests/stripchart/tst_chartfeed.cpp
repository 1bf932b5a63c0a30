#include "sim/chartdemo/tcChartFeed.h"

#include <QtTest>

#include <cmath>

class tst_ChartFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void curvesWithinOneToSixteen_data();
    void curvesWithinOneToSixteen();
    void sameSeedSameValues();
    void bothAxesAreFed();
    void longNames();
};

void tst_ChartFeed::curvesWithinOneToSixteen_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("given");
    QTest::newRow("none") << 0 << 1;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("sixteen") << 16 << 16;
    QTest::newRow("seventeen") << 17 << 16;
}

void tst_ChartFeed::curvesWithinOneToSixteen()
{
    QFETCH(int, asked);
    QTEST(tcChartFeed(asked, 1, false).channels().size(), "given");
}

void tst_ChartFeed::sameSeedSameValues()
{
    const tcChartFeed one(16, 7, false);
    const tcChartFeed again(16, 7, false);
    const tcChartFeed other(16, 8, false);
    int different = 0;
    for (int i = 0; i < 16; ++i) {
        const qint64 time = 1700000000000 + i * 250;
        QVERIFY(std::isfinite(one.value(i, time)));
        QCOMPARE(one.value(i, time), again.value(i, time));
        different += one.value(i, time) != other.value(i, time);
    }
    QCOMPARE(different, 16);
}

void tst_ChartFeed::bothAxesAreFed()
{
    const tcChartFeed feed(6, 1, false);
    int right = 0;
    for (const tcChartFeed::tcChannel& channel : feed.channels())
        right += channel.right;
    QCOMPARE(right, 2);
}

void tst_ChartFeed::longNames()
{
    const tcChartFeed feed(16, 1, true);
    for (const tcChartFeed::tcChannel& channel : feed.channels())
        QVERIFY(channel.name.size() > 40);
}

QTEST_APPLESS_MAIN(tst_ChartFeed)
#include "tst_chartfeed.moc"

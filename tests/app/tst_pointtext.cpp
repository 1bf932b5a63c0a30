#include "app/logic/tcPointText.h"

#include <QtTest>

class tst_PointText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pair_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::newRow("three decimals") << 1.5 << -2.0 << 3 << "1.500,-2.000";
        QTest::newRow("none") << 1.4 << -2.0 << 0 << "1,-2";
        QTest::newRow("a tie rounds away from zero")
            << 0.0625 << -0.0625 << 3 << "0.063,-0.063";
        QTest::newRow("a time stamp")
            << 1731681000000.0 << 21.5 << 3 << "1731681000000.000,21.500";
    }

    void pair()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(int, decimals);
        QTEST(tcPointText::pair(x, y, decimals), "text");
    }

    void threeDecimalsUnlessSaid()
    {
        QCOMPARE(tcPointText::pair(1, 2), QString("1.000,2.000"));
    }

    void clockTimeIsLocalToTheMillisecond()
    {
        const QDateTime time(QDate(2026, 11, 15), QTime(15, 30, 4, 7));
        const auto ms = static_cast<double>(time.toMSecsSinceEpoch());
        QCOMPARE(tcPointText::clock(ms), QString("15:30:04.007"));
        QCOMPARE(tcPointText::clock(ms + 0.9), QString("15:30:04.007"));
        QCOMPARE(tcPointText::clock(ms + 113), QString("15:30:04.120"));
        QCOMPARE(tcPointText::timed(ms, -0.0625), QString("15:30:04.007,-0.063"));
    }
};

QTEST_APPLESS_MAIN(tst_PointText)
#include "tst_pointtext.moc"

#include "stripchart/logic/tcColumnMap.h"

#include <QtTest>

class tst_ColumnMap : public QObject
{
    Q_OBJECT

private:
    int mA = 0;
    int mB = 0;
    int mC = 0;

private Q_SLOTS:
    void columnsCountFromOneInTheOrderOfAsking()
    {
        tcColumnMap map;
        QCOMPARE(map.assign(&mA, "A"), 1);
        QCOMPARE(map.assign(&mB, "B"), 2);
        QCOMPARE(map.assign(&mA, "A"), 1);
        QCOMPARE(map.column(&mB), 2);
        QCOMPARE(map.count(), 2);
    }

    void unknownCurveHasNoColumn() { QCOMPARE(tcColumnMap().column(&mA), 0); }

    void titlesOfAContinuedFileKeepTheirColumns()
    {
        tcColumnMap map;
        map.takeTitles({"B", "A"});
        QCOMPARE(map.count(), 2);
        QCOMPARE(map.assign(&mA, "A"), 2);
        QCOMPARE(map.assign(&mB, "B"), 1);
        QCOMPARE(map.assign(&mC, "C"), 3);
        QCOMPARE(map.count(), 3);
    }

    void sameTitleTwiceGoesToTwoCurves()
    {
        tcColumnMap map;
        map.takeTitles({"T", "T"});
        QCOMPARE(map.assign(&mA, "T"), 1);
        QCOMPARE(map.assign(&mB, "T"), 2);
        QCOMPARE(map.assign(&mC, "T"), 3);
    }

    void columnOfAForgottenCurveIsNotGivenAgain()
    {
        tcColumnMap map;
        map.assign(&mA, "A");
        map.assign(&mB, "B");
        map.forget(&mA);
        QCOMPARE(map.column(&mA), 0);
        QCOMPARE(map.curves(), QList<const void*>{&mB});
        QCOMPARE(map.assign(&mA, "other"), 3);
        QCOMPARE(map.count(), 3);
    }

    void clearStartsAnew()
    {
        tcColumnMap map;
        map.takeTitles({"A", "B"});
        map.clear();
        QCOMPARE(map.assign(&mB, "B"), 1);
    }
};

QTEST_APPLESS_MAIN(tst_ColumnMap)
#include "tst_columnmap.moc"

#include "stripchart/tcCurveTable.h"
#include "stripchart/tcStripCurve.h"

#include <QtTest>

class tst_CurveTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesUnderKeyAndIndex();
    void rowIsExactlyIndexPlusOneLong();
    void emptyTable();
    void curvesInTheOrderOfKeysAndIndices();
    void forgottenCurve();
    void takeAllEmptiesTheTable();
    void firstTitle();
};

void tst_CurveTable::filesUnderKeyAndIndex()
{
    tcCurveTable table;
    tcStripCurve curve(2);
    const QUuid key = table.file(&curve, QUuid());
    QVERIFY(!key.isNull());
    QCOMPARE(table.find(key, 2), &curve);
    QCOMPARE(table.find(key, 0), nullptr);
    QCOMPARE(table.find(key, 3), nullptr);
    QCOMPARE(table.find(key, -1), nullptr);
    QCOMPARE(table.find(QUuid::createUuid(), 2), nullptr);
}

void tst_CurveTable::rowIsExactlyIndexPlusOneLong()
{
    tcCurveTable table;
    tcStripCurve three(3);
    tcStripCurve zero(0);
    const QUuid key = table.file(&three, QUuid());
    QCOMPARE(table.slotCount(key), 4);
    table.file(&zero, key);
    QCOMPARE(table.slotCount(key), 1);
    QCOMPARE(table.find(key, 3), nullptr);
    table.file(&three, key);
    QCOMPARE(table.slotCount(key), 4);
    QCOMPARE(table.find(key, 0), &zero);
}

void tst_CurveTable::emptyTable()
{
    tcCurveTable table;
    QVERIFY(table.isEmpty());
    QVERIFY(table.curves().isEmpty());
    QCOMPARE(table.firstTitle(), QString());
    table.forget(nullptr);
}

void tst_CurveTable::curvesInTheOrderOfKeysAndIndices()
{
    tcCurveTable table;
    tcStripCurve a(0);
    tcStripCurve b(2);
    tcStripCurve c(0);
    table.file(&c, QUuid("{00000000-0000-0000-0000-000000000002}"));
    table.file(&a, QUuid("{00000000-0000-0000-0000-000000000001}"));
    table.file(&b, QUuid("{00000000-0000-0000-0000-000000000001}"));
    QCOMPARE(table.curves(), (QVector<tcStripCurve*>{&a, &b, &c}));
    QCOMPARE(table.sourceCount(), 2);
}

void tst_CurveTable::forgottenCurve()
{
    tcCurveTable table;
    tcStripCurve a(0);
    tcStripCurve b(1);
    const QUuid key = table.file(&a, QUuid());
    table.file(&b, key);
    table.forget(&a);
    QCOMPARE(table.find(key, 0), nullptr);
    QCOMPARE(table.find(key, 1), &b);
    table.forget(&b);
    QVERIFY(table.isEmpty());
}

void tst_CurveTable::takeAllEmptiesTheTable()
{
    tcCurveTable table;
    tcStripCurve a(0);
    table.file(&a, QUuid());
    QCOMPARE(table.takeAll(), QVector<tcStripCurve*>{&a});
    QVERIFY(table.isEmpty());
}

void tst_CurveTable::firstTitle()
{
    tcCurveTable table;
    tcStripCurve a(0);
    tcStripCurve b(1);
    a.setTitle("A");
    table.file(&b, QUuid("{00000000-0000-0000-0000-000000000001}"));
    QCOMPARE(table.firstTitle(), QString()); // curve 0 is an empty slot
    table.file(&a, QUuid("{00000000-0000-0000-0000-000000000001}"));
    QCOMPARE(table.firstTitle(), QString("A"));
}

QTEST_MAIN(tst_CurveTable)
#include "tst_curvetable.moc"

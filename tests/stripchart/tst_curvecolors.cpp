#include "stripchart/logic/tcCurveColors.h"

#include <QtTest>

class tst_CurveColors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inThisOrder_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("color");
        QTest::newRow("0") << 0 << int(Qt::green);
        QTest::newRow("1") << 1 << int(Qt::cyan);
        QTest::newRow("2") << 2 << int(Qt::red);
        QTest::newRow("3") << 3 << int(Qt::yellow);
        QTest::newRow("4") << 4 << int(Qt::lightGray);
        QTest::newRow("5") << 5 << int(Qt::darkGreen);
        QTest::newRow("6") << 6 << int(Qt::blue);
        QTest::newRow("7") << 7 << int(Qt::darkRed);
        QTest::newRow("8") << 8 << int(Qt::darkYellow);
        QTest::newRow("9") << 9 << int(Qt::white);
        QTest::newRow("10") << 10 << int(Qt::magenta);
        QTest::newRow("11") << 11 << int(Qt::darkBlue);
        QTest::newRow("12") << 12 << int(Qt::darkMagenta);
        QTest::newRow("13") << 13 << int(Qt::gray);
        QTest::newRow("14") << 14 << int(Qt::darkCyan);
        QTest::newRow("15 starts over") << 15 << int(Qt::green);
        QTest::newRow("31") << 31 << int(Qt::cyan);
        QTest::newRow("a negative one is not read beyond the table") << -1 << int(Qt::darkCyan);
    }

    void inThisOrder()
    {
        QFETCH(int, index);
        QTEST(int(tcCurveColors::at(index)), "color");
    }
};

QTEST_APPLESS_MAIN(tst_CurveColors)
#include "tst_curvecolors.moc"

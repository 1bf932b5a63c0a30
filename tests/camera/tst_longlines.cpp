#include "camera/logic/tcLongLines.h"

#include <QTest>

class tst_LongLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void broken_data();
    void broken();
    void charactersStayWhole();
};

void tst_LongLines::broken_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("shown");
    const auto x = [](int anCount) { return QString(anCount, 'x'); };
    QTest::newRow("empty") << "" << 0 << "";
    QTest::newRow("as long as may be") << x(10000) << 0 << x(10000);
    QTest::newRow("one more") << x(10001) << 0 << QString(x(10000) + "\nx");
    QTest::newRow("three lines") << x(20001) << 0
                                 << QString(x(10000) + '\n' + x(10000) + "\nx");
    QTest::newRow("behind others") << "abc" << 9999 << "a\nbc";
    QTest::newRow("short lines of a long text")
        << QString(x(9000) + '\n' + x(9000)) << 500 << QString(x(9000) + '\n' + x(9000));
    QTest::newRow("line end at the limit")
        << QString(x(10000) + "\nyy") << 0 << QString(x(10000) + "\nyy");
}

void tst_LongLines::broken()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    QTEST(tcLongLines::broken(text, column), "shown");
}

void tst_LongLines::charactersStayWhole()
{
    const QString camera = QString::fromUtf8("\xF0\x9F\x93\xB7");
    const QString text = tcLongLines::broken('x' + camera.repeated(6000));
    QCOMPARE(text.count(camera), 6000);
    QCOMPARE(text.count('\n'), 1);
}

QTEST_GUILESS_MAIN(tst_LongLines)
#include "tst_longlines.moc"

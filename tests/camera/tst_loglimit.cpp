#include "camera/logic/tcLogLimit.h"

#include <QRandomGenerator>
#include <QTest>

class tst_LogLimit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rule_data();
    void rule();
    void countsAgreeWithTheText();
    void clearingForgets();
    void removedCharactersDoNotCount();
};

void tst_LogLimit::rule_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("after");
    const QString hundred(100, 'x');
    QTest::newRow("empty") << "" << 5 << "";
    QTest::newRow("at the limit") << hundred << 100 << hundred;
    QTest::newRow("one over: nobody has that code") << hundred << 99 << hundred;
    QTest::newRow("the first code") << QString("a%1b").arg(QChar(1)) << 2 << "ab";
    // The excess is 65, the code of "A".
    QTest::newRow("excess 65 takes every A")
        << QString("AxA" + QString(62, 'x')) << 0 << QString(63, 'x');
    QTest::newRow("case matters")
        << QString("aAa" + QString(62, 'x')) << 0 << QString("aa" + QString(62, 'x'));
    // Ten over: line feeds go, however old the rest.
    QTest::newRow("excess 10 joins the lines") << "a\nb\nc\nd\ne\n12" << 2 << "abcde12";
    QTest::newRow("the oldest text is not cut") << QString(200, 'y') << 10 << QString(200, 'y');
    QTest::newRow("limit zero") << "abc" << 0 << "abc";
    QTest::newRow("above the last code")
        << QString(0x10000 + 65, 'A') << 0 << QString(0x10000 + 65, 'A');
    QTest::newRow("the last code itself")
        << QString(QChar(0xFFFF) + QString(0xFFFE, 'x')) << 0 << QString(0xFFFE, 'x');
}

void tst_LogLimit::rule()
{
    QFETCH(QString, text);
    QFETCH(int, limit);
    QFETCH(QString, after);
    QCOMPARE(tcLogLimit::applied(text, limit), after);
    tcLogLimit counts;
    counts.add(text);
    QCOMPARE(counts.length(), text.size());
    QCOMPARE(counts.removesAnything(limit), text != after);
}

void tst_LogLimit::countsAgreeWithTheText()
{
    QRandomGenerator random(20);
    tcLogLimit counts;
    QString text;
    for (int i = 0; i < 3000; ++i) {
        const QString piece(int(random.bounded(4)), QChar(ushort(random.bounded(1, 300))));
        counts.add(piece);
        text += piece;
        const int limit = int(random.bounded(400)) + text.size() - 390;
        QCOMPARE(counts.removesAnything(limit), tcLogLimit::applied(text, limit) != text);
    }
}

void tst_LogLimit::clearingForgets()
{
    tcLogLimit counts;
    counts.add(QString(65, 'A'));
    QVERIFY(counts.removesAnything(0));
    counts.clear();
    QCOMPARE(counts.length(), 0);
    counts.add(QString(65, 'B'));
    QVERIFY(!counts.removesAnything(0));
}

void tst_LogLimit::removedCharactersDoNotCount()
{
    tcLogLimit counts;
    counts.add("A" + QString(65, 'x'));
    counts.remove('x');
    QCOMPARE(counts.length(), 65);
    QVERIFY(counts.removesAnything(0));
    counts.remove('A');
    counts.add('x');
    QCOMPARE(counts.length(), 65);
    QVERIFY(!counts.removesAnything(0));
}

QTEST_GUILESS_MAIN(tst_LogLimit)
#include "tst_loglimit.moc"

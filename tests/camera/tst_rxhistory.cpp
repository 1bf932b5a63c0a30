#include "camera/logic/tcRxHistory.h"

#include <QTest>

class tst_RxHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheNewest_data();
    void keepsTheNewest();
    void anyPiecesGiveTheSame();
    void limitAppliesAtOnce();
    void limits_data();
    void limits();
    void clears();
};

void tst_RxHistory::keepsTheNewest_data()
{
    QTest::addColumn<QList<QByteArray>>("pieces");
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("nothing") << QList<QByteArray>() << QByteArray();
    QTest::newRow("less than the limit") << QList<QByteArray>{"abc"} << QByteArray("abc");
    QTest::newRow("the limit") << QList<QByteArray>{"abcde"} << QByteArray("abcde");
    QTest::newRow("one over") << QList<QByteArray>{"abcde", "f"} << QByteArray("bcdef");
    QTest::newRow("more than the limit at once")
        << QList<QByteArray>{"abc", "123456789"} << QByteArray("56789");
    QTest::newRow("NULs count") << QList<QByteArray>{"abcd", QByteArray(2, '\0')}
                                << QByteArray("bcd\0\0", 5);
}

void tst_RxHistory::keepsTheNewest()
{
    QFETCH(QList<QByteArray>, pieces);
    tcRxHistory history(5);
    for (const QByteArray& piece : pieces)
        history.append(piece);
    QTEST(history.bytes(), "kept");
}

void tst_RxHistory::anyPiecesGiveTheSame()
{
    QByteArray stream;
    for (int i = 0; i < 3000; ++i)
        stream.append(static_cast<char>(i * 7));
    for (int step = 1; step < 400; step += 13) {
        tcRxHistory history(100);
        for (int at = 0; at < stream.size(); at += step) {
            history.append(stream.mid(at, step));
            QCOMPARE(history.bytes(), stream.left(at + step).right(100));
        }
    }
}

void tst_RxHistory::limitAppliesAtOnce()
{
    tcRxHistory history(10);
    history.append("0123456789");
    history.setLimit(3);
    QCOMPARE(history.bytes(), QByteArray("789"));
    history.setLimit(10);
    QCOMPARE(history.bytes(), QByteArray("789"));
}

void tst_RxHistory::limits_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("kept");
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("default") << 5000 << 5000;
    QTest::newRow("absurd") << 2147483647 << tcRxHistory::cMaxBytes;
}

void tst_RxHistory::limits()
{
    QFETCH(int, limit);
    tcRxHistory history(limit);
    for (int i = 0; i < 3; ++i)
        history.append(QByteArray(tcRxHistory::cMaxBytes - 1, 'x'));
    QTEST(history.bytes().size(), "kept");
}

void tst_RxHistory::clears()
{
    tcRxHistory history(10);
    history.append("abc");
    history.clear();
    QCOMPARE(history.bytes(), QByteArray());
}

QTEST_GUILESS_MAIN(tst_RxHistory)
#include "tst_rxhistory.moc"

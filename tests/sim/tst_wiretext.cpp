#include "sim/camera/tcWireText.h"

#include <QTest>

class tst_WireText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void words_data();
    void words();
    void trimmed_data();
    void trimmed();
    void integer_data();
    void integer();
    void hundredths_data();
    void hundredths();
    void fixed_data();
    void fixed();
    void hexByte();
};

void tst_WireText::words_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("count"); // -1: none
    QTest::newRow("one") << QByteArray("STRT") << 1;
    QTest::newRow("five") << QByteArray("SROI 0 0 8 8") << 5;
    QTest::newRow("nothing") << QByteArray() << -1;
    QTest::newRow("leading blank") << QByteArray(" STRT") << -1;
    QTest::newRow("trailing blank") << QByteArray("STRT ") << -1;
    QTest::newRow("two blanks") << QByteArray("SEXP  5") << -1;
}

void tst_WireText::words()
{
    QFETCH(QByteArray, text);
    QFETCH(int, count);
    const std::string plain = text.toStdString();
    const auto list = tcWireText::words(plain);
    QCOMPARE(list ? int(list->size()) : -1, count);
}

void tst_WireText::trimmed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("nothing to do") << QByteArray("drop/10") << QByteArray("drop/10");
    QTest::newRow("around") << QByteArray(" \t drop/10\t \r") << QByteArray("drop/10");
    QTest::newRow("not inside") << QByteArray(" a \t b ") << QByteArray("a \t b");
    QTest::newRow("blanks alone") << QByteArray(" \t\r") << QByteArray();
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void tst_WireText::trimmed()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, kept);
    QCOMPARE(tcWireText::trimmed(text.toStdString()), kept.toStdString());
}

void tst_WireText::integer_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<qint64>("value");
    QTest::newRow("zero") << QByteArray("0") << true << qint64(0);
    QTest::newRow("negative") << QByteArray("-17") << true << qint64(-17);
    QTest::newRow("ten digits") << QByteArray("9999999999") << true << qint64(9999999999);
    QTest::newRow("eleven digits") << QByteArray("10000000000") << false << qint64(0);
    QTest::newRow("empty") << QByteArray() << false << qint64(0);
    QTest::newRow("sign alone") << QByteArray("-") << false << qint64(0);
    QTest::newRow("plus") << QByteArray("+1") << false << qint64(0);
    QTest::newRow("hexadecimal") << QByteArray("0x1") << false << qint64(0);
    QTest::newRow("fraction") << QByteArray("1.0") << false << qint64(0);
}

void tst_WireText::integer()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, good);
    QFETCH(qint64, value);
    const auto number = tcWireText::integer(text.toStdString());
    QCOMPARE(number.has_value(), good);
    QCOMPARE(qint64(number.value_or(0)), value);
}

void tst_WireText::hundredths_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<qint64>("value");
    QTest::newRow("whole") << QByteArray("24") << true << qint64(2400);
    QTest::newRow("one decimal") << QByteArray("24.5") << true << qint64(2450);
    QTest::newRow("two decimals") << QByteArray("24.05") << true << qint64(2405);
    QTest::newRow("negative") << QByteArray("-0.5") << true << qint64(-50);
    QTest::newRow("three decimals") << QByteArray("1.234") << false << qint64(0);
    QTest::newRow("point at the end") << QByteArray("1.") << false << qint64(0);
    QTest::newRow("point in front") << QByteArray(".5") << false << qint64(0);
    QTest::newRow("comma") << QByteArray("1,5") << false << qint64(0);
    QTest::newRow("exponent") << QByteArray("1e3") << false << qint64(0);
}

void tst_WireText::hundredths()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, good);
    QFETCH(qint64, value);
    const auto number = tcWireText::hundredths(text.toStdString());
    QCOMPARE(number.has_value(), good);
    QCOMPARE(qint64(number.value_or(0)), value);
}

void tst_WireText::fixed_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("two decimals") << 24.5 << 2 << QByteArray("24.50");
    QTest::newRow("one decimal") << 24.0 << 1 << QByteArray("24.0");
    QTest::newRow("none") << 2.6 << 0 << QByteArray("3");
    QTest::newRow("below one") << 0.05 << 2 << QByteArray("0.05");
    QTest::newRow("rounds up") << 1.996 << 2 << QByteArray("2.00");
    QTest::newRow("negative") << -3.25 << 2 << QByteArray("-3.25");
    QTest::newRow("no negative zero") << -0.001 << 2 << QByteArray("0.00");
}

void tst_WireText::fixed()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(QByteArray, text);
    QCOMPARE(QByteArray::fromStdString(tcWireText::fixed(value, decimals)), text);
}

void tst_WireText::hexByte()
{
    QCOMPARE(tcWireText::hexByte(0), std::string("0x00"));
    QCOMPARE(tcWireText::hexByte(7), std::string("0x07"));
    QCOMPARE(tcWireText::hexByte(0xAF), std::string("0xAF"));
}

QTEST_GUILESS_MAIN(tst_WireText)
#include "tst_wiretext.moc"

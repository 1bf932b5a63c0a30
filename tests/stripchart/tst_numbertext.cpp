#include "stripchart/logic/tcNumberText.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace
{

QByteArray fixed3(double anNumber)
{
    char text[tcNumberText::cLongest];
    return QByteArray(text, int(tcNumberText::writeFixed3(text, anNumber) - text));
}

QByteArray integer(qint64 anNumber)
{
    char text[tcNumberText::cLongest];
    return QByteArray(text, int(tcNumberText::writeInteger(text, anNumber) - text));
}

bool sameBits(double anA, double anB)
{
    return std::memcmp(&anA, &anB, sizeof anA) == 0;
}

/// Counts the numbers whose text differs from Qt's and keeps the first of them.
struct tcComparison
{
    qint64 numbers = 0;
    qint64 differences = 0;
    QString first;

    void add(double anNumber)
    {
        ++numbers;
        const QByteArray ours = fixed3(anNumber);
        const QByteArray theirs = QString::number(anNumber, 'f', 3).toLatin1();
        if (ours == theirs)
            return;
        if (differences++ == 0)
            first = QString("%1: %2 instead of %3")
                        .arg(anNumber, 0, 'g', 17)
                        .arg(QString(ours), QString(theirs));
    }
};

} // namespace

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threeDecimals_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("a reading") << 21.5 << QByteArray("21.500");
        QTest::newRow("zero") << 0.0 << QByteArray("0.000");
        QTest::newRow("minus zero has no sign") << -0.0 << QByteArray("0.000");
        QTest::newRow("rounded to nothing keeps it") << -0.0001 << QByteArray("-0.000");
        QTest::newRow("tie up") << 0.0625 << QByteArray("0.063");
        QTest::newRow("tie down") << -0.0625 << QByteArray("-0.063");
        QTest::newRow("even tie") << 0.1875 << QByteArray("0.188");
        QTest::newRow("carry") << 9.9996 << QByteArray("10.000");
        QTest::newRow("just below a half") << std::nextafter(0.0005, 0) << QByteArray("0.000");
        QTest::newRow("largest integer path")
            << 9007199254740991.0 << QByteArray("9007199254740991.000");
        QTest::newRow("beyond it") << 9007199254740992.0 << QByteArray("9007199254740992.000");
        QTest::newRow("not a number")
            << std::numeric_limits<double>::quiet_NaN() << QByteArray("nan");
        QTest::newRow("infinity")
            << std::numeric_limits<double>::infinity() << QByteArray("inf");
        QTest::newRow("minus infinity")
            << -std::numeric_limits<double>::infinity() << QByteArray("-inf");
        QTest::newRow("smallest")
            << std::numeric_limits<double>::denorm_min() << QByteArray("0.000");
    }

    void threeDecimals()
    {
        QFETCH(double, number);
        QTEST(fixed3(number), "text");
        QCOMPARE(fixed3(number), QString::number(number, 'f', 3).toLatin1());
    }

    void everyExactTieAgreesWithQt()
    {
        // A number is a tie at the third decimal exactly when sixteen times it is odd.
        tcComparison comparison;
        for (int odd = 1; odd < 1000000; odd += 2) {
            comparison.add(odd / 16.0);
            comparison.add(-odd / 16.0);
        }
        QVERIFY2(comparison.differences == 0, qPrintable(comparison.first));
        QCOMPARE(comparison.numbers, qint64(1000000));
    }

    void neighboursOfTiesAgreeWithQt()
    {
        tcComparison comparison;
        for (int odd = 1; odd < 200000; odd += 2) {
            comparison.add(std::nextafter(odd / 16.0, 0.0));
            comparison.add(std::nextafter(odd / 16.0, 1e9));
            comparison.add(odd / 2000.0);
        }
        QVERIFY2(comparison.differences == 0, qPrintable(comparison.first));
    }

    void randomNumbersAgreeWithQt()
    {
        std::mt19937_64 random(20261115);
        std::uniform_real_distribution<double> reading(-500.0, 500.0);
        std::uniform_int_distribution<int> exponent(-20, 60);
        std::uniform_real_distribution<double> mantissa(-2.0, 2.0);
        tcComparison comparison;
        for (int i = 0; i < 500000; ++i) {
            comparison.add(reading(random));
            comparison.add(std::ldexp(mantissa(random), exponent(random)));
        }
        QVERIFY2(comparison.differences == 0, qPrintable(comparison.first));
    }

    void anyBitsAgreeWithQt()
    {
        std::mt19937_64 random(7);
        tcComparison comparison;
        for (int i = 0; i < 200000; ++i) {
            const quint64 bits = random();
            double number = 0;
            std::memcpy(&number, &bits, sizeof number);
            comparison.add(number);
        }
        QVERIFY2(comparison.differences == 0, qPrintable(comparison.first));
    }

    void integers_data()
    {
        QTest::addColumn<qint64>("number");
        QTest::newRow("zero") << qint64(0);
        QTest::newRow("one digit") << qint64(7);
        QTest::newRow("two digits") << qint64(10);
        QTest::newRow("three digits") << qint64(100);
        QTest::newRow("a time stamp") << qint64(1731681000000);
        QTest::newRow("before 1970") << qint64(-1);
        QTest::newRow("largest") << std::numeric_limits<qint64>::max();
        QTest::newRow("smallest") << std::numeric_limits<qint64>::min();
    }

    void integers()
    {
        QFETCH(qint64, number);
        QCOMPARE(integer(number), QByteArray::number(number));
    }

    void readingAgreesWithQt_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("quick");
        QTest::newRow("integer") << QByteArray("21") << true;
        QTest::newRow("fixed") << QByteArray("21.500") << true;
        QTest::newRow("negative") << QByteArray("-0.063") << true;
        QTest::newRow("minus zero") << QByteArray("-0.000") << true;
        QTest::newRow("no digit before the point") << QByteArray(".5") << true;
        QTest::newRow("no digit behind it") << QByteArray("5.") << true;
        QTest::newRow("seventeen digits") << QByteArray("0.30000000000000004") << false;
        QTest::newRow("nineteen digits") << QByteArray("1234567890123456789") << false;
        QTest::newRow("exponent") << QByteArray("1.5e3") << false;
        QTest::newRow("plus") << QByteArray("+1") << false;
        QTest::newRow("blanks") << QByteArray(" 1.5 ") << false;
        QTest::newRow("not a number") << QByteArray("nan") << false;
        QTest::newRow("infinity") << QByteArray("-inf") << false;
        QTest::newRow("beyond the range") << QByteArray("1e400") << false;
        QTest::newRow("too small") << QByteArray("1e-400") << false;
        QTest::newRow("quoted") << QByteArray("\"1\"") << false;
        QTest::newRow("hexadecimal") << QByteArray("0x10") << false;
        QTest::newRow("sign alone") << QByteArray("-") << false;
        QTest::newRow("point alone") << QByteArray(".") << false;
        QTest::newRow("nothing") << QByteArray("") << false;
        QTest::newRow("a zero byte") << QByteArray("1\0002", 3) << false;
    }

    void readingAgreesWithQt()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, quick);
        bool ok = false;
        const double expected
            = QString::fromLatin1(text.constData(), text.size()).toDouble(&ok);
        double scanned = 0;
        const char* stop = tcNumberText::scanDecimal(text.constData(), scanned);
        const bool whole = stop && stop == text.constData() + text.size();
        QCOMPARE(whole, quick);
        if (whole)
            QVERIFY(ok && sameBits(scanned, expected));
        double parsed = 77;
        QCOMPARE(tcNumberText::parseDecimal(text, parsed), ok);
        QVERIFY(!ok ? parsed == 77 : sameBits(parsed, expected));
    }

    void everyWrittenNumberIsReadAsQtReadsIt()
    {
        std::mt19937_64 random(3);
        std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
        std::uniform_int_distribution<int> scale(0, 14);
        for (int i = 0; i < 250000; ++i) {
            const QByteArray text = fixed3(mantissa(random) * std::pow(10.0, scale(random)));
            double read = 0;
            const char* stop = tcNumberText::scanDecimal(text.constData(), read);
            if (!stop)
                continue;
            QVERIFY(stop == text.constData() + text.size());
            if (!sameBits(read, QString::fromLatin1(text.constData(), text.size()).toDouble()))
                QFAIL(text.constData());
        }
    }

    void integersAreReadAsQtReadsThem_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("quick");
        QTest::newRow("a time stamp") << QByteArray("1731681000000") << true;
        QTest::newRow("negative") << QByteArray("-5") << true;
        QTest::newRow("leading zeros") << QByteArray("007") << true;
        QTest::newRow("largest") << QByteArray("9223372036854775807") << false;
        QTest::newRow("one more") << QByteArray("9223372036854775808") << false;
        QTest::newRow("smallest") << QByteArray("-9223372036854775808") << false;
        QTest::newRow("plus") << QByteArray("+5") << false;
        QTest::newRow("blanks") << QByteArray(" 5 ") << false;
        QTest::newRow("fraction") << QByteArray("5.0") << false;
        QTest::newRow("exponent") << QByteArray("1e3") << false;
        QTest::newRow("nothing") << QByteArray("") << false;
    }

    void integersAreReadAsQtReadsThem()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, quick);
        bool ok = false;
        const qint64 expected
            = QString::fromLatin1(text.constData(), text.size()).toLongLong(&ok);
        qint64 scanned = 0;
        const char* stop = tcNumberText::scanInteger(text.constData(), scanned);
        const bool whole = stop && stop == text.constData() + text.size();
        QCOMPARE(whole, quick);
        if (whole)
            QCOMPARE(scanned, expected);
        qint64 parsed = 77;
        QCOMPARE(tcNumberText::parseInteger(text, parsed), ok);
        QCOMPARE(parsed, ok ? expected : qint64(77));
    }
};

QTEST_APPLESS_MAIN(tst_NumberText)
#include "tst_numbertext.moc"

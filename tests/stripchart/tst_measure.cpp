#include "stripchart/logic/tcMeasure.h"

#include <QVector>
#include <QtTest>

#include <cmath>
#include <limits>

namespace
{
constexpr double cNan = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

std::optional<double> valueAt(const QVector<QPointF>& acSamples, double anTime)
{
    return tcMeasure::valueAt(
        acSamples.size(), [&](int anIndex) { return acSamples.at(anIndex); }, anTime);
}
} // namespace

class tst_Measure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueBetweenSamples_data();
    void valueBetweenSamples();
    void nothingToRead_data();
    void nothingToRead();
    void clockPutBack();
    void looksAtFewSamplesOfMany();
    void valueTexts_data();
    void valueTexts();
    void changeTexts();
    void durationTexts_data();
    void durationTexts();
};

void tst_Measure::valueBetweenSamples_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("value");
    QTest::newRow("on the first sample") << 100.0 << 1.0;
    QTest::newRow("on a sample") << 200.0 << 3.0;
    QTest::newRow("on the last sample") << 400.0 << -1.0;
    QTest::newRow("half way") << 150.0 << 2.0;
    QTest::newRow("a quarter of a long way") << 250.0 << 2.0;
    QTest::newRow("before the end") << 399.0 << -0.98;
}

void tst_Measure::valueBetweenSamples()
{
    QFETCH(double, time);
    QFETCH(double, value);
    const auto read = valueAt({{100, 1}, {200, 3}, {400, -1}}, time);
    QVERIFY(read.has_value());
    QCOMPARE(*read, value);
}

void tst_Measure::nothingToRead_data()
{
    QTest::addColumn<QVector<QPointF>>("samples");
    QTest::addColumn<double>("time");
    const QVector<QPointF> two{{100, 1}, {200, 3}};
    QTest::newRow("no sample") << QVector<QPointF>() << 1.0;
    QTest::newRow("before the first") << two << 99.0;
    QTest::newRow("after the last") << two << 201.0;
    QTest::newRow("beside the only one") << QVector<QPointF>{{100, 1}} << 101.0;
    QTest::newRow("at no time") << two << cNan;
    QTest::newRow("next to a value that is none")
        << QVector<QPointF>{{100, 1}, {200, cNan}} << 150.0;
    QTest::newRow("next to an infinity")
        << QVector<QPointF>{{100, cInfinity}, {200, 1}} << 150.0;
    QTest::newRow("on a value that is none")
        << QVector<QPointF>{{100, 1}, {200, cNan}, {300, 2}} << 200.0;
    QTest::newRow("times that are none") << QVector<QPointF>{{cNan, 1}, {cNan, 2}} << 1.0;
}

void tst_Measure::nothingToRead()
{
    QFETCH(QVector<QPointF>, samples);
    QFETCH(double, time);
    QVERIFY(!valueAt(samples, time));
}

void tst_Measure::clockPutBack()
{
    // 150 passed twice: either is right, anything else is not.
    const auto read = valueAt({{100, 1}, {200, 2}, {120, 10}, {220, 20}}, 150.0);
    QVERIFY(read.has_value());
    QVERIFY(*read == 1.5 || *read == 13.0);
}

void tst_Measure::looksAtFewSamplesOfMany()
{
    int looks = 0;
    const auto read = tcMeasure::valueAt(
        10000000,
        [&looks](int anIndex) {
            ++looks;
            return QPointF(anIndex * 2.0, anIndex);
        },
        9999999.0);
    QCOMPARE(read.value_or(0.0), 4999999.5);
    QVERIFY2(looks <= 30, qPrintable(QString::number(looks)));
}

void tst_Measure::valueTexts_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("three decimals") << 21.5 << "21.500";
    QTest::newRow("zero") << 0.0 << "0.000";
    QTest::newRow("negative") << -3.25 << "-3.250";
    QTest::newRow("small") << 0.00042 << "0.00042";
    QTest::newRow("tiny") << -1.5e-9 << "-1.5e-09";
    QTest::newRow("large") << 1.25e12 << "1.25e+12";
    QTest::newRow("none") << cNan << QStringLiteral("\u2013");
}

void tst_Measure::valueTexts()
{
    QFETCH(double, value);
    QTEST(tcMeasure::valueText(value), "text");
}

void tst_Measure::changeTexts()
{
    QCOMPARE(tcMeasure::changeText(1.5), QStringLiteral("+1.500"));
    QCOMPARE(tcMeasure::changeText(-1.5), QStringLiteral("-1.500"));
    QCOMPARE(tcMeasure::changeText(0.0), QStringLiteral("0.000"));
    QCOMPARE(tcMeasure::changeText(cNan), QStringLiteral("\u2013"));
}

void tst_Measure::durationTexts_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << qint64(0) << "0.000 s";
    QTest::newRow("seconds") << qint64(12345) << "12.345 s";
    QTest::newRow("below a minute") << qint64(59999) << "59.999 s";
    QTest::newRow("minutes") << qint64(185000) << "3:05.000 min";
    QTest::newRow("below an hour") << qint64(3599999) << "59:59.999 min";
    QTest::newRow("hours") << qint64(7385001) << "2:03:05.001 h";
    QTest::newRow("days") << qint64(360000000) << "100:00:00.000 h";
}

void tst_Measure::durationTexts()
{
    QFETCH(qint64, ms);
    QTEST(tcMeasure::durationText(ms), "text");
}

QTEST_GUILESS_MAIN(tst_Measure)
#include "tst_measure.moc"

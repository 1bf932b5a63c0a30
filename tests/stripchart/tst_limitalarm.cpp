#include "stripchart/tcLimitAlarm.h"
#include "stripchart/tcLimitsDialog.h"
#include "stripchart/tcStripLegend.h"
#include "tests/stripchart/tcChartProbe.h"

#include <QCheckBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QtTest>

namespace
{
/// A chart whose limits are set as the operator does it: in the dialog.
struct tcWatchedChart : tcChartProbe
{
    tcWatchedChart() : told(chart.get(), &tcStripChart::limitCrossed)
    {
        a = curve("A");
        key = chart->addCurve(a.get());
        show();
    }
    tcLimitsDialog* open()
    {
        own("Limits...")->trigger();
        return chart->findChild<tcLimitsDialog*>();
    }
    template <class T>
    T* named(const char* apName)
    {
        for (T* each : chart->findChild<tcLimitsDialog*>()->findChildren<T*>())
            if (each->accessibleName() == QLatin1String(apName))
                return each;
        return nullptr;
    }
    void setUpper(double anLimit)
    {
        open();
        named<QDoubleSpinBox>("Upper limit of A")->setValue(anLimit);
        named<QCheckBox>("Watch the upper limit of A")->setChecked(true);
    }
    bool isColoured()
    {
        const auto* entry = qobject_cast<tcLegendLabel*>(label(a.get()));
        return entry && entry->isAlarm();
    }
    QString lastTold() const
    {
        return told.isEmpty() ? QString() : told.last().at(0).toString();
    }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
    QSignalSpy told;
};
} // namespace

class tst_LimitAlarm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offByDefault();
    void proposalAlarmsNobody();
    void limitCountsWhenItIsTyped();
    void readingThroughTheChart();
    void readingStraightIntoTheCurve();
    void backWithinItsLimits();
    void newestReadingIsJudgedAtOnce();
    void switchedOff();
    void nothingRunsWithoutLimits();
    void readingsOfALoadedFileAreNotWatched();
    void curveOfTheNextStart();
    void renamedCurveTakesItsLimitsAlong();
    void curveGoesWhileTheDialogIsOpen();
    void noCurves();
    void chartDestroyedWhileTheDialogIsOpen();
};

void tst_LimitAlarm::offByDefault()
{
    tcWatchedChart probe;
    probe.open();
    for (const QCheckBox* box : probe.open()->findChildren<QCheckBox*>())
        QVERIFY(!box->isChecked());
}

void tst_LimitAlarm::proposalAlarmsNobody()
{
    tcWatchedChart probe;
    probe.a->addSample(probe.cNow, 10.25);
    probe.a->addSample(probe.cNow + 1000, 14.5);
    probe.a->addSample(probe.cNow + 2000, qQNaN());
    probe.open();
    QCOMPARE(probe.named<QDoubleSpinBox>("Lower limit of A")->value(), 10.0);
    QCOMPARE(probe.named<QDoubleSpinBox>("Upper limit of A")->value(), 15.0);
    probe.named<QCheckBox>("Watch the lower limit of A")->setChecked(true);
    probe.named<QCheckBox>("Watch the upper limit of A")->setChecked(true);
    QVERIFY(probe.told.isEmpty());
    probe.a->addSample(probe.cNow + 3000, 15.5);
    QTRY_COMPARE(probe.told.size(), 1);
}

void tst_LimitAlarm::limitCountsWhenItIsTyped()
{
    tcWatchedChart probe;
    probe.a->addSample(probe.cNow, 10.25);
    probe.setUpper(20.0);
    auto* upper = probe.named<QDoubleSpinBox>("Upper limit of A");
    upper->selectAll();
    QTest::keyClicks(upper, "12"); // the 1 alone would be crossed
    QVERIFY(probe.told.isEmpty());
    QTest::keyClick(upper, Qt::Key_Return);
    probe.a->addSample(probe.cNow + 1000, 12.5);
    QTRY_COMPARE(probe.told.size(), 1);
    QVERIFY(probe.lastTold().contains("above the upper limit of 12.000"));
}

void tst_LimitAlarm::readingThroughTheChart()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.chart->updateData(probe.key, 0, probe.cNow, 31.25);
    QTRY_COMPARE(probe.told.size(), 1);
    QCOMPARE(probe.lastTold(),
             QStringLiteral("A: 31.250 is above the upper limit of 30.000, at 23:13:20.000"));
    QVERIFY(probe.isColoured());
}

void tst_LimitAlarm::readingStraightIntoTheCurve()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.a->addSample(probe.cNow, 31.25);
    QTRY_COMPARE(probe.told.size(), 1);
}

void tst_LimitAlarm::backWithinItsLimits()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.a->addSample(probe.cNow, 31.25);
    probe.a->addSample(probe.cNow + 1000, 29.75); // not by the hysteresis of a half
    probe.a->addSample(probe.cNow + 2000, 29.25);
    QTRY_COMPARE(probe.told.size(), 2);
    QCOMPARE(probe.lastTold(),
             QStringLiteral("A: 29.250 is within its limits again, at 23:13:22.000"));
    QVERIFY(!probe.isColoured());
}

void tst_LimitAlarm::newestReadingIsJudgedAtOnce()
{
    tcWatchedChart probe;
    probe.a->addSample(probe.cNow, 40.0);
    probe.a->addSample(probe.cNow + 1000, 35.0);
    probe.setUpper(30.0);
    QVERIFY(probe.lastTold().startsWith(QLatin1String("A: 35.000 is above")));
    QVERIFY(probe.isColoured());
}

void tst_LimitAlarm::switchedOff()
{
    tcWatchedChart probe;
    probe.a->addSample(probe.cNow, 40.0);
    probe.setUpper(30.0);
    const int before = probe.told.size();
    probe.named<QCheckBox>("Watch the upper limit of A")->setChecked(false);
    QVERIFY(!probe.isColoured());
    QCOMPARE(probe.told.size(), before);
}

void tst_LimitAlarm::nothingRunsWithoutLimits()
{
    tcWatchedChart probe;
    int looks = 0;
    tcLimitAlarm alarm(*probe.plot, *probe.legend, [&looks] { return ++looks > 0; });
    alarm.setLimits("A", {std::nullopt, 30.0});
    QTRY_VERIFY(looks >= 2);
    alarm.setLimits("A", {});
    looks = 0;
    QTest::qWait(600);
    QCOMPARE(looks, 0);
}

void tst_LimitAlarm::readingsOfALoadedFileAreNotWatched()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write("t,A\n5000,40\n");
    file.close();
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.chart->loadCsvFile(file.fileName());
    QCOMPARE(probe.chart->curves().size(), 1);
    probe.chart->updateData(probe.key, 0, probe.cNow, 31.0); // goes on behind the file
    QTRY_VERIFY(!probe.told.isEmpty());
    QCOMPARE(probe.told.size(), 1);
    QVERIFY(probe.lastTold().startsWith(QLatin1String("A: 31.000 is above")));
}

void tst_LimitAlarm::curveOfTheNextStart()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.a = probe.curve("A");
    probe.key = probe.chart->addCurve(probe.a.get());
    probe.chart->updateData(probe.key, 0, probe.cNow, 31.0);
    QTRY_COMPARE(probe.told.size(), 1);
}

void tst_LimitAlarm::renamedCurveTakesItsLimitsAlong()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.a->setTitle(QStringLiteral("Cold finger"));
    probe.a->addSample(probe.cNow, 31.0);
    QTRY_COMPARE(probe.told.size(), 1);
    QVERIFY(probe.lastTold().startsWith(QLatin1String("Cold finger: ")));
}

void tst_LimitAlarm::curveGoesWhileTheDialogIsOpen()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    probe.a.reset();
    probe.named<QDoubleSpinBox>("Upper limit of A")->setValue(20.0);
    QVERIFY(probe.told.isEmpty());
}

void tst_LimitAlarm::noCurves()
{
    tcWatchedChart probe;
    probe.a.reset();
    QVERIFY(probe.open());
}

void tst_LimitAlarm::chartDestroyedWhileTheDialogIsOpen()
{
    tcWatchedChart probe;
    probe.setUpper(30.0);
    const QPointer<tcLimitsDialog> dialog = probe.open();
    probe.chart.reset();
    QVERIFY(!dialog);
}

QTEST_MAIN(tst_LimitAlarm)
#include "tst_limitalarm.moc"

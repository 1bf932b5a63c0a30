#include "stripchart/tcStripCurve.h"
#include "tests/camera/tcChartOperator.h"
#include "tests/camera/tcPanelRig.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QListWidget>

/// A reading's way from the camera over the chart and its limits into the panel's log view.
class tst_LimitLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void crossingIsLoggedWithItsTime();
    void noLimitsNoLines();
    void noiseAboutTheLimitIsOneCrossing();
    void bellRingsWhenAsked();
    void bellIsSilentUnlessAsked();
    void oneBellForManyReadings();
    void externalSourceIsWatchedToo();
    void panelGoesWithACrossingUntold();

private:
    void plot();
    void watch(double anLimit, bool abBell);
    void read(const char* acValue)
    {
        mRig->panel.handleReply(QStringLiteral("<SENS 1><ACK><%1>").arg(acValue));
    }
    int logged(const char* acText) const { return mRig->log().count(QLatin1String(acText)); }

    std::unique_ptr<tcPanelRig> mRig;
    std::unique_ptr<tcScriptedDialogs> mDialogs;
    tcStripChart* mChart = nullptr;
};

void tst_LimitLog::init()
{
    tcFakeSerial::instance().reset();
    mDialogs = std::make_unique<tcScriptedDialogs>();
    mRig = std::make_unique<tcPanelRig>();
    mRig->open();
    plot();
}

void tst_LimitLog::cleanup()
{
    mRig.reset();
    mDialogs.reset();
}

void tst_LimitLog::plot()
{
    mRig->find<QListWidget>("sensorsLW")->item(0)->setCheckState(Qt::Checked);
    mRig->button("tempsPB")->click();
    mChart = tcChartOperator::shownChart();
    QVERIFY(mChart);
}

void tst_LimitLog::watch(double anLimit, bool abBell)
{
    tcLimitsDialog* dialog = tcChartOperator::openLimits(*mChart);
    QVERIFY(dialog);
    tcChartOperator::switchBell(*dialog, abBell);
    tcChartOperator::setUpperLimit(*dialog, QStringLiteral("Sensor Temperature "), anLimit);
}

void tst_LimitLog::crossingIsLoggedWithItsTime()
{
    watch(30.0, false);
    const QTime before = QTime::currentTime();
    read("31.25");
    const QTime after = QTime::currentTime();
    QTRY_COMPARE(logged("Sensor Temperature: 31.250 is above the upper limit of 30.000, at "),
                 1);
    static const QRegularExpression line(
        QStringLiteral("at (\\d\\d:\\d\\d:\\d\\d\\.\\d{3})\\n"));
    const QTime told = QTime::fromString(line.match(mRig->log()).captured(1), "HH:mm:ss.zzz");
    QVERIFY(told.isValid());
    // Of the reading, not of the look at it; and midnight may have passed meanwhile.
    QVERIFY((before <= told && told <= after) || after < before);
    read("29.00");
    QTRY_COMPARE(logged("Sensor Temperature: 29.000 is within its limits again, at "), 1);
}

void tst_LimitLog::noLimitsNoLines()
{
    read("31.25");
    read("-300.0");
    mRig->button("clearPB")->click();
    watch(1000.0, true);
    read("31.25");
    // A crossing told later shows that all before it has been looked at.
    read("1001.0");
    QTRY_COMPARE(logged("Sensor Temperature: 1001.000 is above"), 1);
    QCOMPARE(logged("31.250"), 0);
    QCOMPARE(logged("within"), 0);
}

void tst_LimitLog::noiseAboutTheLimitIsOneCrossing()
{
    watch(30.0, true);
    for (const char* value : {"30.10", "29.90", "30.20", "29.51", "30.40", "29.60"})
        read(value);
    QTRY_COMPARE(logged("is above the upper limit"), 1);
    QCOMPARE(logged("within its limits"), 0);
    read("29.49"); // farther than the hysteresis of a half
    QTRY_COMPARE(logged("within its limits"), 1);
    QCOMPARE(logged("is above the upper limit"), 1);
    QCOMPARE(mDialogs->bells, 1);
}

void tst_LimitLog::bellRingsWhenAsked()
{
    watch(30.0, true);
    read("31.25");
    QTRY_COMPARE(mDialogs->bells, 1);
    QTRY_COMPARE(logged("is above"), 1);
    read("29.00");
    QTRY_COMPARE(logged("within its limits"), 1);
    QCOMPARE(mDialogs->bells, 1); // to be back is no alarm
    read("32.00");
    QTRY_COMPARE(mDialogs->bells, 2);
}

void tst_LimitLog::bellIsSilentUnlessAsked()
{
    watch(30.0, false);
    read("31.25");
    QTRY_COMPARE(logged("is above"), 1);
    QCOMPARE(mDialogs->bells, 0);
    QVERIFY(mDialogs->asked.isEmpty()); // no box either
}

void tst_LimitLog::oneBellForManyReadings()
{
    watch(30.0, true);
    for (int crossing = 0; crossing < 20; ++crossing) {
        read("31.00");
        read("29.00");
    }
    QTRY_COMPARE(logged("is above"), 20);
    QCOMPARE(mDialogs->bells, 1);
}

void tst_LimitLog::externalSourceIsWatchedToo()
{
    tcStripCurve* curve = mChart->curves().at(0);
    watch(30.0, false);
    curve->addSample(double(QDateTime::currentMSecsSinceEpoch()), 31.5); // as a source does
    QTRY_COMPARE(logged("Sensor Temperature: 31.500 is above"), 1);
}

void tst_LimitLog::panelGoesWithACrossingUntold()
{
    watch(30.0, true);
    read("31.25");
    mRig.reset();
    QCoreApplication::processEvents();
    QCOMPARE(mDialogs->bells, 0);
}

QTEST_MAIN(tst_LimitLog)
#include "tst_limitlog.moc"

#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "tests/camera/tcChartOperator.h"
#include "tests/camera/tcVirtualRig.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QImage>
#include <QListWidget>
#include <QMap>
#include <QTest>
#include <qwt_plot.h>

#include <cmath>

/// The whole way of a reading: the temperature-controlled virtual camera is cooled, the chart
/// shows its sensor settling on the set point, and what was measured is logged, saved, loaded
/// back and pictured.
class tst_Settling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sensorSettlesOnTheSetPoint();

private:
    static const tcStripMarker* setPoint(const tcStripChart& acChart);
    /// Readings of one millisecond share a row, in which the later one stands.
    static QMap<qint64, double> readings(const tcStripCurve& acCurve);
    static void compareSaved(const tcStripCurve& acLive, const tcStripCurve& acLoaded);
    static void compareLogged(const tcStripCurve& acLive, const tcStripCurve& acLoaded);
};

void tst_Settling::initTestCase()
{
    tcVirtualRig::chooseFaults("");
    // An hour of the camera's life takes some four seconds.
    qputenv("CLALLSERIAL_VIRTUAL_SPEED", "900");
}

const tcStripMarker* tst_Settling::setPoint(const tcStripChart& acChart)
{
    const auto* plot = acChart.findChild<QwtPlot*>("qwtPlot");
    for (const QwtPlotItem* item : plot->itemList(QwtPlotItem::Rtti_PlotMarker)) {
        const auto* marker = dynamic_cast<const tcStripMarker*>(item);
        if (marker && marker->name() == "Set Point")
            return marker;
    }
    return nullptr;
}

QMap<qint64, double> tst_Settling::readings(const tcStripCurve& acCurve)
{
    QMap<qint64, double> found;
    for (size_t index = 0; index < acCurve.dataSize(); ++index)
        found.insert(qint64(acCurve.sample(index).x()), acCurve.sample(index).y());
    return found;
}

void tst_Settling::compareSaved(const tcStripCurve& acLive, const tcStripCurve& acLoaded)
{
    const QMap<qint64, double> live = readings(acLive);
    QCOMPARE(int(acLoaded.dataSize()), live.size());
    for (size_t index = 0; index < acLoaded.dataSize(); ++index) {
        const QPointF sample = acLoaded.sample(index);
        QVERIFY(live.contains(qint64(sample.x())));
        QVERIFY(std::abs(live.value(qint64(sample.x())) - sample.y()) <= 0.0005);
    }
}

/// Nothing of what the curve holds is missing; the log may hold older readings besides.
void tst_Settling::compareLogged(const tcStripCurve& acLive, const tcStripCurve& acLoaded)
{
    const QMap<qint64, double> logged = readings(acLoaded);
    const QMap<qint64, double> live = readings(acLive);
    QVERIFY(!live.isEmpty());
    for (auto reading = live.begin(); reading != live.end(); ++reading) {
        QVERIFY2(logged.contains(reading.key()), qPrintable(QString::number(reading.key())));
        QVERIFY(std::abs(logged.value(reading.key()) - reading.value()) <= 0.0005);
    }
}

void tst_Settling::sensorSettlesOnTheSetPoint()
{
    tcVirtualRig rig("Virtual K20 (Temp controlled)");
    // The thermistor is what the cooler holds; the sensor above it stays a little warmer.
    for (const int row : {0, 2})
        rig.find<QListWidget>("sensorsLW")->item(row)->setCheckState(Qt::Checked);
    rig.find<QPushButton>("tempsPB")->click();
    tcStripChart* chart = tcChartOperator::shownChart();
    QVERIFY(chart);
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    const QString log = folder.filePath("log.csv");
    dialogs.fileAnswer = log;
    chart->logAction()->setChecked(true);
    QVERIFY(chart->logAction()->isChecked());
    const tcStripCurve* sensor = chart->curves().at(0);
    const tcStripCurve* curve = chart->curves().at(1);
    rig.panel.tempTimerCallback();
    QTRY_VERIFY(curve->dataSize() > 0);

    rig.send("STEC 10.0");
    QTRY_VERIFY(rig.log().contains("<STEC 10.0><ACK>"));
    rig.send("COOL 1");
    QTRY_VERIFY(rig.log().contains("<COOL 1><ACK>"));
    rig.send("GTEC");
    QTRY_COMPARE(setPoint(*chart)->yValue(), 10.0);
    QCOMPARE(setPoint(*chart)->linePen().style(), Qt::SolidLine);

    const auto settled = [&] {
        rig.panel.tempTimerCallback(); // polled faster than an operator would
        const size_t count = curve->dataSize();
        for (size_t back = 1; back <= 20; ++back) {
            if (count < 40 || std::abs(curve->sample(count - back).y() - 10.0) > 0.3)
                return false;
        }
        return true;
    };
    QTRY_VERIFY_WITH_TIMEOUT(settled(), 60000);
    QVERIFY(curve->sample(0).y() > 15.0); // it came from the warmth of the housing
    QVERIFY(std::abs(sensor->sample(sensor->dataSize() - 1).y() - 10.0) < 1.5);
    rig.find<QPushButton>("tempsPB")->click();

    chart->tick(); // writes the last rows of the log
    chart->logAction()->setChecked(false);
    dialogs.fileAnswer = folder.filePath("settling.csv");
    chart->slotSave();
    tcStripChart loaded;
    loaded.loadCsvFile(dialogs.fileAnswer);
    QCOMPARE(loaded.curves().size(), 2);
    for (int index = 0; index < 2; ++index) {
        const tcStripCurve* live = chart->curves().at(index);
        QCOMPARE(loaded.curves().at(index)->title().text(), live->title().text());
        compareSaved(*live, *loaded.curves().at(index));
    }

    tcStripChart fromLog;
    fromLog.loadCsvFile(log);
    QCOMPARE(fromLog.curves().size(), 2);
    for (int index = 0; index < 2; ++index) {
        const tcStripCurve* live = chart->curves().at(index);
        QCOMPARE(fromLog.curves().at(index)->title().text(), live->title().text());
        compareLogged(*live, *fromLog.curves().at(index));
    }

    const QString picture = folder.filePath("settling.png");
    chart->savePicture(picture);
    QVERIFY(!QImage(picture).isNull());
}

QTEST_MAIN(tst_Settling)
#include "tst_settling.moc"

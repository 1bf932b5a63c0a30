#include "stripchart/tcStripCurve.h"
#include "tests/camera/tcChartOperator.h"
#include "tests/camera/tcVirtualRig.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QFile>
#include <QListWidget>
#include <QTest>
#include <qwt_text.h>

/// A recorded day lived through again: the virtual camera of the library that ships reads a
/// chart's file, and the panel polls, plots, watches and saves as on the day itself.
class tst_Replayed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void panelLivesThroughTheRecord();

private:
    QTemporaryDir mFolder;
};

void tst_Replayed::initTestCase()
{
    QFile file(mFolder.filePath("cooler.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    // Ten minutes, which take 0.6 s.
    file.write("ms since epoch,Sensor Temperature ,Thermistor Temperature ,\n"
               "1700000000000,20.500,19.250\n"
               "1700000600000,33.750,\n");
    file.close();
    tcVirtualRig::chooseFaults("");
    qputenv("CLALLSERIAL_VIRTUAL_REPLAY", QFile::encodeName(file.fileName()));
    qputenv("CLALLSERIAL_VIRTUAL_SPEED", "1000");
}

void tst_Replayed::panelLivesThroughTheRecord()
{
    tcVirtualRig rig("Virtual K20 (Temp controlled)");
    tcScriptedDialogs dialogs;
    for (const int row : {0, 1, 2})
        rig.find<QListWidget>("sensorsLW")->item(row)->setCheckState(Qt::Checked);
    rig.find<QPushButton>("tempsPB")->click();
    tcStripChart* chart = tcChartOperator::shownChart();
    QVERIFY(chart);
    tcLimitsDialog* dialog = tcChartOperator::openLimits(*chart);
    QVERIFY(dialog);
    tcChartOperator::switchBell(*dialog, true);
    tcChartOperator::setUpperLimit(*dialog, "Sensor Temperature ", 30.0);

    const tcStripCurve& sensor = *chart->curves().at(0);
    const tcStripCurve& board = *chart->curves().at(1);
    const tcStripCurve& thermistor = *chart->curves().at(2);
    const auto last = [](const tcStripCurve& acCurve) {
        const size_t count = acCurve.dataSize();
        return count == 0 ? 0.0 : acCurve.sample(count - 1).y();
    };
    rig.panel.tempTimerCallback();
    QTRY_COMPARE(last(sensor), 20.5);
    const auto polled = [&] {
        rig.panel.tempTimerCallback(); // polled faster than an operator would
        return last(sensor);
    };
    QTRY_COMPARE(polled(), 33.75);
    for (size_t i = 0; i < sensor.dataSize(); ++i)
        QVERIFY(sensor.sample(i).y() == 20.5 || sensor.sample(i).y() == 33.75);
    QTRY_COMPARE(last(thermistor), 19.25);
    QTRY_VERIFY(last(board) > 15.0 && last(board) < 30.0); // not in the file: the model's
    QTRY_VERIFY(rig.log().contains(
        "Sensor Temperature: 33.750 is above the upper limit of 30.000, at "));
    QCOMPARE(dialogs.bells, 1);
}

QTEST_MAIN(tst_Replayed)
#include "tst_replayed.moc"

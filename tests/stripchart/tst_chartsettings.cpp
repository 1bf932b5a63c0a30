#include "stripchart/PrecisionScaleDraw.h"
#include "stripchart/tcChartSettings.h"
#include "tests/stripchart/tcFilesProbe.h"

#include <QSettings>

class tst_ChartSettings : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;

    QSettings& stored()
    {
        mSettings
            = std::make_unique<QSettings>(mProbe->path("settings.ini"), QSettings::IniFormat);
        return *mSettings;
    }
    std::unique_ptr<QSettings> mSettings;

    static int leftPrecision(const tcChartProbe& acProbe)
    {
        const auto* draw = dynamic_cast<const PrecisionScaleDraw*>(
            acProbe.plot->axisScaleDraw(QwtPlot::yLeft));
        return draw ? draw->precision() : -1;
    }

private Q_SLOTS:
    void init() { mProbe = std::make_unique<tcFilesProbe>(); }
    void cleanup()
    {
        mSettings.reset();
        mProbe.reset();
    }

    void groupIsExtendedByTheName()
    {
        QCOMPARE(tcChartSettings::group(""), QString("tcStripChart"));
        QCOMPARE(tcChartSettings::group("Sensors"), QString("tcStripChart_Sensors"));
    }

    void closingStoresGeometryPrecisionActionsAndBoxes()
    {
        mProbe->chart->close();
        QSettings& settings = stored();
        settings.beginGroup("tcStripChart_Cam:1");
        settings.beginGroup("T");
        QVERIFY(!settings.value("Geometry").toByteArray().isEmpty());
        QCOMPARE(settings.value("ReportPrecision").toInt(), 3);
        for (const char* name :
             {"actionGrid", "actionMinor_Grid", "actionShow_X_Axis", "actionShow_ms",
              "actionShow_Left", "actionShow_Min_Max_Markers", "spinBoxSpanSec",
              "spinBoxSamples", "doubleSpinBoxYMin", "doubleSpinBoxYMax", "doubleSpinBoxY2Min",
              "doubleSpinBoxY2Max"})
            QVERIFY2(settings.contains(name), name);
        QVERIFY(!settings.contains("actionPause_Updates"));
        QCOMPARE(settings.childKeys().size(), 2 + 12);
    }

    void stateComesBackUnderTheSameName()
    {
        mProbe->action("actionShow_ms")->setChecked(true);
        mProbe->action("actionMinor_Grid")->setChecked(true);
        mProbe->child<QSpinBox>("spinBoxSamples")->setValue(5000);
        mProbe->child<QSpinBox>("spinBoxSpanSec")->setValue(60);
        mProbe->box("doubleSpinBoxYMin")->setValue(-5);
        mProbe->box("doubleSpinBoxYMax")->setValue(45);
        mProbe->chart->resize(777, 555);
        mProbe->chart->show();
        mProbe->chart->close();

        tcChartProbe again;
        again.chart->setChartName("Cam:1/T");
        QVERIFY(again.action("actionShow_ms")->isChecked());
        QVERIFY(again.action("actionMinor_Grid")->isChecked());
        QCOMPARE(again.child<QSpinBox>("spinBoxSamples")->value(), 5000);
        QCOMPARE(again.child<QSpinBox>("spinBoxSpanSec")->value(), 60);
        QCOMPARE(again.shown(QwtPlot::yLeft), QwtInterval(-5, 45));
        QCOMPARE(again.chart->size(), QSize(777, 555));

        tcChartProbe other;
        other.chart->setChartName("other");
        QVERIFY(!other.action("actionShow_ms")->isChecked());
    }

    void chartNamedByItsFirstCurveRestoresToo()
    {
        stored().setValue("tcStripChart_First/spinBoxSamples", 4321);
        stored().sync();
        tcChartProbe unnamed;
        const auto curve = unnamed.curve("First");
        unnamed.chart->addCurve(curve.get());
        QCOMPARE(unnamed.child<QSpinBox>("spinBoxSamples")->value(), 4321);
        QCOMPARE(curve->sampleCount(), 4321);
    }

    void pausingAndLoggingAreOfTheMoment()
    {
        stored().setValue("tcStripChart_x/actionPause_Updates", true);
        stored().sync();
        tcChartProbe again;
        again.chart->setChartName("x");
        QVERIFY(!again.chart->isPaused());
        QVERIFY(!again.chart->logAction()->isChecked());
    }

    void reportPrecisionIsKeptAndShown_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("shown");
        QTest::newRow("two") << QVariant(2) << 2;
        QTest::newRow("text") << QVariant("abc") << 3;
        QTest::newRow("negative") << QVariant(-1) << 3;
        QTest::newRow("far too many") << QVariant(100) << 3;
    }

    void reportPrecisionIsKeptAndShown()
    {
        QFETCH(QVariant, value);
        QFETCH(int, shown);
        stored().setValue("tcStripChart_x/ReportPrecision", value);
        stored().sync();
        tcChartProbe again;
        again.chart->setChartName("x");
        // Three stands for "as the range asks for".
        QCOMPARE(leftPrecision(again), shown == 3 ? leftPrecision(*mProbe) : shown);
        again.chart->close();
        QCOMPARE(stored().value("tcStripChart_x/ReportPrecision").toInt(), shown);
    }

    void brokenSettingsLeaveTheChartAsItIs()
    {
        mProbe->put("settings.ini",
                    QByteArray("[tcStripChart_x]\nGeometry=@ByteArray(xx)\n"
                               "spinBoxSamples=abc\nactionGrid=maybe\n"
                               "spinBoxSpanSec=@Invalid()\n\0\xff[[[\n",
                               110));
        tcChartProbe again;
        const int samples = again.child<QSpinBox>("spinBoxSamples")->value();
        const int span = again.child<QSpinBox>("spinBoxSpanSec")->value();
        again.chart->setChartName("x");
        QCOMPARE(again.child<QSpinBox>("spinBoxSamples")->value(), samples);
        QCOMPARE(again.child<QSpinBox>("spinBoxSpanSec")->value(), span);
    }
};

QTEST_MAIN(tst_ChartSettings)
#include "tst_chartsettings.moc"

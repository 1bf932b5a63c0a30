#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "tests/camera/tcChartOperator.h"
#include "tests/camera/tcPanelRig.h"
#include "tests/camera/tcScriptedSource.h"

#include <QListWidget>
#include <qwt_plot.h>

/// The sensor area as the panel wires it: what goes to the camera, what comes to the chart, and
/// what the log is told.
class tst_VexaK40Sensors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tcScriptedSource::registerType(); }
    void init() { tcFakeSerial::instance().reset(); }
    void cleanup() { QCOMPARE(tcFakeSerial::instance().misuse, QStringList()); }

    void plottingAsksForTheCooler();
    void coolerIsAskedBeforeAnythingStarts();
    void eachStartBringsTheChartToTheFront();
    void onlyAClickStartsPlotting();
    void withoutAPortNothingIsSent();
    void readingIsPlottedAndNotLogged();
    void onlyOneDigitReachesItsCurve();
    void sensorThatIsNotPolled();
    void simulatedReplyComesBeforeThePoll();
    void cooler_data();
    void cooler();
    void messagesOfSourcesAreLogged();
    void sourcesBelongToThePanel();

private:
    static void check(const tcPanelRig& acRig, int anRow)
    {
        acRig.find<QListWidget>("sensorsLW")->item(anRow)->setCheckState(Qt::Checked);
    }
    static void addScriptedSource(const tcPanelRig& acRig);
};

void tst_VexaK40Sensors::addScriptedSource(const tcPanelRig& acRig)
{
    auto* item = new QListWidgetItem("one Scripted");
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
    item->setData(Qt::UserRole, 0);
    item->setData(Qt::UserRole + 1, "one");
    item->setData(Qt::UserRole + 2, "Scripted");
    acRig.find<QListWidget>("sensorsLW")->addItem(item);
}

void tst_VexaK40Sensors::plottingAsksForTheCooler()
{
    tcPanelRig rig;
    rig.open();
    rig.button("tempsPB")->click();
    QCOMPARE(rig.line.writes(), QList<QByteArray>{"<GTEC>\n"});
    QCOMPARE(rig.log(), QString()); // what was sent is not logged
}

void tst_VexaK40Sensors::coolerIsAskedBeforeAnythingStarts()
{
    tcPanelRig rig;
    rig.open();
    addScriptedSource(rig);
    int startedBefore = -1;
    rig.line.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.bytes == "<GTEC>\n")
            startedBefore = tcScriptedSource::living.size();
    };
    rig.button("tempsPB")->click();
    rig.line.onCall = nullptr;
    QCOMPARE(startedBefore, 0);
    QCOMPARE(tcScriptedSource::living.size(), 1);
}

void tst_VexaK40Sensors::eachStartBringsTheChartToTheFront()
{
    class tcWatch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* apEvent) override
        {
            raised += apEvent->type() == QEvent::ZOrderChange ? 1 : 0;
            return false;
        }
        int raised = 0;
    };
    tcWatch watch;
    const tcPanelRig rig;
    rig.button("tempsPB")->click();
    QWidget* chart = tcChartOperator::shownChart();
    QVERIFY(chart);
    rig.button("tempsPB")->click();
    QVERIFY2(chart->isVisible(), "what was plotted can still be looked at");
    chart->installEventFilter(&watch);
    rig.button("tempsPB")->click();
    QCOMPARE(watch.raised, 1);
    rig.button("tempsPB")->click();
    chart->close();
    rig.button("tempsPB")->click();
    QVERIFY(chart->isVisible());
    QCOMPARE(watch.raised, 2);
}

void tst_VexaK40Sensors::onlyAClickStartsPlotting()
{
    tcPanelRig rig;
    rig.open();
    rig.button("tempsPB")->setChecked(true);
    QCOMPARE(rig.line.writes().size(), 0);
    QVERIFY(!tcChartOperator::shownChart());
}

void tst_VexaK40Sensors::withoutAPortNothingIsSent()
{
    tcPanelRig rig;
    check(rig, 0);
    rig.button("tempsPB")->click();
    rig.panel.tempTimerCallback();
    QCOMPARE(rig.line.calls.size(), 0);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Sensors::readingIsPlottedAndNotLogged()
{
    tcPanelRig rig;
    check(rig, 2);
    rig.button("tempsPB")->click();
    rig.panel.handleReply("<SENS 3><ACK><21.75>");
    const tcStripChart* chart = tcChartOperator::shownChart();
    QVERIFY(chart);
    QCOMPARE(int(chart->curves().at(0)->dataSize()), 1);
    QCOMPARE(chart->curves().at(0)->sample(0).y(), 21.75);
    QCOMPARE(rig.log(), QString());
    rig.panel.handleReply("<SENS 4><ACK><20.5>"); // nobody asked for that one
    QCOMPARE(int(chart->curves().at(0)->dataSize()), 1);
    QCOMPARE(rig.log(), QString());
    rig.button("tempsPB")->click();
    rig.panel.handleReply("<SENS 3><ACK><21.75>");
    QCOMPARE(int(chart->curves().at(0)->dataSize()), 1);
    QCOMPARE(rig.log(), QStringLiteral("<SENS 3><ACK><21.75>\n"));
}

// As designed: both are asked, but the reply of a sensor with two digits is no reading.
void tst_VexaK40Sensors::onlyOneDigitReachesItsCurve()
{
    tcPanelRig rig;
    check(rig, 0);
    check(rig, 11);
    rig.button("simSensorsPB")->setChecked(true);
    rig.open();
    rig.button("tempsPB")->click();
    rig.line.calls.clear();
    rig.panel.tempTimerCallback();
    QCOMPARE(rig.line.writes(), (QList<QByteArray>{"<SENS 1>\n", "<SENS 12>\n"}));
    for (int poll = 0; poll < 20; ++poll)
        rig.panel.tempTimerCallback();
    const QVector<tcStripCurve*> curves = tcChartOperator::shownChart()->curves();
    QCOMPARE(curves.size(), 2);
    // A value that happens to be whole is none either, hence not exactly as many.
    QVERIFY(curves.at(0)->dataSize() > 10);
    QCOMPARE(int(curves.at(1)->dataSize()), 0);
    QCOMPARE(rig.log().count("<SENS 12><ACK><2"), 21);
}

void tst_VexaK40Sensors::sensorThatIsNotPolled()
{
    tcPanelRig rig;
    rig.open();
    rig.panel.requestTemp(7);
    QCOMPARE(rig.log(), QString());
    rig.button("simSensorsPB")->setChecked(true);
    rig.panel.requestTemp(7);
    QVERIFY2(rig.lastReply().startsWith("<ACK><2"), qPrintable(rig.lastReply()));
    QCOMPARE(rig.line.writes().size(), 0);
}

void tst_VexaK40Sensors::simulatedReplyComesBeforeThePoll()
{
    tcPanelRig rig;
    rig.open();
    check(rig, 2);
    rig.button("tempsPB")->click();
    rig.button("simSensorsPB")->setChecked(true);
    QString atTheWrite;
    rig.line.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.bytes == "<SENS 3>\n")
            atTheWrite = rig.lastReply();
    };
    rig.panel.requestTemp(3);
    rig.line.onCall = nullptr;
    QVERIFY2(atTheWrite.startsWith("<SENS 3><ACK><2"), qPrintable(atTheWrite));
}

void tst_VexaK40Sensors::cooler_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<double>("setPoint");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("style");
    QTest::newRow("on") << "<GTEC><ACK><ON><24.5>" << 24.5 << QColor(Qt::white)
                        << int(Qt::SolidLine);
    QTest::newRow("off") << "<GTEC><ACK><OFF><22.5>" << 22.5 << QColor(Qt::gray)
                         << int(Qt::DashLine);
    QTest::newRow("unreadable") << "<GTEC><ACK><ON><cold>" << 0.0 << QColor(Qt::white)
                                << int(Qt::SolidLine);
}

void tst_VexaK40Sensors::cooler()
{
    QFETCH(QString, reply);
    tcPanelRig rig;
    rig.button("tempsPB")->click();
    rig.panel.handleReply(reply);
    const tcStripMarker* line = nullptr;
    const auto* plot = tcChartOperator::shownChart()->findChild<QwtPlot*>("qwtPlot");
    for (const QwtPlotItem* item : plot->itemList(QwtPlotItem::Rtti_PlotMarker)) {
        const auto* marker = dynamic_cast<const tcStripMarker*>(item);
        if (marker && marker->name() == "Set Point")
            line = marker;
    }
    QVERIFY(line);
    QTEST(line->yValue(), "setPoint");
    QTEST(line->linePen().color(), "color");
    QTEST(int(line->linePen().style()), "style");
}

void tst_VexaK40Sensors::messagesOfSourcesAreLogged()
{
    const tcPanelRig rig;
    addScriptedSource(rig);
    rig.button("tempsPB")->click();
    QCOMPARE(tcScriptedSource::living.size(), 1);
    Q_EMIT tcScriptedSource::living.first()->message("Bad read: x");
    QCOMPARE(rig.log(), QStringLiteral("Bad read: x"));
}

void tst_VexaK40Sensors::sourcesBelongToThePanel()
{
    const tcPanelRig rig;
    addScriptedSource(rig);
    rig.button("tempsPB")->click();
    QCOMPARE(tcScriptedSource::living.size(), 1);
    QCOMPARE(rig.panel.findChildren<tcDataSource*>(),
             QList<tcDataSource*>{tcScriptedSource::living.first()});
    QCOMPARE(tcScriptedSource::living.first()->curve(),
             tcChartOperator::shownChart()->curves().at(0));
}

QTEST_MAIN(tst_VexaK40Sensors)
#include "tst_vexak40sensors.moc"

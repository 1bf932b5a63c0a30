#include "camera/tcSensorMonitor.h"
#include "sources/tcPicoTC08Source.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "tests/camera/tcScriptedSource.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <qwt_plot.h>

#include <memory>
#include <thread>

namespace
{

constexpr int cKindRole = Qt::UserRole;
constexpr int cNameRole = Qt::UserRole + 1;
constexpr int cTypeRole = Qt::UserRole + 2;
constexpr int cDisplayRole = Qt::UserRole + 3;

} // namespace

/// The monitor on controls of its own, with a scripted data source beside the built-in types.
class tst_SensorMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void listHoldsTheCameraSensors();
    void chartAtStart();
    void startAsksForTheCoolerFirst();
    void checkedSensorsArePolledInAscendingOrder();
    void nothingCheckedPollsNothing();
    void curvesFollowTheList();
    void readingGoesToItsCurve();
    void readingOfASensorThatIsNotPolledIsDropped();
    void stoppingKeepsTheCameraCurves();
    void nextStartBeginsAnew();
    void simulatedReadings();
    void withoutSimulationOnlyThePollIsSent();
    void pollPeriodChangesAtOnce();
    void coolerMovesTheSetPoint_data();
    void coolerMovesTheSetPoint();

    void menuOffersTheSources();
    void chosenSourceJoinsTheListUnchecked();
    void comPortDialog();
    void comPortDialogCancelled();
    void sourceIsStartedAndPlotted();
    void sourceReadingsAndMessages();
    void sourceOfAnUnknownTypeIsLeftOut();
    void stoppingStopsAndDeletesSources();
    void allSourcesAreToldBeforeTheFirstIsWaitedFor();
    void clickWhileSourcesStopIsIgnored();
    void goneWhileSourcesStop();
    void goneWhileReadingsAreOnTheirWay();
    void goneWhilePlotting();

private:
    void make();
    void check(int aRow) { mList->item(aRow)->setCheckState(Qt::Checked); }
    QListWidgetItem* addScripted(const QString& acName);
    void click(bool abOn);
    QStringList sentCommands() const;

    std::unique_ptr<QWidget> mPanel;
    QListWidget* mList = nullptr;
    QPushButton* mPlot = nullptr;
    QSpinBox* mPoll = nullptr;
    QPushButton* mSim = nullptr;
    QToolButton* mAdd = nullptr;
    std::unique_ptr<tcSensorMonitor> mMonitor;
    std::unique_ptr<QSignalSpy> mCommands;
};

void tst_SensorMonitor::initTestCase()
{
    qputenv("TARVIK_EXTRA_SERIAL_PORTS", "virtual7=Virtual thermometer");
    tcScriptedSource::registerType();
}

void tst_SensorMonitor::init()
{
    mPanel = std::make_unique<QWidget>();
    mList = new QListWidget(mPanel.get());
    mPlot = new QPushButton(mPanel.get());
    mPlot->setCheckable(true);
    mPoll = new QSpinBox(mPanel.get());
    mPoll->setMinimum(1);
    mPoll->setValue(2);
    mSim = new QPushButton(mPanel.get());
    mSim->setCheckable(true);
    mAdd = new QToolButton(mPanel.get());
    make();
}

void tst_SensorMonitor::make()
{
    mMonitor = std::make_unique<tcSensorMonitor>(
        tcSensorMonitor::tcControls{mList, mPlot, mPoll, mSim, mAdd}, nullptr);
    mCommands = std::make_unique<QSignalSpy>(mMonitor.get(), &tcSensorMonitor::command);
    connect(mPlot, &QPushButton::clicked, mMonitor.get(), &tcSensorMonitor::showTemps);
}

void tst_SensorMonitor::cleanup()
{
    tcScriptedSource::whileStopping = nullptr;
    tcScriptedSource::whileGoing = nullptr;
    mCommands.reset();
    mMonitor.reset();
    mPanel.reset();
    QVERIFY(tcScriptedSource::living.isEmpty());
}

QListWidgetItem* tst_SensorMonitor::addScripted(const QString& acName)
{
    auto* item = new QListWidgetItem(acName + " Scripted");
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
    item->setData(cKindRole, 0);
    item->setData(cNameRole, acName);
    item->setData(cTypeRole, "Scripted");
    mList->addItem(item);
    return item;
}

void tst_SensorMonitor::click(bool abOn)
{
    if (mPlot->isChecked() != abOn)
        mPlot->click();
}

QStringList tst_SensorMonitor::sentCommands() const
{
    QStringList sent;
    for (const QList<QVariant>& call : *mCommands)
        sent.append(call.at(0).toString());
    return sent;
}

void tst_SensorMonitor::listHoldsTheCameraSensors()
{
    QCOMPARE(mList->count(), 15);
    QCOMPARE(mList->item(0)->text(), QString("Sensor Temperature ")); // as designed: a blank
    QCOMPARE(mList->item(14)->text(), QString("3P3V "));
    for (int row = 0; row < mList->count(); ++row) {
        const QListWidgetItem* item = mList->item(row);
        QCOMPARE(item->checkState(), Qt::Unchecked);
        QCOMPARE(item->flags(),
                 Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        QCOMPARE(item->data(cKindRole).toInt(), row >= 4 && row <= 6 ? 2 : 1);
        QCOMPARE(item->data(cNameRole).toString() + ' ', item->text());
        QCOMPARE(item->data(cTypeRole).toString(), QString());
        QCOMPARE(item->data(cDisplayRole), QVariant(QString()));
    }
}

void tst_SensorMonitor::chartAtStart()
{
    tcStripChart& chart = mMonitor->chart();
    QVERIFY(!chart.isVisible());
    QVERIFY(!chart.parent());
    QVERIFY(chart.findChild<QAction*>("actionShow_Min_Max_Markers")->isChecked());
    QCOMPARE(chart.chartName(), QString("Sensors"));
    QVERIFY(chart.windowTitle().contains("Sensors"));
    QCOMPARE(chart.height(), 400);
    QCOMPARE(chart.width(), tcStripChart().width());
    const auto* plot = chart.findChild<QwtPlot*>("qwtPlot");
    QCOMPARE(plot->axisInterval(QwtPlot::yLeft), QwtInterval(10, 50));
    QCOMPARE(plot->axisInterval(QwtPlot::yRight), QwtInterval(0, 100));
    const auto lines = plot->itemList(QwtPlotItem::Rtti_PlotMarker);
    for (const char* name : {"Min:", "Max:"})
        QVERIFY(std::any_of(lines.begin(), lines.end(), [name](const QwtPlotItem* apItem) {
            const auto* marker = dynamic_cast<const tcStripMarker*>(apItem);
            return marker && marker->name() == name && marker->isVisible();
        }));
    const auto isSetPoint = [](const QwtPlotItem* apItem) {
        const auto* marker = dynamic_cast<const tcStripMarker*>(apItem);
        return marker && marker->name() == "Set Point" && marker->yValue() == 25.0
            && marker->lineStyle() == QwtPlotMarker::HLine;
    };
    QCOMPARE(std::count_if(lines.begin(), lines.end(), isSetPoint), 1);
}

void tst_SensorMonitor::startAsksForTheCoolerFirst()
{
    click(true);
    QCOMPARE(sentCommands(), QStringList{"<GTEC>"});
    QVERIFY(mMonitor->chart().isVisible());
    mCommands->clear();
    click(false);
    QCOMPARE(sentCommands(), QStringList());
}

void tst_SensorMonitor::checkedSensorsArePolledInAscendingOrder()
{
    check(11);
    check(0);
    check(4);
    click(true);
    mCommands->clear();
    mMonitor->pollAll();
    QCOMPARE(sentCommands(), (QStringList{"<SENS 1>", "<SENS 5>", "<SENS 12>"}));
    // What is ticked meanwhile waits for the next start.
    check(7);
    mCommands->clear();
    mMonitor->pollAll();
    QCOMPARE(sentCommands(), (QStringList{"<SENS 1>", "<SENS 5>", "<SENS 12>"}));
    // And by itself, at the period of the spin box.
    mPoll->setValue(1);
    mCommands->clear();
    QTRY_COMPARE(sentCommands(), (QStringList{"<SENS 1>", "<SENS 5>", "<SENS 12>"}));
}

void tst_SensorMonitor::nothingCheckedPollsNothing()
{
    click(true);
    mCommands->clear();
    mMonitor->pollAll();
    QCOMPARE(mCommands->count(), 0);
    QCOMPARE(mMonitor->chart().curves().size(), 0);
}

void tst_SensorMonitor::curvesFollowTheList()
{
    check(0);
    check(4);
    check(7);
    click(true);
    const QVector<tcStripCurve*> curves = mMonitor->chart().curves();
    QCOMPARE(curves.size(), 3);
    const QStringList titles{"Sensor Temperature ", "Relative Humidity ", "IVRESH "};
    const QList<int> axes{QwtPlot::yLeft, QwtPlot::yRight, QwtPlot::yLeft};
    QVERIFY(mMonitor->chart().findChild<QwtPlot*>("qwtPlot")->axisEnabled(QwtPlot::yRight));
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(curves.at(index)->title().text(), titles.at(index));
        QCOMPARE(curves.at(index)->yAxis(), axes.at(index));
        QCOMPARE(curves.at(index)->pen().color(), tcStripCurve::stripCurveColor(index));
    }
}

void tst_SensorMonitor::readingGoesToItsCurve()
{
    check(2);
    click(true);
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    mMonitor->addReading(3, 21.75);
    const tcStripCurve* curve = mMonitor->chart().curves().at(0);
    QCOMPARE(int(curve->dataSize()), 1);
    QCOMPARE(curve->sample(0).y(), 21.75);
    QVERIFY(curve->sample(0).x() >= double(before));
    QVERIFY(curve->sample(0).x() <= double(QDateTime::currentMSecsSinceEpoch()));
}

void tst_SensorMonitor::readingOfASensorThatIsNotPolledIsDropped()
{
    check(2);
    click(true);
    mMonitor->addReading(1, 20.0);
    mMonitor->addReading(0, 20.0);
    mMonitor->addReading(-1, 20.0);
    QCOMPARE(int(mMonitor->chart().curves().at(0)->dataSize()), 0);
}

void tst_SensorMonitor::stoppingKeepsTheCameraCurves()
{
    check(0);
    addScripted("one");
    click(true);
    QVERIFY(mMonitor->findChild<QTimer*>()->isActive());
    QCOMPARE(mMonitor->chart().curves().size(), 2);
    click(false);
    QCOMPARE(mMonitor->chart().curves().size(), 1);
    QCOMPARE(mMonitor->chart().curves().at(0)->title().text(), QString("Sensor Temperature "));
    const auto* timer = mMonitor->findChild<QTimer*>();
    QVERIFY(timer);
    QVERIFY(!timer->isActive());
}

void tst_SensorMonitor::nextStartBeginsAnew()
{
    check(0);
    click(true);
    mMonitor->addReading(1, 20.0);
    click(false);
    mList->item(0)->setCheckState(Qt::Unchecked);
    check(1);
    click(true);
    QCOMPARE(mMonitor->chart().curves().size(), 1);
    const tcStripCurve* curve = mMonitor->chart().curves().at(0);
    QCOMPARE(curve->title().text(), QString("Board Temperature "));
    QCOMPARE(int(curve->dataSize()), 0);
    QCOMPARE(curve->pen().color(), tcStripCurve::stripCurveColor(0));
    mCommands->clear();
    mMonitor->pollAll();
    QCOMPARE(sentCommands(), QStringList{"<SENS 2>"});
    mMonitor->addReading(1, 20.0); // not polled any more
    QCOMPARE(int(curve->dataSize()), 0);
}

void tst_SensorMonitor::simulatedReadings()
{
    QSignalSpy replies(mMonitor.get(), &tcSensorMonitor::simulatedReply);
    check(0);
    check(11);
    click(true);
    mSim->setChecked(true);
    mCommands->clear();
    for (int poll = 0; poll < 500; ++poll)
        mMonitor->pollAll();
    QCOMPARE(replies.count(), 1000);
    QCOMPARE(mCommands->count(), 1000); // sent as well
    double least = 25;
    double most = 25;
    const QRegularExpression shape("^<SENS (1|12)><ACK><(\\d+(\\.\\d{1,3})?)>$");
    for (const QList<QVariant>& call : replies) {
        const auto match = shape.match(call.at(0).toString());
        QVERIFY2(match.hasMatch(), qPrintable(call.at(0).toString()));
        const double value = match.captured(2).toDouble();
        QVERIFY(value >= 23.0 && value <= 26.999);
        least = std::min(least, value);
        most = std::max(most, value);
    }
    // From the whole range: a thousand draws never miss a whole quarter of it.
    QVERIFY(least < 24.0);
    QVERIFY(most > 26.0);
}

void tst_SensorMonitor::withoutSimulationOnlyThePollIsSent()
{
    QSignalSpy replies(mMonitor.get(), &tcSensorMonitor::simulatedReply);
    check(0);
    click(true);
    mMonitor->pollAll();
    QCOMPARE(replies.count(), 0);
}

void tst_SensorMonitor::pollPeriodChangesAtOnce()
{
    check(0);
    const auto* timer = mMonitor->findChild<QTimer*>();
    QCOMPARE(timer->interval(), 2000);
    mPoll->setValue(5);
    QCOMPARE(timer->interval(), 5000);
    mPoll->setMaximum(3600);
    mPoll->setValue(3600);
    click(true);
    QCOMPARE(timer->interval(), 3600000);
    mCommands->clear();
    mPoll->setValue(1);
    QTRY_COMPARE(mCommands->count(), 1); // long before the hour
}

void tst_SensorMonitor::coolerMovesTheSetPoint_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<double>("setPoint");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("style");
    QTest::newRow("on") << true << 24.0 << QColor(Qt::white) << int(Qt::SolidLine);
    QTest::newRow("off") << false << 22.5 << QColor(Qt::gray) << int(Qt::DashLine);
    QTest::newRow("unreadable") << true << 0.0 << QColor(Qt::white) << int(Qt::SolidLine);
}

void tst_SensorMonitor::coolerMovesTheSetPoint()
{
    QFETCH(bool, on);
    QFETCH(double, setPoint);
    mMonitor->showSetPoint(on, setPoint);
    const auto* plot = mMonitor->chart().findChild<QwtPlot*>("qwtPlot");
    const tcStripMarker* line = nullptr;
    for (const QwtPlotItem* item : plot->itemList(QwtPlotItem::Rtti_PlotMarker)) {
        const auto* marker = dynamic_cast<const tcStripMarker*>(item);
        if (marker && marker->name() == "Set Point")
            line = marker;
    }
    QVERIFY(line);
    QCOMPARE(line->yValue(), setPoint);
    QTEST(line->linePen().color(), "color");
    QTEST(int(line->linePen().style()), "style");
    QVERIFY(line->label().text().endsWith(QString::number(setPoint, 'f', 3)));
}

void tst_SensorMonitor::menuOffersTheSources()
{
    QCOMPARE(mAdd->menu()->title(), QString("Data Sources..."));
    for (int look = 0; look < 2; ++look) // filled once, however often it is looked at
        Q_EMIT mAdd->menu()->aboutToShow();
    const QList<QAction*> types = mAdd->menu()->actions();
    // Without its driver the logger offers nothing, hence has no entry.
    QCOMPARE(types.size(), tcPicoTC08Source(QString()).availableChannels().isEmpty() ? 1 : 2);
    QCOMPARE(types.at(0)->text(), QString("Omega UTC"));
    QAction* port = types.at(0)->menu()->actions().last();
    QCOMPARE(port->text(), QString("virtual7 [ Virtual thermometer ]"));
    QVERIFY(port->shortcut().isEmpty());
}

void tst_SensorMonitor::chosenSourceJoinsTheListUnchecked()
{
    Q_EMIT mAdd->menu()->aboutToShow();
    mAdd->menu()->actions().at(0)->menu()->actions().last()->trigger();
    QCOMPARE(mList->count(), 16);
    const QListWidgetItem* item = mList->item(15);
    QCOMPARE(item->text(), QString("virtual7 [ Virtual thermometer ] Omega UTC"));
    QCOMPARE(item->toolTip(), item->text());
    QCOMPARE(item->checkState(), Qt::Unchecked);
    QCOMPARE(item->data(cKindRole).toInt(), 0);
    QCOMPARE(item->data(cNameRole).toString(), QString("virtual7 [ Virtual thermometer ]"));
    QCOMPARE(item->data(cTypeRole).toString(), QString("Omega UTC"));
    QCOMPARE(item->data(cDisplayRole).toString(), QString());
}

void tst_SensorMonitor::comPortDialog()
{
    tcScriptedDialogs dialogs;
    dialogs.itemAnswer = "virtual7 [ Virtual thermometer ]";
    mMonitor->addOmegaMonitor();
    QCOMPARE(dialogs.asked.size(), 1);
    QCOMPARE(dialogs.asked.at(0).kind, QString("item"));
    QCOMPARE(dialogs.asked.at(0).text, QString("Select COM port"));
    QVERIFY(dialogs.asked.at(0).detail.contains("virtual7 [ Virtual thermometer ]"));
    QCOMPARE(mList->count(), 16);
    QCOMPARE(mList->item(15)->text(), QString("virtual7 [ Virtual thermometer ] Omega UTC"));
    QVERIFY(mList->item(15)->flags() & Qt::ItemIsUserCheckable);
    QCOMPARE(mList->item(15)->checkState(), Qt::Unchecked);
    QCOMPARE(mList->currentRow(), 15); // scrolled to, since it lies below what the list shows
}

void tst_SensorMonitor::comPortDialogCancelled()
{
    tcScriptedDialogs dialogs;
    mMonitor->addOmegaMonitor();
    QCOMPARE(mList->count(), 15);
    dialogs.itemAnswer = QString(); // the empty line of a list without ports
    mMonitor->addOmegaMonitor();
    QCOMPARE(mList->count(), 15);
}

void tst_SensorMonitor::sourceIsStartedAndPlotted()
{
    addScripted("one");
    click(true);
    QCOMPARE(tcScriptedSource::living.size(), 1);
    const tcScriptedSource* source = tcScriptedSource::living.at(0);
    QCOMPARE(source->name, QString("one"));
    QCOMPARE(source->starts, 1);
    const tcStripCurve* curve = mMonitor->chart().curves().at(0);
    QCOMPARE(source->curve(), curve);
    QCOMPARE(curve->title().text(), QString("one Scripted"));
    QCOMPARE(curve->yAxis(), int(QwtPlot::yRight));
}

void tst_SensorMonitor::sourceReadingsAndMessages()
{
    QSignalSpy messages(mMonitor.get(), &tcSensorMonitor::message);
    addScripted("one");
    click(true);
    tcScriptedSource* source = tcScriptedSource::living.at(0);
    Q_EMIT source->tempReading(1000, 23.5);
    Q_EMIT source->message("Bad read: x");
    const tcStripCurve* curve = mMonitor->chart().curves().at(0);
    QCOMPARE(int(curve->dataSize()), 1);
    QCOMPARE(curve->sample(0), QPointF(1000, 23.5));
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.at(0).at(0).toString(), QString("Bad read: x"));
}

void tst_SensorMonitor::sourceOfAnUnknownTypeIsLeftOut()
{
    addScripted("one")->setData(cTypeRole, "Nothing");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No builder registered for type"));
    click(true);
    QCOMPARE(mMonitor->chart().curves().size(), 0);
}

void tst_SensorMonitor::stoppingStopsAndDeletesSources()
{
    addScripted("one");
    addScripted("two");
    int stopped = 0;
    tcScriptedSource::whileStopping = [&] {
        ++stopped;
        // The curves went first; a reading that comes now has nowhere to go.
        for (tcScriptedSource* source : tcScriptedSource::living)
            Q_EMIT source->tempReading(1000, 1.0);
    };
    for (int round = 0; round < 50; ++round) {
        click(true);
        QCOMPARE(tcScriptedSource::living.size(), 2);
        click(false);
        QCOMPARE(tcScriptedSource::living.size(), 0);
        QCOMPARE(mMonitor->chart().curves().size(), 0);
    }
    QCOMPARE(stopped, 100);
}

void tst_SensorMonitor::allSourcesAreToldBeforeTheFirstIsWaitedFor()
{
    for (const char* name : {"one", "two", "three"})
        addScripted(name);
    click(true);
    QCOMPARE(tcScriptedSource::living.size(), 3);
    int told = 0;
    tcScriptedSource::whileStopping = [&told] {
        if (told == 0)
            for (const tcScriptedSource* source : qAsConst(tcScriptedSource::living))
                told += source->preparations;
    };
    click(false);
    QCOMPARE(told, 3);
}

void tst_SensorMonitor::clickWhileSourcesStopIsIgnored()
{
    addScripted("one");
    click(true);
    tcScriptedSource::whileStopping = [this] { mPlot->click(); };
    click(false);
    QVERIFY(!mPlot->isChecked());
    QVERIFY(tcScriptedSource::living.isEmpty());
    QCOMPARE(sentCommands(), QStringList{"<GTEC>"}); // of the first start alone
}

void tst_SensorMonitor::goneWhileSourcesStop()
{
    addScripted("one");
    addScripted("two");
    click(true);
    bool once = true;
    tcScriptedSource::whileStopping = [&] {
        if (std::exchange(once, false))
            mMonitor.release()->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    mCommands.reset();
    click(false);
    tcScriptedSource::whileStopping = nullptr;
    QTRY_VERIFY(tcScriptedSource::living.isEmpty());
}

/// Sources that are left stop as they go, and events run meanwhile.
void tst_SensorMonitor::goneWhileReadingsAreOnTheirWay()
{
    addScripted("one");
    addScripted("two");
    click(true);
    tcScriptedSource* second = tcScriptedSource::living.at(1);
    const auto charts = [] {
        int count = 0;
        for (const QWidget* window : QApplication::topLevelWidgets())
            count += window->inherits("tcStripChart") ? 1 : 0;
        return count;
    };
    int whileGoing = 0;
    tcScriptedSource::whileGoing = [&] {
        QCoreApplication::sendPostedEvents();
        mPlot->click();
        whileGoing += charts();
    };
    tcScriptedSource::whileStopping = [&] {
        tcScriptedSource::whileStopping = nullptr;
        std::thread([second] { Q_EMIT second->tempReading(1000, 1.0); }).join();
        delete mMonitor.release();
    };
    mCommands.reset();
    click(false);
    tcScriptedSource::whileGoing = nullptr;
    QVERIFY(tcScriptedSource::living.isEmpty());
    QCOMPARE(whileGoing, 2); // the chart was still there for both
    QCOMPARE(charts(), 0);   // and none was made for what came too late
}

void tst_SensorMonitor::goneWhilePlotting()
{
    check(0);
    addScripted("one");
    click(true);
    mCommands.reset();
    mMonitor.reset();
    QVERIFY(tcScriptedSource::living.isEmpty());
}

QTEST_MAIN(tst_SensorMonitor)
#include "tst_sensormonitor.moc"

#include "camera/tcSensorMonitor.h"

#include "camera/logic/tcSensorTable.h"
#include "sources/tcOmegaTempMonitor.h"
#include "sources/tcPicoTC08Source.h"
#include "sources/tcSourceRegistry.h"
#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"
#include "widgets/tcDialogs.h"

#include <QDateTime>
#include <QListWidget>
#include <QMenu>
#include <QPen>
#include <QPointer>
#include <QRandomGenerator64>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace
{

/// What an entry of the sensor list carries.
enum teEntryRole
{
    cKindRole = Qt::UserRole,
    cNameRole,
    cSourceTypeRole,
    cDisplayTextRole,
};

constexpr int cLeftAxis = 0;
constexpr int cRightAxis = 1;
constexpr int cChartHeight = 400;
constexpr double cSetPointAtStart = 25.0;
constexpr int cMsPerSecond = 1000;

std::unique_ptr<tcDataSource> temporarySource(const QString& acType)
{
    return std::unique_ptr<tcDataSource>(
        tcSourceRegistry::createSource(acType, QString(), nullptr));
}

} // namespace

tcSensorMonitor::tcSensorMonitor(const tcControls& acControls, QObject* apParent)
    : QObject(apParent), mControls(acControls)
{
    setUpList();
    auto* menu = new QMenu(tr("Data Sources..."), mControls.addSource);
    mControls.addSource->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, &tcSensorMonitor::fillSourceMenu);
    setPollPeriod(mControls.pollSeconds->value());
    connect(&mPollTimer, &QTimer::timeout, this, &tcSensorMonitor::pollAll);
    connect(mControls.pollSeconds, qOverload<int>(&QSpinBox::valueChanged), this,
            &tcSensorMonitor::setPollPeriod);
}

tcSensorMonitor::~tcSensorMonitor()
{
    mPollTimer.stop();
    if (mChart)
        mChart->hide();
    stopSources();
    // Destroyed while they were being stopped, some are left. They stop as they go, in which
    // events run: what is on its way still finds a chart, and a click is still ignored.
    mStopping = true;
    qDeleteAll(findChildren<tcDataSource*>(QString(), Qt::FindDirectChildrenOnly));
}

void tcSensorMonitor::setUpList()
{
    for (const tcSensorRow& row : cCameraSensors)
        addEntry(row.kind, tr(row.name), {});
}

/// Made at first need: six panels start with the program, and few of them ever plot.
tcStripChart& tcSensorMonitor::chart()
{
    if (!mChart) {
        mChart = std::make_unique<tcStripChart>();
        setUpChart();
    }
    return *mChart;
}

void tcSensorMonitor::setUpChart()
{
    mChart->setChartName(tr("Sensors"));
    mChart->resize(mChart->width(), cChartHeight);
    mChart->showMinMax(true);
    mChart->setYRange(cLeftAxis, 10, 50);
    mSetPointMarker = mChart->addLineMarker(tr("Set Point"), cSetPointAtStart);
    mChart->setYRange(cRightAxis, 0, 100);
    // A line of its own: what comes next must not run into it.
    connect(mChart.get(), &tcStripChart::limitCrossed, this,
            [this](const QString& acText) { Q_EMIT message(acText + '\n'); });
}

/// Once, when it is first looked at: asking instruments what they offer takes time that the
/// start of the program can do without.
void tcSensorMonitor::fillSourceMenu()
{
    if (std::exchange(mSourceMenuFilled, true))
        return;
    QMenu* menu = mControls.addSource->menu();
    for (const QString& type :
         {tcOmegaTempMonitor::registeredName(), tcPicoTC08Source::registeredName()}) {
        const std::unique_ptr<tcDataSource> source = temporarySource(type);
        const QStringList channels = source ? source->availableChannels() : QStringList();
        if (channels.isEmpty())
            continue;
        QMenu* channelMenu = menu->addMenu(source->typeName());
        for (const QString& channel : channels) {
            QAction* action = channelMenu->addAction(channel);
            action->setShortcut(QKeySequence());
            connect(action, &QAction::triggered, this,
                    [this, channel, type] { addSourceEntry(channel, type); });
        }
    }
}

void tcSensorMonitor::addEntry(teSensorKind aeKind, const QString& acName,
                               const QString& acSourceType, const QString& acDisplayText)
{
    auto* item
        = new QListWidgetItem(tcSensorTable::listText(acName, acSourceType, acDisplayText));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    item->setToolTip(item->text()); // a port's name without blanks may be wider than the list
    item->setCheckState(Qt::Unchecked);
    item->setData(cKindRole, static_cast<int>(aeKind));
    item->setData(cNameRole, acName);
    item->setData(cSourceTypeRole, acSourceType);
    item->setData(cDisplayTextRole, acDisplayText);
    mControls.sensors->addItem(item);
}

/// Shows the new entry too: it comes last, behind more rows than the list shows.
void tcSensorMonitor::addSourceEntry(const QString& acChannel, const QString& acType)
{
    addEntry(teSensorKind::Source, acChannel, acType);
    mControls.sensors->setCurrentRow(mControls.sensors->count() - 1);
}

void tcSensorMonitor::addOmegaMonitor()
{
    const QString type = tcOmegaTempMonitor::registeredName();
    const std::unique_ptr<tcDataSource> source = temporarySource(type);
    if (!source)
        return;
    const QPointer<tcSensorMonitor> alive(this);
    const std::optional<QString> port
        = tcDialogs::current().item(mControls.sensors, tr("Add Sensor"), tr("Select COM port"),
                                    source->availableChannels());
    if (alive && port && !port->isEmpty())
        addSourceEntry(*port, type);
}

void tcSensorMonitor::showTemps(bool abOn)
{
    if (mStopping) {
        mControls.plot->setChecked(!abOn); // as it was before the click that is ignored
        return;
    }
    if (!stopSources())
        return;
    if (!abOn) {
        mPollTimer.stop();
        return;
    }
    Q_EMIT command(QStringLiteral("<GTEC>"));
    plotCheckedItems();
    mPollTimer.start();
    chart().show();
    chart().raise();
}

/// False when this object was destroyed meanwhile: stopping lets the event loop run.
bool tcSensorMonitor::stopSources()
{
    mStopping = true;
    const QPointer<tcSensorMonitor> alive(this);
    const QList<tcRunningSource> sources = std::exchange(mSources, {});
    for (const tcRunningSource& running : sources)
        removeCurve(running.curve);
    for (const tcRunningSource& running : sources) {
        running.source->disconnect(this);
        running.source->prepareStop();
    }
    for (const tcRunningSource& running : sources) {
        running.source->stop();
        if (!alive)
            return false;
        delete running.source;
    }
    mStopping = false;
    return true;
}

void tcSensorMonitor::removeCurve(tcStripCurve* apCurve)
{
    chart().removeCurve(apCurve);
    const auto isIt = [apCurve](const auto& acCurve) { return acCurve.get() == apCurve; };
    mCurves.erase(std::remove_if(mCurves.begin(), mCurves.end(), isIt), mCurves.end());
}

void tcSensorMonitor::plotCheckedItems()
{
    mSensorCommands.clear();
    for (const auto& curve : mCurves)
        chart().removeCurve(curve.get());
    mSensorCurves.clear();
    mCurves.clear();
    mCurveKey = QUuid::createUuid();
    mNextColor = 0;
    mNextIndex = 0;
    for (int row = 0; row < mControls.sensors->count(); ++row) {
        const QListWidgetItem& item = *mControls.sensors->item(row);
        if (item.checkState() != Qt::Checked)
            continue;
        if (item.data(cSourceTypeRole).toString().isEmpty())
            plotCameraSensor(item, row + 1);
        else
            plotSource(item);
    }
}

void tcSensorMonitor::plotCameraSensor(const QListWidgetItem& acItem, int anNumber)
{
    if (!mSensorCommands.contains(anNumber))
        mSensorCommands.insert(anNumber, tcSensorTable::pollCommand(anNumber));
    mSensorCurves.insert(anNumber, addCurve(acItem));
}

void tcSensorMonitor::plotSource(const QListWidgetItem& acItem)
{
    tcDataSource* source = tcSourceRegistry::createSource(
        acItem.data(cSourceTypeRole).toString(), acItem.data(cNameRole).toString(), this);
    if (!source)
        return;
    tcStripCurve* curve = addCurve(acItem);
    source->setCurve(curve);
    // By key and index: a reading that is still under way when the curve goes is dropped.
    connect(source, &tcDataSource::tempReading, this,
            [this, key = mCurveKey, index = curve->index()](qint64 anMs, double anValue) {
                chart().updateData(key, index, anMs, anValue);
            });
    connect(source, &tcDataSource::message, this, &tcSensorMonitor::message);
    source->start();
    mSources.append({source, curve});
}

/// All curves of one start share a key, so that the chart and its files keep the list's order.
tcStripCurve* tcSensorMonitor::addCurve(const QListWidgetItem& acItem)
{
    mCurves.push_back(std::make_unique<tcStripCurve>(mNextIndex++));
    tcStripCurve* curve = mCurves.back().get();
    curve->setTitle(acItem.text());
    curve->setPen(QPen(tcStripCurve::stripCurveColor(mNextColor++)));
    chart().addCurve(curve, mCurveKey);
    const bool left = acItem.data(cKindRole).toInt() == static_cast<int>(teSensorKind::Left);
    chart().assignAxis(curve, left ? cLeftAxis : cRightAxis);
    return curve;
}

void tcSensorMonitor::setPollPeriod(int anSeconds)
{
    mPollTimer.setInterval(anSeconds * cMsPerSecond);
}

void tcSensorMonitor::pollAll()
{
    const QPointer<tcSensorMonitor> alive(this);
    const QList<int> numbers = mSensorCommands.keys();
    for (const int number : numbers) {
        requestTemp(number);
        if (!alive)
            return;
    }
}

void tcSensorMonitor::requestTemp(int anNumber)
{
    const QString poll = mSensorCommands.value(anNumber);
    if (mControls.simulate->isChecked()) {
        const int thousandths = QRandomGenerator64::global()->bounded(
            -tcSensorTable::cSimulatedSpread, tcSensorTable::cSimulatedSpread);
        Q_EMIT simulatedReply(tcSensorTable::simulatedReply(poll, thousandths));
    }
    Q_EMIT command(poll);
}

void tcSensorMonitor::addReading(int anNumber, double anValue)
{
    tcStripCurve* curve = mSensorCurves.value(anNumber);
    if (curve && mSensorCommands.contains(anNumber))
        curve->addSample(QDateTime::currentMSecsSinceEpoch(), anValue);
}

void tcSensorMonitor::showSetPoint(bool abOn, double anSetPoint)
{
    const QPen pen = abOn ? QPen(Qt::white, 0, Qt::SolidLine) : QPen(Qt::gray, 0, Qt::DashLine);
    chart().setLineMarker(mSetPointMarker, anSetPoint, pen);
}

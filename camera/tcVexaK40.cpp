#include "camera/tcVexaK40.h"

#include "app/logic/tcHexDump.h"
#include "camera/logic/tcCmvNames.h"
#include "camera/logic/tcCommand.h"
#include "camera/logic/tcCommandHelp.h"
#include "camera/logic/tcIniArray.h"
#include "camera/logic/tcLongLines.h"
#include "camera/logic/tcReply.h"
#include "camera/tcCommandCompleter.h"
#include "camera/tcHelpDelegate.h"
#include "camera/tcLogView.h"
#include "camera/tcReceiver.h"
#include "camera/tcSensorMonitor.h"
#include "camlink/logic/tcScriptFile.h"
#include "camlink/logic/tcWireCommand.h"
#include "ui_VexaK40.h"
#include "widgets/tcDialogs.h"
#include "widgets/tcHistoryKeys.h"
#include "widgets/tcLateIcon.h"
#include "widgets/tcWaitCursor.h"

#include <QDateTime>
#include <QDebug>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSettings>

#include <algorithm>
#include <optional>
#include <utility>

namespace
{

constexpr int cRxIntervalMs = 20;
constexpr int cKeepAliveMs = 1000;
constexpr quint32 cWriteTimeoutMs = 200;
constexpr quint32 cFileTimeoutMs = 1000;
constexpr int cDefaultLength = 5000;
constexpr int cHiddenHexMs = 200;
constexpr int cShownHexMs = 50; ///< faster than anybody reads
constexpr int cLedSize = 8;
constexpr int cLastReplyLines = 3; ///< two and the frame around them

QString traceTime()
{
    return QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
}

QString keepAliveCommand()
{
    return QStringLiteral("<TEMP 0>");
}

} // namespace

tcVexaK40::tcVexaK40(teCmvType aeType, QWidget* apParent)
    : tcCamlinkIface(apParent)
    , mForm(std::make_unique<Ui::VexaK40>())
    , mType(aeType)
    , mReceiver(new tcReceiver(this))
    , mRxBuffer(cDefaultLength)
    , mMaxDescriptionLength(cDefaultLength)
{
    mForm->setupUi(this);
    mForm->TimingGroupBox->hide();
    mForm->ROIGroupBox->hide();
    setAdvanced(false);
    setUpViews();
    setUpCommandBoxes();
    connectCommands();
    connectPresets();
    connectReceiving();
    connectSensors();
}

tcVexaK40::~tcVexaK40()
{
    // Its sources take a moment to stop, in which timers and the chart still work.
    mRxTimer.stop();
    mKeepAliveTimer.stop();
    mSensors.reset();
}

void tcVexaK40::setUpViews()
{
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter); // where that family is missing
    for (QPlainTextEdit* view : {mForm->PortRespPTE, mForm->RespHexPTE, mForm->lastRespPTE})
        view->setFont(font);
    tcReplyView::installShortcuts(this,
                                  {mForm->PortRespPTE, mForm->RespHexPTE, mForm->lastRespPTE});
    mLog = new tcLogView(mForm->PortRespPTE);
    mForm->rxLed->setState(false);
    mForm->rxLed->setLedSize(cLedSize);
    mForm->rxLed->setOffColor(Qt::gray);
    mForm->tabWidget->setCornerWidget(mForm->viewTools);
    // The form can order the whole of the tabs only, with all that is in them: the bar takes
    // its place by itself, and the rest of the whole no part in the order.
    mForm->tabWidget->setFocusProxy(nullptr);
    mForm->tabWidget->setFocusPolicy(Qt::NoFocus);
    setTabOrder(mForm->keepAlivePB, mForm->tabWidget->tabBar());
    mForm->sensorSplitter->setStretchFactor(0, 1);
    mForm->splitter->setStretchFactor(0, 1);
    const int lastReply = cLastReplyLines * mForm->lastRespPTE->fontMetrics().lineSpacing();
    mForm->lastRespPTE->setMinimumHeight(lastReply);
    mForm->splitter->setSizes({QWIDGETSIZE_MAX, lastReply});
}

void tcVexaK40::setUpCommandBoxes()
{
    mForm->exampleCB->addItems(tcCommandHelp::entries());
    connect(mForm->exampleCB, &tcEntryBox::aboutToShow, this, &tcVexaK40::arrangeExamples);
    tcLateIcon::enableClearButton(mForm->CommandCB->lineEdit());
    mForm->CommandCB->lineEdit()->setAccessibleName(mForm->CommandCB->accessibleName());
    new tcCommandCompleter(mForm->CommandCB);
    new tcHistoryKeys(mForm->CommandCB->lineEdit(), [this] {
        QStringList sent;
        for (int index = 0; index < mForm->CommandCB->count(); ++index)
            sent.append(mForm->CommandCB->itemText(index));
        return sent;
    });
}

/// At first need, since it makes the list, which few operators ever drop down.
void tcVexaK40::arrangeExamples()
{
    if (!mForm->exampleCB->findChild<tcHelpDelegate*>())
        mForm->exampleCB->setItemDelegate(new tcHelpDelegate(mForm->exampleCB));
}

void tcVexaK40::connectCommands()
{
    connect(mForm->CommandCB->lineEdit(), &QLineEdit::returnPressed, this,
            &tcVexaK40::SendCommand);
    connect(mForm->SendCommandPB, &QPushButton::clicked, this, &tcVexaK40::SendCommand);
    connect(mForm->startPB, &QPushButton::clicked, this,
            [this] { send(QStringLiteral("<STRT>")); });
    connect(mForm->stopPB, &QPushButton::clicked, this,
            [this] { send(QStringLiteral("<STOP>")); });
    connect(mForm->exampleCB, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &tcVexaK40::showExample);
    // Choosing the example that is already there shows its hint as well.
    connect(mForm->exampleCB, qOverload<int>(&QComboBox::activated), this,
            &tcVexaK40::showExample);
}

void tcVexaK40::connectPresets()
{
    connect(mForm->SendPresetPB, &QPushButton::clicked, this, &tcVexaK40::SendPreset);
    connect(mForm->SendCustomPB, &QPushButton::clicked, this, &tcVexaK40::SendFile);
    connect(mForm->presetsCB, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &tcVexaK40::showPresetScript);
}

void tcVexaK40::connectReceiving()
{
    mRxTimer.setInterval(cRxIntervalMs);
    mKeepAliveTimer.setInterval(cKeepAliveMs);
    mHexTimer.setSingleShot(true);
    connect(&mRxTimer, &QTimer::timeout, this, &tcVexaK40::CheckRxData);
    connect(&mKeepAliveTimer, &QTimer::timeout, this, &tcVexaK40::keepAlive);
    connect(&mHexTimer, &QTimer::timeout, this, &tcVexaK40::updateHex);
    connect(mReceiver, &tcReceiver::bytesReceived, this, &tcVexaK40::onBytesReceived);
    connect(mReceiver, &tcReceiver::replyReceived, this, &tcVexaK40::handleReply);
    connect(mForm->PortRespPTE, &QPlainTextEdit::textChanged, this, &tcVexaK40::updateHexSoon);
    connect(mForm->tabWidget, &QTabWidget::currentChanged, this, &tcVexaK40::updateHex);
    connect(mForm->clearPB, &QPushButton::clicked, this, &tcVexaK40::clearViews);
    connect(mForm->fakeRXPB, &QPushButton::clicked, this,
            [this] { handleReply(mForm->CommandCB->currentText()); });
    connect(mForm->keepAlivePB, &QPushButton::toggled, this,
            [this](bool abOn) { abOn ? mKeepAliveTimer.start() : mKeepAliveTimer.stop(); });
}

void tcVexaK40::connectSensors()
{
    mSensors = std::make_unique<tcSensorMonitor>(
        tcSensorMonitor::tcControls{mForm->sensorsLW, mForm->tempsPB, mForm->pollSecSB,
                                    mForm->simSensorsPB, mForm->addSensorTB},
        this);
    connect(mForm->tempsPB, &QPushButton::clicked, this, &tcVexaK40::showTemps);
    connect(this, &tcVexaK40::sensorReading, mSensors.get(), &tcSensorMonitor::addReading);
    connect(this, &tcVexaK40::coolerState, mSensors.get(), &tcSensorMonitor::showSetPoint);
    connect(mSensors.get(), &tcSensorMonitor::command, this, &tcVexaK40::writeCommand);
    connect(mSensors.get(), &tcSensorMonitor::simulatedReply, this, &tcVexaK40::handleReply);
    connect(mSensors.get(), &tcSensorMonitor::message, this, &tcVexaK40::addText);
}

void tcVexaK40::showTemps(bool abOn)
{
    mSensors->showTemps(abOn);
}

void tcVexaK40::tempTimerCallback()
{
    mSensors->pollAll();
}

void tcVexaK40::requestTemp(int anIndex)
{
    mSensors->requestTemp(anIndex);
}

void tcVexaK40::addOmegaMonitor()
{
    mSensors->addOmegaMonitor();
}

QString tcVexaK40::name() const
{
    return tcCmvNames::displayName(mType);
}

void tcVexaK40::openPort(tcSerialLink::tcRef aRef)
{
    mSerialRef = aRef;
    mReceiver->start(aRef);
    const qint32 status = tcSerialLink::setBaudRate(aRef);
    if (status != 0) {
        qDebug() << "Setting the baud rate failed with status" << status;
        // As designed: the placeholder is not one that is filled, so it shows as it stands.
        addText(tr("Error %d setting baudrate on COM port!\n"));
        return;
    }
    // As designed: the rate is shown as the library's code.
    addText(tr("Port opened [%1] BR set to %2\n").arg(aRef).arg(tcSerialLink::cBaudCode115200));
    if (mSerialRef != 0) // nobody closed it at these words
        mRxTimer.start();
}

void tcVexaK40::closePort()
{
    mRxTimer.stop();
    mReceiver->stop();
    mSerialRef = 0;
}

void tcVexaK40::SendCommand()
{
    const QString text = mForm->CommandCB->currentText();
    remember(text);
    send(text);
}

/// Enters the text into the history by the rules that the box itself follows at Return.
void tcVexaK40::remember(const QString& acText)
{
    QComboBox* history = mForm->CommandCB;
    if (!acText.isEmpty()
        && history->findText(acText, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0)
        history->insertItem(0, acText);
}

void tcVexaK40::send(const QString& acText)
{
    if (acText.isEmpty())
        return;
    addText(writeCommand(tcCommand::completed(acText)));
    mForm->CommandCB->setCurrentIndex(-1); // so that the wheel begins with the newest entry
    mForm->CommandCB->lineEdit()->clear();
    mForm->CommandCB->lineEdit()->setPlaceholderText({});
}

QString tcVexaK40::writeCommand(const QString& acCommand)
{
    if (mSerialRef == 0 || acCommand.isEmpty())
        return {};
    qDebug() << traceTime() << "TX:" << acCommand;
    const qint32 status
        = tcSerialLink::write(mSerialRef, tcWireCommand::bytes(acCommand), cWriteTimeoutMs);
    if (status != 0)
        return tcSerialLink::errorText(mManufacturer, status);
    return acCommand;
}

void tcVexaK40::showExample(int anIndex)
{
    QLineEdit* line = mForm->CommandCB->lineEdit();
    line->setPlaceholderText(mForm->exampleCB->itemText(anIndex));
    line->clear();
}

void tcVexaK40::keepAlive()
{
    if (mSerialRef == 0)
        return;
    mExpectedReply = keepAliveCommand();
    writeCommand(keepAliveCommand());
}

void tcVexaK40::SendPreset()
{
    const tcPreset* preset = currentPreset();
    if (mSerialRef == 0 || !preset)
        return;
    const QByteArray script(preset->script);
    constexpr int cBytesPerMs = 5;
    const tcWaitCursor waiting;
    tcSerialLink::write(mSerialRef, script, static_cast<quint32>(script.size() / cBytesPerMs));
}

void tcVexaK40::SendFile()
{
    if (mSerialRef == 0)
        return;
    const QPointer<tcVexaK40> alive(this);
    const QString fileName = tcDialogs::current().openFile(this, tr("Custom Preset File"), {},
                                                           tr("preset files (*.txt)"));
    // While the operator chose, the camera may have fallen silent and the port been closed.
    if (!alive || fileName.isEmpty() || mSerialRef == 0)
        return;
    const tcWaitCursor waiting;
    if (const std::optional<QByteArray> script = tcScriptFile::read(fileName))
        tcSerialLink::write(mSerialRef, *script, cFileTimeoutMs);
}

void tcVexaK40::CheckRxData()
{
    const QPointer<tcVexaK40> alive(this);
    const bool nested = std::exchange(mReceiving, true);
    mLog->hold();
    const bool stillOpen = mReceiver->run();
    if (!alive || nested)
        return;
    mReceiving = false;
    mLog->release();
    showLatest();
    if (!stillOpen)
        return;
    if (mForm->keepAlivePB->isChecked() && mReceiver->isSilent()) {
        Q_EMIT requestClosePort();
        log(tr("Timeout .. no data from camera in > 5 seconds... closing connection"), true);
    }
}

void tcVexaK40::handleReply(const QString& acLine)
{
    qDebug() << traceTime() << "LINE: " << acLine;
    if (acLine.isEmpty())
        return;
    const QString text = tcReply::normalised(acLine);
    if (!mExpectedReply.isEmpty() && text.startsWith(mExpectedReply))
        mExpectedReply.clear();
    else
        route(text);
    mLastReply = text;
    mLastReplyIsOld = true;
    if (!mReceiving)
        showLatest();
}

/// Layout is what replies cost most: within a run it is done once, at its end.
void tcVexaK40::showLatest()
{
    mLog->showCursor();
    if (std::exchange(mLastReplyIsOld, false))
        mForm->lastRespPTE->setPlainText(tcLongLines::broken(mLastReply));
}

/// Hands a reply that nobody waits for to whom it concerns.
void tcVexaK40::route(const QString& acText)
{
    const bool plotting = mForm->tempsPB->isChecked();
    if (const auto reading = plotting ? tcReply::sensorReading(acText) : std::nullopt) {
        Q_EMIT sensorReading(reading->number, reading->value);
    } else if (const auto cooler = tcReply::coolerState(acText)) {
        Q_EMIT coolerState(cooler->on, cooler->setPoint);
        addText(tr("Setpoint: ") + acText);
    } else {
        addText(acText + '\n');
    }
}

void tcVexaK40::addText(const QString& arText)
{
    log(arText, false);
}

void tcVexaK40::log(const QString& acText, bool abToEnd)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    mLog->append(time + QStringLiteral(": ") + acText, abToEnd);
    onTextChanged();
    if (!mReceiving)
        mLog->showCursor();
}

void tcVexaK40::onTextChanged()
{
    mLog->applyLimit(mMaxDescriptionLength);
}

void tcVexaK40::onBytesReceived(const QByteArray& acBytes)
{
    mRxBuffer.append(acBytes);
    mHexIsOld = true;
    updateHexSoon();
}

void tcVexaK40::clearViews()
{
    mRxBuffer.clear();
    mHexIsOld = true;
    mLog->clear();
    updateHex();
}

void tcVexaK40::updateHexSoon()
{
    if (!mHexIsOld || mHexTimer.isActive())
        return;
    // Out of sight it may lag a little: it is brought up to date when its tab is chosen. In
    // sight the first bytes are shown at once, and those of a line that never pauses together.
    const qint64 age = mHexAge.isValid() ? mHexAge.elapsed() : cShownHexMs;
    const bool shown = mForm->RespHexPTE->isVisible();
    mHexTimer.start(shown ? static_cast<int>(std::max<qint64>(0, cShownHexMs - age))
                          : cHiddenHexMs);
}

void tcVexaK40::updateHex()
{
    if (!std::exchange(mHexIsOld, false))
        return;
    mHexAge.start();
    QScrollBar* bar = mForm->RespHexPTE->verticalScrollBar();
    const int position = bar->value();
    mForm->RespHexPTE->setPlainText(tcHexDump::text(mRxBuffer.bytes()));
    bar->setValue(position);
}

tcPreset* tcVexaK40::currentPreset() const
{
    return mForm->presetsCB->currentData().value<tcCamlinkIface::Preset*>();
}

void tcVexaK40::showPresetScript()
{
    const tcPreset* preset = currentPreset();
    mForm->presetsCB->setToolTip(preset ? QString::fromLocal8Bit(preset->script) : QString());
}

void tcVexaK40::setAdvanced(bool abOn)
{
    mForm->addSensorTB->setVisible(abOn);
    mForm->simSensorsPB->setVisible(abOn);
    mForm->fakeRXPB->setVisible(abOn);
    mForm->keepAlivePB->setVisible(abOn);
}

void tcVexaK40::loadSettings(QSettings* apSettings)
{
    apSettings->beginGroup(name());
    loadHistory(*apSettings);
    bool readable = false;
    const int length
        = apSettings->value(QStringLiteral("mMaxDescriptionLength"), cDefaultLength)
              .toInt(&readable);
    mMaxDescriptionLength = readable && length >= 0 ? length : cDefaultLength;
    mRxBuffer.setLimit(mMaxDescriptionLength);
    setAdvanced(apSettings->value(QStringLiteral("advanced"), false).toBool());
    mForm->tabWidget->setCurrentIndex(apSettings->value(QStringLiteral("tab")).toInt());
    apSettings->endGroup();
    loadPresets(QFileInfo(apSettings->fileName()).path() + QStringLiteral("/presets.ini"));
}

void tcVexaK40::loadHistory(QSettings& arSettings)
{
    mForm->CommandCB->clear();
    arSettings.beginGroup(QStringLiteral("cmds"));
    const int size = arSettings.value(QStringLiteral("size")).toInt();
    for (const int number : tcIniArray::entryNumbers(arSettings, size)) {
        const QString key = QString::number(number) + QStringLiteral("/cmd");
        mForm->CommandCB->addItem(arSettings.value(key).toString());
    }
    arSettings.endGroup();
    mForm->CommandCB->setCurrentIndex(-1); // nothing is typed yet
}

void tcVexaK40::saveSettings(QSettings* apSettings)
{
    apSettings->beginGroup(name());
    apSettings->remove(QStringLiteral("cmds")); // no leftovers of a longer history
    const QComboBox* history = mForm->CommandCB;
    apSettings->beginWriteArray(QStringLiteral("cmds"), history->count());
    for (int index = 0; index < history->count(); ++index) {
        apSettings->setArrayIndex(index);
        apSettings->setValue(QStringLiteral("cmd"), history->itemText(index));
    }
    apSettings->endArray();
    apSettings->setValue(QStringLiteral("mMaxDescriptionLength"), mMaxDescriptionLength);
    if (mForm->tabWidget->currentIndex() > 0)
        apSettings->setValue(QStringLiteral("tab"), mForm->tabWidget->currentIndex());
    else
        apSettings->remove(QStringLiteral("tab"));
    apSettings->endGroup();
}

void tcVexaK40::loadPresets(const QString& acPath)
{
    const tcPresetList::tcFile file = tcPresetList::read(acPath, mType);
    if (!file.problem.isEmpty()) {
        qDebug() << "No presets from" << acPath << ":" << file.problem;
        return;
    }
    mForm->presetsCB->clear();
    mPresets.rebuild(mType, file);
    for (int index = 0; index < mPresets.count(); ++index)
        mForm->presetsCB->addItem(QString::fromLocal8Bit(mPresets.at(index)->label),
                                  QVariant::fromValue(mPresets.at(index)));
    qDebug() << tcCmvNames::presetArray(mType) << " found" << mPresets.builtIns()
             << " hard coded + " << file.size << "file presets";
}

#include "camlink/tcCamlinkControl.h"

#include "camera/tcVexaK40.h"
#include "camlink/logic/teCmvType.h"
#include "camlink/tcSessionControl.h"
#include "camlink/tcVexaR60.h"
#include "camlink/tcVexaR70.h"
#include "widgets/tcReplyView.h"
#include "widgets/tcWaitCursor.h"

#include "ui_CamlinkControl.h"

#include <QCloseEvent>
#include <QMetaEnum>
#include <QSettings>
#include <QShortcut>

tcCamlinkControl::tcCamlinkControl(QWidget* apParent)
    : QWidget(apParent)
    , mForm(std::make_unique<Ui::CamlinkControl>())
    , mSession(new tcSessionControl(this))
{
    mForm->setupUi(this);
    refresh();
    addPanels();
    mForm->cameraCB->setCurrentIndex(0);
    mForm->controlSW->setCurrentIndex(0);
    connectForm();
}

tcCamlinkControl::~tcCamlinkControl()
{
    // Quitting sends no close event to a child, and nobody is left to be told.
    letGoOfPort();
}

template <class Panel>
void tcCamlinkControl::addPanel(int anIndex, Panel* apPanel)
{
    mForm->cameraCB->insertItem(anIndex, apPanel->name());
    mForm->controlSW->insertWidget(anIndex, apPanel);
    connect(this, &tcCamlinkControl::info, apPanel, &Panel::addText);
    connect(apPanel, &Panel::requestClosePort, this, &tcCamlinkControl::closeCamera);
}

void tcCamlinkControl::addPanels()
{
    mForm->cameraCB->clear();
    // Each sensor goes in front of the one before it, so the list runs from the largest down.
    const auto sensors = QMetaEnum::fromType<teCmvType>();
    for (int key = 0; key < sensors.keyCount(); ++key)
        addPanel(0, new tcVexaK40(static_cast<teCmvType>(sensors.value(key)), this));
    addPanel(1, new tcVexaR60(this));
    addPanel(2, new tcVexaR70(this));
    for (auto* view : findChildren<tcReplyView*>())
        view->addMenuAction(mSession->action());
}

void tcCamlinkControl::connectForm()
{
    connect(mForm->cameraCB, QOverload<int>::of(&QComboBox::currentIndexChanged),
            mForm->controlSW, &QStackedWidget::setCurrentIndex);
    connect(mForm->openPB, &QPushButton::clicked, this, &tcCamlinkControl::open);
    connect(mForm->portCB, &tcEntryBox::aboutToShow, this,
            &tcCamlinkControl::refreshUnlessOpen);
    // The button's own shortcut would go whenever its text changes.
    auto* press = new QShortcut(QKeySequence(QStringLiteral("Ctrl+O")), this);
    connect(press, &QShortcut::activated, mForm->openPB, &QPushButton::click);
    auto* again = new QShortcut(QKeySequence(QKeySequence::Refresh), this);
    connect(again, &QShortcut::activated, this, &tcCamlinkControl::refreshUnlessOpen);
}

void tcCamlinkControl::refresh()
{
    const QString chosen = mForm->portCB->currentText();
    mForm->portCB->clear();
    const QVector<tcSerialLink::tcPortInfo> ports = tcSerialLink::ports();
    for (int index = 0; index < ports.size(); ++index) {
        mForm->portCB->addItem(ports.at(index).displayText(static_cast<quint32>(index)));
        // As designed: behind the entries of earlier readings of the list.
        mPortManufacturers.append(ports.at(index).manufacturer);
    }
    const int again = mForm->portCB->findText(chosen);
    if (again >= 0)
        mForm->portCB->setCurrentIndex(again);
    mForm->openPB->setEnabled(mForm->portCB->count() > 0);
}

void tcCamlinkControl::refreshUnlessOpen()
{
    // A port that is in use stays where it is in the list, and "Close" stays within reach.
    if (mSerialRef != 0)
        return;
    const tcWaitCursor waiting; // some drivers look for their boards each time
    refresh();
}

void tcCamlinkControl::open()
{
    if (mForm->openPB->text() == tr("Open"))
        openPort();
    else
        closeCamera();
}

void tcCamlinkControl::openPort()
{
    const int index = mForm->portCB->currentIndex();
    if (index < 0)
        return;
    const tcSerialLink::tcOpened port = [index] {
        const tcWaitCursor waiting;
        return tcSerialLink::open(static_cast<quint32>(index));
    }();
    mManufacturer = mPortManufacturers.value(index);
    if (port.status != 0) {
        Q_EMIT info(tcSerialLink::errorText(mManufacturer, port.status));
        return;
    }
    mSerialRef = port.ref;
    mSession->portOpened(mForm->cameraCB->currentText(), mForm->portCB->currentText());
    if (tcCamlinkIface* panel = currentPanel()) {
        panel->setManufacturer(mManufacturer);
        panel->openPort(mSerialRef);
    }
    if (mSerialRef == 0)
        return; // closed again by whoever heard the panel's first words
    mForm->openPB->setText(tr("Close"));
    mForm->cameraCB->setEnabled(false);
    Q_EMIT opened(true);
}

void tcCamlinkControl::closeCamera()
{
    letGoOfPort();
    mForm->openPB->setText(tr("Open"));
    mForm->cameraCB->setEnabled(true);
    Q_EMIT opened(false);
}

void tcCamlinkControl::letGoOfPort()
{
    if (tcCamlinkIface* panel = currentPanel())
        panel->closePort();
    // Forgotten before it is closed: a driver that hangs meanwhile won't be asked twice.
    const tcSerialLink::tcRef ref = std::exchange(mSerialRef, 0);
    {
        const tcWaitCursor waiting;
        tcSerialLink::close(ref);
    }
    mSession->portClosed();
}

void tcCamlinkControl::closeEvent(QCloseEvent* apEvent)
{
    closeCamera();
    QWidget::closeEvent(apEvent);
}

tcCamlinkIface* tcCamlinkControl::currentPanel() const
{
    return qobject_cast<tcCamlinkIface*>(mForm->controlSW->currentWidget());
}

QList<tcCamlinkIface*> tcCamlinkControl::panels() const
{
    QList<tcCamlinkIface*> found;
    for (int page = 0; page < mForm->controlSW->count(); ++page) {
        if (auto* panel = qobject_cast<tcCamlinkIface*>(mForm->controlSW->widget(page)))
            found.append(panel);
    }
    return found;
}

void tcCamlinkControl::loadSettings(QSettings* apSettings)
{
    mSession->loadSettings(apSettings);
    apSettings->beginGroup(QStringLiteral("panel"));
    const QString camera = apSettings->value(QStringLiteral("camera")).toString();
    apSettings->endGroup();
    const int index = camera.isEmpty()
        ? -1
        : mForm->cameraCB->findText(camera, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        mForm->cameraCB->setCurrentIndex(index);
    for (tcCamlinkIface* panel : panels())
        panel->loadSettings(apSettings);
}

void tcCamlinkControl::saveSettings(QSettings* apSettings)
{
    mSession->saveSettings(apSettings);
    apSettings->beginGroup(QStringLiteral("panel"));
    apSettings->setValue(QStringLiteral("camera"), mForm->cameraCB->currentText());
    apSettings->endGroup();
    for (tcCamlinkIface* panel : panels())
        panel->saveSettings(apSettings);
}

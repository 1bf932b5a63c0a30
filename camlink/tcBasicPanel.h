#pragma once

#include "camlink/logic/tcReceivedText.h"
#include "camlink/tcCamlinkIface.h"
#include "widgets/tcHistoryKeys.h"
#include "widgets/tcReplyView.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

/// What the panels of the basic cameras share: fixed presets, typed commands, script files, and
/// a view of everything the camera sends back. A panel adds its form, its name and its presets.
///
/// Without a meta-object of its own: the slots belong to each panel.
class tcBasicPanel : public tcCamlinkIface
{
    Q_DECLARE_TR_FUNCTIONS(tcBasicPanel) // both panels show the same words

public:
    void openPort(tcSerialLink::tcRef aRef) override;
    void closePort() override;

protected:
    struct tcPresetTable
    {
        const Preset* first = nullptr; ///< static storage
        int count = 0;
    };

    tcBasicPanel(const tcPresetTable& acPresets, QWidget* apParent);

    /// Fills and wires a form once it is set up; Form is either panel's, with the same widgets.
    template <class Panel, class Form>
    void connectForm(Panel* apPanel, const Form& acForm);

    void sendTypedCommand();
    void sendChosenPreset();
    void sendChosenFile();
    /// The view follows, as it does for replies, while its cursor is in sight.
    void showText(const QString& acText);
    /// Reads what waits, 128 bytes at a time, and shows it. Leaves after a time slice even if
    /// bytes keep coming; the next tick goes on.
    void drainReceived();

private:
    void fillPresets();
    void insertText(const QString& acText);

    tcPresetTable mPresets;
    QTimer mRxTimer{this}; ///< runs while a port is open and its baud rate is set
    tcReceivedText mReceived;
    QComboBox* mPresetsCB = nullptr; ///< the four below are the form's, by Qt parenthood
    QLineEdit* mCommandLE = nullptr;
    tcReplyView* mResponsePTE = nullptr;
    QStringList mSent; ///< typed commands, the newest first; kept while the program runs
};

template <class Panel, class Form>
void tcBasicPanel::connectForm(Panel* apPanel, const Form& acForm)
{
    mPresetsCB = acForm.presetsCB;
    mCommandLE = acForm.CommandLE;
    mResponsePTE = acForm.PortRespPTE;
    connect(&mRxTimer, &QTimer::timeout, apPanel, &Panel::CheckRxData);
    connect(mCommandLE, &QLineEdit::returnPressed, apPanel, &Panel::SendCommand);
    connect(acForm.SendCommandPB, &QPushButton::clicked, apPanel, &Panel::SendCommand);
    connect(acForm.SendPresetPB, &QPushButton::clicked, apPanel, &Panel::SendPreset);
    connect(acForm.SendCustomPB, &QPushButton::clicked, apPanel, &Panel::SendFile);
    mResponsePTE->ensureCursorVisible();
    tcReplyView::installShortcuts(this, {mResponsePTE});
    new tcHistoryKeys(mCommandLE, [this] { return mSent; });
    fillPresets();
    acForm.TimingGroupBox->hide();
    acForm.ROIGroupBox->hide();
}

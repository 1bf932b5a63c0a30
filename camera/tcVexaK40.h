#pragma once

#include "camera/logic/tcPresetList.h"
#include "camera/logic/tcRxHistory.h"
#include "camlink/logic/teCmvType.h"
#include "camlink/tcCamlinkIface.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

class tcLogView;
class tcReceiver;
class tcSensorMonitor;

namespace Ui
{
class VexaK40;
}

/// The full camera panel, one per sensor type: commands and presets out, replies in, as text,
/// as hex and the last one by itself. Owns its form, timers and presets.
class tcVexaK40 : public tcCamlinkIface
{
    Q_OBJECT

public:
    explicit tcVexaK40(teCmvType aeType, QWidget* apParent = nullptr);
    ~tcVexaK40() override;

    QString name() const override;
    void openPort(tcSerialLink::tcRef aRef) override;
    void closePort() override;
    void loadSettings(QSettings* apSettings) override;
    void saveSettings(QSettings* apSettings) override;

    /// Routes one received line: the single entry for replies, real, typed and simulated.
    void handleReply(const QString& acLine);

    /// Sends one command as it is. Returns it, or why it could not be sent; nothing while no
    /// port is open.
    QString writeCommand(const QString& acCommand);

Q_SIGNALS:
    /// A reading came while "Plot Sensors" is on; the sensor need not be one that is polled.
    void sensorReading(int anNumber, double anValue);
    /// State of the sensor's cooler and its set point in degrees Celsius.
    void coolerState(bool abOn, double anSetPoint);

public Q_SLOTS:
    void CheckRxData();
    void SendCommand();
    void SendPreset();
    void SendFile();
    /// Adds a time-stamped entry to the log.
    void addText(const QString& arText);
    /// Applies the length rule to the log.
    void onTextChanged();
    /// Plots the checked sensors and sources from now on, or stops.
    void showTemps(bool abOn);
    /// Asks for one reading of each plotted sensor.
    void tempTimerCallback();
    void requestTemp(int anIndex);
    /// Lets the operator add a serial thermometer to the sensor list.
    void addOmegaMonitor();

private:
    void setUpViews();
    void setUpCommandBoxes();
    void arrangeExamples();
    void connectCommands();
    void connectPresets();
    void connectReceiving();
    void connectSensors();

    void send(const QString& acText);
    void remember(const QString& acText);
    void showExample(int anIndex);
    void keepAlive();

    void route(const QString& acText);
    void log(const QString& acText, bool abToEnd);
    void showLatest();
    void onBytesReceived(const QByteArray& acBytes);
    void clearViews();
    void updateHexSoon();
    void updateHex();

    tcPreset* currentPreset() const;
    void showPresetScript();
    void loadPresets(const QString& acPath);
    void loadHistory(QSettings& arSettings);
    void setAdvanced(bool abOn);

    std::unique_ptr<Ui::VexaK40> mForm;
    teCmvType mType;
    tcPresetList mPresets;
    tcReceiver* mReceiver;                     ///< child
    std::unique_ptr<tcSensorMonitor> mSensors; ///< child that goes before the form it uses
    tcLogView* mLog = nullptr;                 ///< child of its view
    QTimer mRxTimer;
    QTimer mKeepAliveTimer;
    QTimer mHexTimer; ///< one hex view for all that came in one pass of the event loop
    tcRxHistory mRxBuffer;
    QElapsedTimer mHexAge;   ///< since the hex view was last set
    bool mHexIsOld = false;  ///< the received bytes are not those of the hex view
    bool mReceiving = false; ///< inside a run of the receiver
    QString mLastReply;
    bool mLastReplyIsOld = false; ///< the view does not show it yet
    QString mExpectedReply;       ///< its reply is not logged; empty when none is awaited
    int mMaxDescriptionLength;    ///< of log (characters) and received bytes
};

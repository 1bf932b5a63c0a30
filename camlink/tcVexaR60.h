#pragma once

#include "camlink/tcBasicPanel.h"

#include <memory>

namespace Ui
{
class VexaR60;
}

/// Panel of the Vexa-R60.
class tcVexaR60 : public tcBasicPanel
{
    Q_OBJECT

public:
    explicit tcVexaR60(QWidget* apParent = nullptr);
    ~tcVexaR60() override;

    QString name() const override;

public Q_SLOTS:
    void CheckRxData() { drainReceived(); }
    void SendCommand() { sendTypedCommand(); }
    void SendPreset() { sendChosenPreset(); }
    void SendFile() { sendChosenFile(); }
    // By value: so the chooser and the slot's name have it.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    void addText(QString acText) { showText(acText); }

private:
    std::unique_ptr<Ui::VexaR60> mForm;
};

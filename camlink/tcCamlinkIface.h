#pragma once

#include "camlink/logic/tcPreset.h"
#include "camlink/tcSerialLink.h"

#include <QMetaType>
#include <QString>
#include <QWidget>

class QSettings;

/// Base of every camera panel: all that the chooser knows of one.
///
/// The chooser asks for the name once, loads the settings once, then hands the port to the
/// visible panel and takes it back in turn, and saves the settings once. It takes the port back
/// before it closes it, so a panel never uses the port after closePort().
class tcCamlinkIface : public QWidget
{
    Q_OBJECT

public:
    using Preset = tcPreset;

    explicit tcCamlinkIface(QWidget* apParent = nullptr);

    /// Display name in the camera list.
    virtual QString name() const = 0;
    /// Keeps the port, sets the line up and starts polling.
    virtual void openPort(tcSerialLink::tcRef aRef) = 0;
    /// Stops polling and forgets the port. Harmless when none is open.
    virtual void closePort() = 0;
    /// Restores and stores the panel's own settings; the object is not kept beyond the call.
    virtual void loadSettings(QSettings* apSettings);
    virtual void saveSettings(QSettings* apSettings);

    /// Whose texts explain the port's errors; told before each openPort().
    void setManufacturer(const QString& acManufacturer) { mManufacturer = acManufacturer; }

Q_SIGNALS:
    /// The panel wants its port closed; the chooser does it.
    void requestClosePort();

protected:
    QString mManufacturer; ///< maker of the grabber behind the port; empty until told
    tcSerialLink::tcRef mSerialRef = 0; ///< 0 while closed
};

Q_DECLARE_METATYPE(tcCamlinkIface::Preset*)

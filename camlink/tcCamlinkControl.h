#pragma once

#include "camlink/tcSerialLink.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class QSettings;
class tcCamlinkIface;
class tcSessionControl;

namespace Ui
{
class CamlinkControl;
}

/// Chooser of camera and port, with the chosen camera's panel below. It opens and closes the
/// port; only the panel that is visible while it opens is given it.
///
/// Owns one panel for each camera model, all alive for as long as it lives. A port that is
/// still open when it goes is closed.
class tcCamlinkControl : public QWidget
{
    Q_OBJECT

public:
    explicit tcCamlinkControl(QWidget* apParent = nullptr);
    ~tcCamlinkControl() override;

    /// The chosen camera and every panel's own settings; the object is not kept.
    void loadSettings(QSettings* apSettings);
    void saveSettings(QSettings* apSettings);

    /// The log of what goes over the line, by Qt parenthood.
    tcSessionControl* session() const { return mSession; }

Q_SIGNALS:
    void opened(bool abOpen);
    /// For the operator, shown by every panel.
    void info(QString text);

public Q_SLOTS:
    /// Reads the list of ports again.
    void refresh();
    /// The button: opens or closes, whichever it says.
    void open();
    /// Harmless when nothing is open.
    void closeCamera();

protected:
    void closeEvent(QCloseEvent* apEvent) override;

private:
    template <class Panel>
    void addPanel(int anIndex, Panel* apPanel);
    void addPanels();
    void connectForm();
    void openPort();
    void refreshUnlessOpen();
    void letGoOfPort();
    tcCamlinkIface* currentPanel() const;
    QList<tcCamlinkIface*> panels() const;

    std::unique_ptr<Ui::CamlinkControl> mForm;
    tcSessionControl* mSession;         ///< by Qt parenthood
    tcSerialLink::tcRef mSerialRef = 0; ///< 0 while closed
    QStringList mPortManufacturers;
    QString mManufacturer; ///< of the port last opened
};

#pragma once

#include <QMainWindow>
#include <QString>

#include <memory>

class QAction;
class QMenu;
class QSettings;
class QStatusBar;
class tcCamlinkControl;

/// The program's window: menus, status bar, and the chooser with the camera panels as its
/// centre. Owns the program's one settings object and lends it to whoever loads or saves.
class tcMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit tcMainWindow(QWidget* apParent = nullptr);
    ~tcMainWindow() override;

    /// Settings in that file; without one, in the user's own of this program's maker.
    static std::unique_ptr<QSettings> settingsOn(const QString& acFile);

public Q_SLOTS:
    void ShowAbout();
    void Opened(bool abOpen);

protected:
    bool event(QEvent* apEvent) override;
    void closeEvent(QCloseEvent* apEvent) override;

private:
    void setIdentity();
    void buildMenus();
    void addDocuments(QMenu* apMenu);
    void buildStatusBar();
    void openSettingsFile();
    QSettings* settings();
    void restorePlace();
    void storeSettings();

    tcCamlinkControl* mCamlinkControl = nullptr; ///< central widget, by Qt parenthood
    QStatusBar* mStatusBar = nullptr;            ///< by Qt parenthood, as the three below
    QMenu* mFileMenu = nullptr;
    QAction* mExitAction = nullptr;
    QMenu* mHelpMenu = nullptr;
    QString mSettingsPath;                ///< empty where no folder for settings can be written
    std::unique_ptr<QSettings> mSettings; ///< made at first need
};

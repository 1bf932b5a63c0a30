#pragma once

#include "camlink/tcSessionLog.h"

#include <QAction>
#include <QString>

class QSettings;
class QWidget;

/// "Log session to file…": the entry in every response view's menu, and what stands behind it.
class tcSessionControl : public QObject
{
    Q_OBJECT

public:
    explicit tcSessionControl(QWidget* apParent);

    /// Checked while the log runs; the operator's way to start and stop it.
    QAction* action() { return &mAction; }

    void portOpened(const QString& acCamera, const QString& acPort);
    void portClosed();

    /// The file last logged to, which is offered again.
    void loadSettings(QSettings* apSettings);
    void saveSettings(QSettings* apSettings) const;

Q_SIGNALS:
    /// Name of the file while a log runs, empty when none does.
    void logging(QString file);
    void message(QString text);

private:
    void toggle(bool abOn);

    QWidget* mParent; ///< not owned; asks for the file
    tcSessionLog mLog;
    QAction mAction;
    QString mLastFile;
    QString mConnection; ///< camera and port while one is open
};

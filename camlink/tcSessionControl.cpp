#include "camlink/tcSessionControl.h"

#include "widgets/tcDialogs.h"

#include <QDir>
#include <QPointer>
#include <QSettings>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <QWidget>

namespace
{

const auto cFileKey = QStringLiteral("session/logFile");

} // namespace

tcSessionControl::tcSessionControl(QWidget* apParent)
    : QObject(apParent), mParent(apParent), mAction(tr("Log session to file..."))
{
    mAction.setCheckable(true);
    connect(&mAction, &QAction::toggled, this, &tcSessionControl::toggle);
    connect(&mLog, &tcSessionLog::message, this, &tcSessionControl::message);
    connect(&mLog, &tcSessionLog::runningChanged, this, [this](bool abRunning) {
        Q_EMIT logging(abRunning ? mLog.fileName() : QString());
    });
}

void tcSessionControl::toggle(bool abOn)
{
    if (!abOn) {
        mLog.stop();
        return;
    }
    QString start = mLastFile;
    if (start.isEmpty()) {
        start = QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
                    .filePath(QStringLiteral("session.log"));
    }
    const QPointer<tcSessionControl> self(this);
    const QString file = tcDialogs::current().appendFile(
        mParent, tr("Log Session To"), start, tr("log files (*.log *.txt);; All files (*)"));
    if (!self)
        return;
    if (!file.isEmpty() && mLog.start(file)) {
        mLastFile = file;
        if (!mConnection.isEmpty())
            mLog.note(tr("open: %1").arg(mConnection));
        return;
    }
    const QSignalBlocker quiet(&mAction);
    mAction.setChecked(false);
}

void tcSessionControl::portOpened(const QString& acCamera, const QString& acPort)
{
    mConnection = QStringLiteral("%1, %2").arg(acCamera, acPort);
    mLog.note(tr("open: %1").arg(mConnection));
}

void tcSessionControl::portClosed()
{
    if (!mConnection.isEmpty())
        mLog.note(tr("closed: %1").arg(mConnection));
    mConnection.clear();
}

void tcSessionControl::loadSettings(QSettings* apSettings)
{
    mLastFile = apSettings->value(cFileKey).toString();
}

void tcSessionControl::saveSettings(QSettings* apSettings) const
{
    if (!mLastFile.isEmpty())
        apSettings->setValue(cFileKey, mLastFile);
}

#pragma once

#include "camlink/logic/tcSessionText.h"
#include "camlink/tcSerialLink.h"

#include <QFile>
#include <QObject>
#include <QTimer>

/// Writes everything that goes over the serial line to a file, line by line, for fault reports.
///
/// Off until somebody starts it; while off it costs nothing. A write that fails is said once
/// and never stops the panel; writing goes on with the next line, and says how much is missing.
/// A file that is deleted meanwhile is begun anew.
class tcSessionLog : public QObject, private tcSerialLink::tcTap
{
    Q_OBJECT

public:
    explicit tcSessionLog(QObject* apParent = nullptr);
    ~tcSessionLog() override;

    /// Appends to the file; false, with a message, when it can't be opened.
    bool start(const QString& acFile);
    void stop();
    bool isRunning() const { return mRunning; }
    QString fileName() const { return mFile.fileName(); }

    /// A line of the panel's own, such as what was opened.
    void note(const QString& acText);

Q_SIGNALS:
    void runningChanged(bool abRunning);
    /// For the status bar.
    void message(QString text);

private:
    void sent(const QByteArray& acBytes, qint32 anStatus) override;
    void received(const QByteArray& acBytes) override;
    bool open();
    void sayUnable();
    void goOnIfGone();
    void writeRest();
    void write(const QByteArray& acLine);

    QFile mFile;           ///< closed while running where it was deleted and can't be made anew
    bool mRefused = false; ///< a pipe or a device, which could hold the window for ever
    bool mRunning = false;
    tcSessionLines mLines;
    QTimer mSilence;     ///< an unfinished line is written when the camera falls silent
    qint64 mMissing = 0; ///< bytes that a full disk refused since the last line that went
};

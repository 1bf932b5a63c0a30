#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class QAction;
class QWidget;
class tcCurveTable;
class tcLogWriter;
class tcMarkerTable;

/// Switches the chart's log on and off, with the questions that go with it, and feeds it. The
/// action shows at all times whether a log runs. GUI thread only.
class tcChartLog : public QObject
{
    Q_OBJECT

public:
    /// All outlive the log.
    tcChartLog(QWidget& arChart, QAction& arAction, const tcCurveTable& acCurves,
               tcMarkerTable& arMarkers);
    ~tcChartLog() override;

    /// On asks for file and duration; a log that runs is closed first.
    void switchTo(bool abOn, const QString& acChartName);
    /// Writes what has come since the last call; nothing without a log.
    void write(qint64 anNow);

    bool isOpen() const { return mWriter != nullptr; }
    QString file() const;                      ///< empty while no log runs
    QString status() const { return mStatus; } ///< for the window title

Q_SIGNALS:
    void changed();                      ///< file or status
    void started(const QString& acFile); ///< the file is open
    void fileChosen(const QString& acFile);

private:
    void start(const QString& acChartName);
    void stop();
    void runFor(int anMinutes);
    void passDuration();
    void writeMarkers();
    void setStatus(const QString& acStatus);

    QWidget& mChart;
    QAction& mAction;
    const tcCurveTable& mCurves;
    tcMarkerTable& mMarkers;
    std::unique_ptr<tcLogWriter> mWriter;
    QTimer mDuration;
    qint64 mMsLeft = 0; ///< of the duration, when mDuration fires
    QString mChartName;
    QString mStatus;
    QString mQuietStatus; ///< while nothing is wrong
    bool mFailed = false;
    bool mSwitching = false;
};

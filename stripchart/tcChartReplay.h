#pragma once

#include <QObject>
#include <QTimer>
#include <QUuid>

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QIODevice;
class QWidget;
class tcReplay;
class tcStripCurve;

/// Feeds a saved or logged file through the chart as if its readings came now, with the
/// questions that go with it. Owns the curves of the last replay, which stay when it has ended.
/// GUI thread only.
class tcChartReplay : public QObject
{
    Q_OBJECT

public:
    static constexpr int cStepMs = 50;

    using tcFiling = std::function<QUuid(tcStripCurve*, const QUuid&)>;
    using tcFeed = std::function<void(const QUuid&, int, qint64, double)>;

    /// What only the chart itself can do.
    struct tcActions
    {
        tcFiling fileCurve;
        tcFeed updateData;
        std::function<void()> showLive;  ///< back from a loaded file, where one is shown
        std::function<int()> curveCount; ///< that the chart holds
        std::function<qint64()> now;
        std::function<QString()> name;
        std::function<QString()> folder; ///< in which the question for the file starts
    };

    /// The chart outlives this.
    tcChartReplay(QWidget& arChart, tcActions aActions);
    ~tcChartReplay() override;

    /// Checked while a replay runs; belongs to the chart.
    QAction* action() const { return mAction; }
    bool isRunning() const { return mReplay != nullptr; }

    QString status() const { return mStatus; } ///< for the window title

Q_SIGNALS:
    void statusChanged();
    void fileUsed(const QString& acFile);

private:
    void switchTo(bool abOn);
    void ask();
    void start(const QString& acFile, int anSpeed);
    std::unique_ptr<tcReplay> read(QIODevice& arDevice, const QString& acFile, int anSpeed);
    void makeCurves();
    void step();
    void stop();
    void setStatus(const QString& acStatus);

    QWidget& mChart;
    tcActions mActions;
    QAction* mAction;
    std::unique_ptr<tcReplay> mReplay;
    std::vector<std::unique_ptr<tcStripCurve>> mCurves;
    QUuid mKey; ///< of the curves in the chart
    QTimer mTimer;
    QString mStatus;
    int mSpeed = 10; ///< proposed: the last one that was chosen
    bool mSwitching = false;
};

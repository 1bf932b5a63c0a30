#pragma once

#include <QMap>
#include <QObject>
#include <QTimer>
#include <QUuid>

#include <memory>
#include <vector>

class QAbstractButton;
class QListWidget;
class QListWidgetItem;
class QSpinBox;
class QToolButton;
class tcDataSource;
class tcStripChart;
class tcStripCurve;
enum class teSensorKind;

/// Watches the camera's health: polls the checked sensors, runs the checked external sources,
/// and plots both on the "Sensors" chart beside the cooler's set point.
///
/// Owns the chart window, its curves and the sources; works on the panel's controls. GUI
/// thread.
class tcSensorMonitor : public QObject
{
    Q_OBJECT

public:
    /// The panel's controls; not owned.
    struct tcControls
    {
        QListWidget* sensors = nullptr;
        QAbstractButton* plot = nullptr;
        QSpinBox* pollSeconds = nullptr;
        QAbstractButton* simulate = nullptr;
        QToolButton* addSource = nullptr;
    };

    tcSensorMonitor(const tcControls& acControls, QObject* apParent);
    ~tcSensorMonitor() override;

    /// Begins anew with what is checked now, or ends it. Waits for running sources to stop, and
    /// the event loop runs meanwhile; another call during that wait is ignored.
    void showTemps(bool abOn);
    /// Polls each sensor once, in ascending order.
    void pollAll();
    void requestTemp(int anNumber);
    /// Asks which serial thermometer to add to the list.
    void addOmegaMonitor();

    /// A reading of the camera came; dropped unless the sensor is polled.
    void addReading(int anNumber, double anValue);
    void showSetPoint(bool abOn, double anSetPoint);

    /// The chart window, hidden until something is plotted.
    tcStripChart& chart();

Q_SIGNALS:
    /// To be sent to the camera, if it is connected.
    void command(const QString& acCommand);
    /// Stands for one that the camera would have sent.
    void simulatedReply(const QString& acLine);
    /// For the operator.
    void message(const QString& acText);

private:
    struct tcRunningSource
    {
        tcDataSource* source = nullptr; ///< owned by this, through Qt
        tcStripCurve* curve = nullptr;  ///< one of mCurves
    };

    void setUpList();
    void setUpChart();
    void fillSourceMenu();
    void addSourceEntry(const QString& acChannel, const QString& acType);
    void addEntry(teSensorKind aeKind, const QString& acName, const QString& acSourceType,
                  const QString& acDisplayText = {});
    bool stopSources();
    void removeCurve(tcStripCurve* apCurve);
    void plotCheckedItems();
    void plotCameraSensor(const QListWidgetItem& acItem, int anNumber);
    void plotSource(const QListWidgetItem& acItem);
    tcStripCurve* addCurve(const QListWidgetItem& acItem);
    void setPollPeriod(int anSeconds);

    tcControls mControls;
    std::unique_ptr<tcStripChart> mChart;               ///< null until chart() is first called
    std::vector<std::unique_ptr<tcStripCurve>> mCurves; ///< goes before the chart
    QUuid mCurveKey;                                    ///< files the curves of one start
    QMap<int, QString> mSensorCommands;
    QMap<int, tcStripCurve*> mSensorCurves; ///< of mCurves
    QList<tcRunningSource> mSources;
    QUuid mSetPointMarker;
    QTimer mPollTimer{this};
    int mNextColor = 0;
    int mNextIndex = 0;
    bool mStopping = false;
    bool mSourceMenuFilled = false;
};

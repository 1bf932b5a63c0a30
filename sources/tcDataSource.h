#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class tcStripCurve;

/// A producer of time-stamped readings: one instrument, or one channel of one, shown as one
/// curve.
///
/// Lives on the GUI thread. The device loop behind it emits the signals from its own thread, so
/// receivers on the GUI thread get them queued. A receiver that is connected directly runs on
/// the loop's thread and must not wait for the GUI thread.
class tcDataSource : public QObject
{
    Q_OBJECT

public:
    explicit tcDataSource(QObject* apParent = nullptr);
    ~tcDataSource() override;

    /// The curve that shows this source; not owned.
    virtual void setCurve(tcStripCurve* apCurve);
    virtual tcStripCurve* curve() const;
    /// What the operator can pick from when adding a source of this type.
    virtual QStringList availableChannels() = 0;
    /// The title of the source and of its curve.
    virtual QString displayName() = 0;
    /// Under which the registry builds this class.
    virtual QString typeName() = 0;

Q_SIGNALS:
    /// One reading in degrees, and when it was taken in milliseconds since the Unix epoch.
    void tempReading(qint64 timestampMs, double value);
    /// A line about the source for the operator.
    void message(QString txt);

public Q_SLOTS:
    /// Begins to produce readings.
    virtual void start() = 0;
    /// Ends it and releases the instrument, within about a second whatever the driver does. The
    /// event loop runs meanwhile, so callers must bear being re-entered.
    virtual void stop() = 0;

public:
    /// Tells that stop() will follow, and does not wait. Whoever stops several sources tells
    /// all of them first, so that stuck instruments are waited for together; at the program's
    /// end every source is told.
    virtual void prepareStop() { }

protected:
    tcStripCurve* mCurve = nullptr;
    qint32 mInterval = 1000; ///< default interval in ms, at the disposal of concrete sources
    QString mTypeName;
};

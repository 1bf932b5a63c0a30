#include "sources/tcDataSource.h"
#include "sources/tcDeviceWorker.h"
#include "sources/tcSourceRegistry.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTest>

#include <memory>

//! [worker]
/// The device loop, on a thread of its own. It owns what it touches, and looks at the link's
/// stop flag after whatever may take long.
class tcRampWorker : public tcDeviceWorker
{
public:
    explicit tcRampWorker(tcDataSource* apOwner)
        : tcDeviceWorker(std::make_shared<tcWorkerLink>())
    {
        mLink->setSource(0, apOwner);
    }

protected:
    std::function<void()> loop() const override
    {
        return [link = mLink] {
            for (double value = 20.0; !link->stopRequested(); value += 0.5) {
                link->emitReading(0, QDateTime::currentMSecsSinceEpoch(), value);
                link->pause(10);
            }
            link->setFinished();
        };
    }
};
//! [worker]

//! [source]
/// Readings that rise by half a degree each.
class tcRampSource : public tcDataSource
{
    Q_OBJECT

public:
    explicit tcRampSource(QObject* apParent)
        : tcDataSource(apParent), mWorker(std::make_shared<tcRampWorker>(this))
    {
        mTypeName = registeredName();
    }
    ~tcRampSource() override { tcRampSource::stop(); }

    static QString registeredName() { return QStringLiteral("Ramp"); }
    QStringList availableChannels() override { return {QStringLiteral("CH1")}; }
    QString displayName() override { return typeName(); }
    QString typeName() override { return mTypeName; }
    void start() override { mWorker->start(); }
    void prepareStop() override { mWorker->requestStop(); }
    void stop() override
    {
        // Events run while the loop stops, so the worker is held here.
        const std::shared_ptr<tcRampWorker> worker = mWorker;
        worker->link().setSource(0, nullptr);
        worker->stop();
    }

private:
    const std::shared_ptr<tcRampWorker> mWorker;
};
//! [source]

namespace
{
//! [registration]
[[maybe_unused]] const bool cRampRegistered = tcSourceRegistry::registerBuilder(
    tcRampSource::registeredName(),
    [](const QString&, QObject* apParent) { return new tcRampSource(apParent); });
//! [registration]
} // namespace

/// The worked example of a data source.
class tst_NewSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isBuiltByItsTypeName();
    void readsUntilStopped();
};

void tst_NewSource::isBuiltByItsTypeName()
{
    QVERIFY(cRampRegistered);
    const std::unique_ptr<tcDataSource> source(
        tcSourceRegistry::createSource("Ramp", "CH1", nullptr));
    QVERIFY(source);
    QCOMPARE(source->typeName(), QString("Ramp"));
    QCOMPARE(source->availableChannels(), QStringList{"CH1"});
}

void tst_NewSource::readsUntilStopped()
{
    const std::unique_ptr<tcDataSource> source(
        tcSourceRegistry::createSource("Ramp", "CH1", nullptr));
    QVector<double> values;
    connect(source.get(), &tcDataSource::tempReading, this,
            [&values](qint64, double anValue) { values.append(anValue); });
    source->start();
    QTRY_VERIFY(values.size() >= 3);
    QCOMPARE(values.at(0), 20.0);
    QCOMPARE(values.at(2), 21.0);
    source->stop();
    QCoreApplication::processEvents(); // what was under way
    const int seen = values.size();
    QTest::qWait(50);
    QCOMPARE(values.size(), seen);
}

QTEST_MAIN(tst_NewSource)
#include "tst_newsource.moc"

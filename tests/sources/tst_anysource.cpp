#include "sim/omega/tcOmegaSim.h"
#include "sim/usbtc08/tc08sim.h"
#include "sources/tcDebugSource.h"
#include "sources/tcSourceRegistry.h"
#include "tests/sources/tcCaughtLog.h"
#include "tests/sources/tcReceived.h"

#include <QDateTime>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>
#include <QtTest>

#include <memory>

/// What every type of source has in common, whichever instrument is behind it.
class tst_AnySource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { tc08sim_command("conversion_ms=0 value3=23.4"); }
    void init() { mThermometer.command("temp 23.4"); }

    void isBuiltUnderItsType_data() { types(); }
    void isBuiltUnderItsType();
    void readsOnTheThreadOfItsReceiver_data() { types(); }
    void readsOnTheThreadOfItsReceiver();
    void startsThroughItsSlots_data() { types(); }
    void startsThroughItsSlots();
    void isSilentOnceStopped_data() { types(); }
    void isSilentOnceStopped();
    void stoppingTwiceOrUnstartedIsHarmless_data() { types(); }
    void stoppingTwiceOrUnstartedIsHarmless();
    void goesWithItsParentWhileItReads_data() { types(); }
    void goesWithItsParentWhileItReads();
    void goesWhileReadingsAreOnTheirWay_data() { types(); }
    void goesWhileReadingsAreOnTheirWay();
    void keepsTheCurveItIsGiven_data() { types(); }
    void keepsTheCurveItIsGiven();

private:
    static void types();
    tcDataSource* create(QObject* apParent = nullptr) const;
    /// Waits until the instrument was read this often, counted from now.
    void waitForInstrument(int anReadings) const;

    tcOmegaSim mThermometer;
};

void tst_AnySource::types()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("thermometer") << "Omega UTC";
    QTest::newRow("logger") << "Pico TC08";
}

tcDataSource* tst_AnySource::create(QObject* apParent) const
{
    const QString type = *static_cast<QString*>(QTest::qData("type", qMetaTypeId<QString>()));
    const QString name = type == "Omega UTC"
        ? QString::fromStdString(mThermometer.portName()) + " [ virtual ]"
        : QStringLiteral("CH3");
    return tcSourceRegistry::createSource(type, name, apParent);
}

void tst_AnySource::waitForInstrument(int anReadings) const
{
    const int before = tc08sim_calls("get_single");
    QTRY_VERIFY_WITH_TIMEOUT(tc08sim_calls("get_single") >= before + anReadings, 20000);
}

void tst_AnySource::isBuiltUnderItsType()
{
    QFETCH(QString, type);
    const std::unique_ptr<tcDataSource> source(create());
    QVERIFY(source);
    QCOMPARE(source->typeName(), type);
    QVERIFY(source->displayName().startsWith(type));
    QCOMPARE(source->curve(), nullptr);
    QVERIFY(source->inherits("tcDataSource"));
    QVERIFY(dynamic_cast<tcDebugSource*>(source.get()));
    QCOMPARE(tcDebugSource::index().count(source->metaObject()->className()), 1);
}

void tst_AnySource::readsOnTheThreadOfItsReceiver()
{
    const std::unique_ptr<tcDataSource> source(create());
    const tcReceived received(source.get());
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    source->start();
    QTRY_VERIFY(received.values.size() >= 2);
    QVERIFY(received.rightThread);
    QVERIFY(qAbs(received.values.first() - 23.4) < 1e-5);
    QVERIFY(received.times.first() >= before);
    QVERIFY(received.times.first() <= QDateTime::currentMSecsSinceEpoch());
    source->stop();
}

void tst_AnySource::startsThroughItsSlots()
{
    const std::unique_ptr<tcDataSource> source(create());
    const tcReceived received(source.get());
    QVERIFY(QMetaObject::invokeMethod(source.get(), "start", Qt::QueuedConnection));
    QTRY_VERIFY(received.values.size() >= 1);
    QVERIFY(QMetaObject::invokeMethod(source.get(), "stop"));
}

void tst_AnySource::isSilentOnceStopped()
{
    const std::unique_ptr<tcDataSource> source(create());
    const tcReceived received(source.get());
    source->start();
    QTRY_VERIFY(received.values.size() >= 1);
    source->stop();
    QCoreApplication::processEvents(); // what was on its way already
    const int count = received.values.size();
    waitForInstrument(2);
    QCOMPARE(received.values.size(), count);
}

void tst_AnySource::stoppingTwiceOrUnstartedIsHarmless()
{
    const std::unique_ptr<tcDataSource> source(create());
    bool eventsRan = false;
    QTimer::singleShot(0, this, [&] { eventsRan = true; });
    source->stop();
    source->stop();
    QVERIFY(!eventsRan); // none of it waited
    QTRY_VERIFY(eventsRan);
    const std::unique_ptr<tcDataSource> started(create());
    started->start();
    started->stop();
    started->stop();
}

void tst_AnySource::goesWithItsParentWhileItReads()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<tcDataSource> source = create(parent.get());
    QCOMPARE(source->parent(), parent.get());
    const tcReceived received(source);
    source->start();
    QTRY_VERIFY(received.values.size() >= 1);
    parent.reset();
    QVERIFY(!source);
    waitForInstrument(1);
}

void tst_AnySource::goesWhileReadingsAreOnTheirWay()
{
    // The receiver deletes the source that sent the reading.
    tcDataSource* source = create();
    int arrived = 0;
    connect(source, &tcDataSource::tempReading, this, [&] {
        ++arrived;
        delete source;
    });
    source->start();
    QTRY_COMPARE(arrived, 1);
    waitForInstrument(2);
    QCOMPARE(arrived, 1);
}

void tst_AnySource::keepsTheCurveItIsGiven()
{
    const std::unique_ptr<tcDataSource> source(create());
    auto* curve = reinterpret_cast<tcStripCurve*>(this); // never looked into
    source->setCurve(curve);
    source->start();
    source->stop();
    QCOMPARE(source->curve(), curve);
}

QTEST_GUILESS_MAIN(tst_AnySource)
#include "tst_anysource.moc"

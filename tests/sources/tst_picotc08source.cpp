#include "sim/usbtc08/tc08sim.h"
#include "sources/tcPicoTC08MonWorker.h"
#include "sources/tcPicoTC08Source.h"
#include "sources/tcTC08Ops.h"
#include "tests/sources/tcCaughtLog.h"
#include "tests/sources/tcReceived.h"

#include <QDateTime>
#include <QtTest>

#include <memory>

/// The driver object lives as long as the program, so the tests share it and its loop.
class tst_PicoTC08Source : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstSourceMakesTheDriverObject();
    void offersEightInputs();
    void everyTitleIsTheSame_data();
    void everyTitleIsTheSame();
    void onlyInputsRegister_data();
    void onlyInputsRegister();
    void readsItsOwnChannel();
    void readingsCarryTheirTime();
    void overflowDropsTheReading();
    void overflowWarnsWithoutASource();
    void noNumberIsDropped_data();
    void noNumberIsDropped();
    void failingUnitReadsZero();
    void newerSourceTakesTheChannel();
    void olderSourceStillClearsTheChannel();
    void stoppedSourceReceivesNothing();
    void deletedWhileTheDriverHangs();
    void fiveHundredRounds();

private:
    static void waitForReadings(int anCount)
    {
        const int before = tc08sim_calls("get_single");
        QTRY_VERIFY_WITH_TIMEOUT(tc08sim_calls("get_single") >= before + anCount, 20000);
    }
};

void tst_PicoTC08Source::init()
{
    QCOMPARE(tc08sim_command("reset conversion_ms=0"), 1);
}

void tst_PicoTC08Source::firstSourceMakesTheDriverObject()
{
    QVERIFY(!tcTC08Ops::instance());
    tcPicoTC08Source first{QString()};
    tcTC08Ops* ops = tcTC08Ops::instance();
    QVERIFY(ops);
    QVERIFY(ops->isLoaded());
    const tcPicoTC08Source second(QStringLiteral("CH1"));
    QCOMPARE(tcTC08Ops::instance(), ops);
}

void tst_PicoTC08Source::offersEightInputs()
{
    tcPicoTC08Source source{QString()};
    const QStringList inputs{"CH1", "CH2", "CH3", "CH4", "CH5", "CH6", "CH7", "CH8"};
    QCOMPARE(source.availableChannels(), inputs);
    QCOMPARE(source.typeName(), QStringLiteral("Pico TC08"));
}

void tst_PicoTC08Source::everyTitleIsTheSame_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"", "CH1", "CH3", "CH8", "CH9"})
        QTest::newRow(*name ? name : "none") << QString(name);
}

void tst_PicoTC08Source::everyTitleIsTheSame()
{
    QFETCH(QString, name);
    const tcCaughtLog log;
    tcPicoTC08Source source(name);
    QCOMPARE(source.displayName(), QStringLiteral("Pico TC08 CH Pico TC08"));
    QCOMPARE(log.warnings(), QStringList());
}

void tst_PicoTC08Source::onlyInputsRegister_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("channel");
    QTest::newRow("first") << "CH1" << 1;
    QTest::newRow("last") << "CH8" << 8;
    QTest::newRow("beyond the last") << "CH9" << 0;
    QTest::newRow("cold junction") << "CH0" << 0;
    QTest::newRow("no name") << "" << 0;
    QTest::newRow("no number") << "CHx" << 0;
}

void tst_PicoTC08Source::onlyInputsRegister()
{
    QFETCH(QString, name);
    QFETCH(int, channel);
    const tcCaughtLog log;
    const auto lines = [&] {
        return log.debugs().filter("source for"); // the loop logs lines of its own
    };
    tcWorkerLink& link = tcTC08Ops::instance()->worker()->link();
    {
        tcPicoTC08Source source(name);
        source.start();
        for (size_t slot = 0; slot < 9; ++slot)
            QCOMPARE(link.hasSource(slot), channel > 0 && slot == size_t(channel));
        if (channel > 0)
            QCOMPARE(
                lines(),
                QStringList{QString("Added source for PICO TC08 channel %1").arg(channel)});
        source.stop();
        for (size_t slot = 0; slot < 9; ++slot)
            QVERIFY(!link.hasSource(slot));
    }
    // Stopping and being deleted each take it out.
    if (channel > 0)
        QCOMPARE(lines()
                     .filter("Removed source for PICO TC08 channel " + QString::number(channel))
                     .size(),
                 2);
    else
        QCOMPARE(lines(), QStringList());
}

void tst_PicoTC08Source::readsItsOwnChannel()
{
    tc08sim_command("value0=20 value1=1.5 value3=-3.25 value8=800");
    tcPicoTC08Source first(QStringLiteral("CH1"));
    tcPicoTC08Source third(QStringLiteral("CH3"));
    tcPicoTC08Source last(QStringLiteral("CH8"));
    waitForReadings(1); // one may have been under way
    const tcReceived fromFirst(&first);
    const tcReceived fromThird(&third);
    const tcReceived fromLast(&last);
    for (tcPicoTC08Source* source : {&first, &third, &last})
        source->start();
    QTRY_VERIFY(fromFirst.values.size() >= 2 && fromThird.values.size() >= 2
                && fromLast.values.size() >= 2);
    for (int at = 0; at < 2; ++at) {
        QCOMPARE(fromFirst.values.at(at), 1.5);
        QCOMPARE(fromThird.values.at(at), -3.25);
        QCOMPARE(fromLast.values.at(at), 800.0);
    }
    QVERIFY(fromFirst.rightThread);
    QCOMPARE(fromFirst.messages, QStringList());
}

void tst_PicoTC08Source::readingsCarryTheirTime()
{
    tcPicoTC08Source source(QStringLiteral("CH2"));
    const tcReceived received(&source);
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    source.start();
    QTRY_VERIFY(received.times.size() >= 2);
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    QVERIFY(received.times.at(0) >= before);
    QVERIFY(received.times.at(1) <= after);
    QVERIFY(received.times.at(1) >= received.times.at(0) + 1000); // the pause between readings
}

void tst_PicoTC08Source::overflowDropsTheReading()
{
    tc08sim_command("overflow=0x08");
    waitForReadings(1);
    const tcCaughtLog log;
    tcPicoTC08Source third(QStringLiteral("CH3"));
    tcPicoTC08Source fourth(QStringLiteral("CH4"));
    const tcReceived fromThird(&third);
    const tcReceived fromFourth(&fourth);
    third.start();
    fourth.start();
    QTRY_VERIFY(fromFourth.values.size() >= 2);
    QVERIFY(log.warnings().contains("PICO TC08: Overflow on ch: 3"));
    QCOMPARE(log.warnings().filter("Overflow").size(),
             log.warnings().filter("on ch: 3").size());
    QCOMPARE(fromThird.values.size(), 0);
    tc08sim_command("overflow=0");
    QTRY_VERIFY(fromThird.values.size() >= 1);
}

void tst_PicoTC08Source::overflowWarnsWithoutASource()
{
    const tcCaughtLog log;
    tc08sim_command("overflow=0x101");
    QTRY_VERIFY(log.warnings().contains("PICO TC08: Overflow on ch: 0"));
    QTRY_VERIFY(log.warnings().contains("PICO TC08: Overflow on ch: 8"));
}

void tst_PicoTC08Source::noNumberIsDropped_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("not a number") << QByteArray("nan");
    QTest::newRow("infinite") << QByteArray("inf");
    QTest::newRow("negative infinite") << QByteArray("-inf");
}

void tst_PicoTC08Source::noNumberIsDropped()
{
    QFETCH(QByteArray, value);
    tc08sim_command(("value5=" + value + " value6=" + value).constData());
    waitForReadings(1);
    const tcCaughtLog log;
    tcPicoTC08Source fifth(QStringLiteral("CH5"));
    tcPicoTC08Source seventh(QStringLiteral("CH7"));
    const tcReceived fromFifth(&fifth);
    const tcReceived fromSeventh(&seventh);
    fifth.start();
    seventh.start();
    QTRY_VERIFY(fromSeventh.values.size() >= 2);
    QCOMPARE(fromFifth.values.size(), 0);
    QVERIFY(log.warnings().contains("PICO TC08: Overflow on ch: 5"));
    // An input that nobody shows and that has no thermocouple is no news.
    QVERIFY(!log.warnings().contains("PICO TC08: Overflow on ch: 6"));
}

void tst_PicoTC08Source::failingUnitReadsZero()
{
    tc08sim_command("value3=50 fail=get_single");
    waitForReadings(1);
    const tcCaughtLog log;
    tcPicoTC08Source source(QStringLiteral("CH3"));
    const tcReceived received(&source);
    source.start();
    QTRY_VERIFY(received.values.size() >= 1);
    QCOMPARE(received.values.first(), 0.0);
    QCOMPARE(log.warnings(), QStringList()); // no overflow, whatever the driver left out
}

void tst_PicoTC08Source::newerSourceTakesTheChannel()
{
    const tcCaughtLog log;
    tcPicoTC08Source older(QStringLiteral("CH3"));
    tcPicoTC08Source newer(QStringLiteral("CH3"));
    older.start();
    QCOMPARE(log.warnings(), QStringList());
    newer.start();
    QCOMPARE(log.warnings(), QStringList{"Replacing source for PICO TC08 channel 3"});
    QCOMPARE(log.debugs().filter("Added source for PICO TC08 channel 3").size(), 2);
    QCoreApplication::processEvents();
    const tcReceived fromOlder(&older);
    const tcReceived fromNewer(&newer);
    QTRY_VERIFY(fromNewer.values.size() >= 2);
    QCOMPARE(fromOlder.values.size(), 0);
}

void tst_PicoTC08Source::olderSourceStillClearsTheChannel()
{
    auto older = std::make_unique<tcPicoTC08Source>(QStringLiteral("CH3"));
    tcPicoTC08Source newer(QStringLiteral("CH3"));
    older->start();
    newer.start();
    QVERIFY(tcTC08Ops::instance()->worker()->link().hasSource(3));
    older.reset();
    QVERIFY(!tcTC08Ops::instance()->worker()->link().hasSource(3));
}

void tst_PicoTC08Source::stoppedSourceReceivesNothing()
{
    tcPicoTC08Source source(QStringLiteral("CH1"));
    const tcReceived received(&source);
    source.start();
    QTRY_VERIFY(received.values.size() >= 1);
    source.stop();
    QCoreApplication::processEvents();
    const int before = received.values.size();
    waitForReadings(2);
    QCOMPARE(received.values.size(), before);
    source.start(); // and starts again
    QTRY_VERIFY(received.values.size() > before);
}

void tst_PicoTC08Source::deletedWhileTheDriverHangs()
{
    tc08sim_command("hang=get_single");
    QTRY_COMPARE(tc08sim_inside("get_single"), 1);
    for (int round = 0; round < 20; ++round) {
        tcPicoTC08Source source(QStringLiteral("CH1"));
        source.start();
    }
    auto left = std::make_unique<tcPicoTC08Source>(QStringLiteral("CH2"));
    left->start();
    left.reset();
    tcPicoTC08Source source(QStringLiteral("CH2"));
    const tcReceived received(&source);
    source.start();
    tc08sim_command("release");
    QTRY_VERIFY(received.values.size() >= 1);
    QCOMPARE(tc08sim_most_at_once(), 1);
}

void tst_PicoTC08Source::fiveHundredRounds()
{
    const tcCaughtLog log;
    for (int round = 0; round < 500; ++round) {
        tcPicoTC08Source source(QStringLiteral("CH%1").arg(round % 8 + 1));
        source.start();
        if (round % 10 == 0)
            QCoreApplication::processEvents();
        source.stop();
    }
    QCOMPARE(log.debugs().filter("Added source").size(), 500);
    QCOMPARE(log.debugs().filter("Removed source").size(), 1000);
    tcPicoTC08Source source(QStringLiteral("CH1"));
    const tcReceived received(&source);
    source.start();
    QTRY_VERIFY(received.values.size() >= 1);
}

QTEST_GUILESS_MAIN(tst_PicoTC08Source)
#include "tst_picotc08source.moc"

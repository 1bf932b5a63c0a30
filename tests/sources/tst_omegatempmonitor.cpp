#include "sim/omega/tcOmegaSim.h"
#include "sources/tcOmegaMonWorker.h"
#include "sources/tcOmegaTempMonitor.h"
#include "tests/sources/tcCaughtLog.h"
#include "tests/sources/tcHangingPort.h"
#include "tests/sources/tcPlainSource.h"
#include "tests/sources/tcReceived.h"

#include <QDateTime>
#include <QPointer>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QThreadPool>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <vector>

namespace
{

QString port(const tcOmegaSim& acSim)
{
    return QString::fromStdString(acSim.portName());
}

/// A worker that begins to ask at once, for tests of what follows.
struct tcQuickWorker
{
    explicit tcQuickWorker(const QString& acPort)
        : received(&source), worker(std::make_shared<tcOmegaMonWorker>(&source, acPort, 0))
    {
        worker->start();
    }
    tcQuickWorker(const tcQuickWorker&) = delete;
    tcQuickWorker& operator=(const tcQuickWorker&) = delete;
    ~tcQuickWorker()
    {
        worker->link().setSource(0, nullptr);
        worker->stop();
    }

    tcPlainSource source;
    tcReceived received;
    std::shared_ptr<tcOmegaMonWorker> worker;
};

} // namespace

class tst_OmegaTempMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void listsThePortsOfTheSystem();
    void listsExtraPortsAfterThem();
    void titleNamesThePortUntilStopped();
    void lineIsSetUp();
    void poolNeverDeletesTheWorker();
    void workerBeginsToAskAfterASecondUnlessTold();
    void readsTheThermometer();
    void requestsBeginASecondAfterOpening();
    void asksAsFastAsItIsAnswered();
    void badRepliesAreReported_data();
    void badRepliesAreReported();
    void unframedRepliesAreDroppedSilently_data();
    void unframedRepliesAreDroppedSilently();
    void splitReplyIsLost();
    void onlyTheFirstLineOfAPortionIsRead();
    void silentThermometerIsAskedAgain();
    void silentThermometerDoesNotDelayAStop();
    void portThatCannotBeOpened_data();
    void portThatCannotBeOpened();
    void startsAgainAfterAFailedOpening();
    void secondMonitorOfOnePortIsRefused();
    void incompleteWriteEndsTheLoop();
    void pulledThermometerIsReportedOnce();
    void pulledThermometerDoesNotFillBuffers();
    void talkativeThermometerDoesNotFillBuffers();
    void monitorMayBeDeletedWhileItStops();
    void stuckMonitorIsLetGoAndMadeAnew();
    void moreThermometersThanCores();
    void unstartedMonitorCostsNoTime();
    void fiveHundredRounds();
};

void tst_OmegaTempMonitor::cleanup()
{
    QVERIFY(QThreadPool::globalInstance()->waitForDone(20000));
}

void tst_OmegaTempMonitor::listsThePortsOfTheSystem()
{
    qunsetenv("TARVIK_EXTRA_SERIAL_PORTS");
    QStringList expected;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        expected.append(info.portName() + " [ " + info.description() + " ]");
    tcOmegaTempMonitor monitor{QString()};
    QCOMPARE(monitor.availableChannels(), expected);
}

void tst_OmegaTempMonitor::listsExtraPortsAfterThem()
{
    tcOmegaTempMonitor monitor{QString()};
    qunsetenv("TARVIK_EXTRA_SERIAL_PORTS");
    const QStringList system = monitor.availableChannels();
    qputenv("TARVIK_EXTRA_SERIAL_PORTS", "/somewhere/thermometer=virtual thermometer;other");
    const QStringList extra{"/somewhere/thermometer [ virtual thermometer ]", "other [  ]"};
    QCOMPARE(monitor.availableChannels(), system + extra);
    if (!system.isEmpty()) {
        const QByteArray known = system.first().section(" [ ", 0, 0).toLocal8Bit();
        qputenv("TARVIK_EXTRA_SERIAL_PORTS", known + "=once more");
        QCOMPARE(monitor.availableChannels(), system);
    }
    qunsetenv("TARVIK_EXTRA_SERIAL_PORTS");
}

void tst_OmegaTempMonitor::titleNamesThePortUntilStopped()
{
    tcOmegaTempMonitor monitor(QStringLiteral("COM3"));
    QCOMPARE(monitor.typeName(), QStringLiteral("Omega UTC"));
    QCOMPARE(monitor.displayName(), QStringLiteral("Omega UTC COM3"));
    monitor.stop();
    QCOMPARE(monitor.displayName(), QStringLiteral("Omega UTC None"));
    monitor.start();
    monitor.stop();
    QCOMPARE(monitor.displayName(), QStringLiteral("Omega UTC None"));
    tcOmegaTempMonitor odd(QStringLiteral("%1%2"));
    QCOMPARE(odd.displayName(), QStringLiteral("Omega UTC %1%2"));
}

void tst_OmegaTempMonitor::lineIsSetUp()
{
    tcOmegaSim sim;
    tcHangingPort::takeSettings();
    tcOmegaTempMonitor monitor(port(sim));
    monitor.start();
    QTRY_COMPARE(sim.received(), std::string("\r\n"));
    const std::vector<termios> asked = tcHangingPort::takeSettings();
    QVERIFY(!asked.empty());
    QCOMPARE(cfgetispeed(&asked.back()), speed_t(B38400));
    QCOMPARE(cfgetospeed(&asked.back()), speed_t(B38400));
    // Later ones begin with what the pseudo-terminal made of the first, always eight bits
    // without parity.
    QCOMPARE(asked.front().c_cflag & CSIZE, tcflag_t(CS8));
    QCOMPARE(asked.front().c_cflag & (PARENB | CSTOPB | CRTSCTS), tcflag_t(0));
    QCOMPARE(asked.front().c_iflag & (IXON | IXOFF), tcflag_t(0));
}

void tst_OmegaTempMonitor::poolNeverDeletesTheWorker()
{
    tcPlainSource source;
    QVERIFY(!tcOmegaMonWorker(&source, "COM3").autoDelete());
}

void tst_OmegaTempMonitor::workerBeginsToAskAfterASecondUnlessTold()
{
    tcPlainSource source;
    QCOMPARE(tcOmegaMonWorker(&source, "COM3").pollIntervalMs(), qint64(1000));
    QCOMPARE(tcOmegaMonWorker(&source, "COM3", 250).pollIntervalMs(), qint64(250));
}

void tst_OmegaTempMonitor::readsTheThermometer()
{
    tcOmegaSim sim;
    sim.command("temp 23.4");
    tcOmegaTempMonitor monitor(port(sim));
    const tcReceived received(&monitor);
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    monitor.start();
    QTRY_VERIFY(received.values.size() >= 3);
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    QCOMPARE(received.values.mid(0, 3), (QVector<double>{23.4, 23.4, 23.4}));
    for (int at = 0; at < 3; ++at)
        QVERIFY(received.times.at(at) >= before && received.times.at(at) <= after);
    QVERIFY(received.rightThread);
    QCOMPARE(received.messages, QStringList());
    monitor.stop();
    const int count = received.values.size();
    QCoreApplication::processEvents();
    QVERIFY(received.values.size() <= count + 1);
}

void tst_OmegaTempMonitor::requestsBeginASecondAfterOpening()
{
    tcOmegaSim sim;
    tcOmegaTempMonitor monitor(port(sim));
    QElapsedTimer elapsed;
    elapsed.start();
    monitor.start();
    // The two opening bytes leave at once, not with the first request.
    QTRY_COMPARE(sim.received(), std::string("\r\n"));
    QTRY_VERIFY(sim.requests() >= 1);
    // The clock began before the port was opened, but both count in whole milliseconds.
    QVERIFY2(elapsed.elapsed() >= 999, qPrintable(QString::number(elapsed.elapsed())));
    QTRY_VERIFY(sim.requests() >= 2);
    QCOMPARE(sim.received().substr(0, 8), std::string("\r\nc\r\nc\r\n"));
}

void tst_OmegaTempMonitor::asksAsFastAsItIsAnswered()
{
    tcOmegaSim sim;
    tcOmegaTempMonitor monitor(port(sim));
    const tcReceived received(&monitor);
    monitor.start();
    QTRY_VERIFY(received.times.size() >= 8);
    monitor.stop();
    qint64 shortest = 1000000;
    for (int at = 1; at < received.times.size(); ++at)
        shortest = qMin(shortest, received.times.at(at) - received.times.at(at - 1));
    // Each turn pauses 100 ms, and none waits for the interval again.
    QVERIFY2(shortest >= 90 && shortest < 1000, qPrintable(QString::number(shortest)));
}

void tst_OmegaTempMonitor::badRepliesAreReported_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("message");
    QTest::newRow("too hot") << QByteArray(">1000\\n") << "Bad read: >1000\n";
    QTest::newRow("too cold") << QByteArray(">-273\\r\\n") << "Bad read: >-273\r\n";
    QTest::newRow("no number") << QByteArray(">open\\n") << "Bad read: >open\n";
    QTest::newRow("not a number") << QByteArray(">nan\\n") << "Bad read: >nan\n";
    QTest::newRow("place mark") << QByteArray(">%1\\n") << "Bad read: >%1\n";
}

void tst_OmegaTempMonitor::badRepliesAreReported()
{
    QFETCH(QByteArray, reply);
    tcOmegaSim sim;
    sim.command("reply " + reply.toStdString());
    const tcQuickWorker quick(port(sim));
    QTRY_VERIFY(quick.received.messages.size() >= 2);
    QTEST(quick.received.messages.first(), "message");
    QCOMPARE(quick.received.values.size(), 0);
    // It goes on, and reads again what is right again.
    sim.command("normal");
    sim.command("temp -40");
    QTRY_COMPARE(quick.received.values.value(0), -40.0);
}

void tst_OmegaTempMonitor::unframedRepliesAreDroppedSilently_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("no sign") << QByteArray("reply 23.4\\n");
    QTest::newRow("no line feed") << QByteArray("reply >23.4");
    QTest::newRow("garbage") << QByteArray("garbage");
    QTest::newRow("empty line") << QByteArray("reply \\r\\n");
}

void tst_OmegaTempMonitor::unframedRepliesAreDroppedSilently()
{
    QFETCH(QByteArray, command);
    tcOmegaSim sim;
    QVERIFY(sim.command(command.toStdString()));
    const tcQuickWorker quick(port(sim));
    QTRY_VERIFY(sim.requests() >= 4);
    QCOMPARE(quick.received.messages, QStringList());
    QCOMPARE(quick.received.values.size(), 0);
    sim.command("normal");
    QTRY_VERIFY(quick.received.values.size() >= 1);
}

void tst_OmegaTempMonitor::splitReplyIsLost()
{
    tcOmegaSim sim;
    sim.command("temp 23.4");
    sim.command("split 3 200");
    QSerialPort line(port(sim));
    QVERIFY(line.open(QIODevice::ReadWrite));
    tcPlainSource source;
    const tcReceived received(&source);
    tcWorkerLink link;
    link.setSource(0, &source);
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString()); // the first piece
    sim.command("normal");
    sim.command("temp 7");
    QTRY_VERIFY((line.waitForReadyRead(10), line.bytesAvailable() > 0));
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString()); // the rest of it
    QCOMPARE(received.values.size(), 0);
    QCOMPARE(received.messages, QStringList());
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    QCOMPARE(received.values, QVector<double>{7});
}

void tst_OmegaTempMonitor::onlyTheFirstLineOfAPortionIsRead()
{
    tcOmegaSim sim;
    sim.command("temp 5");
    QSerialPort line(port(sim));
    QVERIFY(line.open(QIODevice::ReadWrite));
    tcPlainSource source;
    const tcReceived received(&source);
    tcWorkerLink link;
    link.setSource(0, &source);
    sim.command("echo");
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    QCOMPARE(received.values.size(), 0); // that was the echo
    sim.command("normal");
    sim.command("temp 6");
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    QCOMPARE(received.values, QVector<double>{5});
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    QCOMPARE(received.values, (QVector<double>{5, 6}));
}

void tst_OmegaTempMonitor::silentThermometerIsAskedAgain()
{
    tcOmegaSim sim;
    sim.command("silence");
    QElapsedTimer elapsed; // from before the first request, however late this thread sees that
    elapsed.start();
    const tcQuickWorker quick(port(sim));
    QTRY_VERIFY(sim.requests() >= 3);
    QVERIFY2(elapsed.elapsed() >= 2000, "no second was waited for a reply");
    QCOMPARE(quick.received.messages, QStringList());
    QCOMPARE(quick.received.values.size(), 0);
}

void tst_OmegaTempMonitor::silentThermometerDoesNotDelayAStop()
{
    tcOmegaSim sim;
    sim.command("silence");
    const tcCaughtLog log;
    tcOmegaTempMonitor monitor(port(sim));
    monitor.start();
    QTRY_VERIFY(sim.requests() >= 1);
    monitor.stop();
    QCOMPARE(log.warnings(), QStringList());
}

void tst_OmegaTempMonitor::portThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "/nowhere/thermometer";
    QTest::newRow("no terminal") << "/etc/passwd";
    QTest::newRow("no name") << "";
    QTest::newRow("place marks") << "/nowhere/%1%2";
}

void tst_OmegaTempMonitor::portThatCannotBeOpened()
{
    QFETCH(QString, name);
    tcOmegaTempMonitor monitor(name);
    const tcReceived received(&monitor);
    monitor.start();
    QTRY_COMPARE(received.messages.size(), 1);
    // The reason in between is the system's own.
    QSerialPort same(name);
    QVERIFY(!same.open(QIODevice::ReadWrite));
    QCOMPARE(received.messages.first(), "Error " + same.errorString() + " opening " + name);
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QCOMPARE(monitor.displayName(), "Omega UTC " + name);
}

void tst_OmegaTempMonitor::startsAgainAfterAFailedOpening()
{
    QTemporaryDir folder;
    const QString link = folder.filePath("thermometer");
    tcOmegaTempMonitor monitor(link);
    const tcReceived received(&monitor);
    monitor.start();
    QTRY_COMPARE(received.messages.size(), 1);
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    tcOmegaSim sim;
    QVERIFY(sim.setLink(link.toStdString()));
    monitor.start();
    QTRY_VERIFY(received.values.size() >= 1);
    QCOMPARE(received.messages.size(), 1);
}

void tst_OmegaTempMonitor::secondMonitorOfOnePortIsRefused()
{
    tcOmegaSim sim;
    tcOmegaTempMonitor first(port(sim));
    tcOmegaTempMonitor second(port(sim));
    const tcReceived fromFirst(&first);
    const tcReceived fromSecond(&second);
    first.start();
    QTRY_COMPARE(sim.received(), std::string("\r\n"));
    second.start();
    QTRY_COMPARE(fromSecond.messages.size(), 1);
    QVERIFY(fromSecond.messages.first().startsWith("Error "));
    QVERIFY(fromSecond.messages.first().endsWith(" opening " + port(sim)));
    QTRY_VERIFY(fromFirst.values.size() >= 1);
}

void tst_OmegaTempMonitor::incompleteWriteEndsTheLoop()
{
    tcOmegaSim sim;
    QSerialPort line(port(sim));
    QVERIFY(line.open(QIODevice::ReadOnly));
    tcPlainSource source;
    const tcReceived received(&source);
    tcWorkerLink link;
    link.setSource(0, &source);
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    QCOMPARE(received.messages,
             QStringList{"Bad write: -1/3 bytes [" + line.errorString() + "]"});
    QVERIFY(link.stopRequested());
}

void tst_OmegaTempMonitor::pulledThermometerIsReportedOnce()
{
    tcOmegaSim sim;
    const QString name = port(sim);
    const tcQuickWorker quick(name);
    QTRY_VERIFY(quick.received.values.size() >= 1);
    sim.command("unplug");
    QTRY_COMPARE(quick.received.messages.size(), 1);
    QCOMPARE(quick.received.messages.first(), "Error device gone polling " + name);
    QVERIFY(!quick.worker->link().isFinished()); // it goes on asking, in vain
}

void tst_OmegaTempMonitor::pulledThermometerDoesNotFillBuffers()
{
    tcOmegaSim sim;
    QSerialPort line(port(sim));
    QVERIFY(line.open(QIODevice::ReadWrite));
    tcWorkerLink link;
    QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
    sim.command("unplug");
    for (int turn = 0; turn < 1000; ++turn) {
        QVERIFY(!tcOmegaMonWorker::poll(line, link).isEmpty());
        QCOMPARE(line.bytesToWrite(), qint64(0));
        QCOMPARE(line.bytesAvailable(), qint64(0));
    }
    QVERIFY(!link.stopRequested());
}

void tst_OmegaTempMonitor::talkativeThermometerDoesNotFillBuffers()
{
    tcOmegaSim sim;
    sim.command("temp 5");
    sim.command("flood 400");
    QSerialPort line(port(sim));
    QVERIFY(line.open(QIODevice::ReadWrite));
    tcPlainSource source;
    const tcReceived received(&source);
    tcWorkerLink link;
    link.setSource(0, &source);
    for (int turn = 0; turn < 200; ++turn) {
        QCOMPARE(tcOmegaMonWorker::poll(line, link), QString());
        QVERIFY2(line.bytesAvailable() <= 64,
                 qPrintable(QString::number(line.bytesAvailable())));
    }
    QVERIFY(received.values.size() > 0);
}

void tst_OmegaTempMonitor::monitorMayBeDeletedWhileItStops()
{
    tcOmegaSim sim;
    tcHangingPort::gate().shut();
    QPointer<tcOmegaTempMonitor> monitor = new tcOmegaTempMonitor(port(sim));
    monitor->start();
    QTRY_COMPARE(tcHangingPort::gate().inside(), 1);
    QTimer::singleShot(0, this, [&] {
        QCOMPARE(monitor->displayName(), QStringLiteral("Omega UTC None"));
        monitor->stop(); // nothing is left to be stopped
        delete monitor;
        tcHangingPort::gate().open();
    });
    monitor->stop();
    QVERIFY(!monitor);
}

void tst_OmegaTempMonitor::stuckMonitorIsLetGoAndMadeAnew()
{
    const tcCaughtLog log;
    tcOmegaSim sim;
    tcHangingPort::gate().shut();
    const QString name = port(sim);
    {
        tcOmegaTempMonitor monitor(name);
        const tcReceived received(&monitor);
        monitor.start();
        QTRY_COMPARE(tcHangingPort::gate().inside(), 1);
        monitor.stop();
        QCOMPARE(monitor.displayName(), QStringLiteral("Omega UTC None"));
        QCOMPARE(log.warnings(), QStringList{"Worker for \"" + name + "\"  stuck... killing"});
        // Another is refused while the first one holds the port, and comes to no harm.
        tcOmegaTempMonitor next(name);
        const tcReceived fromNext(&next);
        next.start();
        QTRY_COMPARE(fromNext.messages.size(), 1);
        QCOMPARE(received.messages, QStringList());
    }
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QCOMPARE(tcHangingPort::gate().inside(), 1);
    tcHangingPort::gate().open();
    // The first one lets the port go at last.
    QTRY_VERIFY([&] {
        QSerialPort line(name);
        return line.open(QIODevice::ReadWrite);
    }());
    tcOmegaTempMonitor again(name);
    const tcReceived received(&again);
    again.start();
    QTRY_VERIFY(received.values.size() >= 1);
    QCOMPARE(log.warnings().size(), 1);
}

void tst_OmegaTempMonitor::moreThermometersThanCores()
{
    const int limit = QThreadPool::globalInstance()->maxThreadCount();
    const int count = QThread::idealThreadCount() + 4;
    std::vector<std::unique_ptr<tcOmegaSim>> sims;
    std::vector<std::unique_ptr<tcOmegaTempMonitor>> monitors;
    std::vector<std::unique_ptr<tcReceived>> received;
    for (int at = 0; at < count; ++at) {
        sims.push_back(std::make_unique<tcOmegaSim>());
        sims.back()->command("temp " + std::to_string(at));
        monitors.push_back(std::make_unique<tcOmegaTempMonitor>(port(*sims.back())));
        received.push_back(std::make_unique<tcReceived>(monitors.back().get()));
        monitors.back()->start();
    }
    for (int at = 0; at < count; ++at)
        QTRY_COMPARE(received.at(size_t(at))->values.value(0, -1), double(at));
    monitors.clear();
    QTRY_COMPARE(QThreadPool::globalInstance()->maxThreadCount(), limit);
}

void tst_OmegaTempMonitor::unstartedMonitorCostsNoTime()
{
    bool eventsRan = false;
    QTimer::singleShot(0, this, [&] { eventsRan = true; });
    for (int round = 0; round < 12; ++round)
        tcOmegaTempMonitor(QStringLiteral("COM1")).availableChannels();
    QVERIFY(!eventsRan); // nothing was waited for, or events would have run
    QTRY_VERIFY(eventsRan);
}

void tst_OmegaTempMonitor::fiveHundredRounds()
{
    const tcCaughtLog log;
    tcOmegaSim sim;
    QStringList messages;
    for (int round = 0; round < 500; ++round) {
        tcOmegaTempMonitor monitor(port(sim));
        connect(&monitor, &tcDataSource::message, this,
                [&](const QString& text) { messages.append(text); });
        monitor.start();
        if (round % 5 == 0)
            QCoreApplication::processEvents();
        monitor.stop();
    }
    QCOMPARE(messages, QStringList());
    QCOMPARE(log.warnings(), QStringList());
    tcOmegaTempMonitor monitor(port(sim));
    const tcReceived received(&monitor);
    monitor.start();
    QTRY_VERIFY(received.values.size() >= 1);
}

QTEST_GUILESS_MAIN(tst_OmegaTempMonitor)
#include "tst_omegatempmonitor.moc"

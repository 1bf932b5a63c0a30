#include "sources/tcDeviceWorker.h"
#include "tests/sources/tcGate.h"
#include "tests/sources/tcPlainSource.h"
#include "tests/sources/tcReceived.h"

#include <QThreadPool>
#include <QTimer>
#include <QtTest>

#include <vector>

namespace
{

using tcLinkPointer = std::shared_ptr<tcWorkerLink>;

/// A loop that is a function.
class tcFunctionWorker : public tcDeviceWorker
{
public:
    using tcBody = std::function<void(tcWorkerLink&)>;

    explicit tcFunctionWorker(tcBody aBody,
                              tcLinkPointer aLink = std::make_shared<tcWorkerLink>())
        : tcDeviceWorker(std::move(aLink)), mBody(std::move(aBody))
    {
    }

protected:
    std::function<void()> loop() const override
    {
        return [link = mLink, body = mBody] { body(*link); };
    }

private:
    const tcBody mBody;
};

std::shared_ptr<tcFunctionWorker> makeWorker(tcFunctionWorker::tcBody aBody)
{
    return std::make_shared<tcFunctionWorker>(std::move(aBody));
}

void runUntilStopped(tcWorkerLink& arLink)
{
    while (!arLink.stopRequested())
        arLink.pause(1000);
    arLink.setFinished();
}

tcGate& occupants()
{
    static tcGate gate;
    return gate;
}

/// Occupies a thread of the pool until the gate opens.
class tcOccupant : public QRunnable
{
public:
    void run() override { occupants().pass(); }
};

QThreadPool& pool()
{
    return *QThreadPool::globalInstance();
}

} // namespace

class tst_DeviceWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void runsOnAnotherThread();
    void stopEndsAPauseAtOnce();
    void oneThatWasNeverHandedOverIsNotWaitedFor();
    void oneThatIsQueuedIsTakenBack();
    void limitOfThePoolRisesByOneEach();
    void moreLoopsThanThePoolAllows();
    void secondStartIsIgnored();
    void runsAgainAfterItFinished();
    void stopThatComesBeforeTheLoopIsNotLost();
    void stuckLoopIsLetGo();
    void stuckLoopReachesNobodyAndFreesItsMemory();
    void stuckLoopNeverStartsAgain();
    void severalStuckLoopsShareTheirSecond();
    void requestIsForgottenByTheNextStart();
    void windowLivesWhileALoopIsWaitedFor();
    void workerMayGoWhileItIsWaitedFor();
    void loopThatEndsUnfinishedIsWaitedFor();
    void sourceCanGoWhileItEmits();
    void directReceiverMayTakeItsSourceOut();
    void fiveHundredRounds();

private:
    int mLimit = 0;
};

void tst_DeviceWorker::init()
{
    mLimit = pool().maxThreadCount();
}

void tst_DeviceWorker::cleanup()
{
    QTRY_COMPARE(pool().activeThreadCount(), 0);
    QCOMPARE(pool().maxThreadCount(), mLimit);
}

void tst_DeviceWorker::runsOnAnotherThread()
{
    const auto ran = std::make_shared<std::atomic<Qt::HANDLE>>(nullptr);
    const auto worker = makeWorker([ran](tcWorkerLink& link) {
        *ran = QThread::currentThreadId();
        runUntilStopped(link);
    });
    worker->start();
    QTRY_VERIFY(ran->load());
    QVERIFY(ran->load() != QThread::currentThreadId());
    QVERIFY(!worker->link().isFinished());
    QVERIFY(worker->stop());
    QVERIFY(worker->link().isFinished());
}

void tst_DeviceWorker::stopEndsAPauseAtOnce()
{
    const auto worker = makeWorker([](tcWorkerLink& link) {
        link.pause(3600 * 1000);
        link.setFinished();
    });
    worker->start();
    QVERIFY(worker->stop());
}

void tst_DeviceWorker::oneThatWasNeverHandedOverIsNotWaitedFor()
{
    bool eventsRan = false;
    QTimer::singleShot(0, this, [&] { eventsRan = true; });
    QVERIFY(makeWorker(runUntilStopped)->stop());
    QVERIFY(!eventsRan);
    QTRY_VERIFY(eventsRan);
}

void tst_DeviceWorker::oneThatIsQueuedIsTakenBack()
{
    pool().setMaxThreadCount(1);
    occupants().shut();
    // Two strangers: the second takes the place that our worker brings along.
    pool().start(new tcOccupant);
    pool().start(new tcOccupant);
    const auto ran = std::make_shared<std::atomic<bool>>(false);
    const auto worker = makeWorker([ran](tcWorkerLink& link) {
        *ran = true;
        runUntilStopped(link);
    });
    worker->start();
    QCOMPARE(pool().maxThreadCount(), 2);
    QTRY_COMPARE(occupants().inside(), 2);
    QVERIFY(worker->stop());
    QCOMPARE(pool().maxThreadCount(), 1);
    QCOMPARE(worker.use_count(), 1L);
    occupants().open();
    QVERIFY(pool().waitForDone());
    QVERIFY(!*ran);
    pool().setMaxThreadCount(mLimit);
}

void tst_DeviceWorker::limitOfThePoolRisesByOneEach()
{
    std::vector<std::shared_ptr<tcFunctionWorker>> workers;
    for (int count = 1; count <= 3; ++count) {
        workers.push_back(makeWorker(runUntilStopped));
        QCOMPARE(pool().maxThreadCount(), mLimit + count - 1);
        workers.back()->start();
        QCOMPARE(pool().maxThreadCount(), mLimit + count);
    }
    for (const auto& worker : workers)
        QVERIFY(worker->stop());
    QTRY_COMPARE(pool().maxThreadCount(), mLimit);
}

void tst_DeviceWorker::moreLoopsThanThePoolAllows()
{
    pool().setMaxThreadCount(1);
    const auto gate = std::make_shared<tcGate>();
    gate->shut();
    const int count = 3 * QThread::idealThreadCount() + 1;
    std::vector<std::shared_ptr<tcFunctionWorker>> workers;
    for (int at = 0; at < count; ++at) {
        workers.push_back(makeWorker([gate](tcWorkerLink& link) {
            gate->pass();
            runUntilStopped(link);
        }));
        workers.back()->start();
    }
    QTRY_COMPARE(gate->inside(), count);
    gate->open();
    for (const auto& worker : workers)
        QVERIFY(worker->stop());
    QTRY_COMPARE(pool().maxThreadCount(), 1);
    pool().setMaxThreadCount(mLimit);
}

void tst_DeviceWorker::secondStartIsIgnored()
{
    const auto begun = std::make_shared<std::atomic<int>>(0);
    const auto worker = makeWorker([begun](tcWorkerLink& link) {
        ++*begun;
        runUntilStopped(link);
    });
    worker->start();
    worker->start();
    QCOMPARE(pool().maxThreadCount(), mLimit + 1);
    QTRY_COMPARE(begun->load(), 1);
    QVERIFY(worker->stop());
    QCOMPARE(begun->load(), 1);
}

void tst_DeviceWorker::runsAgainAfterItFinished()
{
    const auto begun = std::make_shared<std::atomic<int>>(0);
    const auto worker = makeWorker([begun](tcWorkerLink& link) {
        ++*begun;
        link.setFinished();
    });
    worker->start();
    QTRY_COMPARE(pool().maxThreadCount(), mLimit);
    QVERIFY(worker->link().isFinished());
    QTRY_VERIFY((worker->start(), begun->load() >= 2));
    QVERIFY(worker->stop());
}

void tst_DeviceWorker::stopThatComesBeforeTheLoopIsNotLost()
{
    for (int round = 0; round < 100; ++round) {
        const auto worker = makeWorker(runUntilStopped);
        worker->start();
        QVERIFY(worker->stop());
    }
}

void tst_DeviceWorker::stuckLoopIsLetGo()
{
    const auto gate = std::make_shared<tcGate>();
    gate->shut();
    auto worker = makeWorker([gate](tcWorkerLink&) { gate->pass(); });
    worker->start();
    QTRY_COMPARE(gate->inside(), 1);
    QElapsedTimer waited;
    waited.start();
    QVERIFY(!worker->stop());
    QVERIFY(waited.elapsed() >= 900); // nine pauses of 100 ms between ten checks

    // The pool has its thread back, which would keep the program from quitting.
    QVERIFY(pool().waitForDone());
    QCOMPARE(gate->inside(), 1);
    QCOMPARE(worker.use_count(), 1L);
    worker.reset();
    gate->open();
    QTRY_COMPARE(gate->inside(), 0);
}

void tst_DeviceWorker::stuckLoopReachesNobodyAndFreesItsMemory()
{
    const auto gate = std::make_shared<tcGate>();
    const auto reached = std::make_shared<std::atomic<int>>(-1);
    gate->shut();
    std::weak_ptr<tcWorkerLink> left;
    {
        auto source = std::make_unique<tcPlainSource>();
        const auto link = std::make_shared<tcWorkerLink>();
        left = link;
        const auto worker = std::make_shared<tcFunctionWorker>(
            [gate, reached](tcWorkerLink& arLink) {
                gate->pass();
                *reached
                    = arLink.emitReading(0, 1, 2.0) || arLink.emitMessage(0, "late") ? 1 : 0;
            },
            link);
        link->setSource(0, source.get());
        worker->start();
        QTRY_COMPARE(gate->inside(), 1);
        QCOMPARE(link->setSource(0, nullptr), source.get());
        QVERIFY(!worker->stop());
    }
    QVERIFY(!left.expired());
    gate->open();
    QTRY_COMPARE(reached->load(), 0);
    QTRY_VERIFY(left.expired());
}

void tst_DeviceWorker::stuckLoopNeverStartsAgain()
{
    const auto gate = std::make_shared<tcGate>();
    const auto begun = std::make_shared<std::atomic<int>>(0);
    gate->shut();
    const auto worker = makeWorker([gate, begun](tcWorkerLink&) {
        ++*begun;
        gate->pass();
    });
    worker->start();
    QTRY_COMPARE(gate->inside(), 1);
    QVERIFY(!worker->stop());
    QVERIFY(pool().waitForDone());
    worker->start();
    QCOMPARE(pool().maxThreadCount(), mLimit);
    gate->open();
    QTRY_COMPARE(gate->inside(), 0);
    QCOMPARE(begun->load(), 1);
}

void tst_DeviceWorker::severalStuckLoopsShareTheirSecond()
{
    constexpr int cLoops = 40; // would take forty seconds, one after the other
    const auto gate = std::make_shared<tcGate>();
    gate->shut();
    std::vector<std::shared_ptr<tcFunctionWorker>> workers;
    for (int at = 0; at < cLoops; ++at) {
        workers.push_back(makeWorker([gate](tcWorkerLink&) { gate->pass(); }));
        workers.back()->start();
    }
    QTRY_COMPARE(gate->inside(), cLoops);
    QElapsedTimer waited;
    waited.start();
    for (const auto& worker : workers)
        worker->requestStop();
    for (const auto& worker : workers)
        QVERIFY(!worker->stop());
    QVERIFY(waited.elapsed() >= 900);
    QVERIFY2(waited.elapsed() < 20000, qPrintable(QString::number(waited.elapsed())));
    gate->open();
    QTRY_COMPARE(gate->inside(), 0);
}

void tst_DeviceWorker::requestIsForgottenByTheNextStart()
{
    const auto worker = makeWorker(runUntilStopped);
    worker->requestStop();
    worker->start();
    QVERIFY(!worker->link().stopRequested());
    worker->requestStop();
    QTRY_VERIFY(worker->link().isFinished());
    QVERIFY(worker->stop());
}

void tst_DeviceWorker::windowLivesWhileALoopIsWaitedFor()
{
    const auto gate = std::make_shared<tcGate>();
    gate->shut();
    const auto worker = makeWorker([gate](tcWorkerLink&) { gate->pass(); });
    worker->start();
    QTRY_COMPARE(gate->inside(), 1);
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { ++ticks; });
    timer.start(1);
    QVERIFY(!worker->stop());
    QVERIFY2(ticks >= 9, qPrintable(QString::number(ticks))); // at least one in each pause
    gate->open();
    QTRY_COMPARE(gate->inside(), 0);
}

void tst_DeviceWorker::workerMayGoWhileItIsWaitedFor()
{
    const auto gate = std::make_shared<tcGate>();
    gate->shut();
    auto owned = makeWorker([gate](tcWorkerLink& link) {
        gate->pass();
        link.setFinished();
    });
    owned->start();
    QTRY_COMPARE(gate->inside(), 1);
    QTimer::singleShot(0, this, [&] {
        owned.reset();
        gate->open();
    });
    const std::shared_ptr<tcDeviceWorker> caller = owned;
    QVERIFY(caller->stop());
    QVERIFY(!owned);
}

void tst_DeviceWorker::loopThatEndsUnfinishedIsWaitedFor()
{
    const auto worker = makeWorker([](tcWorkerLink&) {});
    worker->start();
    QVERIFY(pool().waitForDone());
    QElapsedTimer waited;
    waited.start();
    QVERIFY(!worker->stop());
    QVERIFY(waited.elapsed() >= 900);
}

void tst_DeviceWorker::sourceCanGoWhileItEmits()
{
    const auto worker = makeWorker([](tcWorkerLink& link) {
        while (!link.stopRequested()) {
            link.emitReading(0, 1, 2.0);
            link.emitMessage(0, QStringLiteral("text"));
        }
        link.setFinished();
    });
    worker->start();
    int arrived = 0;
    QObject receiver; // takes along the readings that are still queued when the test is over
    for (int round = 0; round < 500; ++round) {
        auto source = std::make_unique<tcPlainSource>();
        connect(source.get(), &tcDataSource::tempReading, &receiver, [&] { ++arrived; });
        QCOMPARE(worker->link().setSource(0, source.get()), nullptr);
        const int before = arrived;
        QCoreApplication::processEvents();
        if (round % 50 == 0)
            QTRY_VERIFY(arrived > before);
        QCOMPARE(worker->link().setSource(0, nullptr), source.get());
    }
    QVERIFY(worker->stop());
}

void tst_DeviceWorker::directReceiverMayTakeItsSourceOut()
{
    tcPlainSource source;
    const auto link = std::make_shared<tcWorkerLink>();
    const auto worker = std::make_shared<tcFunctionWorker>(
        [](tcWorkerLink& arLink) {
            arLink.emitReading(0, 1, 2.0);
            arLink.setFinished();
        },
        link);
    link->setSource(0, &source);
    connect(
        &source, &tcDataSource::tempReading, &source, [link] { link->setSource(0, nullptr); },
        Qt::DirectConnection);
    worker->start();
    QTRY_VERIFY(link->isFinished());
    QVERIFY(!link->hasSource(0));
    QVERIFY(worker->stop());
}

void tst_DeviceWorker::fiveHundredRounds()
{
    const auto ended = std::make_shared<std::atomic<int>>(0);
    for (int round = 0; round < 500; ++round) {
        const auto worker = makeWorker([ended](tcWorkerLink& link) {
            runUntilStopped(link);
            ++*ended;
        });
        worker->start();
        if (round % 3 == 0)
            QCoreApplication::processEvents();
        QVERIFY(worker->stop());
    }
    QVERIFY(pool().waitForDone());
    QVERIFY(*ended <= 500);
    QVERIFY(*ended > 0);
}

QTEST_GUILESS_MAIN(tst_DeviceWorker)
#include "tst_deviceworker.moc"

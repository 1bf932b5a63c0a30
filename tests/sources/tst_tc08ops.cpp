#include "sim/usbtc08/tc08sim.h"
#include "sources/tcPicoTC08MonWorker.h"
#include "sources/tcPicoTC08Source.h"
#include "sources/tcTC08Ops.h"
#include "tests/sources/tcCaughtLog.h"
#include "tests/sources/tcPlainSource.h"
#include "tests/sources/tcReceived.h"

#include <QFileInfo>
#include <QThreadPool>
#include <QtTest>

#include <memory>

class tst_TC08Ops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QCOMPARE(tc08sim_command("reset conversion_ms=0"), 1); }
    void cleanup() { QTRY_COMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0); }
    void entriesAreLookedUpInTheirOrder();
    void usedEntries();
    void resolvesWhatTheLibraryHas();
    void setsTheUnitUpOnceAndReadsIt();
    void unitThatCannotBeOpened_data();
    void unitThatCannotBeOpened();
    void anyOtherHandleIsTaken_data();
    void anyOtherHandleIsTaken();
    void failingSetUpIsIgnored();
    void libraryThatIsMissing();
    void libraryThatIsNone();
    void libraryWithoutAFunction_data();
    void libraryWithoutAFunction();
    void stuckReadingIsLetGo();
    void stopWhileOpeningHangsAsksForNothingMore();
    void oneDriverCallAtATime();

private:
    static QString library() { return QStringLiteral(TC08SIM_LIBRARY); }
};

void tst_TC08Ops::entriesAreLookedUpInTheirOrder()
{
    QStringList asked;
    tcTC08Calls calls;
    calls.resolve([&](const char* name) -> QFunctionPointer {
        asked.append(name);
        return nullptr;
    });
    const QStringList expected{"usb_tc08_set_channel",     "usb_tc08_run",
                               "usb_tc08_get_temp",        "usb_tc08_get_temp_deskew",
                               "usb_tc08_get_single",      "usb_tc08_open_unit",
                               "usb_tc08_open_unit_async", "usb_tc08_open_unit_progress",
                               "usb_tc08_close_unit",      "usb_tc08_stop",
                               "usb_tc08_set_mains",       "usb_tc08_get_minimum_interval_ms",
                               "usb_tc08_get_unit_info",   "usb_tc08_get_unit_info_v2",
                               "usb_tc08_get_unit_info2",  "usb_tc08_get_formatted_info",
                               "usb_tc08_get_last_error"};
    QCOMPARE(asked, expected);
    for (const QString& name : expected)
        QVERIFY(!calls.pointer(name.toLatin1()));
}

void tst_TC08Ops::usedEntries()
{
    const QStringList used{"usb_tc08_set_channel",
                           "usb_tc08_get_single",
                           "usb_tc08_open_unit",
                           "usb_tc08_set_mains",
                           "usb_tc08_get_minimum_interval_ms",
                           "usb_tc08_get_last_error"};
    QCOMPARE(tcTC08Calls().missing(), used);
}

void tst_TC08Ops::resolvesWhatTheLibraryHas()
{
    const tcCaughtLog log;
    const tcTC08Ops ops(library());
    QVERIFY(ops.isLoaded());
    QVERIFY(ops.worker());
    QVERIFY(ops.worker()->isUsable());
    QCOMPARE(ops.calls().missing(), QStringList());
    QVERIFY(ops.calls().pointer("usb_tc08_close_unit"));
    QVERIFY(!ops.calls().pointer("usb_tc08_run")); // the virtual driver does not stream
    QVERIFY(!ops.calls().pointer("usb_tc08_get_unit_info_v2"));
    QVERIFY(!ops.calls().pointer("no such entry"));
}

void tst_TC08Ops::setsTheUnitUpOnceAndReadsIt()
{
    const tcCaughtLog log;
    tc08sim_command("conversion_ms=1");
    {
        const tcTC08Ops ops(library());
        // Without any source it reads all the same.
        QTRY_VERIFY(tc08sim_calls("get_single") >= 2);
    }
    QCOMPARE(tc08sim_mains(), 1);
    for (int channel = 0; channel < 9; ++channel)
        QCOMPARE(tc08sim_channel_type(channel), 75);
    QCOMPARE(tc08sim_calls("open_unit"), 1);
    QCOMPARE(tc08sim_calls("set_mains"), 1);
    QCOMPARE(tc08sim_calls("set_channel"), 9);
    QCOMPARE(tc08sim_calls("get_minimum_interval_ms"), 1);
    QCOMPARE(tc08sim_calls("get_last_error"), 0);
    QCOMPARE(tc08sim_calls("close_unit"), 0);
    QCOMPARE(log.debugs(), QStringList{"Conversion time:  1"});
    QCOMPARE(log.warnings(), QStringList());
}

void tst_TC08Ops::unitThatCannotBeOpened_data()
{
    QTest::addColumn<int>("code");
    for (int code = 0; code <= 16; ++code)
        QTest::newRow(qPrintable(QString("error %1").arg(code))) << code;
}

void tst_TC08Ops::unitThatCannotBeOpened()
{
    QFETCH(int, code);
    const tcCaughtLog log;
    tc08sim_command(qPrintable(QString("open=-1 error=%1").arg(code)));
    tcTC08Calls calls;
    QLibrary driver(library());
    calls.resolve([&](const char* name) { return driver.resolve(name); });
    const auto worker = std::make_shared<tcPicoTC08MonWorker>(calls);
    worker->start();
    QTRY_COMPARE(log.warnings().size(), 1);
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QVERIFY(!worker->link().isFinished()); // as designed
    QCOMPARE(log.warnings(),
             QStringList{QString("Unable to open USB device... error ( %1 )").arg(code)});
    QCOMPARE(tc08sim_calls("get_last_error"), 1);
    QCOMPARE(tc08sim_calls("set_mains"), 0);
    QCOMPARE(tc08sim_calls("get_single"), 0);
}

void tst_TC08Ops::anyOtherHandleIsTaken_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<double>("reading");
    QTest::newRow("none found, whose readings fail") << 0 << 0.0;
    QTest::newRow("first") << 1 << 50.0;
    QTest::newRow("large") << 32767 << 50.0;
    QTest::newRow("negative, but no failure") << -2 << 50.0;
}

void tst_TC08Ops::anyOtherHandleIsTaken()
{
    QFETCH(int, handle);
    const tcCaughtLog log;
    tc08sim_command(qPrintable(QString("open=%1 value3=50").arg(handle)));
    tcPlainSource source;
    const tcReceived received(&source);
    const tcTC08Ops ops(library());
    ops.worker()->link().setSource(3, &source);
    QTRY_VERIFY(received.values.size() >= 1);
    QTEST(received.values.first(), "reading");
    QCOMPARE(log.warnings(), QStringList());
}

void tst_TC08Ops::failingSetUpIsIgnored()
{
    const tcCaughtLog log;
    tc08sim_command("fail=set_mains fail=set_channel fail=get_minimum_interval_ms");
    const tcTC08Ops ops(library());
    QTRY_VERIFY(tc08sim_calls("get_single") >= 1);
    QCOMPARE(tc08sim_calls("set_channel"), 9);
    QCOMPARE(log.warnings(), QStringList());
}

void tst_TC08Ops::libraryThatIsMissing()
{
    const tcCaughtLog log;
    tcTC08Ops ops(library() + ".missing");
    QVERIFY(!ops.isLoaded());
    QVERIFY(!ops.worker());
    QCOMPARE(ops.calls().missing().size(), 6);
    ops.addSource(3, nullptr);
    ops.removeSource(3);
    QCOMPARE(log.debugs(), QStringList());
}

void tst_TC08Ops::libraryThatIsNone()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(TC08SIM_FILE_NAME));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no library");
    file.close();
    const tcTC08Ops ops(file.fileName());
    QVERIFY(!ops.isLoaded());
    QVERIFY(!ops.worker());
}

void tst_TC08Ops::libraryWithoutAFunction_data()
{
    QTest::addColumn<QString>("function");
    for (const char* name : {"set_channel", "get_single", "open_unit", "set_mains",
                             "get_minimum_interval_ms", "get_last_error"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_TC08Ops::libraryWithoutAFunction()
{
    QFETCH(QString, function);
    const tcCaughtLog log;
    const QString path = QFileInfo(library()).path() + "/without_" + function + "/"
        + QStringLiteral(TC08SIM_FILE_NAME);
    QVERIFY2(QFileInfo::exists(path), qPrintable(path));
    {
        tcTC08Ops ops(path);
        QVERIFY(ops.worker());
        QCOMPARE(ops.calls().missing(), QStringList{"usb_tc08_" + function});
        QTRY_COMPARE(
            log.warnings(),
            QStringList{"PICO TC08: the driver lacks (\"usb_tc08_" + function + "\")"});
        QVERIFY(!ops.isLoaded()); // so that no channels are offered
        QTRY_VERIFY(ops.worker()->link().isFinished());
        ops.addSource(3, nullptr);
        QCOMPARE(log.debugs(), QStringList());
    }
    QCOMPARE(log.warnings().size(), 1);
}

void tst_TC08Ops::stuckReadingIsLetGo()
{
    const tcCaughtLog log;
    tc08sim_command("hang=get_single");
    {
        const tcTC08Ops ops(library());
        QTRY_COMPARE(tc08sim_inside("get_single"), 1);
    }
    QCOMPARE(log.warnings(),
             QStringList{"Worker for \"tcPicoTC08MonWorker\"  stuck... killing"});
    QVERIFY(QThreadPool::globalInstance()->waitForDone());
    QCOMPARE(tc08sim_inside("get_single"), 1);
    {
        // Another one goes its own way while the first still hangs.
        const tcTC08Ops next(library());
        QTRY_COMPARE(tc08sim_inside("get_single"), 2);
        tc08sim_command("release");
        QTRY_COMPARE(tc08sim_inside("get_single"), 0);
        QTRY_VERIFY(tc08sim_calls("get_single") >= 3);
    }
    QCOMPARE(log.warnings().size(), 1);
}

void tst_TC08Ops::stopWhileOpeningHangsAsksForNothingMore()
{
    const tcCaughtLog log;
    tc08sim_command("hang=open_unit");
    {
        const tcTC08Ops ops(library());
        QTRY_COMPARE(tc08sim_inside("open_unit"), 1);
    }
    tc08sim_command("release");
    QTRY_COMPARE(tc08sim_inside("open_unit"), 0);
    QCOMPARE(log.warnings().size(), 1);
    QCOMPARE(tc08sim_calls("set_mains"), 0);
    QCOMPARE(tc08sim_calls("get_single"), 0);
}

void tst_TC08Ops::oneDriverCallAtATime()
{
    const tcTC08Ops ops(library());
    QTRY_VERIFY(tc08sim_calls("get_single") >= 2);
    QCOMPARE(tc08sim_most_at_once(), 1);
}

QTEST_GUILESS_MAIN(tst_TC08Ops)
#include "tst_tc08ops.moc"

#include "camlink/tcSessionControl.h"
#include "tests/support/tcFakeSerial.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <memory>

#ifdef Q_OS_LINUX
#include "tests/support/tcSizeLimit.h"

#include <sys/stat.h>
#endif

/// The session log over the scripted serial library.
class tst_SessionLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everythingOnTheLineIsLogged();
    void flushedLineByLine();
    void unfinishedLineIsWrittenWhenTheCameraFallsSilent();
    void unfinishedLineComesBeforeWhatIsSentNext();
    void refusedWriteIsSaid();
    void connectionsAreNoted();
    void startedWhileOpenSaysWhatIsOpen();
    void appendsToAnEarlierLog();
    void lastFileIsOfferedAgain();
    void cancelledDialogLeavesItOff();
    void fileThatCannotBeOpened();
    void pipeIsRefused();
    void fullDiskIsSaidOnce();
    void deletedFileIsBegunAnew();
    void fileThatTookItsPlaceIsContinued();
    void deletedFileWithItsFolder();
    void goneWhileTheQuestionIsOpen();
    void goneWhileRunning();

private:
    QStringList lines() const;
    void startLog();

    tcFakeSerial& mFake = tcFakeSerial::instance();
    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<tcScriptedDialogs> mDialogs;
    std::unique_ptr<QWidget> mWindow;
    std::unique_ptr<tcSessionControl> mControl;
    tcSerialLink::tcRef mRef = 0;
    QString mFile;
};

void tst_SessionLog::init()
{
    mFake.reset();
    mFolder = std::make_unique<QTemporaryDir>();
    mFile = mFolder->filePath("session %1.log");
    mDialogs = std::make_unique<tcScriptedDialogs>();
    mDialogs->fileAnswer = mFile;
    mWindow = std::make_unique<QWidget>();
    mControl = std::make_unique<tcSessionControl>(mWindow.get());
    mRef = tcSerialLink::open(0).ref;
    tcSerialLink::setBaudRate(mRef);
}

void tst_SessionLog::cleanup()
{
    mControl.reset();
    mWindow.reset();
    mDialogs.reset();
    tcSerialLink::close(mRef);
}

void tst_SessionLog::startLog()
{
    mControl->action()->trigger();
}

/// The log's lines without their time, which must be there.
QStringList tst_SessionLog::lines() const
{
    QFile file(mFile);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList found;
    static const QRegularExpression stamp(
        "^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} ");
    for (QString line : QString::fromLatin1(file.readAll()).split('\n', Qt::SkipEmptyParts)) {
        found.append(stamp.match(line).hasMatch() ? line.remove(stamp) : "no time: " + line);
    }
    return found;
}

void tst_SessionLog::everythingOnTheLineIsLogged()
{
    startLog();
    tcSerialLink::write(mRef, "<VERS>\n", 100);
    mFake.receive(QByteArray("<VERS><ACK>\r\n\0\x80\r\n", 17));
    tcSerialLink::bytesAvailable(mRef);
    tcSerialLink::read(mRef, 128, 100);
    startLog(); // the second trigger ends it
    QCOMPARE(lines(),
             (QStringList{"-- log started", "TX <VERS>\\n", "RX <VERS><ACK>\\r\\n",
                          "RX \\x00\\x80\\r\\n", "-- log ended"}));
    tcSerialLink::write(mRef, "<STRT>\n", 100);
    QCOMPARE(lines().size(), 5);
}

void tst_SessionLog::flushedLineByLine()
{
    startLog();
    tcSerialLink::write(mRef, "<VERS>\n", 100);
    QCOMPARE(lines().last(), QString("TX <VERS>\\n"));
}

void tst_SessionLog::unfinishedLineIsWrittenWhenTheCameraFallsSilent()
{
    startLog();
    mFake.receive("<VE");
    tcSerialLink::bytesAvailable(mRef);
    tcSerialLink::read(mRef, 128, 100);
    QCOMPARE(lines().last(), QString("-- log started"));
    QTRY_COMPARE(lines().last(), QString("RX <VE"));
}

void tst_SessionLog::unfinishedLineComesBeforeWhatIsSentNext()
{
    startLog();
    mFake.receive("<VE");
    tcSerialLink::bytesAvailable(mRef);
    tcSerialLink::read(mRef, 128, 100);
    tcSerialLink::write(mRef, "x", 100);
    QCOMPARE(lines(), (QStringList{"-- log started", "RX <VE", "TX x"}));
}

void tst_SessionLog::refusedWriteIsSaid()
{
    startLog();
    mFake.failing["clSerialWrite"] = -10004;
    tcSerialLink::write(mRef, "x", 100);
    QCOMPARE(lines().mid(1),
             (QStringList{"TX x", "-- the line refused it with status -10004"}));
}

void tst_SessionLog::connectionsAreNoted()
{
    startLog();
    mControl->portOpened("Vexa-K20", "0 : Maker : Port");
    mControl->portClosed();
    mControl->portClosed(); // closing what is closed is no news
    QCOMPARE(lines().mid(1),
             (QStringList{"-- open: Vexa-K20, 0 : Maker : Port",
                          "-- closed: Vexa-K20, 0 : Maker : Port"}));
}

void tst_SessionLog::startedWhileOpenSaysWhatIsOpen()
{
    mControl->portOpened("Vexa-K20", "%1 : Maker");
    startLog();
    QCOMPARE(lines(), (QStringList{"-- log started", "-- open: Vexa-K20, %1 : Maker"}));
}

void tst_SessionLog::appendsToAnEarlierLog()
{
    QFile file(mFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("2026-11-20 14:03:07.125 -- before\n");
    file.close();
    startLog();
    QCOMPARE(mDialogs->asked.at(0).kind, QString("appendFile"));
    QCOMPARE(lines(), (QStringList{"-- before", "-- log started"}));
}

void tst_SessionLog::lastFileIsOfferedAgain()
{
    startLog();
    QVERIFY(mDialogs->asked.at(0).text.endsWith("session.log"));
    QSettings settings(mFolder->filePath("tarvik.ini"), QSettings::IniFormat);
    mControl->saveSettings(&settings);
    mControl.reset();
    mControl = std::make_unique<tcSessionControl>(mWindow.get());
    mControl->loadSettings(&settings);
    startLog();
    QCOMPARE(mDialogs->asked.at(1).text, mFile);
}

void tst_SessionLog::cancelledDialogLeavesItOff()
{
    mDialogs->fileAnswer.clear();
    QSignalSpy logging(mControl.get(), &tcSessionControl::logging);
    startLog();
    QVERIFY(!mControl->action()->isChecked());
    QCOMPARE(logging.count(), 0);
}

void tst_SessionLog::fileThatCannotBeOpened()
{
    mDialogs->fileAnswer = mFolder->path();
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    startLog();
    QVERIFY(!mControl->action()->isChecked());
    QCOMPARE(message.count(), 1);
    QVERIFY(message.at(0).at(0).toString().startsWith("Unable to log to "));
}

void tst_SessionLog::pipeIsRefused()
{
#ifdef Q_OS_LINUX
    const QString pipe = mFolder->filePath("pipe"); // that nobody reads: opening it would wait
    QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    mDialogs->fileAnswer = pipe;
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    startLog();
    QVERIFY(!mControl->action()->isChecked());
    QCOMPARE(message.count(), 1);
    QCOMPARE(message.at(0).at(0).toString(),
             "Unable to log to " + pipe + ": not a regular file");
#else
    QSKIP("no path leads to a pipe here");
#endif
}

void tst_SessionLog::fullDiskIsSaidOnce()
{
#ifdef Q_OS_LINUX
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    const tcSizeLimit full(0);
    startLog();
    for (int count = 0; count < 10; ++count)
        tcSerialLink::write(mRef, "x", 100);
    QCOMPARE(message.count(), 1);
    QCOMPARE(mFake.writes().size(), 10);
    QVERIFY(mControl->action()->isChecked());
#else
    QSKIP("needs a limit on the size of files");
#endif
}

void tst_SessionLog::deletedFileIsBegunAnew()
{
#ifdef Q_OS_WIN
    QSKIP("an open file can't be deleted here");
#else
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    startLog();
    tcSerialLink::write(mRef, "1\n", 100);
    QVERIFY(QFile::remove(mFile));
    tcSerialLink::write(mRef, "2\n", 100);
    tcSerialLink::write(mRef, "3\n", 100);
    QCOMPARE(lines(), QStringList({"TX 2\\n", "TX 3\\n"}));
    QCOMPARE(message.count(), 1);
    QVERIFY(message.at(0).at(0).toString().endsWith(" was gone and is begun anew"));
    QVERIFY(mControl->action()->isChecked());
#endif
}

void tst_SessionLog::fileThatTookItsPlaceIsContinued()
{
#ifdef Q_OS_WIN
    QSKIP("an open file can't be replaced here");
#else
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    startLog();
    tcSerialLink::write(mRef, "1\n", 100);
    QFile other(mFile + ".new");
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.close();
    QVERIFY(QFile::remove(mFile) && other.rename(mFile)); // as saving over it does
    tcSerialLink::write(mRef, "2\n", 100);
    tcSerialLink::write(mRef, "3\n", 100);
    QCOMPARE(lines(), QStringList({"TX 2\\n", "TX 3\\n"}));
    QCOMPARE(message.count(), 1);
#endif
}

void tst_SessionLog::deletedFileWithItsFolder()
{
#ifdef Q_OS_WIN
    QSKIP("an open file can't be deleted here");
#else
    const QString folder = QFileInfo(mFile).path() + "/gone";
    QVERIFY(QDir().mkdir(folder));
    mFile = folder + "/session.log";
    mDialogs->fileAnswer = mFile;
    QSignalSpy message(mControl.get(), &tcSessionControl::message);
    startLog();
    QVERIFY(QDir(folder).removeRecursively());
    tcSerialLink::write(mRef, "1\n", 100);
    tcSerialLink::write(mRef, "2\n", 100);
    QCOMPARE(message.count(), 1); // told once
    QVERIFY(message.at(0).at(0).toString().startsWith("Unable to log to "));
    QVERIFY(mControl->action()->isChecked());
    QVERIFY(QDir().mkdir(folder));
    tcSerialLink::write(mRef, "3\n", 100);
    QVERIFY(lines().join('|').contains("bytes of log are missing here|TX 3\\n"));
    mControl->action()->setChecked(false);
    QCOMPARE(lines().last(), QString("-- log ended"));
#endif
}

void tst_SessionLog::goneWhileTheQuestionIsOpen()
{
    QPointer<QAction> action = mControl->action();
    mDialogs->whileOpen = [this] { mControl.reset(); };
    action->setChecked(true);
    QVERIFY(!mControl);
    tcSerialLink::write(mRef, "x", 100);
    QVERIFY(!QFile::exists(mFile));
}

void tst_SessionLog::goneWhileRunning()
{
    startLog();
    mControl.reset();
    tcSerialLink::write(mRef, "x", 100); // nobody hears it, nothing breaks
    QCOMPARE(lines().last(), QString("-- log ended"));
}

QTEST_MAIN(tst_SessionLog)
#include "tst_sessionlog.moc"

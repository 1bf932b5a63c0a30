#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcLogFile.h"
#include "widgets/tcWholeFile.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <sys/mount.h>
#include <unistd.h>

namespace
{

constexpr int cSavedRows = 60000;
constexpr int cTicks = 12;

QByteArray savedContent()
{
    QByteArray text("ms since epoch,A,\n");
    for (int i = 0; i < cSavedRows; ++i)
        text += QByteArray::number(qint64(1731681000000) + i) + ',' + QByteArray::number(i)
            + ".000\n";
    return text;
}

QByteArray loggedContent()
{
    QByteArray text("TimeStamp,A,\n");
    for (int i = 1; i <= cTicks; ++i)
        text += QByteArray::number(i) + ',' + QByteArray::number(i) + ".000\n";
    return text;
}

QByteArray content(const QString& acPath)
{
    QFile file(acPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

bool put(const QString& acPath, const QByteArray& acBytes)
{
    QFile file(acPath);
    return file.open(QIODevice::WriteOnly) && file.write(acBytes) == acBytes.size();
}

/// A memory file system of a given size for as long as the object lives.
class tcTinyDisk
{
public:
    tcTinyDisk(const QString& acFolder, const char* acSize) : mFolder(acFolder.toLocal8Bit())
    {
        QDir().mkpath(acFolder);
        mMounted = mount("tmpfs", mFolder.constData(), "tmpfs", 0, QByteArray("size=") + acSize)
            == 0;
    }
    ~tcTinyDisk()
    {
        if (mMounted)
            umount2(mFolder.constData(), MNT_DETACH);
    }
    bool isThere() const { return mMounted; }

private:
    QByteArray mFolder;
    bool mMounted = false;
};

} // namespace

class tst_FileFaults : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> mFolder;

    QString path() const { return mFolder->filePath("data/file.csv"); }
    QString hitPath() const { return mFolder->filePath("hit"); }

    /// Runs filework with one call failing; false when no such call came any more.
    bool run(const QString& acFault, const QStringList& acArguments, int* apExit,
             QByteArray* apOutput)
    {
        QFile::remove(hitPath());
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_PRELOAD", FAULTLIB);
        environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
        environment.insert("TARVIK_FAULT", acFault);
        environment.insert("TARVIK_FAULT_DIR", mFolder->filePath("data"));
        environment.insert("TARVIK_FAULT_HIT", hitPath());
        process.setProcessEnvironment(environment);
        process.start(FILEWORK, acArguments);
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
            qFatal("filework did not end: %s", process.readAllStandardError().constData());
        *apExit = process.exitCode();
        *apOutput = process.readAllStandardOutput();
        return QFile::exists(hitPath());
    }

    static void faults()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("error");
        QTest::addColumn<int>("atLeast"); // calls of that kind
        QTest::newRow("disk full") << "write" << ENOSPC << 2;
        QTest::newRow("disk full in the middle of a write") << "short" << ENOSPC << 2;
        QTest::newRow("write error") << "write" << EIO << 2;
        QTest::newRow("sync") << "sync" << EIO << 1;
        QTest::newRow("open") << "open" << EIO << 1;
        QTest::newRow("too many files") << "open" << EMFILE << 1;
    }

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(mFolder->path()).mkdir("data"));
    }

    void savedFileIsWholeOrTheOldOneStands_data()
    {
        faults();
        QTest::newRow("rename") << "rename" << EIO << 1;
        QTest::newRow("rename onto a full disk") << "rename" << ENOSPC << 1;
    }

    void savedFileIsWholeOrTheOldOneStands()
    {
        QFETCH(QString, kind);
        QFETCH(int, error);
        QFETCH(int, atLeast);
        const QByteArray wanted = savedContent();
        int hits = 0;
        for (int n = 1;; ++n) {
            QVERIFY(n < 100);
            QVERIFY(put(path(), "the old file\n"));
            int exit = -1;
            QByteArray output;
            const bool hit = run(QString("%1:%2:%3").arg(kind).arg(n).arg(error),
                                 {"save", path()}, &exit, &output);
            const bool done = exit == 0;
            QVERIFY(content(path()) == (done ? wanted : QByteArray("the old file\n")));
            QCOMPARE(QDir(mFolder->filePath("data")).entryList(QDir::Files),
                     QStringList("file.csv"));
            if (!hit) {
                QVERIFY(done);
                break;
            }
            ++hits;
            // Qt syncs once more, and for nothing, what is on the disk already.
            QVERIFY(!done || (kind == "sync" && n > 1));
        }
        QVERIFY2(hits >= atLeast, qPrintable(QString::number(hits)));
    }

    void fileInALockedFolderIsWrittenDirectly()
    {
        QVERIFY(put(path(), "the old file\n"));
        int exit = -1;
        QByteArray output;
        QVERIFY(run(QString("open:1:%1").arg(EACCES), {"save", path()}, &exit, &output));
        QCOMPARE(exit, 0);
        QVERIFY(content(path()) == savedContent());
    }

    void logHasEachRowOnceWhateverFailed_data() { faults(); }

    void logHasEachRowOnceWhateverFailed()
    {
        QFETCH(QString, kind);
        QFETCH(int, error);
        QFETCH(int, atLeast);
        int hits = 0;
        for (int n = 1;; ++n) {
            QVERIFY(n < 100);
            QFile::remove(path());
            int exit = -1;
            QByteArray output;
            const bool hit = run(QString("%1:%2:%3").arg(kind).arg(n).arg(error),
                                 {"log", path(), QString::number(cTicks)}, &exit, &output);
            if (kind == "open" && hit) {
                QCOMPARE(exit, 1);
                QVERIFY(!QFile::exists(path()));
                ++hits;
                continue;
            }
            QCOMPARE(exit, 0);
            QCOMPARE(content(path()), loggedContent());
            if (!hit) {
                QCOMPARE(output.count('\n'), cTicks);
                break;
            }
            ++hits;
            // What the disk refused was not said to be written at that tick.
            const int refusals = kind == "short" ? 2 : 1;
            QVERIFY(output.count('\n') >= cTicks - refusals && output.count('\n') < cTicks);
        }
        QVERIFY2(hits >= atLeast, qPrintable(QString::number(hits)));
    }

    void fullDiskKeepsTheOldFile()
    {
        const tcTinyDisk disk(mFolder->filePath("data"), "256k");
        if (!disk.isThere())
            QSKIP("mounting a memory file system is not permitted here");
        QVERIFY(put(path(), "the old file\n"));
        int exit = -1;
        QByteArray output;
        run("none", {"save", path()}, &exit, &output);
        QCOMPARE(exit, 1);
        QCOMPARE(content(path()), QByteArray("the old file\n"));
        QCOMPARE(QDir(mFolder->filePath("data")).entryList(QDir::Files),
                 QStringList("file.csv"));
    }

    void logGoesOnOnAFreshLineWhenTheDiskHasRoomAgain()
    {
        const tcTinyDisk disk(mFolder->filePath("data"), "64k");
        if (!disk.isThere())
            QSKIP("mounting a memory file system is not permitted here");
        tcLogFile log(path());
        QVERIFY(log.open());
        QByteArray expected;
        qint64 number = 0;
        const auto tick = [&](int anRows) {
            QByteArray lines;
            for (int i = 0; i < anRows; ++i)
                lines += QByteArray::number(++number) + ",1.000\n";
            expected += lines;
            return log.write(lines, number * 1000);
        };
        QVERIFY(tick(100));
        QFile filler(mFolder->filePath("data/filler"));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(1024, 'x')) > 0) { }
        // A block of the file system has some room left in the log's last page.
        int refused = 0;
        for (int i = 0; i < 20; ++i)
            refused += tick(40) ? 0 : 1;
        QVERIFY(refused > 5);
        QVERIFY(log.waiting() > 0);
        const QByteArray meanwhile = content(path());
        QVERIFY(meanwhile.endsWith('\n'));
        QVERIFY(expected.startsWith(meanwhile));
        QVERIFY(filler.remove());
        QVERIFY(tick(1));
        QCOMPARE(log.waiting(), qint64(0));
        QVERIFY(log.close());
        QVERIFY(content(path()) == expected);
    }

    void rowsThatWaitedAtTheEndAreKnownToBeLost()
    {
        const tcTinyDisk disk(mFolder->filePath("data"), "16k");
        if (!disk.isThere())
            QSKIP("mounting a memory file system is not permitted here");
        tcLogFile log(path());
        QVERIFY(log.open());
        QVERIFY(!log.write(QByteArray("1,1.000\n").repeated(10000), 1));
        QVERIFY(!log.close());
        QVERIFY(content(path()).endsWith('\n'));
    }

    void killedAHundredTimesLosesNothingThatWasWritten();
};

void tst_FileFaults::killedAHundredTimesLosesNothingThatWasWritten()
{
    qint64 first = 1;
    QSet<qint64> confirmed;
    int torn = 0;
    for (int kill = 0; kill < 100; ++kill) {
        QProcess process;
        process.start(FILEWORK, {"endless", path(), QString::number(first)});
        QVERIFY(process.waitForStarted());
        QVERIFY(process.waitForReadyRead(30000));
        QTest::qSleep(int(QRandomGenerator::global()->bounded(1, 20)));
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
        for (int i = 0; i + 1 < lines.size(); ++i) {
            confirmed.insert(lines.at(i).toLongLong());
            first = lines.at(i).toLongLong() + 2; // the tick it was killed in stays its own
        }
        torn += content(path()).endsWith('\n') ? 0 : 1;
    }

    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    tcCsvReader reader(file);
    QVERIFY(reader.readHeader() && reader.readRows());
    QCOMPARE(content(path()).count("TimeStamp"), 1);
    QCOMPARE(reader.columnCount(), size_t(15));
    QVERIFY(reader.report().skippedRows <= torn);
    QVERIFY(confirmed.size() > 100);
    for (size_t c = 0; c < 15; ++c) {
        QCOMPARE(reader.title(c), QString("Curve %1").arg(c));
        const tcColumnView samples = reader.samples(c);
        QSet<qint64> present;
        for (qint64 i = 0; i < samples.count; ++i) {
            const auto tick = qint64(samples.times[i]);
            QVERIFY(!present.contains(tick));
            present.insert(tick);
            const double value = double(tick * 16 + qint64(c)) / 16.0;
            QCOMPARE(samples.values[i], QString::number(value, 'f', 3).toDouble());
        }
        for (const qint64 tick : qAsConst(confirmed))
            QCOMPARE(present.contains(tick), (tick + qint64(c)) % 4 != 0);
    }
    qInfo("%d readings said to be written, all there; %d torn lines healed", confirmed.size(),
          torn);
}

QTEST_GUILESS_MAIN(tst_FileFaults)
#include "tst_filefaults.moc"

#include "tests/stripchart/tcFilesProbe.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// What is chosen for a file may be a pipe or a device. Nobody is at the other end of these
/// pipes, or somebody who does nothing: touching one would hold the window for ever.
class tst_Pipes : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;
    int mOtherEnd = -1;

    /// Loads, saves and so on, as the operator does.
    void work(const QString& acWhat, const QString& acPath)
    {
        mProbe->dialogs.fileAnswer = acPath;
        mProbe->dialogs.integerAnswer = 1;
        if (acWhat == "load")
            mProbe->chart->loadCsvFile();
        else if (acWhat == "replay")
            mProbe->own("Replay File...")->trigger();
        else if (acWhat == "save")
            mProbe->chart->slotSave();
        else if (acWhat == "export")
            mProbe->own("Export Visible Range...")->trigger();
        else if (acWhat == "picture")
            mProbe->chart->savePicture();
        else
            mProbe->chart->logAction()->setChecked(true);
    }

private Q_SLOTS:
    void init() { mProbe = std::make_unique<tcFilesProbe>(); }
    void cleanup()
    {
        if (mOtherEnd != -1)
            close(mOtherEnd);
        mOtherEnd = -1;
        mProbe.reset();
    }

    void refusedWithTheTextOfAFileThatWontOpen_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("somebody");
        QTest::addColumn<QString>("text");
        const char* const load = "Error trying to load\n%1";
        const char* const save = "Error trying to save\n%1";
        for (const bool somebody : {false, true}) {
            const char* const who = somebody ? ", somebody idles there" : ", nobody is there";
            const auto row = [&](const char* acWhat, const char* acText) {
                QTest::newRow(qPrintable(QString(acWhat) + who))
                    << acWhat << somebody << acText;
            };
            row("load", load);
            row("replay", load);
            row("save", save);
            row("export", save);
            row("picture", save);
        }
    }
    void refusedWithTheTextOfAFileThatWontOpen()
    {
        QFETCH(QString, what);
        QFETCH(bool, somebody);
        QFETCH(QString, text);
        mProbe->a->addSample(qint64(mProbe->shown(QwtPlot::xBottom).minValue()) + 1, 1);
        const QString pipe = mProbe->path("pipe.png");
        const QByteArray name = pipe.toLocal8Bit();
        QCOMPARE(mkfifo(name.constData(), 0600), 0);
        if (somebody)
            mOtherEnd = open(name.constData(), O_RDWR | O_CLOEXEC);
        work(what, pipe);
        QCOMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().title, QString("Cam:1/T"));
        QCOMPARE(mProbe->asked("warning").first().text, text.arg(pipe));
        QVERIFY(mProbe->chart->isUpdating());
        struct stat there = {};
        QCOMPARE(stat(name.constData(), &there), 0);
        QVERIFY(S_ISFIFO(there.st_mode));
    }

    void logIsRefusedInTheTitle()
    {
        const QString pipe = mProbe->path("pipe");
        QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
        tcMessages messages;
        work("log", pipe);
        QVERIFY(!mProbe->chart->logAction()->isChecked());
        QCOMPARE(mProbe->chart->windowTitle(), "Trend Chart: Cam:1/T- Unable to open " + pipe);
        QCOMPARE(messages.list().size(), 1);
        QVERIFY(messages.list().first().startsWith("warning: "));
        QVERIFY(messages.list().first().contains(pipe));
        QVERIFY(messages.list().first().contains("not a regular file"));
        QCOMPARE(mProbe->asked("integer").size(), 0);
    }

    void deviceIsRefusedAsWell_data()
    {
        // Only read: should one ever be written, the computer would be without it.
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("device");
        QTest::newRow("one that never ends") << "load"
                                             << "/dev/zero";
        QTest::newRow("one that is empty") << "replay"
                                           << "/dev/null";
    }
    void deviceIsRefusedAsWell()
    {
        QFETCH(QString, what);
        QFETCH(QString, device);
        work(what, device);
        QCOMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().text, "Error trying to load\n" + device);
    }

    void linksToFilesAreFiles()
    {
        mProbe->a->addSample(1000, 1.5);
        const QString file = mProbe->put("file.csv", "old\n");
        const QString link = mProbe->path("link.csv");
        QVERIFY(QFile::link(file, link));
        work("save", link);
        work("load", link);
        QCOMPARE(mProbe->asked("warning").size(), 0);
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(mProbe->shownCurves().first(), QString("A=1000:1.5"));
    }
};

QTEST_MAIN(tst_Pipes)
#include "tst_pipes.moc"

#include "tests/stripchart/tcFilesProbe.h"

#include "stripchart/logic/tcChartNames.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"

#include <QDir>
#include <QTimer>

#ifdef Q_OS_LINUX
#include "tests/support/tcSizeLimit.h"
#endif

class tst_ChartLog : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;

    QTimer* duration() const { return mProbe->chart->findChild<QTimer*>("logDuration"); }
    tcStripChart& chart() const { return *mProbe->chart; }
    void start(const char* acFile, std::optional<int> aMinutes = 0)
    {
        mProbe->dialogs.fileAnswer = acFile ? mProbe->path(acFile) : QString();
        mProbe->dialogs.integerAnswer = aMinutes;
        chart().logAction()->setChecked(true);
    }

private Q_SLOTS:
    void init() { mProbe = std::make_unique<tcFilesProbe>(); }
    void cleanup() { mProbe.reset(); }

    void asksForFileAndDuration()
    {
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        start("log.csv");
        QCOMPARE(mProbe->dialogs.asked.size(), 2);
        const auto& file = mProbe->dialogs.asked.at(0);
        QCOMPARE(file.kind, QString("saveFile"));
        QCOMPARE(file.title, QString("Select File to save data to..."));
        QCOMPARE(file.detail, QString("csv files (*.csv);; Text file (*.txt)"));
        const QString head = tcFilesProbe::documents() + "/Cam_1_T_chart_log_";
        QVERIFY2(file.text.startsWith(head), qPrintable(file.text));
        const auto time
            = QDateTime::fromString(file.text.mid(head.size()), "yyyyMMdd_HHmmss'.csv'");
        QVERIFY2(time >= before && time <= QDateTime::currentDateTime(), qPrintable(file.text));
        const auto& minutes = mProbe->dialogs.asked.at(1);
        QCOMPARE(minutes.kind, QString("integer"));
        QCOMPARE(minutes.title, QString("Log Duration"));
        QCOMPARE(minutes.text, QString("Minutes (0 = forever):"));
        QCOMPARE(minutes.detail, QString("0 0..86400 step 1"));
    }

    void cancelledFileDialogLeavesTheActionUnchecked()
    {
        start(nullptr);
        QVERIFY(!chart().logAction()->isChecked());
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
        chart().tick();
    }

    void fileThatWontOpenTellsInTheTitle()
    {
        tcMessages messages;
        start("no/such/folder.csv");
        QVERIFY(!chart().logAction()->isChecked());
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
        const QString name = QDir::toNativeSeparators(mProbe->path("no/such/folder.csv"));
        QCOMPARE(chart().windowTitle(), "Trend Chart: Cam:1/T- Unable to open " + name);
        QCOMPARE(messages.list().size(), 1);
        QVERIFY(messages.list().first().startsWith("warning: "));
        QVERIFY(messages.list().first().contains("no/such/folder.csv"));
        QFile same(mProbe->path("no/such/folder.csv"));
        QVERIFY(!same.open(QIODevice::WriteOnly));
        QVERIFY(messages.list().first().contains(same.errorString()));
    }

    void firstTickWritesAllHeldSamplesLaterOnesWhatIsNew()
    {
        mProbe->a->addSample(1000, 1.5);
        mProbe->b->addSample(1000, 2);
        mProbe->a->addSample(2000, 3);
        start("log.csv");
        QCOMPARE(mProbe->content("log.csv"), QByteArray());
        chart().tick();
        QCOMPARE(mProbe->content("log.csv"),
                 QByteArray("TimeStamp,A,B,\n1000,1.500,2.000\n2000,3.000,\n"));
        chart().updateData(mProbe->key, 1, 3000, 4);
        chart().tick();
        chart().tick();
        QCOMPARE(mProbe->content("log.csv"),
                 QByteArray("TimeStamp,A,B,\n1000,1.500,2.000\n2000,3.000,\n3000,,4.000\n"));
    }

    void rowsAreWrittenWhilePaused()
    {
        start("log.csv");
        chart().slot_Pause(true);
        mProbe->a->addSample(1000, 1);
        chart().tick();
        QVERIFY(mProbe->content("log.csv").endsWith("1000,1.000,\n"));
    }

    void clearedAndCutSamplesAreWrittenBefore()
    {
        start("log.csv");
        mProbe->a->addSample(1000, 1);
        chart().clearSamples();
        QVERIFY(mProbe->content("log.csv").endsWith("1000,1.000,\n"));
        mProbe->a->addSample(2000, 2);
        mProbe->child<QSpinBox>("spinBoxSamples")->setValue(100);
        QVERIFY(mProbe->content("log.csv").endsWith("2000,2.000,\n"));
    }

    void loggingTwiceIntoTheSameFileWritesTheHeaderOnce()
    {
        mProbe->a->addSample(1000, 1);
        start("log.csv");
        chart().tick();
        chart().logAction()->setChecked(false);
        chart().clearSamples();
        mProbe->a->addSample(2000, 2);
        start("log.csv");
        chart().tick();
        QCOMPARE(mProbe->content("log.csv"),
                 QByteArray("TimeStamp,A,B,\n1000,1.000,\n2000,2.000,\n"));
    }

    void titleTellsTheLogFile()
    {
        start("log.csv");
        const QString title = "Trend Chart: Cam:1/T- logging to "
            + QDir::toNativeSeparators(mProbe->path("log.csv"));
        QCOMPARE(chart().windowTitle(), title);
        chart().logAction()->setChecked(false);
        QCOMPARE(chart().windowTitle(), QString("Trend Chart: Cam:1/T"));
    }

    void startAndStopAreToldInTheLog()
    {
        tcMessages messages;
        start("log.csv");
        chart().logAction()->setChecked(false);
        QCOMPARE(messages.list().size(), 2);
        const QString path = mProbe->path("log.csv");
        QCOMPARE(
            messages.list().at(0),
            QString("info: tcStripChart::logData \"Cam:1/T\" logging to  \"%1\"").arg(path));
        QCOMPARE(messages.list().at(1),
                 QString("info: tcStripChart::logData \"Cam:1/T\" closing  \"%1\"").arg(path));
    }

    void durationShowsItsEndAndStopsTheLog()
    {
        const QDateTime before = QDateTime::currentDateTime().addSecs(90 * 60);
        start("log.csv", 90);
        const QDateTime after = QDateTime::currentDateTime().addSecs(90 * 60);
        const QString title = chart().windowTitle();
        const auto expected = [&](const QDateTime& acEnd) {
            return "Trend Chart: Cam:1/T - End: " + acEnd.toString("hh:mm:ss a")
                + "- logging to " + QDir::toNativeSeparators(mProbe->path("log.csv"));
        };
        QVERIFY2(title == expected(before) || title == expected(after), qPrintable(title));
        QVERIFY(duration()->isActive() && duration()->isSingleShot());
        QCOMPARE(duration()->interval(), 90 * 60000);
        duration()->setInterval(0);
        QTRY_VERIFY(!chart().logAction()->isChecked());
        QCOMPARE(chart().windowTitle(), QString("Trend Chart: Cam:1/T"));
        mProbe->a->addSample(1000, 1);
        chart().tick();
        QCOMPARE(mProbe->content("log.csv"), QByteArray());
    }

    void sixtyDaysAreLongerThanATimerCounts()
    {
        start("log.csv", 86400);
        const int day = 24 * 3600 * 1000;
        QCOMPARE(duration()->interval(), day);
        for (int passed = 1; passed < 60; ++passed) {
            duration()->setInterval(0);
            QTRY_COMPARE(duration()->interval(), day);
            QVERIFY(chart().logAction()->isChecked());
        }
        duration()->setInterval(0);
        QTRY_VERIFY(!chart().logAction()->isChecked());
    }

    void cancelledDurationCountsAsForever()
    {
        start("log.csv", std::nullopt);
        QVERIFY(chart().logAction()->isChecked());
        QVERIFY(!duration()->isActive());
    }

    void stoppingCancelsTheDuration()
    {
        start("log.csv", 5);
        chart().logAction()->setChecked(false);
        QVERIFY(!duration()->isActive());
    }

    void startingAgainClosesTheFirstFile()
    {
        mProbe->a->addSample(1000, 1);
        start("one.csv", 5);
        chart().tick();
        mProbe->dialogs.fileAnswer = mProbe->path("two.csv");
        mProbe->dialogs.integerAnswer = 0;
        chart().logData(true);
        QVERIFY(chart().logAction()->isChecked());
        QVERIFY(!duration()->isActive());
        QCOMPARE(chart().windowTitle(),
                 "Trend Chart: Cam:1/T- logging to "
                     + QDir::toNativeSeparators(mProbe->path("two.csv")));
        chart().tick();
        QCOMPARE(mProbe->content("one.csv"), mProbe->content("two.csv"));
    }

    void slotAndActionAgree()
    {
        mProbe->dialogs.fileAnswer = mProbe->path("log.csv");
        chart().logData(true);
        QVERIFY(chart().logAction()->isChecked());
        QCOMPARE(mProbe->asked("saveFile").size(), 1);
        chart().logData(false);
        QVERIFY(!chart().logAction()->isChecked());
    }

    void chartThatGoesWhileAskedIsLeftAlone_data()
    {
        QTest::addColumn<int>("dialog");
        QTest::newRow("file") << 1;
        QTest::newRow("duration") << 2;
    }

    void chartThatGoesWhileAskedIsLeftAlone()
    {
        QFETCH(int, dialog);
        mProbe->dialogs.fileAnswer = mProbe->path("log.csv");
        mProbe->dialogs.integerAnswer = 0;
        mProbe->dialogs.whileOpen = [this, dialog] {
            if (mProbe->dialogs.asked.size() == dialog)
                mProbe->chart.reset();
        };
        chart().logData(true);
        QVERIFY(!mProbe->chart);
    }

    void destroyedChartHasWrittenWhatItsLogHeld()
    {
        mProbe->a->addSample(1000, 1);
        start("log.csv");
        chart().tick();
        mProbe->chart.reset();
        QCOMPARE(mProbe->content("log.csv"), QByteArray("TimeStamp,A,B,\n1000,1.000,\n"));
    }

    void markersGoNowhereBelowTheLogAndNobodyIsTold()
    {
        tcMessages messages;
        start("log.csv");
        chart().addLineMarker("Set Point", 21.5);
        QCOMPARE(chart().markers().unlogged().size(), 1);
        chart().tick();
        QVERIFY(chart().markers().unlogged().isEmpty());
        QVERIFY(QFileInfo(mProbe->path("log.csv")).isFile());
        QCOMPARE(mProbe->asked("warning").size(), 0);
        QCOMPARE(messages.list().size(), 1); // of the start
    }

    void markersGoWhereAFolderStandsInPlaceOfTheLog()
    {
#ifdef Q_OS_WIN
        QSKIP("an open file can't be deleted here");
#endif
        start("log.csv");
        chart().tick();
        QVERIFY(QFile::remove(mProbe->path("log.csv")));
        QVERIFY(QDir().mkdir(mProbe->path("log.csv")));
        const auto add = [this](double anX, const char* apText) {
            auto marker = std::make_unique<tcStripPointMarker>(QString());
            marker->setValue(anX, 21.5);
            marker->setLabel(QwtText(apText));
            return chart().markers().add(std::move(marker));
        };
        add(1000, "hot");
        chart().markers().remove(add(2000, "gone before the tick"));
        add(3000, "cold");
        chart().tick();
        chart().tick();
        const QByteArray first("#MARKER,1000.000,21.500,hot\n#MARKER,3000.000,21.500,cold\n");
        QCOMPARE(mProbe->content("log.csv/log_meta.txt"), first);
        add(2000, "later");
        chart().tick();
        QCOMPARE(mProbe->content("log.csv/log_meta.txt"),
                 first + "#MARKER,2000.000,21.500,later\n");
    }

    void refusedWritesAreShownOnceAndMadeUpFor()
    {
#ifdef Q_OS_LINUX
        tcMessages messages;
        const QString full = QDir::toNativeSeparators(mProbe->path("log.csv"));
        start("log.csv", 5);
        const QString quiet = chart().windowTitle();
        mProbe->a->addSample(1000, 1);
        chart().tick();
        QCOMPARE(chart().windowTitle(), quiet);
        {
            const tcSizeLimit limit(60);
            for (int i = 2; i < 20; ++i) {
                mProbe->a->addSample(i * 1000, i);
                chart().tick();
            }
            QCOMPARE(chart().windowTitle(),
                     "Trend Chart: Cam:1/T- Unable to write " + full + "- logging to " + full);
            QCOMPARE(messages.list().filter("warning:").size(), 1);
            QVERIFY(mProbe->content("log.csv").endsWith('\n'));
        }
        chart().tick();
        QCOMPARE(chart().windowTitle(), quiet);
        QByteArray expected("TimeStamp,A,B,\n");
        for (int i = 1; i < 20; ++i)
            expected += QByteArray::number(i * 1000) + ',' + QByteArray::number(i) + ".000,\n";
        QCOMPARE(mProbe->content("log.csv"), expected);
#else
        QSKIP("no such limit on this system");
#endif
    }

    void rowsLostAtTheEndStayInTheTitle()
    {
#ifdef Q_OS_LINUX
        start("log.csv");
        const tcSizeLimit limit(20);
        mProbe->a->addSample(1000, 1);
        chart().tick();
        tcMessages messages;
        chart().logAction()->setChecked(false);
        QCOMPARE(messages.list().filter("warning:").size(), 1);
        QVERIFY(chart().windowTitle().contains("- Unable to write "));
        QVERIFY(!chart().windowTitle().contains("logging to"));
        QCOMPARE(mProbe->content("log.csv"), QByteArray("TimeStamp,A,B,\n"));
#else
        QSKIP("no such limit on this system");
#endif
    }
};

QTEST_MAIN(tst_ChartLog)
#include "tst_chartlog.moc"

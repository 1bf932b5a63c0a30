#include "tests/stripchart/tcFilesProbe.h"

#include "stripchart/tcChartReplay.h"

#include <QApplication>
#include <QMenu>

class tst_ChartReplay : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;

    tcStripChart& chart() const { return *mProbe->chart; }
    QMenu* fileMenu() const
    {
        for (const QAction* action : chart().actions())
            if (action->text() == "Data Files")
                return action->menu();
        return nullptr;
    }
    QAction* action() const
    {
        for (QAction* action : fileMenu()->actions())
            if (action->text() == "Replay File...")
                return action;
        return nullptr;
    }
    void replay(const QByteArray& acContent, int anSpeed = 1)
    {
        mProbe->dialogs.fileAnswer = mProbe->put("replay.csv", acContent);
        mProbe->dialogs.integerAnswer = anSpeed;
        action()->trigger();
    }
    /// The samples of the chart's curve with that title, times after the start.
    QStringList samples(const char* acTitle) const
    {
        QStringList all;
        for (const tcStripCurve* curve : chart().curves()) {
            if (curve->title().text() != QLatin1String(acTitle))
                continue;
            for (size_t i = 0; i < curve->dataSize(); ++i)
                all << QStringLiteral("%1:%2")
                           .arg(qint64(curve->sample(int(i)).x()) - tcChartProbe::cNow)
                           .arg(curve->sample(int(i)).y());
        }
        return all;
    }

private Q_SLOTS:
    void init() { mProbe = std::make_unique<tcFilesProbe>(); }
    void cleanup() { mProbe.reset(); }

    void coloursFollowThoseOfTheLiveCurves()
    {
        const int live = chart().curves().size();
        QVERIFY(live > 0);
        replay("t,New,Newer\n1000,1,2\n");
        replay("t,New,Newer\n1000,1,2\n"); // those of the first one have gone
        QCOMPARE(chart().curves().size(), live + 2);
        QStringList colours;
        for (const tcStripCurve* curve : chart().curves()) {
            if (curve->title().text().startsWith("New"))
                colours << curve->pen().color().name();
        }
        QCOMPARE(colours,
                 QStringList({QColor(tcStripCurve::stripCurveColor(live)).name(),
                              QColor(tcStripCurve::stripCurveColor(live + 1)).name()}));
    }

    void holdsTheWholeFile()
    {
        QByteArray content = "t,New\n";
        const int rows = 3000; // three times what a live curve keeps
        for (int row = 0; row < rows; ++row)
            content += QByteArray::number(row) + ",1\n";
        replay(content, 1000);
        mProbe->now += rows;
        QTRY_VERIFY(!action()->isChecked());
        QCOMPARE(samples("New").size(), rows);
        QCOMPARE(mProbe->a->sampleCount(), 1000);
    }

    void asksForFileAndSpeed()
    {
        replay("t,New\n1000,1\n2000,2\n", 7);
        QCOMPARE(mProbe->dialogs.asked.size(), 2);
        const auto file = mProbe->asked("openFile").first();
        QCOMPARE(file.title, QString("Select CSV File to replay..."));
        QCOMPARE(file.text, tcFilesProbe::documents());
        QCOMPARE(file.detail, QString("csv files (*.csv)"));
        const auto speed = mProbe->asked("integer").first();
        QCOMPARE(speed.title, QString("Replay File"));
        QCOMPARE(speed.text, QString("Speed (1 = as recorded):"));
        QCOMPARE(speed.detail, QString("10 1..1000 step 1"));
        QVERIFY(action()->isChecked());
        action()->trigger();
        action()->trigger();
        QCOMPARE(mProbe->asked("integer").last().detail, QString("7 1..1000 step 1"));
    }

    void readingsComeWithTheClockBesideTheLiveOnes()
    {
        replay("t,New,Other\n1000,1,5\n3000,2\n4000,,6\n", 2);
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        QCOMPARE(samples("Other"), QStringList("0:5"));
        chart().updateData(mProbe->key, 0, mProbe->now, 42);
        QCOMPARE(samples("A"), QStringList("0:42"));
        mProbe->now += 1000;
        QTRY_COMPARE(samples("New"), QStringList({"0:1", "1000:2"}));
        QVERIFY(action()->isChecked());
        mProbe->now += 1000;
        QTRY_COMPARE(samples("Other"), QStringList({"0:5", "1500:6"}));
        // Over: the curves stay to be looked at.
        QTRY_VERIFY(!action()->isChecked());
        QCOMPARE(chart().curves().size(), 4);
        QCOMPARE(mProbe->dialogs.asked.size(), 2);
    }

    void titleTellsThatItRuns()
    {
        chart().updateTitle(chart().chartName());
        const QString quiet = chart().windowTitle();
        replay("t,New\n1000,1\n2000,2\n", 20);
        QCOMPARE(chart().windowTitle(), quiet + " - Replay: replay.csv, 20x");
        action()->trigger();
        QCOMPARE(chart().windowTitle(), quiet);
    }

    void stopsWhenSwitchedOff()
    {
        replay("t,New\n1000,1\n2000,2\n");
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        action()->trigger();
        QVERIFY(!action()->isChecked());
        mProbe->now += 100000;
        QTest::qWait(3 * tcChartReplay::cStepMs);
        QCOMPARE(samples("New"), QStringList("0:1"));
    }

    void nextReplayTakesThePlaceOfTheLast()
    {
        replay("t,New\n1000,1\n");
        QTRY_VERIFY(!action()->isChecked());
        replay("t,Newer\n1000,1\n");
        QTRY_COMPARE(samples("Newer"), QStringList("0:1"));
        QCOMPARE(samples("New"), QStringList());
        QCOMPARE(chart().curves().size(), 3);
    }

    void cancelledQuestionsStartNothing_data()
    {
        QTest::addColumn<bool>("file");
        QTest::newRow("file") << false;
        QTest::newRow("speed") << true;
    }
    void cancelledQuestionsStartNothing()
    {
        QFETCH(bool, file);
        if (file)
            mProbe->dialogs.fileAnswer = mProbe->put("replay.csv", "t,New\n1000,1\n");
        action()->trigger();
        QVERIFY(!action()->isChecked());
        QCOMPARE(chart().curves().size(), 2);
        QCOMPARE(mProbe->dialogs.asked.size(), file ? 2 : 1);
    }

    void fileThatIsNoneShowsABox_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("text");
        QTest::newRow("one column") << QByteArray("lonely\n") << "replay.csv"
                                    << "Unable to load file.. not enough columns";
        QTest::newRow("empty") << QByteArray() << "replay.csv"
                               << "Unable to load file.. not enough columns";
        QTest::newRow("missing") << QByteArray("t,A\n") << "missing.csv"
                                 << "Error trying to load\n%1";
        QTest::newRow("a folder") << QByteArray("t,A\n") << "."
                                  << "Error trying to load\n%1";
    }
    void fileThatIsNoneShowsABox()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, file);
        QFETCH(QString, text);
        mProbe->put("replay.csv", content);
        mProbe->dialogs.fileAnswer = mProbe->folder.filePath(file);
        mProbe->dialogs.integerAnswer = 1;
        action()->trigger();
        QVERIFY(!action()->isChecked());
        QCOMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().title, QString("Cam:1/T"));
        QCOMPARE(mProbe->asked("warning").first().text,
                 text.contains("%1") ? text.arg(mProbe->dialogs.fileAnswer) : text);
        QCOMPARE(chart().curves().size(), 2);
        QVERIFY(!QApplication::overrideCursor());
    }

    void fileWithoutRowsEndsAtOnce()
    {
        replay("t,New\n");
        QVERIFY(action()->isChecked());
        QTRY_VERIFY(!action()->isChecked());
        QCOMPARE(samples("New"), QStringList());
    }

    void chartMayGoWhileAQuestionIsOpen_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("file") << "openFile" << QByteArray("t,A\n1,1\n");
        QTest::newRow("speed") << "integer" << QByteArray("t,A\n1,1\n");
        QTest::newRow("box") << "warning" << QByteArray("lonely\n");
    }
    void chartMayGoWhileAQuestionIsOpen()
    {
        QFETCH(QString, kind);
        QFETCH(QByteArray, content);
        mProbe->dialogs.whileOpen = [this, kind] {
            if (mProbe->dialogs.asked.last().kind == kind)
                mProbe->chart.reset();
        };
        // Not from the action itself, which goes too.
        QMetaObject::invokeMethod(action(), "toggle", Qt::QueuedConnection);
        mProbe->dialogs.fileAnswer = mProbe->put("replay.csv", content);
        mProbe->dialogs.integerAnswer = 1;
        QTRY_VERIFY(!mProbe->chart);
        QCOMPARE(mProbe->dialogs.asked.last().kind, kind);
    }

    void chartMayGoInTheMiddle()
    {
        replay("t,New\n1000,1\n2000,2\n");
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        mProbe->chart.reset();
        QTest::qWait(2 * tcChartReplay::cStepMs);
    }

    void curvesMayLeaveTheChartInTheMiddle()
    {
        replay("t,New,Other\n1000,1,5\n2000,2,6\n");
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        chart().resetData();
        mProbe->now += 1000;
        QTRY_VERIFY(!action()->isChecked());
        QCOMPARE(chart().curves().size(), 0);
    }

    void replayFromALoadedFileGoesBackToTheLiveChart()
    {
        chart().loadCsvFile(mProbe->put("loaded.csv", "t,Loaded\n1000,1\n"));
        QVERIFY(!chart().isUpdating());
        replay("t,New\n1000,1\n");
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        QVERIFY(chart().isUpdating());
        QCOMPARE(chart().curves().size(), 3);
    }

    void fileLoadedInTheMiddleDoesNotStopIt()
    {
        replay("t,New\n1000,1\n2000,2\n");
        QTRY_COMPARE(samples("New"), QStringList("0:1"));
        chart().loadCsvFile(mProbe->put("loaded.csv", "t,Loaded\n1000,1\n"));
        mProbe->now += 1000;
        QTRY_VERIFY(!action()->isChecked());
        QCOMPARE(samples("New"), QStringList());
        chart().resumeFeed();
        QCOMPARE(samples("New"), QStringList({"0:1", "1000:2"}));
    }

    void replayedFileIsARecentOne()
    {
        replay("t,New\n1000,1\n");
        QMenu* recent = fileMenu()->actions().at(1)->menu();
        Q_EMIT recent->aboutToShow();
        QVERIFY(recent->actions().first()->text().endsWith("replay.csv"));
    }

    void unusedItHasNoTimer()
    {
        const auto* timer = mProbe->child<QTimer>("replaySteps");
        QVERIFY(!timer->isActive());
        replay("t,New\n1000,1\n2000,2\n");
        QVERIFY(timer->isActive());
        action()->trigger();
        QVERIFY(!timer->isActive());
    }

    void dayAtFullSpeedIsFedInPieces()
    {
        QByteArray day = "t,New\n";
        for (int i = 0; i < 86400; ++i)
            day += QByteArray::number(1600000000000 + i * 1000LL) + ',' + QByteArray::number(i)
                + '\n';
        mProbe->child<QSpinBox>("spinBoxSamples")->setValue(100000);
        replay(day, 1000);
        mProbe->now += 86400;
        QTRY_VERIFY(!action()->isChecked());
        const QStringList all = samples("New");
        QCOMPARE(all.size(), 86400);
        QCOMPARE(all.last(), QString("86399:86399"));
    }
};

QTEST_MAIN(tst_ChartReplay)
#include "tst_chartreplay.moc"

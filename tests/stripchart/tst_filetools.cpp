#include "tests/stripchart/tcFilesProbe.h"

#include "stripchart/tcFileDrop.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcRecentFiles.h"
#include "stripchart/tcStripMarker.h"

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>

#ifdef Q_OS_LINUX
#include "tests/support/tcSizeLimit.h"
#endif

class tst_FileTools : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;

    tcStripChart& chart() const { return *mProbe->chart; }
    static QMenu* fileMenu(const tcStripChart& acChart)
    {
        for (const QAction* action : acChart.actions())
            if (action->text() == "Data Files")
                return action->menu();
        return nullptr;
    }
    QAction* entry(const char* acText) const
    {
        for (QAction* action : fileMenu(chart())->actions())
            if (action->text() == QLatin1String(acText))
                return action;
        return nullptr;
    }
    QMenu* recent() const { return entry("Recent Files")->menu(); }
    QStringList recentFiles() const
    {
        Q_EMIT recent()->aboutToShow();
        QStringList all;
        for (const QAction* action : recent()->actions())
            if (action->isEnabled())
                all << QFileInfo(action->toolTip()).fileName();
        return all;
    }
    void exportTo(const char* acFile)
    {
        mProbe->dialogs.fileAnswer = mProbe->path(acFile);
        entry("Export Visible Range...")->trigger();
    }
    QStringList markers() const
    {
        QStringList all;
        for (const tcStripMarker* marker : chart().markers().markers())
            all << QStringLiteral("%1;%2;%3")
                       .arg(marker->xValue())
                       .arg(marker->yValue())
                       .arg(marker->label().text());
        all.sort();
        return all;
    }
    QDialog* skippedDialog() const
    {
        for (QDialog* dialog : chart().findChildren<QDialog*>())
            if (dialog->isVisible() && dialog->windowTitle() == "Skipped Rows")
                return dialog;
        return nullptr;
    }
    /// Drags over the chart and, where that is taken, drops; tells whether it was.
    bool drop(const QList<QUrl>& acUrls, Qt::DropActions aPossible = Qt::CopyAction)
    {
        QMimeData data;
        if (!acUrls.isEmpty())
            data.setUrls(acUrls);
        data.setText("text as well");
        QDragEnterEvent enter({10, 10}, aPossible, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&chart(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped({10, 10}, aPossible, &data, Qt::LeftButton, Qt::NoModifier);
        dropped.ignore();
        QApplication::sendEvent(&chart(), &dropped);
        return dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
    }

private Q_SLOTS:
    void init() { mProbe = std::make_unique<tcFilesProbe>(); }
    void cleanup() { mProbe.reset(); }

    void saveLoadAndPictureHaveTheirActions()
    {
        mProbe->action("actionSave")->trigger();
        mProbe->action("actionLoad_from_File")->trigger();
        const auto menu = chart().plotMenu({10, 10});
        for (QAction* action : menu->actions())
            if (action->text() == "Save PNG")
                action->trigger();
        QStringList titles;
        for (const auto& asked : mProbe->dialogs.asked)
            titles << asked.title;
        QCOMPARE(titles,
                 (QStringList{"Select File to save data to...",
                              "Select CSV File to load data from...",
                              "Select File to save chart to..."}));
    }

    void waitCursorWhileSaving()
    {
        constexpr qint64 cLongEnoughMs = 5000; ///< to look at the cursor on any machine
        Qt::CursorShape shape = Qt::ArrowCursor;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&shape] {
            if (const QCursor* cursor = QApplication::overrideCursor())
                shape = cursor->shape();
        });
        timer.start(0);
        mProbe->dialogs.fileAnswer = mProbe->path("large.csv");
        qint64 took = 0;
        // Nobody looks while a file is saved in no time.
        for (int samples = 100000; shape == Qt::ArrowCursor && took < cLongEnoughMs;
             samples *= 2) {
            mProbe->a->setSampleCount(samples);
            for (int i = 0; i < samples; ++i)
                mProbe->a->addSample(i, i);
            QElapsedTimer elapsed;
            elapsed.start();
            mProbe->chart->slotSave();
            took = elapsed.elapsed();
        }
        QCOMPARE(shape, Qt::WaitCursor);
        QVERIFY(!QApplication::overrideCursor());
    }

    void submenuAmongTheChartsOwnActions()
    {
        QStringList texts;
        for (const QAction* action : fileMenu(chart())->actions())
            texts << action->text();
        QCOMPARE(texts,
                 QStringList({"Export Visible Range...", "Recent Files", "Skipped Rows...",
                              "Replay File..."}));
        QVERIFY(
            chart().plotMenu({10, 10})->actions().contains(fileMenu(chart())->menuAction()));
    }

    // ---- export

    void exportsVisibleCurvesWithinTheRange()
    {
        mProbe->a->addSample(1700000000000, 1.25);
        mProbe->a->addSample(1700000001000, 2);
        mProbe->a->addSample(1700000002500, 3);
        mProbe->a->addSample(1700000003000, 4);
        mProbe->b->addSample(1700000002000, 9);
        chart().setXRange(1700000001000, 1700000002500);
        mProbe->b->setVisible(false);
        exportTo("one.csv");
        QCOMPARE(mProbe->content("one.csv"),
                 QByteArray("time,A\n"
                            "2023-11-14T23:13:21.000,2\n"
                            "2023-11-14T23:13:22.500,3\n"));
        mProbe->b->setVisible(true);
        exportTo("two.csv");
        QCOMPARE(mProbe->content("two.csv"),
                 QByteArray("time,A,B\n"
                            "2023-11-14T23:13:21.000,2,\n"
                            "2023-11-14T23:13:22.000,,9\n"
                            "2023-11-14T23:13:22.500,3,\n"));
        QCOMPARE(mProbe->asked("warning").size(), 0);
        QVERIFY(!QApplication::overrideCursor());
    }

    void exportAsksWhereTheLastFileWas()
    {
        mProbe->dialogs.fileAnswer.clear();
        entry("Export Visible Range...")->trigger();
        exportTo("a.csv");
        chart().loadCsvFile(mProbe->put("load.csv", "t,A\n1,1\n"));
        entry("Export Visible Range...")->trigger();
        const auto asked = mProbe->asked("saveFile");
        QCOMPARE(asked.size(), 3);
        QCOMPARE(asked.first().title, QString("Select File to export data to..."));
        QCOMPARE(asked.first().detail, QString("csv files (*.csv)"));
        QVERIFY(QRegularExpression("_export_\\d{8}_\\d{6}\\.csv$")
                    .match(asked.first().text)
                    .hasMatch());
        QCOMPARE(QFileInfo(asked.first().text).path(), tcFilesProbe::documents());
        QCOMPARE(QFileInfo(asked.last().text).path(), mProbe->folder.path());
    }

    void exportTakesTheRangeThatWasSeenWhenAsked()
    {
        mProbe->a->addSample(1700000000000, 1);
        mProbe->a->addSample(1700000009000, 2);
        mProbe->b->setVisible(false);
        chart().setXRange(1700000000000, 1700000001000);
        mProbe->dialogs.whileOpen = [this] { chart().setXRange(1700000008000, 1700000010000); };
        exportTo("range.csv");
        QCOMPARE(mProbe->content("range.csv"),
                 QByteArray("time,A\n2023-11-14T23:13:20.000,1\n"));
    }

    void exportWithoutVisibleCurvesTellsSo()
    {
        mProbe->a->setVisible(false);
        mProbe->b->setVisible(false);
        exportTo("none.csv");
        QCOMPARE(mProbe->asked("saveFile").size(), 0);
        QCOMPARE(mProbe->asked("information").size(), 1);
        QCOMPARE(mProbe->asked("information").first().text,
                 QString("There is no visible curve to export."));
    }

    void exportThatFailsShowsABox_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("no such folder") << "no/such/file.csv";
        QTest::newRow("a folder") << ".";
    }
    void exportThatFailsShowsABox()
    {
        QFETCH(QString, file);
        mProbe->a->addSample(qint64(mProbe->shown(QwtPlot::xBottom).minValue()) + 1, 1);
        const QString path = mProbe->folder.filePath(file);
        mProbe->dialogs.fileAnswer = path;
        entry("Export Visible Range...")->trigger();
        QCOMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().title, QString("Cam:1/T"));
        QCOMPARE(mProbe->asked("warning").first().text, "Error trying to save\n" + path);
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(recentFiles().isEmpty());
    }

#ifdef Q_OS_LINUX
    void exportToAFullDiskShowsABoxAndKeepsTheOldFile()
    {
        mProbe->a->addSample(qint64(mProbe->shown(QwtPlot::xBottom).minValue()) + 1, 1);
        const QString path = mProbe->put("full.csv", "old\n");
        {
            const tcSizeLimit full(0);
            exportTo("full.csv");
        }
        QCOMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().text, "Error trying to save\n" + path);
        QCOMPARE(mProbe->content("full.csv"), QByteArray("old\n"));
        QVERIFY(recentFiles().isEmpty());
    }
#endif

    void curvesMayGoWhileTheExportAsks()
    {
        mProbe->dialogs.whileOpen = [this] { mProbe->b.reset(); };
        exportTo("left.csv");
        QCOMPARE(mProbe->content("left.csv"), QByteArray("time,A\n"));
    }

    void chartMayGoWhileTheExportAsks()
    {
        mProbe->dialogs.whileOpen = [this] { mProbe->chart.reset(); };
        exportTo("gone.csv");
        QCOMPARE(mProbe->content("gone.csv"), QByteArray("not there"));
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
    }

    // ---- drop

    void droppedFileIsLoaded()
    {
        const QString file = mProbe->put("Dropped.CSV", "t,New\n1,5\n");
        QVERIFY(drop({QUrl::fromLocalFile(mProbe->path("x.txt")), QUrl::fromLocalFile(file),
                      QUrl::fromLocalFile(mProbe->put("second.csv", "t,Other\n1,5\n"))},
                     Qt::CopyAction | Qt::MoveAction));
        QVERIFY(mProbe->shownCurves() != QStringList("New=1:5")); // the drop comes first
        QTRY_COMPARE(mProbe->shownCurves(), QStringList("New=1:5"));
        QCOMPARE(chart().windowTitle(), "Trend Chart: Cam:1/TFrom: " + file);
        QCOMPARE(mProbe->dialogs.asked.size(), 0);
    }

    void nothingElseIsTaken()
    {
        const QUrl file = QUrl::fromLocalFile(mProbe->put("good.csv", "t,A\n1,1\n"));
        QVERIFY(QDir(mProbe->folder.path()).mkdir("folder.csv"));
        QVERIFY(!drop({}));
        QVERIFY(!drop({QUrl::fromLocalFile(mProbe->path("folder.csv"))}));
        QVERIFY(!drop({QUrl::fromLocalFile(mProbe->path("missing.csv"))}));
        QVERIFY(!drop({QUrl::fromLocalFile(mProbe->put("picture.png", "x"))}));
        QVERIFY(!drop({QUrl("http://somewhere/data.csv")}));
        QVERIFY(!drop({file}, Qt::MoveAction));
        QVERIFY(drop({file}));
    }

    void chartMayGoBeforeTheDroppedFileIsLoaded()
    {
        QVERIFY(drop({QUrl::fromLocalFile(mProbe->put("good.csv", "t,A\n1,1\n"))}));
        mProbe->chart.reset();
        QCoreApplication::processEvents();
        QCOMPARE(mProbe->dialogs.asked.size(), 0);
    }

    void droppedFileThatHasGoneShowsTheBox()
    {
        const QString file = mProbe->put("good.csv", "t,A\n1,1\n");
        QVERIFY(drop({QUrl::fromLocalFile(file)}));
        QVERIFY(QFile::remove(file));
        QTRY_COMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().text, "Error trying to load\n" + file);
    }

    // ---- recent files

    void filesComeNewestFirstAndOnce()
    {
        QVERIFY(recentFiles().isEmpty());
        QCOMPARE(recent()->actions().size(), 1);
        QCOMPARE(recent()->actions().first()->text(), QString("No Files Yet"));
        chart().loadCsvFile(mProbe->put("loaded.csv", "t,A\n1,1\n"));
        mProbe->dialogs.fileAnswer = mProbe->path("saved.csv");
        chart().slotSave();
        mProbe->dialogs.fileAnswer = mProbe->path("logged.csv");
        chart().logAction()->setChecked(true);
        exportTo("exported.csv");
        QCOMPARE(recentFiles(),
                 QStringList({"exported.csv", "logged.csv", "saved.csv", "loaded.csv"}));
        chart().loadCsvFile(mProbe->path("saved.csv"));
        QCOMPARE(recentFiles(),
                 QStringList({"saved.csv", "exported.csv", "logged.csv", "loaded.csv"}));
    }

    void picturesAndFailuresAreLeftOut()
    {
        chart().savePicture(mProbe->path("picture.png"));
        chart().loadCsvFile(mProbe->put("lonely.csv", "one\n"));
        chart().loadCsvFile(mProbe->path("missing.csv"));
        mProbe->dialogs.fileAnswer = mProbe->path("no/such/saved.csv");
        chart().slotSave();
        chart().logAction()->setChecked(true);
        QVERIFY(recentFiles().isEmpty());
    }

    void noMoreThanEight()
    {
        QStringList expected;
        for (int i = 0; i < tcRecentFiles::cMaxFiles + 2; ++i) {
            const QString name = QStringLiteral("file%1.csv").arg(i);
            chart().loadCsvFile(mProbe->put(name.toLatin1().constData(), "t,A\n1,1\n"));
            expected.prepend(name);
        }
        QCOMPARE(recentFiles(), expected.mid(0, 8));
    }

    void filesAreKeptInTheChartsSettings()
    {
        QVERIFY(!QFile::exists(mProbe->path("settings.ini")));
        const QString file = mProbe->put("kept, & more.csv", "t,A\n1,1\n");
        chart().loadCsvFile(file);
        QSettings settings(mProbe->path("settings.ini"), QSettings::IniFormat);
        settings.beginGroup("tcStripChart_Cam:1/T");
        QCOMPARE(settings.value("RecentFiles").toStringList(), QStringList(file));
        chart().close();
        tcStripChart other;
        other.setChartName("Cam:1/T");
        mProbe->chart.reset();
        QAction* action = nullptr;
        for (QAction* one : fileMenu(other)->actions())
            if (one->menu())
                action = one;
        Q_EMIT action->menu()->aboutToShow();
        QCOMPARE(action->menu()->actions().size(), 1);
        QVERIFY(action->menu()->actions().first()->text().endsWith("kept, && more.csv"));
        action->menu()->actions().first()->trigger();
        QTRY_COMPARE(other.curves().size(), 1);
    }

    void filesAreKeptForTheUserWhereTheChartsSettingsAreNot()
    {
        // A folder is no file that anyone could write, whoever runs this.
        tcSettings::setDefaultFile(mProbe->folder.path());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, mProbe->path("user"));
        chart().loadCsvFile(mProbe->put("kept.csv", "t,A\n1,1\n"));
        QCOMPARE(recentFiles(), QStringList("kept.csv"));
        QVERIFY(QFile::remove(mProbe->path("kept.csv")));
        recent()->actions().first()->trigger();
        QTRY_COMPARE(mProbe->asked("warning").size(), 1);
        QVERIFY(recentFiles().isEmpty());
    }

    void longPathsAreCutInTheMiddle()
    {
        const QString folder = "deep/" + QString(100, 'd');
        QVERIFY(QDir(mProbe->folder.path()).mkpath(folder));
        chart().loadCsvFile(
            mProbe->put((folder + "/name.csv").toLatin1().constData(), "t,A\n1,1\n"));
        Q_EMIT recent()->aboutToShow();
        const QAction* action = recent()->actions().first();
        QVERIFY(action->text().size() < 70);
        QVERIFY(action->text().endsWith(QDir::toNativeSeparators("/name.csv")));
        QVERIFY(action->text().contains(QChar(0x2026)));
        QVERIFY(action->toolTip().size() > 100);
    }

    void missingFileIsTakenOffTheList()
    {
        chart().loadCsvFile(mProbe->put("stays.csv", "t,A\n1,1\n"));
        const QString file = mProbe->put("gone.csv", "t,A\n1,1\n");
        chart().loadCsvFile(file);
        QVERIFY(QFile::remove(file));
        QCOMPARE(recentFiles(), QStringList({"gone.csv", "stays.csv"}));
        recent()->actions().first()->trigger();
        QTRY_COMPARE(mProbe->asked("warning").size(), 1);
        QCOMPARE(mProbe->asked("warning").first().text,
                 "This file is no longer there and was taken off the list:\n"
                     + QDir::toNativeSeparators(file));
        QCOMPARE(recentFiles(), QStringList("stays.csv"));
    }

    // ---- markers of a loaded file

    void spanOfTheLiveWindowComesBackWithIt()
    {
        chart().setSpanMs(7000); // which no box tells
        chart().loadCsvFile(mProbe->put("file.csv", "t,X\n5000,1\n65000,2\n"));
        mProbe->action("actionResume_Feed")->trigger();
        chart().tick();
        QCOMPARE(mProbe->shown(QwtPlot::xBottom).width(), 7000.0);
    }

    void markersOfAFileComeAndGoWithIt()
    {
        auto own = std::make_unique<tcStripPointMarker>(QString());
        own->setValue(5, 6);
        own->setLabel(QwtText("own"));
        chart().markers().add(std::move(own));
        chart().loadCsvFile(
            mProbe->put("one.csv",
                        "t,A\n1000,1\n\n#MARKER,1000.000,1.500,hot\n"
                        "#MARKER,5.000,6.000,own\n#MARKER,0.000,20.000,limit\n"));
        QCOMPARE(markers(), QStringList({"0;20;limit", "1000;1.5;hot", "5;6;own"}));
        chart().loadCsvFile(mProbe->put("two.csv", "t,A\n1000,1\n\n#MARKER,7,8,cold\n"));
        QCOMPARE(markers(), QStringList({"5;6;own", "7;8;cold"}));
        chart().resumeFeed();
        QCOMPARE(markers(), QStringList({"5;6;own"}));
    }

    void markerWithoutATimeIsALine()
    {
        chart().loadCsvFile(
            mProbe->put("one.csv", "t,A\n1000,1\n#MARKER,0.000,20.000,limit\n#MARKER,9,8,x\n"));
        for (const tcStripMarker* marker : chart().markers().markers()) {
            const bool line = marker->label().text() == "limit";
            QCOMPARE(marker->lineStyle(), line ? QwtPlotMarker::HLine : QwtPlotMarker::NoLine);
            QCOMPARE(marker->symbol() != nullptr, !line);
        }
    }

    void savedMarkersComeBackTheSame()
    {
        mProbe->a->addSample(1000, 1.5);
        auto marker = std::make_unique<tcStripPointMarker>(QString());
        marker->setValue(1000, 21.5);
        marker->setLabel(QwtText("hot, very"));
        const QUuid key = chart().markers().add(std::move(marker));
        mProbe->dialogs.fileAnswer = mProbe->path("saved.csv");
        chart().slotSave();
        const QByteArray first = mProbe->content("saved.csv");
        chart().markers().remove(key);
        chart().loadCsvFile(mProbe->path("saved.csv"));
        mProbe->dialogs.fileAnswer = mProbe->path("again.csv");
        chart().slotSave();
        QVERIFY(first.contains("#MARKER,1000.000,21.500,hot, very\n"));
        QCOMPARE(markers(), QStringList("1000;21.5;hot, very"));
        QVERIFY(mProbe->content("again.csv").endsWith("#MARKER,1000.000,21.500,hot, very\n"));
    }

    void markersOfAFileStayOutOfALog()
    {
        mProbe->dialogs.fileAnswer = mProbe->path("log.csv");
        chart().logAction()->setChecked(true);
        chart().loadCsvFile(mProbe->put("one.csv", "t,A\n1000,1\n#MARKER,1,2,hot\n"));
        chart().tick();
        QVERIFY(chart().markers().unlogged().isEmpty());
        QCOMPARE(QDir(mProbe->folder.path()).entryList({"*arker*"}, QDir::Files),
                 QStringList());
    }

    // ---- skipped rows

    void skippedRowsAreShownOnRequest()
    {
        QAction* action = entry("Skipped Rows...");
        QVERIFY(!action->isEnabled());
        chart().loadCsvFile(mProbe->put("good.csv", "t,A\n1,1\n"));
        QVERIFY(!action->isEnabled());
        chart().loadCsvFile(
            mProbe->put("bad.csv", "t,A\n1,1\nlonely\nx,1\n2,no\n3,3\n#MARKER,a,b,c\n"));
        QVERIFY(action->isEnabled());
        chart().show();
        action->trigger();
        QDialog* dialog = skippedDialog();
        QVERIFY(dialog);
        QVERIFY(!dialog->isModal());
        QCOMPARE(dialog->findChild<QLabel*>("summary")->text(),
                 QString("Skipped: rows 2, fields 1, markers 1. Rows read: 3."));
        auto* cases = dialog->findChild<QTreeWidget*>("cases");
        QStringList shown;
        for (int i = 0; i < cases->topLevelItemCount(); ++i)
            shown << cases->topLevelItem(i)->text(0) + '|' + cases->topLevelItem(i)->text(1)
                    + '|' + cases->topLevelItem(i)->text(2);
        QCOMPARE(shown,
                 QStringList({"3|Row has no value|lonely", "4|Row has no time stamp|x",
                              "5|Field is no number|no",
                              "7|Marker has no time or value|#MARKER,a,b,c"}));
        action->trigger();
        QCOMPARE(skippedDialog(), dialog);
    }

    void listIsBoundedAndTellsTheTotal()
    {
        chart().loadCsvFile(
            mProbe->put("bad.csv", "t,A\n1,1\n" + QByteArray("lonely\n").repeated(2500)));
        chart().show();
        entry("Skipped Rows...")->trigger();
        QCOMPARE(skippedDialog()->findChild<QTreeWidget*>("cases")->topLevelItemCount(), 100);
        QCOMPARE(skippedDialog()->findChild<QLabel*>("summary")->text(),
                 QString("Skipped: rows 2,500, fields 0, markers 0. Rows read: 1. "
                         "The first 100 are listed.")
                     .replace("2,500", QLocale().toString(2500)));
    }

    void openListFollowsTheFile()
    {
        chart().show();
        chart().loadCsvFile(mProbe->put("bad.csv", "t,A\n1,1\nlonely\n"));
        entry("Skipped Rows...")->trigger();
        chart().loadCsvFile(mProbe->put("worse.csv", "t,A\n1,1\nlonely\nlonely\n"));
        QCOMPARE(skippedDialog()->findChild<QTreeWidget*>("cases")->topLevelItemCount(), 2);
        chart().resumeFeed();
        QVERIFY(!skippedDialog());
        QVERIFY(!entry("Skipped Rows...")->isEnabled());
    }

    void listGoesWithTheChart()
    {
        chart().show();
        chart().loadCsvFile(mProbe->put("bad.csv", "t,A\n1,1\nlonely\n"));
        entry("Skipped Rows...")->trigger();
        const QPointer<QDialog> dialog = skippedDialog();
        QVERIFY(dialog);
        mProbe->chart.reset();
        QVERIFY(!dialog);
    }
};

QTEST_MAIN(tst_FileTools)
#include "tst_filetools.moc"

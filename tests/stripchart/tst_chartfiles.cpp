#include "tests/stripchart/tcFilesProbe.h"

#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"

#include <QApplication>
#include <QImage>
#include <QImageReader>
#include <QProgressDialog>
#include <QTimer>

class tst_ChartFiles : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<tcFilesProbe> mProbe;

    tcStripChart& chart() const { return *mProbe->chart; }
    QToolButton* loadButton() const { return mProbe->child<QToolButton>("toolButton_Load"); }
    QSpinBox* samplesBox() const { return mProbe->child<QSpinBox>("spinBoxSamples"); }
    QSpinBox* spanBox() const { return mProbe->child<QSpinBox>("spinBoxSpanSec"); }

    void addThreeSamples()
    {
        mProbe->a->addSample(1000, 1.5);
        mProbe->b->addSample(1000, 2);
        mProbe->a->addSample(2000, 3);
    }
    void save(const char* acFile)
    {
        mProbe->dialogs.fileAnswer = mProbe->path(acFile);
        chart().slotSave();
    }
    void load(const QByteArray& acContent)
    {
        chart().loadCsvFile(mProbe->put("load.csv", acContent));
    }
#ifdef Q_OS_UNIX
    /// Takes far longer to read than any test, and no room on the disk. No name when the disk
    /// takes no such file.
    QString makeEndlessFile() const
    {
        constexpr qint64 cBytes = qint64(1) << 40;
        QFile file(mProbe->put("endless.csv", "t,X\n1,2\n"));
        return file.resize(cBytes) ? file.fileName() : QString();
    }
#endif
    /// Nothing that a load touches is left behind.
    void verifyUntouched(const QStringList& acCurves) const
    {
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(chart().isUpdating());
        QVERIFY(mProbe->plot->autoReplot());
        QVERIFY(samplesBox()->isEnabled());
        QCOMPARE(mProbe->shownCurves(), acCurves);
        QCOMPARE(loadButton()->defaultAction(), mProbe->action("actionLoad_from_File"));
        QCOMPARE(chart().windowTitle(), QString("Trend Chart: Cam:1/T"));
    }

private Q_SLOTS:
    void init()
    {
        mProbe = std::make_unique<tcFilesProbe>();
        mProbe->plot->setAutoReplot(true);
        chart().updateTitle(chart().chartName());
    }
    void cleanup()
    {
        mProbe.reset();
    }

    // ---- save

    void saveAsksForAFileInTheDocumentsFolder()
    {
        chart().slotSave();
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
        const auto& asked = mProbe->dialogs.asked.first();
        QCOMPARE(asked.kind, QString("saveFile"));
        QCOMPARE(asked.title, QString("Select File to save data to..."));
        QCOMPARE(asked.text, tcFilesProbe::documents());
        QCOMPARE(asked.detail, QString("csv files (*.csv);; Text file (*.txt)"));
    }

    void saveDoesNothingWithoutCurves()
    {
        chart().resetData();
        chart().slotSave();
        QVERIFY(mProbe->dialogs.asked.isEmpty());
    }

    void saveWritesCurvesAndMarkers()
    {
        addThreeSamples();
        auto marker = std::make_unique<tcStripPointMarker>(QString());
        marker->setValue(1000, 21.5);
        marker->setLabel(QwtText("hot"));
        chart().markers().add(std::move(marker));
        save("saved.csv");
        QCOMPARE(mProbe->content("saved.csv"),
                 QByteArray("ms since epoch,A,B,\n"
                            "1000,1.500,2.000\n"
                            "2000,3.000,\n"
                            "\n"
                            "#MARKER,1000.000,21.500,hot\n"));
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(mProbe->asked("warning").size(), 0);
    }

    void markersAreSavedInTheOrderOfTheirMap()
    {
        addThreeSamples();
        for (int i = 0; i < 10; ++i) {
            auto marker = std::make_unique<tcStripPointMarker>(QString());
            marker->setLabel(QwtText(QString::number(i)));
            chart().markers().add(std::move(marker));
        }
        save("saved.csv");
        QByteArray expected;
        for (const tcStripMarker* marker : chart().markers().markers())
            expected += "#MARKER,0.000,0.000," + marker->label().text().toLatin1() + '\n';
        QVERIFY(mProbe->content("saved.csv").endsWith("\n\n" + expected));
    }

    void saveThatFailsShowsABoxAndKeepsTheOldFile()
    {
        addThreeSamples();
        mProbe->dialogs.whileOpen = [this] {
            if (!mProbe->asked("warning").isEmpty())
                QVERIFY(!QApplication::overrideCursor());
        };
        save("no/such/folder.csv");
        const auto warnings = mProbe->asked("warning");
        QCOMPARE(warnings.size(), 1);
        QCOMPARE(warnings.first().title, QString("Cam:1/T"));
        QCOMPARE(warnings.first().text,
                 "Error trying to save\n" + mProbe->path("no/such/folder.csv"));
        QVERIFY(!QApplication::overrideCursor());
    }

    void placeHoldersInAFileNameStay()
    {
        addThreeSamples();
        save("no/such/%1.csv");
        QCOMPARE(mProbe->asked("warning").first().text,
                 "Error trying to save\n" + mProbe->path("no/such/%1.csv"));
    }

    void cancelledSaveWritesNothing()
    {
        addThreeSamples();
        chart().slotSave();
        QCOMPARE(QDir(mProbe->folder.path()).entryList(QDir::Files), QStringList());
    }

    void chartThatGoesWhileAskedIsLeftAlone_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("save") << "save";
        QTest::newRow("load") << "load";
        QTest::newRow("picture") << "picture";
    }

    void chartThatGoesWhileAskedIsLeftAlone()
    {
        QFETCH(QString, what);
        addThreeSamples();
        mProbe->dialogs.fileAnswer = mProbe->put("file.csv", "t,A\n1,2\n");
        mProbe->dialogs.whileOpen = [this] { mProbe->chart.reset(); };
        if (what == "save")
            chart().slotSave();
        else if (what == "load")
            chart().loadCsvFile();
        else
            chart().savePicture();
        QVERIFY(!mProbe->chart);
        QCOMPARE(mProbe->content("file.csv"), QByteArray("t,A\n1,2\n"));
        QVERIFY(!QApplication::overrideCursor());
    }

    // ---- load

    void loadAsksForAFileInTheDocumentsFolder()
    {
        chart().loadCsvFile();
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
        const auto& asked = mProbe->dialogs.asked.first();
        QCOMPARE(asked.kind, QString("openFile"));
        QCOMPARE(asked.title, QString("Select CSV File to load data from..."));
        QCOMPARE(asked.text, tcFilesProbe::documents());
        QCOMPARE(asked.detail, QString("csv files (*.csv)"));
        verifyUntouched({"A=", "B="});
    }

    void fileThatWontOpenShowsABox()
    {
        chart().loadCsvFile(mProbe->path("none.csv"));
        const auto warnings = mProbe->asked("warning");
        QCOMPARE(warnings.size(), 1);
        QCOMPARE(warnings.first().title, QString("Cam:1/T"));
        QCOMPARE(warnings.first().text, "Error trying to load\n" + mProbe->path("none.csv"));
        verifyUntouched({"A=", "B="});
    }

    void tooFewColumnsAreRefusedBeforeAnythingStops_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("one field") << QByteArray("TimeStamp\n1,2\n");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("semicolons") << QByteArray("t;A\n1;2\n");
    }

    void tooFewColumnsAreRefusedBeforeAnythingStops()
    {
        QFETCH(QByteArray, content);
        addThreeSamples();
        load(content);
        const auto warnings = mProbe->asked("warning");
        QCOMPARE(warnings.size(), 1);
        QCOMPARE(warnings.first().title, QString("Cam:1/T"));
        QCOMPARE(warnings.first().text, QString("Unable to load file.. not enough columns"));
        verifyUntouched({"A=1000:1.5 2000:3", "B=1000:2"});
    }

    void loadedFileTakesThePlaceOfTheLiveCurves()
    {
        addThreeSamples();
        load("TimeStamp,X,Y,\n5000,1.500,2.000\n65500,3.000,\n");
        QCOMPARE(mProbe->shownCurves(), QStringList({"X=5000:1.5 65500:3", "Y=5000:2"}));
        QVERIFY(!mProbe->a->plot());
        QCOMPARE(chart().windowTitle(),
                 "Trend Chart: Cam:1/TFrom: " + mProbe->path("load.csv"));
        QVERIFY(!chart().isUpdating());
        QVERIFY(!samplesBox()->isEnabled());
        QCOMPARE(loadButton()->defaultAction(), mProbe->action("actionResume_Feed"));
        QVERIFY(mProbe->plot->autoReplot());
        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(spanBox()->value(), 61);
        QCOMPARE(mProbe->shown(QwtPlot::xBottom).minValue(), 5000.0);
        QCOMPARE(mProbe->shown(QwtPlot::xBottom).maxValue(), 65500.0);
        QCOMPARE(chart().curves().first()->pen().color(), tcStripCurve::stripCurveColor(0));
        QCOMPARE(chart().curves().last()->pen().color(), tcStripCurve::stripCurveColor(1));
    }

    void fileWithoutHeaderNamesItsColumnsFromTwo()
    {
        load("1731681000000,1.0,2.0\n");
        QCOMPARE(mProbe->shownCurves(),
                 QStringList({"Column 2=1731681000000:1", "Column 3=1731681000000:2"}));
    }

    void fileIsShownWholeHoweverFewSamplesLiveCurvesKeep()
    {
        samplesBox()->setValue(100);
        QByteArray file("t,A,B\n");
        for (int i = 0; i < 5000; ++i)
            file += QByteArray::number(i) + ",1," + (i % 2 ? "2" : "") + "\n";
        load(file);
        QCOMPARE(chart().curves().at(0)->dataSize(), size_t(5000));
        QCOMPARE(chart().curves().at(1)->dataSize(), size_t(2500));
        QVERIFY(chart().curves().at(0)->sampleCount() >= 5000);
    }

    void headerAloneLeavesTheTimeAxis()
    {
        const QwtInterval before = mProbe->shown(QwtPlot::xBottom);
        load("t,A,B\n");
        QCOMPARE(mProbe->shownCurves(), QStringList({"A=", "B="}));
        QCOMPARE(mProbe->shown(QwtPlot::xBottom), before);
    }

    void singleTimeStampGetsASecondOfWidth()
    {
        load("t,A\n5000,1\n");
        QCOMPARE(mProbe->shown(QwtPlot::xBottom), QwtInterval(5000, 6000));
    }

    void loadedFileIsSavedWithTheSameColumns()
    {
        QByteArray header("ms since epoch,");
        QByteArray row("1000");
        for (int i = 0; i < 40; ++i) {
            header += "Curve " + QByteArray::number(i) + ',';
            row += ',' + QByteArray::number(i) + ".000";
        }
        const QByteArray file = header + '\n' + row + "\n\n";
        load(file);
        save("again.csv");
        QCOMPARE(mProbe->content("again.csv"), file);
    }

    void skippedLinesAreToldInTheLog()
    {
        tcMessages messages;
        load("t,A\nlonely\nx,1\n5,abc\n");
        QCOMPARE(messages.list().size(), 4);
        QCOMPARE(messages.list().at(0), QString("info: Malformed line \"lonely\" line 2"));
        QCOMPARE(messages.list().at(1),
                 QString("debug: Row skipped, no time stamp: \"x\" line 3"));
        QCOMPARE(messages.list().at(2),
                 QString("debug: Field skipped, no number: \"abc\" line 4"));
        QVERIFY(messages.list().at(3).contains("skipped rows 2 skipped fields 1"));
    }

    void openLogIsNotTouched()
    {
        mProbe->dialogs.fileAnswer = mProbe->path("log.csv");
        mProbe->dialogs.integerAnswer = 0;
        chart().logData(true);
        chart().tick();
        mProbe->a->addSample(1000, 1);
        load("t,X\n5000,1\n");
        QVERIFY(chart().logAction()->isChecked());
        mProbe->action("actionResume_Feed")->trigger();
        chart().tick();
        QCOMPARE(mProbe->content("log.csv"), QByteArray("TimeStamp,A,B,\n1000,1.000,\n"));
    }

    // ---- back to live readings

    void resumeBringsTheLiveCurvesBack()
    {
        addThreeSamples();
        mProbe->b->setVisible(false);
        const int span = spanBox()->value();
        load("t,X\n5000,1\n9000,2\n");
        mProbe->action("actionResume_Feed")->trigger();
        verifyUntouched({"A=1000:1.5 2000:3", "B=1000:2"});
        QCOMPARE(chart().curve(mProbe->key, 1), mProbe->b.get());
        QVERIFY(mProbe->a->isVisible());
        QVERIFY(!mProbe->b->isVisible());
        QCOMPARE(spanBox()->value(), span);
    }

    void readingsOfLiveCurvesAreKeptMeanwhile()
    {
        load("t,X\n5000,1\n");
        chart().updateData(mProbe->key, 1, 7000, 8);
        mProbe->a->addSample(7000, 9);
        chart().updateData(mProbe->key, 5, 7000, 8);
        mProbe->action("actionResume_Feed")->trigger();
        QCOMPARE(mProbe->shownCurves(), QStringList({"A=7000:9", "B=7000:8"}));
    }

    void liveCurvesDeletedMeanwhileStayAway()
    {
        load("t,X\n5000,1\n");
        mProbe->a.reset();
        chart().updateData(mProbe->key, 0, 7000, 8);
        mProbe->action("actionResume_Feed")->trigger();
        QCOMPARE(mProbe->shownCurves(), QStringList({"B="}));
    }

    void liveCurvesRemovedMeanwhileStayAway()
    {
        load("t,X\n5000,1\n");
        chart().removeCurve(mProbe->a.get());
        mProbe->action("actionResume_Feed")->trigger();
        QCOMPARE(mProbe->shownCurves(), QStringList({"B="}));
        load("t,X\n5000,1\n");
        chart().removeCurves(mProbe->key);
        mProbe->action("actionResume_Feed")->trigger();
        QCOMPARE(mProbe->shownCurves(), QStringList());
    }

    void liveCurvesThatCameMeanwhileStay()
    {
        load("t,X\n5000,1\n");
        const auto late = mProbe->curve("late");
        chart().addCurve(late.get());
        mProbe->action("actionResume_Feed")->trigger();
        QStringList shown = mProbe->shownCurves();
        shown.sort();
        QCOMPARE(shown, QStringList({"A=", "B=", "late="}));
    }

    void anotherFileTakesThePlaceOfTheFirst()
    {
        load("t,X\n5000,1\n");
        load("t,Y\n6000,2\n");
        QCOMPARE(mProbe->shownCurves(), QStringList({"Y=6000:2"}));
        mProbe->action("actionResume_Feed")->trigger();
        verifyUntouched({"A=", "B="});
    }

    void resumeWithoutAFileResetsAsDesigned()
    {
        mProbe->action("actionResume_Feed")->trigger();
        verifyUntouched({});
    }

    void chartWithALoadedFileCanGo()
    {
        load("t,X\n5000,1\n");
        mProbe->chart.reset();
        QVERIFY(!mProbe->a->plot());
    }

    void aThousandColumnsAreShown()
    {
        QByteArray header("t");
        QByteArray row("5");
        for (int i = 0; i < 1000; ++i) {
            header += ",c";
            row += ",1";
        }
        load(header + '\n' + row + '\n');
        QCOMPARE(chart().curves().size(), 1000);
        mProbe->action("actionResume_Feed")->trigger();
        QCOMPARE(mProbe->shownCurves(), QStringList({"A=", "B="}));
    }

#ifdef Q_OS_UNIX
    void longLoadShowsProgressAnswersAndCanBeCancelled()
    {
        addThreeSamples();
        const QString file = makeEndlessFile();
        QVERIFY(!file.isEmpty());
        int answers = 0;
        bool busy = true;
        bool modal = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            ++answers;
            const QCursor* cursor = QApplication::overrideCursor();
            busy = busy && cursor && cursor->shape() == Qt::BusyCursor && !chart().isUpdating()
                && !mProbe->plot->autoReplot();
            chart().loadCsvFile(
                mProbe->put("second.csv", "t,X\n1,2\n")); // does nothing meanwhile
            auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            modal = dialog->windowModality() == Qt::ApplicationModal;
            dialog->cancel();
        });
        timer.start(5);
        chart().loadCsvFile(file);
        timer.stop();
        QVERIFY(modal && busy);
        QVERIFY(answers > 2);
        verifyUntouched({"A=1000:1.5 2000:3", "B=1000:2"});
        QCOMPARE(mProbe->asked("warning").size(), 0);
    }

    void chartThatGoesWhileItLoadsIsLeftAlone()
    {
        const QString file = makeEndlessFile();
        QVERIFY(!file.isEmpty());
        QTimer::singleShot(0, this, [this] { mProbe->chart.reset(); });
        chart().loadCsvFile(file);
        QVERIFY(!mProbe->chart);
        QVERIFY(!QApplication::overrideCursor());
    }
#endif

    // ---- picture

    void pictureIsSavedUnderAGivenNameWithoutAsking()
    {
        chart().savePicture(mProbe->path("chart.png"));
        QVERIFY(mProbe->dialogs.asked.isEmpty());
        const QImage image(mProbe->path("chart.png"), "PNG");
        QCOMPARE(image, chart().grab().toImage().convertToFormat(image.format()));
    }

    void pictureIsProposedInTheDocumentsFolder()
    {
        chart().savePicture();
        QCOMPARE(mProbe->dialogs.asked.size(), 1);
        const auto& asked = mProbe->dialogs.asked.first();
        QCOMPARE(asked.kind, QString("saveFile"));
        QCOMPARE(asked.title, QString("Select File to save chart to..."));
        QCOMPARE(asked.text, tcFilesProbe::documents() + "/Cam:1/T.png");
        QCOMPARE(asked.detail, QString("PNG image file (*.png)"));
    }

    void pictureIsProposedBesideTheLastFile_data()
    {
        QTest::addColumn<QString>("last");
        QTest::newRow("saved") << "save";
        QTest::newRow("loaded") << "load";
        QTest::newRow("logged") << "log";
        QTest::newRow("pictured") << "picture";
    }

    void pictureIsProposedBesideTheLastFile()
    {
        QFETCH(QString, last);
        QDir(mProbe->folder.path()).mkdir("sub");
        mProbe->dialogs.fileAnswer = mProbe->put("sub/file.csv", "t,A\n1,2\n");
        mProbe->dialogs.integerAnswer = 0;
        if (last == "save")
            chart().slotSave();
        else if (last == "load")
            chart().loadCsvFile();
        else if (last == "log")
            chart().logData(true);
        else
            chart().savePicture(mProbe->path("sub/one.png"));
        mProbe->dialogs.fileAnswer.clear();
        chart().savePicture();
        QCOMPARE(mProbe->asked("saveFile").last().text, mProbe->path("sub/Cam:1/T.png"));
    }

    void pictureFollowsTheSuffix_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("png") << "a.png" << QByteArray("png");
        QTest::newRow("capitals") << "a.PNG" << QByteArray("png");
        QTest::newRow("jpg") << "a.jpg" << QByteArray("jpeg");
        QTest::newRow("bmp") << "a.bmp" << QByteArray("bmp");
    }

    void pictureFollowsTheSuffix()
    {
        QFETCH(QString, name);
        if (name == "a.jpg" && !QImageReader::supportedImageFormats().contains("jpeg"))
            QSKIP("This computer's Qt writes no such pictures.");
        chart().savePicture(mProbe->path(name.toLatin1().constData()));
        QTEST(QImageReader::imageFormat(mProbe->path(name.toLatin1().constData())), "format");
    }

    void pictureThatCannotBeSavedShowsABox_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("no such folder") << "no/such/a.png";
        QTest::newRow("no such format") << "a.csv";
        QTest::newRow("no suffix") << "a";
    }

    void pictureThatCannotBeSavedShowsABox()
    {
        QFETCH(QString, name);
        const QString path = mProbe->folder.filePath(name);
        chart().savePicture(path);
        const auto warnings = mProbe->asked("warning");
        QCOMPARE(warnings.size(), 1);
        QCOMPARE(warnings.first().title, QString("Cam:1/T"));
        QCOMPARE(warnings.first().text, "Error trying to save\n" + path);
        QVERIFY(!QFile::exists(path));
    }

    void loggedChartLoadsBackValueByValue()
    {
        std::vector<std::unique_ptr<tcStripCurve>> curves;
        const QUuid key = QUuid::createUuid();
        chart().resetData();
        for (int i = 0; i < 15; ++i) {
            curves.push_back(mProbe->curve(QString("Curve %1").arg(i), i));
            chart().addCurve(curves.back().get(), key);
        }
        mProbe->dialogs.fileAnswer = mProbe->path("log.csv");
        mProbe->dialogs.integerAnswer = 0;
        chart().logData(true);
        for (int t = 0; t < 500; ++t) {
            for (int i = 0; i < 15; ++i)
                if ((t + i) % 3)
                    chart().updateData(key, i, 1731681000000 + t, (t * 15 + i) / 16.0);
            if (t % 10 == 0)
                chart().tick();
        }
        chart().tick();
        mProbe->chart.reset(); // without stopping the log
        tcStripChart other;
        other.loadCsvFile(mProbe->path("log.csv"));
        const QVector<tcStripCurve*> loaded = other.curves();
        QCOMPARE(loaded.size(), 15);
        for (int i = 0; i < 15; ++i) {
            QCOMPARE(loaded.at(i)->title().text(), QString("Curve %1").arg(i));
            QCOMPARE(loaded.at(i)->dataSize(), curves[size_t(i)]->dataSize());
            for (size_t n = 0; n < loaded.at(i)->dataSize(); ++n) {
                const QPointF live = curves[size_t(i)]->sample(int(n));
                const QPointF read = loaded.at(i)->sample(int(n));
                QCOMPARE(read.x(), live.x());
                QCOMPARE(read.y(), QString::number(live.y(), 'f', 3).toDouble());
            }
        }
    }
};

QTEST_MAIN(tst_ChartFiles)
#include "tst_chartfiles.moc"

#include "stripchart/logic/tcChartNames.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_ChartNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowTitle_data();
    void windowTitle();
    void titleOfCurves_data();
    void titleOfCurves();
    void menuTextKeepsAmpersands();
    void logFile_data();
    void logFile();
    void markerFileLiesUnderTheLogsOwnPath();
    void markerFileOfALinkedLog();
    void noMarkerFileForAVanishedLog();
};

void tst_ChartNames::logFile_data()
{
    QTest::addColumn<QString>("chart");
    QTest::addColumn<QString>("file");
    const QString time = "_chart_log_20261115_153000.csv";
    QTest::newRow("plain") << "Sensors"
                           << "Sensors" + time;
    QTest::newRow("colon and slash") << "Cam:1/T"
                                     << "Cam_1_T" + time;
    QTest::newRow("all nine") << "a\\b/c:d*e?f\"g<h>i|j"
                              << "a_b_c_d_e_f_g_h_i_j" + time;
    QTest::newRow("each for itself") << "??"
                                     << "__" + time;
    QTest::newRow("others stay") << "50 % [x] %1.é"
                                 << "50 % [x] %1.é" + time;
    QTest::newRow("no name") << "" << time;
}

void tst_ChartNames::logFile()
{
    QFETCH(QString, chart);
    const QDateTime start(QDate(2026, 11, 15), QTime(15, 30));
    QTEST(tcChartNames::logFile(chart, start), "file");
    QFETCH(QString, file);
    QCOMPARE(tcChartNames::exportFile(chart, start), file.replace("_chart_log_", "_export_"));
}

void tst_ChartNames::markerFileLiesUnderTheLogsOwnPath()
{
    QTemporaryDir folder;
    QFile log(folder.filePath("cam.1.csv"));
    QVERIFY(log.open(QIODevice::WriteOnly));
    QCOMPARE(tcChartNames::markerFile(log.fileName()),
             QFileInfo(log).canonicalFilePath() + "/cam_meta.txt");
}

void tst_ChartNames::markerFileOfALinkedLog()
{
    QTemporaryDir folder;
    QFile log(folder.filePath("real.csv"));
    QVERIFY(log.open(QIODevice::WriteOnly));
#ifdef Q_OS_WIN
    QSKIP("what Qt calls a link here is a shortcut, a file of its own");
#endif
    QVERIFY(log.link(folder.filePath("linked.csv")));
    QCOMPARE(tcChartNames::markerFile(folder.filePath("linked.csv")),
             QFileInfo(log).canonicalFilePath() + "/linked_meta.txt");
}

void tst_ChartNames::noMarkerFileForAVanishedLog()
{
    QTemporaryDir folder;
    QCOMPARE(tcChartNames::markerFile(folder.filePath("gone.csv")), QString());
}

void tst_ChartNames::windowTitle_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("logFile");
    QTest::addColumn<QString>("text");
    QTest::newRow("title and name") << "Trend Chart:"
                                    << "Sensors"
                                    << ""
                                    << ""
                                    << "Trend Chart: Sensors";
    QTest::newRow("status follows as it is") << "Trend Chart:"
                                             << "A"
                                             << "- Unable to open x"
                                             << ""
                                             << "Trend Chart: A- Unable to open x";
    QTest::newRow("logging without a blank before it") << "Trend Chart:"
                                                       << "A"
                                                       << ""
                                                       << "a.csv"
                                                       << "Trend Chart: A- logging to a.csv";
    QTest::newRow("status before logging")
        << "Trend Chart:"
        << "A"
        << " - End: 10:00:00 am"
        << "a.csv"
        << "Trend Chart: A - End: 10:00:00 am- logging to a.csv";
    QTest::newRow("no name, no text") << "Trend Chart:A"
                                      << ""
                                      << ""
                                      << ""
                                      << "";
    QTest::newRow("no name while logging") << "T"
                                           << ""
                                           << ""
                                           << "a.csv"
                                           << "- logging to a.csv";
    QTest::newRow("place holders in names stay as they are")
        << "Trend Chart:"
        << "50 %1 %2"
        << " %1"
        << "%1.csv"
        << "Trend Chart: 50 %1 %2 %1- logging to %1.csv";
}

void tst_ChartNames::windowTitle()
{
    QFETCH(QString, title);
    QFETCH(QString, name);
    QFETCH(QString, status);
    QFETCH(QString, logFile);
    QTEST(tcChartNames::windowTitle({title, name, status, logFile}), "text");
}

void tst_ChartNames::titleOfCurves_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("sources");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << "" << 0 << "Trend Chart:";
    QTest::newRow("one") << "A" << 1 << "Trend Chart:A";
    QTest::newRow("two") << "A" << 2 << "Trend Chart:A + 1 more";
    QTest::newRow("first slot empty") << "" << 3 << "Trend Chart: + 2 more";
}

void tst_ChartNames::titleOfCurves()
{
    QFETCH(QString, first);
    QFETCH(int, sources);
    QTEST(tcChartNames::titleOfCurves(first, sources), "text");
}

void tst_ChartNames::menuTextKeepsAmpersands()
{
    QCOMPARE(tcChartNames::menuText("A & B && %1"), QString("A && B &&&& %1"));
}

QTEST_APPLESS_MAIN(tst_ChartNames)
#include "tst_chartnames.moc"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

/// The program quits in about a second, whatever its instruments' drivers are doing.
class tst_Quit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quits_data();
    void quits();
};

void tst_Quit::quits_data()
{
    QTest::addColumn<QString>("drivers");
    QTest::addColumn<int>("stuck");
    QTest::newRow("all is well") << "none" << 0;
    QTest::newRow("both hang in a program with windows") << "both windows" << 2;
    QTest::newRow("a reading of the logger hangs") << "logger-reads" << 1;
    QTest::newRow("opening the logger hangs") << "logger-opens" << 1;
    QTest::newRow("the port of the thermometer hangs") << "thermometer" << 1;
    QTest::newRow("both hang") << "both" << 2;
    QTest::newRow("the logger and thirty thermometers hang") << "thirty" << 31;
    QTest::newRow("a driver comes back at the very end") << "released-at-the-end" << 1;
}

void tst_Quit::quits()
{
    QFETCH(QString, drivers);
    QFETCH(int, stuck);
    QProcess program;
    const QStringList arguments = drivers.split(' ');
    if (arguments.size() > 1) { // Qt's own screens are left behind where there is no display
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ASAN_OPTIONS", "detect_leaks=0");
        program.setProcessEnvironment(environment);
    }
    program.start(QUIT_WHILE_HANGING, arguments);
    QVERIFY(program.waitForReadyRead());
    QCOMPARE(program.readLine().trimmed(), QByteArray("quitting"));
    QElapsedTimer elapsed;
    elapsed.start();
    // Ample for a busy machine; one that hangs never ends.
    QVERIFY2(program.waitForFinished(20000), "still running");
    qInfo() << "ended after" << elapsed.elapsed() << "ms";
    const QByteArray errors = program.readAllStandardError();
    QVERIFY2(program.exitStatus() == QProcess::NormalExit, errors.constData());
    QVERIFY2(program.exitCode() == 0, errors.constData());
    QCOMPARE(errors.count(" stuck... killing"), stuck);
}

QTEST_GUILESS_MAIN(tst_Quit)
#include "tst_quit.moc"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

/// The program itself, at the far end of its pseudo-terminal.
class tst_CameraSimProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help();
    void list();
    void badOption_data();
    void badOption();
    void answersOnThePseudoTerminal();
    void linkComesAndGoes();
    void replacesNoFileByItsLink();
    void replaysAFile();
    void badReplay_data();
    void badReplay();
    void servesOneClientAfterTheOther();
    void hangsUpWhenUnplugged();
};

namespace
{

/// Runs to its end; standard output and error together.
QByteArray output(const QStringList& acArguments, int& arCode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(CAMERA_SIM_PROGRAM), acArguments);
    if (!process.waitForFinished(20000))
        return "did not end";
    arCode = process.exitCode();
    return process.readAll();
}

/// Started and asked for its path.
QByteArray startServing(QProcess& arProcess, const QStringList& acArguments)
{
    arProcess.start(QStringLiteral(CAMERA_SIM_PROGRAM), acArguments);
    while (!arProcess.canReadLine() && arProcess.waitForReadyRead(20000)) { }
    return arProcess.readLine().trimmed();
}

void writeFile(const QString& acName, const QByteArray& acContent)
{
    QFile file(acName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(acContent), qint64(acContent.size()));
}

QByteArray readReply(int anFile, int anLength)
{
    QByteArray received;
    while (received.size() < anLength) { // the test's own time-out ends a hopeless wait
        QByteArray block(256, '\0');
        const ssize_t count = read(anFile, block.data(), size_t(block.size()));
        if (count <= 0)
            break;
        received += block.left(int(count));
    }
    return received;
}

} // namespace

void tst_CameraSimProgram::help()
{
    int code = -1;
    const QByteArray text = output({QStringLiteral("--help")}, code);
    QCOMPARE(code, 0);
    for (const char* option :
         {"--model", "--seed", "--speed", "--link", "--fault", "--list", "--replay", "--loop"})
        QVERIFY2(text.contains(option), option);
}

void tst_CameraSimProgram::list()
{
    int code = -1;
    const QByteArray text = output({QStringLiteral("--list")}, code);
    QCOMPARE(code, 0);
    QCOMPARE(text.count('\n'), 9);
    QVERIFY(text.contains("k20-tec    Virtual K20 (Temp controlled), 2048 x 1088\n"));
}

void tst_CameraSimProgram::badOption_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("unknown") << QStringList{"--nope"} << QByteArray("unknown option --nope");
    QTest::newRow("no value") << QStringList{"--seed"} << QByteArray("--seed needs a value");
    QTest::newRow("model") << QStringList{"--model", "k99"} << QByteArray("--model: can't");
    QTest::newRow("seed") << QStringList{"--seed", "-1"} << QByteArray("--seed: can't");
    QTest::newRow("speed") << QStringList{"--speed", "0"} << QByteArray("--speed: can't");
    QTest::newRow("no file") << QStringList{"--replay"} << QByteArray("--replay needs a value");
    QTest::newRow("loop of nothing")
        << QStringList{"--loop"} << QByteArray("--loop needs --replay");
    QTest::newRow("fault") << QStringList{"--fault", "boom"} << QByteArray("--fault: can't");
}

void tst_CameraSimProgram::badOption()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, words);
    int code = -1;
    const QByteArray text = output(arguments, code);
    QCOMPARE(code, 2);
    QVERIFY2(text.contains(words), text.constData());
}

void tst_CameraSimProgram::answersOnThePseudoTerminal()
{
    QProcess process;
    const QByteArray path = startServing(process, {"--model", "r60"});
    const int file = open(path.constData(), O_RDWR | O_NOCTTY);
    QVERIFY2(file >= 0, path.constData());
    QCOMPARE(write(file, "<VERS>\n", 7), ssize_t(7));
    const QByteArray reply = "<VERS><ACK><Vexa-R60 1.2.0><SN 60011>\r\n";
    QCOMPARE(readReply(file, reply.size()), reply);
    close(file);
    process.terminate();
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
}

void tst_CameraSimProgram::linkComesAndGoes()
{
    QTemporaryDir directory;
    const QString link = directory.filePath(QStringLiteral("camera"));
    QVERIFY(QFile::link(QStringLiteral("/dev/null"), link)); // left behind by somebody
    QProcess process;
    const QByteArray path = startServing(process, {"--link", link});
    QCOMPARE(QFile::symLinkTarget(link).toLocal8Bit(), path);
    process.terminate();
    QVERIFY(process.waitForFinished(20000));
    QVERIFY(!QFileInfo(link).isSymLink());
}

void tst_CameraSimProgram::replacesNoFileByItsLink()
{
    QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("precious")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("data");
    file.close();
    int code = -1;
    const QByteArray text = output({"--link", file.fileName()}, code);
    QCOMPARE(code, 1);
    QVERIFY2(text.contains("precious"), text.constData());
    QCOMPARE(file.size(), qint64(4));
}

void tst_CameraSimProgram::replaysAFile()
{
    QTemporaryDir directory;
    const QString name = directory.filePath(QString::fromUtf8("K\xC3\xBChler.csv"));
    writeFile(name,
              "ms since epoch,Sensor Temperature ,Voltage,\n"
              "1700000000000,91.500,1.000\n1700000060000,92.125,2.000\n");
    QProcess process;
    const QByteArray path
        = startServing(process, {"--model", "k20", "--replay", name, "--speed", "1000"});
    const int file = open(path.constData(), O_RDWR | O_NOCTTY);
    QVERIFY2(file >= 0, process.readAllStandardError().constData());
    const auto ask = [file](const QByteArray& acCommand) {
        const QByteArray line = acCommand + '\n';
        if (write(file, line.constData(), size_t(line.size())) != line.size())
            return QByteArray();
        return readReply(file, acCommand.size() + 14);
    };
    // The file begins when somebody asks, however long the camera has waited.
    QByteArray reply = ask("<SENS 1>");
    QCOMPARE(reply, QByteArray("<SENS 1><ACK><91.50>\r\n"));
    while (reply == "<SENS 1><ACK><91.50>\r\n") // the minute takes 60 ms
        reply = ask("<SENS 1>");
    QCOMPARE(reply, QByteArray("<SENS 1><ACK><92.13>\r\n"));
    QCOMPARE(ask("<SENS 1>"), QByteArray("<SENS 1><ACK><92.13>\r\n")); // held
    const QByteArray board = ask("<SENS 2>");
    QVERIFY2(board.startsWith("<SENS 2><ACK><2"), board.constData()); // the room's, the model's
    close(file);
    process.terminate();
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.readAllStandardError(), QByteArray());
}

void tst_CameraSimProgram::badReplay_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("words");
    const QByteArray good = "ms since epoch,Sensor Temperature ,\n1700000000000,91.500\n";
    QTest::newRow("speed below") << good << QStringList{"--speed", "0.5"}
                                 << QByteArray("speed is a whole number from 1 to 1000");
    QTest::newRow("speed above") << good << QStringList{"--speed", "1001"}
                                 << QByteArray("speed is a whole number from 1 to 1000");
    QTest::newRow("no file") << QByteArray() << QStringList()
                             << QByteArray("No such file or directory");
    QTest::newRow("no columns") << QByteArray("hello\n") << QStringList()
                                << QByteArray("not enough columns");
    QTest::newRow("other curves")
        << QByteArray("ms since epoch,Oven,\n1700000000000,91.500\n") << QStringList()
        << QByteArray("no readings of a sensor that this camera has");
}

void tst_CameraSimProgram::badReplay()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, words);
    QTemporaryDir directory;
    const QString name = directory.filePath(QStringLiteral("chart.csv"));
    if (!content.isEmpty())
        writeFile(name, content);
    int code = -1;
    const QByteArray text = output(QStringList{"--replay", name} + options, code);
    QCOMPARE(code, 1);
    QVERIFY2(text.startsWith("vexa-camera-sim: " + name.toLocal8Bit()), text.constData());
    QVERIFY2(text.contains(words), text.constData());
}

void tst_CameraSimProgram::servesOneClientAfterTheOther()
{
    QProcess process;
    const QByteArray path = startServing(process, {"--model", "k20"});
    for (const char* exposure : {"7", "8"}) {
        const int file = open(path.constData(), O_RDWR | O_NOCTTY);
        QVERIFY(file >= 0);
        const QByteArray command = QByteArray("<SEXP ") + exposure + '>';
        QCOMPARE(write(file, (command + '\n').constData(), size_t(command.size() + 1)),
                 ssize_t(command.size() + 1));
        QCOMPARE(readReply(file, command.size() + 7), command + "<ACK>\r\n");
        close(file);
    }
    process.terminate();
    QVERIFY(process.waitForFinished(20000));
}

void tst_CameraSimProgram::hangsUpWhenUnplugged()
{
    QProcess process;
    const QByteArray path = startServing(process, {"--fault", "unplug@2"});
    const int file = open(path.constData(), O_RDWR | O_NOCTTY);
    QVERIFY(file >= 0);
    QCOMPARE(write(file, "<STOP>\n", 7), ssize_t(7));
    QCOMPARE(readReply(file, 13), QByteArray("<STOP><ACK>\r\n"));
    QCOMPARE(write(file, "<STOP>\n", 7), ssize_t(7));
    QCOMPARE(readReply(file, 13), QByteArray()); // the end, not a wait
    close(file);
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_CameraSimProgram)
#include "tst_camerasimprogram.moc"

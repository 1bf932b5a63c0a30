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
    for (const char* option : {"--model", "--seed", "--speed", "--link", "--fault", "--list"})
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

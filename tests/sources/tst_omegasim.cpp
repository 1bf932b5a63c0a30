#include "sim/omega/tcOmegaSim.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace
{

/// The computer's end of the line, without any library in between.
class tcLine
{
public:
    explicit tcLine(const QByteArray& acPort)
        : mFile(::open(acPort.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
    }
    tcLine(const tcLine&) = delete;
    tcLine& operator=(const tcLine&) = delete;
    ~tcLine() { ::close(mFile); }

    bool isOpen() const { return mFile >= 0; }
    bool send(const QByteArray& acBytes)
    {
        return ::write(mFile, acBytes.constData(), size_t(acBytes.size())) == acBytes.size();
    }
    /// The next portion that arrives; empty when the line is gone or nothing comes for long.
    QByteArray portion(int anMs = 5000)
    {
        pollfd watched{mFile, POLLIN, 0};
        if (::poll(&watched, 1, anMs) <= 0)
            return {};
        char bytes[4096];
        const ssize_t count = ::read(mFile, bytes, sizeof bytes);
        return QByteArray(bytes, count > 0 ? int(count) : 0);
    }

private:
    int mFile;
};

QByteArray port(const tcOmegaSim& acSim)
{
    return QByteArray::fromStdString(acSim.portName());
}

} // namespace

class tst_OmegaSim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersARequest();
    void answersNothingElse();
    void temperatureComesFromSeedAndClock();
    void misbehaves_data();
    void misbehaves();
    void splitReplyComesInTwoPortions();
    void lateReplyComesLate();
    void unpluggedLineIsGoneAndComesBack();
    void linkFollowsThePort();
    void linkReplacesNoFile();
    void unknownCommands_data();
    void unknownCommands();
    void programServesAndTidiesUp();
    void programRefusesWhatItDoesNotKnow();
};

void tst_OmegaSim::answersARequest()
{
    tcOmegaSim sim;
    QVERIFY(sim.command("temp 23.4"));
    tcLine line(port(sim));
    QVERIFY(line.isOpen());
    QVERIFY(line.send("c\r\n"));
    QCOMPARE(line.portion(), QByteArray(">23.4\r\n"));
    QCOMPARE(sim.requests(), 1);
    QCOMPARE(sim.received(), std::string("c\r\n"));
}

void tst_OmegaSim::answersNothingElse()
{
    tcOmegaSim sim;
    QVERIFY(sim.command("temp 1"));
    tcLine line(port(sim));
    line.send("\r\nC\r\nc\ncc\r\n" + QByteArray(100, 'x') + "\r\n");
    line.send("c\r");
    line.send("\n");
    QCOMPARE(line.portion(), QByteArray(">1.0\r\n"));
    QCOMPARE(sim.requests(), 1);
}

void tst_OmegaSim::temperatureComesFromSeedAndClock()
{
    tcOmegaSim one(1);
    tcOmegaSim two(40);
    tcLine first(port(one));
    tcLine second(port(two));
    first.send("c\r\n");
    second.send("c\r\n");
    const QByteArray fromOne = first.portion();
    const QByteArray fromTwo = second.portion();
    QVERIFY(fromOne.startsWith('>') && fromOne.endsWith("\r\n"));
    const double value = fromOne.mid(1).trimmed().toDouble();
    QVERIFY(value > 20 && value < 28);
    QVERIFY(fromOne != fromTwo);
}

void tst_OmegaSim::misbehaves_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("portion");
    QTest::newRow("any reply") << QByteArray("reply >nan\\r\\n") << QByteArray(">nan\r\n");
    QTest::newRow("escapes") << QByteArray("reply a\\\\b\\x41\\x0") << QByteArray("a\\bAx0");
    QTest::newRow("garbage") << QByteArray("garbage")
                             << QByteArray("\x80\xff\0#?\x1b~\r\xfe\n", 10);
    QTest::newRow("echo") << QByteArray("echo") << QByteArray("c\r\n>5.0\r\n");
    QTest::newRow("flood") << QByteArray("flood 3") << QByteArray(">5.0\r\n>5.0\r\n>5.0\r\n");
}

void tst_OmegaSim::misbehaves()
{
    QFETCH(QByteArray, command);
    tcOmegaSim sim;
    QVERIFY(sim.command("temp 5"));
    QVERIFY(sim.command(command.toStdString()));
    tcLine line(port(sim));
    line.send("c\r\n");
    QTEST(line.portion(), "portion");
    QVERIFY(sim.command("normal"));
    QVERIFY(sim.command("temp 6"));
    line.send("c\r\n");
    QCOMPARE(line.portion(), QByteArray(">6.0\r\n"));
}

void tst_OmegaSim::splitReplyComesInTwoPortions()
{
    tcOmegaSim sim;
    sim.command("temp 23.4");
    QVERIFY(sim.command("split 3 100"));
    tcLine line(port(sim));
    line.send("c\r\n");
    QCOMPARE(line.portion(), QByteArray(">23"));
    QCOMPARE(line.portion(), QByteArray(".4\r\n"));
}

void tst_OmegaSim::lateReplyComesLate()
{
    tcOmegaSim sim;
    sim.command("temp 23.4");
    QVERIFY(sim.command("late 10"));
    tcLine line(port(sim));
    for (int round = 0; round < 20; ++round) { // wherever in a millisecond the request comes
        QElapsedTimer elapsed;
        elapsed.start();
        line.send("c\r\n");
        QByteArray reply = line.portion(1);
        while (reply.isEmpty() && elapsed.elapsed() < 5000) {
            line.send("\r\n"); // asks for nothing, but has the thermometer look at its clock
            reply = line.portion(1);
        }
        QCOMPARE(reply, QByteArray(">23.4\r\n"));
        QVERIFY(elapsed.nsecsElapsed() >= 10'000'000);
    }
    QVERIFY(sim.command("normal"));
    QVERIFY(sim.command("silence"));
    line.send("c\r\n");
    QTRY_COMPARE(sim.requests(), 21);
    QCOMPARE(line.portion(0), QByteArray());
}

void tst_OmegaSim::unpluggedLineIsGoneAndComesBack()
{
    tcOmegaSim sim;
    sim.command("temp 23.4");
    {
        tcLine line(port(sim));
        QVERIFY(sim.command("unplug"));
        QCOMPARE(sim.portName(), std::string());
        QCOMPARE(line.portion(), QByteArray());
        QVERIFY(!line.send("c\r\n"));
        QVERIFY(sim.command("unplug")); // again is no harm
    }
    QVERIFY(sim.command("plug"));
    QVERIFY(sim.command("plug"));
    tcLine line(port(sim));
    QVERIFY(line.isOpen());
    line.send("c\r\n");
    QCOMPARE(line.portion(), QByteArray(">23.4\r\n"));
}

void tst_OmegaSim::linkFollowsThePort()
{
    QTemporaryDir folder;
    const QString link = folder.filePath("thermometer");
    {
        tcOmegaSim sim;
        QVERIFY(sim.setLink(link.toStdString()));
        QCOMPARE(QFileInfo(link).symLinkTarget().toLocal8Bit(), port(sim));
        sim.command("unplug");
        QVERIFY(!QFileInfo(link).isSymLink());
        sim.command("plug");
        QCOMPARE(QFileInfo(link).symLinkTarget().toLocal8Bit(), port(sim));
    }
    QVERIFY(!QFileInfo(link).isSymLink());
    // One that was left behind is replaced.
    QVERIFY(QFile::link("/nowhere", link));
    tcOmegaSim sim;
    QVERIFY(sim.setLink(link.toStdString()));
    QCOMPARE(QFileInfo(link).symLinkTarget().toLocal8Bit(), port(sim));
}

void tst_OmegaSim::linkReplacesNoFile()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("precious"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    {
        tcOmegaSim sim;
        QVERIFY(!sim.setLink(file.fileName().toStdString()));
    }
    QVERIFY(file.exists());
    QVERIFY(!QFileInfo(file).isSymLink());
}

void tst_OmegaSim::unknownCommands_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char* text :
         {"", "nonsense", "temp", "temp hot", "split", "split 3", "split 0 5", "split 3 -1",
          "late", "late -1", "late x", "flood", "flood -1"})
        QTest::newRow(*text ? text : "nothing") << QByteArray(text);
}

void tst_OmegaSim::unknownCommands()
{
    QFETCH(QByteArray, text);
    QVERIFY(!tcOmegaSim().command(text.toStdString()));
}

void tst_OmegaSim::programServesAndTidiesUp()
{
    QTemporaryDir folder;
    const QString link = folder.filePath("thermometer");
    QProcess program;
    program.start(THERMOMETER_SIM, {"--link", link, "--seed", "3", "--do", "temp 12.5"});
    QVERIFY(program.waitForStarted());
    QTRY_VERIFY(program.canReadLine());
    QVERIFY(program.readLine().startsWith("thermometer on /dev/"));
    {
        tcLine line(link.toLocal8Bit());
        QVERIFY(line.isOpen());
        line.send("c\r\n");
        QCOMPARE(line.portion(), QByteArray(">12.5\r\n"));
    }
    program.write("unplug\nbla\nplug\n");
    QTRY_VERIFY(program.canReadLine());
    QVERIFY(program.readLine().startsWith("thermometer on /dev/"));
    program.closeWriteChannel(); // it goes on without anybody to type
    {
        tcLine line(link.toLocal8Bit());
        line.send("c\r\n");
        QVERIFY(line.portion().startsWith('>'));
    }
    program.terminate();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.readAllStandardError(), QByteArray("not understood: bla\n"));
    QVERIFY(!QFileInfo(link).isSymLink());
}

void tst_OmegaSim::programRefusesWhatItDoesNotKnow()
{
    for (const QStringList& arguments :
         {QStringList{"--bogus", "1"}, QStringList{"--link"}, QStringList{"--seed"}})
        QCOMPARE(QProcess::execute(THERMOMETER_SIM, arguments), 2);
    QCOMPARE(QProcess::execute(THERMOMETER_SIM, {"--help"}), 0);
    QCOMPARE(QProcess::execute(THERMOMETER_SIM, {"--link", "/nowhere/at/all"}), 1);
}

QTEST_GUILESS_MAIN(tst_OmegaSim)
#include "tst_omegasim.moc"

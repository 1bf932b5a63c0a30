#include "tests/sim/tcBenchCamera.h"

#include <QTest>

namespace
{

void commandColumns()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QByteArray>("reply");
}

/// Each row starts from power-on; several commands are separated by a vertical bar and the
/// reply is that of the last.
void commandRow(const char* acModel, const char* acCommands, const char* acReply)
{
    QTest::addRow("%s %s", acModel, acCommands)
        << QByteArray(acModel) << QByteArray(acCommands) << QByteArray(acReply) + "\r\n";
}

void checkCommand()
{
    QFETCH(QByteArray, model);
    QFETCH(QByteArray, commands);
    QFETCH(QByteArray, reply);
    tcBenchCamera camera(model.constData());
    QByteArray last;
    for (const QByteArray& command : commands.split('|'))
        last = camera.ask(command);
    QCOMPARE(last, reply);
}

} // namespace

/// Every command with its bounds, and every script that the panels send.
class tst_CameraCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readoutCommands_data();
    void readoutCommands();
    void pinsAndRegisters_data();
    void pinsAndRegisters();
    void regions_data();
    void regions();
    void controlCommands_data();
    void controlCommands();
    void coolerAndSensors_data();
    void coolerAndSensors();
    void malformedCommands_data();
    void malformedCommands();
};

void tst_CameraCommands::readoutCommands_data()
{
    commandColumns();
    for (const char* axis : {"V", "H"}) {
        const QByteArray set = QByteArray("S") + axis + "BN";
        const QByteArray get = QByteArray("G") + axis + "BN";
        for (const char* good : {"1", "2", "4"})
            commandRow("k20", '<' + set + ' ' + good + ">|<" + get + '>',
                       '<' + get + "><ACK><" + good + '>');
        for (const char* bad : {"0", "3", "5", "-1", "x", "1 1"})
            commandRow("k20", '<' + set + ' ' + bad + '>', '<' + set + ' ' + bad + "><NACK>");
        commandRow("k20", '<' + get + '>', '<' + get + "><ACK><1>");
        commandRow("k20", '<' + set + " 4>|<" + set + " 3>|<" + get + '>',
                   '<' + get + "><ACK><4>");
    }
    commandRow("k20", "<SBPP 4>", "<SBPP 4><ACK>");
    commandRow("k20", "<SBPP 4>|<GBPP>", "<GBPP><ACK><4>");
    commandRow("k20", "<SBPP 5>", "<SBPP 5><NACK>");
    commandRow("r60", "<SBPP 2>", "<SBPP 2><ACK>");
    commandRow("r60", "<SBPP 3>", "<SBPP 3><NACK>");
    commandRow("k20", "<GBPP>", "<GBPP><ACK><0>");
    commandRow("k20", "<GOMD>", "<GOMD><ACK><0>");
    commandRow("k20", "<SOMD 1>", "<SOMD 1><ACK>");
    commandRow("k20", "<SOMD 1>|<GOMD>", "<GOMD><ACK><1>");
    commandRow("k20", "<SOMD 2>", "<SOMD 2><NACK>");
    commandRow("k20", "<SEXP 500>", "<SEXP 500><ACK>");
    commandRow("k20", "<SEXP 10000000>|<GEXP>", "<GEXP><ACK><10000000>");
    commandRow("k20", "<SEXP 10000001>", "<SEXP 10000001><NACK>");
    commandRow("k20", "<SEXP 0>", "<SEXP 0><NACK>");
    commandRow("k20", "<SEXP 12.5>", "<SEXP 12.5><NACK>");
    commandRow("k20", "<SEXP 0x10>", "<SEXP 0x10><NACK>");
    commandRow("k20", "<GEXP>", "<GEXP><ACK><500>");
    commandRow("k20", "<SFIT 100000>|<GFIT>", "<GFIT><ACK><100000>");
    commandRow("k20", "<SFIT 60000001>", "<SFIT 60000001><NACK>");
    commandRow("k20", "<SFIT 0>", "<SFIT 0><ACK>");
    commandRow("k20", "<GFIT>", "<GFIT><ACK><0>");
}

void tst_CameraCommands::readoutCommands()
{
    checkCommand();
}

void tst_CameraCommands::pinsAndRegisters_data()
{
    commandColumns();
    commandRow("k20", "<SETD 2 1>", "<SETD 2 1><ACK>");
    commandRow("k20", "<SETD 3 1>", "<SETD 3 1><NACK>");
    commandRow("k20", "<SETD 0 2>", "<SETD 0 2><NACK>");
    commandRow("k20", "<SETD 0>", "<SETD 0><NACK>");
    commandRow("k20", "<SETP 0 2>", "<SETP 0 2><ACK>");
    commandRow("k20", "<SETP 0 3>", "<SETP 0 3><NACK>");
    commandRow("k20", "<SETP -1 0>", "<SETP -1 0><NACK>");
    commandRow("k20", "<GETP>", "<GETP><ACK><0x00>");
    commandRow("k20", "<SETD 0 1>|<SETP 0 1>|<SETD 2 1>|<SETP 2 1>|<GETP>",
               "<GETP><ACK><0x05>");
    commandRow("k20", "<SETP 1 1>|<GETP>", "<GETP><ACK><0x00>"); // an input
    commandRow("k20", "<SETD 1 1>|<SETP 1 2>|<STRT>|<GETP>",
               "<GETP><ACK><0x02>"); // exposure strobe
    commandRow("k20", "<SETD 1 1>|<SETP 1 2>|<STRT>|<STOP>|<GETP>", "<GETP><ACK><0x00>");
    commandRow("k20", "<PEEK 0>", "<PEEK 0><ACK><11>");
    commandRow("k20", "<POKE 127 255>", "<POKE 127 255><ACK>");
    commandRow("k20", "<POKE 127 255>|<PEEK 127>", "<PEEK 127><ACK><255>");
    commandRow("k20", "<PEEK 128>", "<PEEK 128><NACK>");
    commandRow("k20", "<POKE 128 0>", "<POKE 128 0><NACK>");
    commandRow("k20", "<POKE 0 256>", "<POKE 0 256><NACK>");
    commandRow("r60", "<PEEK 0>", "<PEEK 0><NACK>");
}

void tst_CameraCommands::pinsAndRegisters()
{
    checkCommand();
}

void tst_CameraCommands::regions_data()
{
    commandColumns();
    commandRow("k20", "<SROI 336 112 1824 416>", "<SROI 336 112 1824 416><ACK>");
    commandRow("k20", "<SROI 336 112 1824 416>|<GROI>", "<GROI><ACK><336><112><1824><416>");
    commandRow("k20", "<GROI>", "<GROI><ACK><0><0><2048><1088>");
    commandRow("k20", "<SROI 0 0 2048 1089>", "<SROI 0 0 2048 1089><NACK>");
    commandRow("k20", "<SROI 0 1 2048 1088>", "<SROI 0 1 2048 1088><NACK>");
    commandRow("k20", "<SROI 1 0 2048 1088>", "<SROI 1 0 2048 1088><NACK>");
    commandRow("k20", "<SROI 0 0 0 1>", "<SROI 0 0 0 1><NACK>");
    commandRow("k20", "<SROI -1 0 8 8>", "<SROI -1 0 8 8><NACK>");
    commandRow("k20", "<SROI 0 0 2048>", "<SROI 0 0 2048><NACK>");
    commandRow("k20", "<NROI 2>|<MROI 1 8 16 32 64>", "<MROI 1 8 16 32 64><ACK>");
    commandRow("k20", "<NROI 2>|<MROI 1 8 16 32 64>|<MROI 1>", "<MROI 1><ACK><8><16><32><64>");
    commandRow("k20", "<SROI 336 112 1824 416>|<MROI 0>", "<MROI 0><ACK><112><336><1824><416>");
    commandRow("k20", "<MROI 1>", "<MROI 1><NACK>"); // one region is set up
    commandRow("k20", "<NROI 2>|<MROI 1 0 1088 8 8>", "<MROI 1 0 1088 8 8><NACK>");
    commandRow("k20", "<NROI>", "<NROI><ACK><8>");
    commandRow("k20", "<NROI 8>", "<NROI 8><ACK>");
    commandRow("k20", "<NROI 9>", "<NROI 9><NACK>");
    commandRow("k20", "<NROI 0>", "<NROI 0><NACK>");
    commandRow("r70", "<NROI 1>", "<NROI 1><NACK>");
}

void tst_CameraCommands::regions()
{
    checkCommand();
}

void tst_CameraCommands::controlCommands_data()
{
    commandColumns();
    commandRow("k20", "<VERS>", "<VERS><ACK><Vexa-K20 2.4.0><SN 20017>");
    commandRow("r60", "<VERS>", "<VERS><ACK><Vexa-R60 1.2.0><SN 60011>");
    commandRow("k20", "<VERS 1>", "<VERS 1><NACK>");
    commandRow("k20", "<RSET>", "<RSET><ACK>");
    commandRow("k20", "<SEXP 9>|<RSET>|<GEXP>", "<GEXP><ACK><500>");
    commandRow("k20", "<STRT>", "<STRT><ACK>");
    commandRow("k20", "<STOP>", "<STOP><ACK>");
    commandRow("k20", "<TEST 2>", "<TEST 2><ACK>");
    commandRow("k20", "<TEST 3>", "<TEST 3><NACK>");
    commandRow("k20", "<TRIG 1>", "<TRIG 1><ACK>");
    commandRow("k20", "<TRIG 2>", "<TRIG 2><NACK>");
    commandRow("k20", "<TEMP 5>", "<TEMP 5><NACK>");
    commandRow("k20", "<TEMP 3>", "<TEMP 3><NACK>"); // no thermistor
    commandRow("k20", "<TEMP>", "<TEMP><NACK>");
    commandRow("k20-tec", "<FAN 1>", "<FAN 1><ACK>");
    commandRow("k20-tec", "<FAN 2>", "<FAN 2><NACK>");
    commandRow("k20", "<FAN 1>", "<FAN 1><NACK>");
    for (const QByteArray flip : {"GFLX", "GFLY"}) {
        commandRow("k20", '<' + flip + '>', '<' + flip + "><ACK><0>");
        commandRow("k20", '<' + flip + " 1>", '<' + flip + " 1><ACK>");
        commandRow("k20", '<' + flip + " 1>|<" + flip + '>', '<' + flip + "><ACK><1>");
        commandRow("k20", '<' + flip + " 2>", '<' + flip + " 2><NACK>");
        commandRow("r60", '<' + flip + '>', '<' + flip + "><NACK>");
    }
    commandRow("k20", "<SCLK 6>|<GCLK>", "<GCLK><ACK><6>");
    commandRow("k20", "<SCLK 10>", "<SCLK 10><NACK>");
    commandRow("k20", "<GCLK>", "<GCLK><ACK><5>");
    commandRow("r70", "<SCLK 80>|<GCLK>", "<GCLK><ACK><80>"); // in MHz
    commandRow("r70", "<SCLK 6>", "<SCLK 6><NACK>");
    commandRow("r70", "<SCLK 251>", "<SCLK 251><NACK>");
    commandRow("r70", "<SMOD 1>", "<SMOD 1><ACK>");
    commandRow("r70", "<SMOD 2>", "<SMOD 2><NACK>");
    commandRow("r70", "<SSQRT 1>", "<SSQRT 1><ACK>");
    commandRow("r70", "<SSQRT 2>", "<SSQRT 2><NACK>");
    commandRow("r60", "<SMOD 1>", "<SMOD 1><NACK>");
}

void tst_CameraCommands::controlCommands()
{
    checkCommand();
}

void tst_CameraCommands::coolerAndSensors_data()
{
    commandColumns();
    commandRow("k20-tec", "<COOL 1>", "<COOL 1><ACK>");
    commandRow("k20-tec", "<COOL 2>", "<COOL 2><NACK>");
    commandRow("k20", "<COOL 1>", "<COOL 1><NACK>");
    commandRow("k20-tec", "<STEC 24.0>", "<STEC 24.0><ACK>");
    commandRow("k20-tec", "<STEC 24.0>|<COOL 1>|<GTEC>", "<GTEC><ACK><ON><24.0>");
    commandRow("k20-tec", "<GTEC>", "<GTEC><ACK><OFF><25.0>");
    commandRow("k20-tec", "<STEC 0>|<GTEC>", "<GTEC><ACK><OFF><0.0>");
    commandRow("k20-tec", "<STEC 40.1>", "<STEC 40.1><NACK>");
    commandRow("k20-tec", "<STEC -1>", "<STEC -1><NACK>");
    commandRow("k20-tec", "<STEC 24,0>", "<STEC 24,0><NACK>");
    commandRow("k20-tec", "<STEC 24.>", "<STEC 24.><NACK>");
    commandRow("k20", "<STEC 24.0>", "<STEC 24.0><NACK>");
    commandRow("k20", "<GTEC>", "<GTEC><NACK>");
    commandRow("k20", "<SENS 0>", "<SENS 0><NACK>");
    commandRow("k20", "<SENS 16>", "<SENS 16><NACK>");
    commandRow("k20", "<SENS 6>", "<SENS 6><NACK>"); // no cooler
    commandRow("r60", "<SENS 5>", "<SENS 5><NACK>");
}

void tst_CameraCommands::coolerAndSensors()
{
    checkCommand();
}

void tst_CameraCommands::malformedCommands_data()
{
    commandColumns();
    commandRow("k20", "<strt>", "<strt><NACK>");
    commandRow("k20", "<NOPE>", "<NOPE><NACK>");
    commandRow("k20", "<>", "<><NACK>");
    commandRow("k20", "<SEXP  500>", "<SEXP  500><NACK>");
    commandRow("k20", "<SEXP 500 >", "<SEXP 500 ><NACK>");
    commandRow("k20", "noise <STOP> noise", "<STOP><ACK>");
    commandRow("k20", "<SEXP 5<STOP>", "<STOP><ACK>");
}

void tst_CameraCommands::malformedCommands()
{
    checkCommand();
}

QTEST_GUILESS_MAIN(tst_CameraCommands)
#include "tst_cameracommands.moc"

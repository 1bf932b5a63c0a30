#include "sim/camera/tcCameraModel.h"
#include "sim/camera/tcCameraSim.h"

#include <QTest>

namespace
{

constexpr int64_t cMs = 1'000'000;
constexpr int64_t cSecond = 1'000'000'000;

/// A camera and the time of its line.
class tcBenchCamera
{
public:
    explicit tcBenchCamera(const char* acModel, const std::string& acFaults = {},
                           double anSpeed = 1.0, uint64_t anSeed = 7)
        : sim(*tcCameraModels::find(acModel), options(acModel, acFaults, anSpeed, anSeed), 0)
    {
    }

    static tcCameraSim::tcOptions options(const char* acModel, const std::string& acFaults,
                                          double anSpeed, uint64_t anSeed)
    {
        std::string error;
        tcCameraSim::tcOptions options;
        options.seed = anSeed;
        options.speed = anSpeed;
        const auto plan
            = tcCameraSim::faultPlan(*tcCameraModels::find(acModel), acFaults, anSeed, error);
        if (!plan)
            qFatal("fault plan: %s", error.c_str());
        options.faults = *plan;
        return options;
    }

    void send(const QByteArray& acBytes)
    {
        QCOMPARE(sim.write(now, acBytes.constData(), size_t(acBytes.size())),
                 size_t(acBytes.size()));
    }

    QByteArray receive()
    {
        QByteArray bytes(int(sim.available(now)), '\0');
        sim.read(now, bytes.data(), size_t(bytes.size()));
        return bytes;
    }

    /// What the camera answers within a second.
    QByteArray ask(const QByteArray& acCommand)
    {
        send(acCommand + '\n');
        now += cSecond;
        return receive();
    }

    tcCameraSim sim;
    int64_t now = 0;
};

} // namespace

class tst_CameraSim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void command_data();
    void command();
    void preset_data();
    void preset();
};

/// Each row starts from power-on; several commands are separated by a vertical bar and the
/// reply is that of the last.
void tst_CameraSim::command_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QByteArray>("commands");
    QTest::addColumn<QByteArray>("reply");
    const auto row = [](const char* acModel, const char* acCommands, const char* acReply) {
        QTest::addRow("%s %s", acModel, acCommands)
            << QByteArray(acModel) << QByteArray(acCommands) << QByteArray(acReply) + "\r\n";
    };
    row("k20", "<VERS>", "<VERS><ACK><Vexa-K20 2.4.0><SN 20017>");
    row("r60", "<VERS>", "<VERS><ACK><Vexa-R60 1.2.0><SN 60011>");
    row("k20", "<VERS 1>", "<VERS 1><NACK>");
    for (const char* axis : {"V", "H"}) {
        const QByteArray set = QByteArray("S") + axis + "BN";
        const QByteArray get = QByteArray("G") + axis + "BN";
        for (const char* good : {"1", "2", "4"})
            row("k20", '<' + set + ' ' + good + ">|<" + get + '>',
                '<' + get + "><ACK><" + good + '>');
        for (const char* bad : {"0", "3", "5", "-1", "x", "1 1"})
            row("k20", '<' + set + ' ' + bad + '>', '<' + set + ' ' + bad + "><NACK>");
        row("k20", '<' + get + '>', '<' + get + "><ACK><1>");
        row("k20", '<' + set + " 4>|<" + set + " 3>|<" + get + '>', '<' + get + "><ACK><4>");
    }
    row("k20", "<SBPP 4>", "<SBPP 4><ACK>");
    row("k20", "<SBPP 4>|<GBPP>", "<GBPP><ACK><4>");
    row("k20", "<SBPP 5>", "<SBPP 5><NACK>");
    row("r60", "<SBPP 2>", "<SBPP 2><ACK>");
    row("r60", "<SBPP 3>", "<SBPP 3><NACK>");
    row("k20", "<GBPP>", "<GBPP><ACK><0>");
    row("k20", "<GOMD>", "<GOMD><ACK><0>");
    row("k20", "<SOMD 1>", "<SOMD 1><ACK>");
    row("k20", "<SOMD 1>|<GOMD>", "<GOMD><ACK><1>");
    row("k20", "<SOMD 2>", "<SOMD 2><NACK>");
    row("k20", "<SEXP 500>", "<SEXP 500><ACK>");
    row("k20", "<SEXP 10000000>|<GEXP>", "<GEXP><ACK><10000000>");
    row("k20", "<SEXP 10000001>", "<SEXP 10000001><NACK>");
    row("k20", "<SEXP 0>", "<SEXP 0><NACK>");
    row("k20", "<SEXP 12.5>", "<SEXP 12.5><NACK>");
    row("k20", "<SEXP 0x10>", "<SEXP 0x10><NACK>");
    row("k20", "<GEXP>", "<GEXP><ACK><500>");
    row("k20", "<SFIT 100000>|<GFIT>", "<GFIT><ACK><100000>");
    row("k20", "<SFIT 60000001>", "<SFIT 60000001><NACK>");
    row("k20", "<SFIT 0>", "<SFIT 0><ACK>");
    row("k20", "<GFIT>", "<GFIT><ACK><0>");
    row("k20", "<SETD 2 1>", "<SETD 2 1><ACK>");
    row("k20", "<SETD 3 1>", "<SETD 3 1><NACK>");
    row("k20", "<SETD 0 2>", "<SETD 0 2><NACK>");
    row("k20", "<SETD 0>", "<SETD 0><NACK>");
    row("k20", "<SETP 0 2>", "<SETP 0 2><ACK>");
    row("k20", "<SETP 0 3>", "<SETP 0 3><NACK>");
    row("k20", "<SETP -1 0>", "<SETP -1 0><NACK>");
    row("k20", "<GETP>", "<GETP><ACK><0x00>");
    row("k20", "<SETD 0 1>|<SETP 0 1>|<SETD 2 1>|<SETP 2 1>|<GETP>", "<GETP><ACK><0x05>");
    row("k20", "<SETP 1 1>|<GETP>", "<GETP><ACK><0x00>");                   // an input
    row("k20", "<SETD 1 1>|<SETP 1 2>|<STRT>|<GETP>", "<GETP><ACK><0x02>"); // exposure strobe
    row("k20", "<SETD 1 1>|<SETP 1 2>|<STRT>|<STOP>|<GETP>", "<GETP><ACK><0x00>");
    row("k20", "<PEEK 0>", "<PEEK 0><ACK><11>");
    row("k20", "<POKE 127 255>", "<POKE 127 255><ACK>");
    row("k20", "<POKE 127 255>|<PEEK 127>", "<PEEK 127><ACK><255>");
    row("k20", "<PEEK 128>", "<PEEK 128><NACK>");
    row("k20", "<POKE 128 0>", "<POKE 128 0><NACK>");
    row("k20", "<POKE 0 256>", "<POKE 0 256><NACK>");
    row("r60", "<PEEK 0>", "<PEEK 0><NACK>");
    row("k20", "<RSET>", "<RSET><ACK>");
    row("k20", "<SEXP 9>|<RSET>|<GEXP>", "<GEXP><ACK><500>");
    row("k20", "<SROI 336 112 1824 416>", "<SROI 336 112 1824 416><ACK>");
    row("k20", "<SROI 336 112 1824 416>|<GROI>", "<GROI><ACK><336><112><1824><416>");
    row("k20", "<GROI>", "<GROI><ACK><0><0><2048><1088>");
    row("k20", "<SROI 0 0 2048 1089>", "<SROI 0 0 2048 1089><NACK>");
    row("k20", "<SROI 0 1 2048 1088>", "<SROI 0 1 2048 1088><NACK>");
    row("k20", "<SROI 1 0 2048 1088>", "<SROI 1 0 2048 1088><NACK>");
    row("k20", "<SROI 0 0 0 1>", "<SROI 0 0 0 1><NACK>");
    row("k20", "<SROI -1 0 8 8>", "<SROI -1 0 8 8><NACK>");
    row("k20", "<SROI 0 0 2048>", "<SROI 0 0 2048><NACK>");
    row("k20", "<NROI 2>|<MROI 1 8 16 32 64>", "<MROI 1 8 16 32 64><ACK>");
    row("k20", "<NROI 2>|<MROI 1 8 16 32 64>|<MROI 1>", "<MROI 1><ACK><8><16><32><64>");
    row("k20", "<SROI 336 112 1824 416>|<MROI 0>", "<MROI 0><ACK><112><336><1824><416>");
    row("k20", "<MROI 1>", "<MROI 1><NACK>"); // one region is set up
    row("k20", "<NROI 2>|<MROI 1 0 1088 8 8>", "<MROI 1 0 1088 8 8><NACK>");
    row("k20", "<NROI>", "<NROI><ACK><8>");
    row("k20", "<NROI 8>", "<NROI 8><ACK>");
    row("k20", "<NROI 9>", "<NROI 9><NACK>");
    row("k20", "<NROI 0>", "<NROI 0><NACK>");
    row("r70", "<NROI 1>", "<NROI 1><NACK>");
    row("k20", "<STRT>", "<STRT><ACK>");
    row("k20", "<STOP>", "<STOP><ACK>");
    row("k20", "<TEST 2>", "<TEST 2><ACK>");
    row("k20", "<TEST 3>", "<TEST 3><NACK>");
    row("k20", "<TRIG 1>", "<TRIG 1><ACK>");
    row("k20", "<TRIG 2>", "<TRIG 2><NACK>");
    row("k20", "<TEMP 5>", "<TEMP 5><NACK>");
    row("k20", "<TEMP 3>", "<TEMP 3><NACK>"); // no thermistor
    row("k20", "<TEMP>", "<TEMP><NACK>");
    row("k20-tec", "<FAN 1>", "<FAN 1><ACK>");
    row("k20-tec", "<FAN 2>", "<FAN 2><NACK>");
    row("k20", "<FAN 1>", "<FAN 1><NACK>");
    for (const QByteArray flip : {"GFLX", "GFLY"}) {
        row("k20", '<' + flip + '>', '<' + flip + "><ACK><0>");
        row("k20", '<' + flip + " 1>", '<' + flip + " 1><ACK>");
        row("k20", '<' + flip + " 1>|<" + flip + '>', '<' + flip + "><ACK><1>");
        row("k20", '<' + flip + " 2>", '<' + flip + " 2><NACK>");
        row("r60", '<' + flip + '>', '<' + flip + "><NACK>");
    }
    row("k20", "<SCLK 6>|<GCLK>", "<GCLK><ACK><6>");
    row("k20", "<SCLK 10>", "<SCLK 10><NACK>");
    row("k20", "<GCLK>", "<GCLK><ACK><5>");
    row("r70", "<SCLK 80>|<GCLK>", "<GCLK><ACK><80>"); // in MHz
    row("r70", "<SCLK 6>", "<SCLK 6><NACK>");
    row("r70", "<SCLK 251>", "<SCLK 251><NACK>");
    row("r70", "<SMOD 1>", "<SMOD 1><ACK>");
    row("r70", "<SMOD 2>", "<SMOD 2><NACK>");
    row("r70", "<SSQRT 1>", "<SSQRT 1><ACK>");
    row("r70", "<SSQRT 2>", "<SSQRT 2><NACK>");
    row("r60", "<SMOD 1>", "<SMOD 1><NACK>");
    row("k20-tec", "<COOL 1>", "<COOL 1><ACK>");
    row("k20-tec", "<COOL 2>", "<COOL 2><NACK>");
    row("k20", "<COOL 1>", "<COOL 1><NACK>");
    row("k20-tec", "<STEC 24.0>", "<STEC 24.0><ACK>");
    row("k20-tec", "<STEC 24.0>|<COOL 1>|<GTEC>", "<GTEC><ACK><ON><24.0>");
    row("k20-tec", "<GTEC>", "<GTEC><ACK><OFF><25.0>");
    row("k20-tec", "<STEC 0>|<GTEC>", "<GTEC><ACK><OFF><0.0>");
    row("k20-tec", "<STEC 40.1>", "<STEC 40.1><NACK>");
    row("k20-tec", "<STEC -1>", "<STEC -1><NACK>");
    row("k20-tec", "<STEC 24,0>", "<STEC 24,0><NACK>");
    row("k20-tec", "<STEC 24.>", "<STEC 24.><NACK>");
    row("k20", "<STEC 24.0>", "<STEC 24.0><NACK>");
    row("k20", "<GTEC>", "<GTEC><NACK>");
    row("k20", "<SENS 0>", "<SENS 0><NACK>");
    row("k20", "<SENS 16>", "<SENS 16><NACK>");
    row("k20", "<SENS 6>", "<SENS 6><NACK>"); // no cooler
    row("r60", "<SENS 5>", "<SENS 5><NACK>");
    row("k20", "<strt>", "<strt><NACK>");
    row("k20", "<NOPE>", "<NOPE><NACK>");
    row("k20", "<>", "<><NACK>");
    row("k20", "<SEXP  500>", "<SEXP  500><NACK>");
    row("k20", "<SEXP 500 >", "<SEXP 500 ><NACK>");
    row("k20", "noise <STOP> noise", "<STOP><ACK>");
    row("k20", "<SEXP 5<STOP>", "<STOP><ACK>");
}

void tst_CameraSim::command()
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

void tst_CameraSim::preset_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QByteArray>("script");
    const auto row = [](const char* acModel, const char* acScript) {
        QTest::addRow("%s: %s", acModel, acScript)
            << QByteArray(acModel) << QByteArray(acScript).replace(' ', '\n').replace('_', ' ');
    };
    for (const char* mode : {"<SOMD_0> <SBPP_0>", "<SOMD_0> <SBPP_1>", "<SOMD_1> <SBPP_0>",
                             "<SOMD_1> <SBPP_1>", "<SOMD_1> <SBPP_2>"})
        row("r60", QByteArray("<STOP> <SROI_0_0_2560_2160> ") + mode + " <SFIT_0> <STRT> ");
    for (const char* shutter : {"<SMOD_0>", "<SMOD_1>"}) {
        for (const char* mode :
             {"<SCLK_200> <SSQRT_0> <SOMD_0> <SBPP_0>",
              "<SCLK_200> <SSQRT_0> <SOMD_0> <SBPP_1>",
              "<SCLK_200> <SSQRT_0> <SOMD_1> <SBPP_0>", "<SCLK_80> <SSQRT_0> <SOMD_1> <SBPP_1>",
              "<SCLK_200> <SSQRT_1> <SOMD_1> <SBPP_2>"})
            row("r70",
                QByteArray("<STOP> ") + shutter + " <SROI_0_0_1920_1080> " + mode
                    + " <SFIT_0> <STRT> ");
    }
    for (const char* model : {"k20", "k30", "k20-tec"}) {
        const QByteArray head = qstrcmp(model, "k20-tec") == 0
            ? "<STOP> <STEC_24.0> <COOL_1> <FAN_1> "
            : "<STOP> ";
        for (const char* size : {"<SCLK_6> <NROI_1> <SROI_336_112_1824_416>",
                                 "<SCLK_5> <NROI_1> <SROI_0_0_2048_1088>"}) {
            for (const char* trigger : {"<TRIG_0>", "<TRIG_1>"})
                row(model,
                    head + size + " <SOMD_0> <SBPP_4> <SEXP_500> <SFIT_0> " + trigger
                        + " <STRT> ");
        }
    }
    for (const char* model : {"k40", "k50"}) {
        for (const char* mode :
             {"<SOMD_0> <SBPP_0> <SCLK_7> <SFIT_0>", "<SOMD_0> <SBPP_1> <SCLK_2> <SFIT_0>",
              "<SOMD_1> <SBPP_0> <SFIT_50000>", "<SOMD_1> <SBPP_1> <SFIT_100000>",
              "<SOMD_1> <SBPP_2> <SFIT_50000>"})
            row(model, QByteArray("<STOP> <NROI_1> <SROI_0_0_3360_2496> ") + mode + " <STRT> ");
    }
}

/// A whole script in one write: every command is accepted, in order.
void tst_CameraSim::preset()
{
    QFETCH(QByteArray, model);
    QFETCH(QByteArray, script);
    tcBenchCamera camera(model.constData());
    camera.send(script);
    camera.now += cSecond;
    QByteArray expected;
    for (const QByteArray& command : script.trimmed().split('\n'))
        expected += command + "<ACK>\r\n";
    QCOMPARE(camera.receive(), expected);
    QVERIFY(camera.sim.state().acquiring);
}

QTEST_GUILESS_MAIN(tst_CameraSim)
#include "tst_camerasim.moc"

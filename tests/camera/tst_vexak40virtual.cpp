#include "camera/logic/tcCommandHelp.h"
#include "camera/logic/tcPresetTables.h"
#include "tests/camera/tcVirtualRig.h"

#include <QMap>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace
{

const char* const cCooled = "Virtual K20 (Temp controlled)";

} // namespace

class tst_VexaK40Virtual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyCommandOfTheHelpTable_data();
    void everyCommandOfTheHelpTable();
    void everyPreset_data();
    void everyPreset();
    void presetOfTheLargeSensors();
    void coolerAndReadings();
    void refusedCommand();
    void keepAliveGoesUnlogged();
    void cameraThatLies();
};

void tst_VexaK40Virtual::initTestCase()
{
    // One reply in four comes in two pieces, cut anywhere.
    tcVirtualRig::chooseFaults("split/4=5");
}

void tst_VexaK40Virtual::everyCommandOfTheHelpTable_data()
{
    QTest::addColumn<QString>("command");
    static const QMap<QString, QString> arguments{{"SVBN N", "SVBN 2"},
                                                  {"SHBN N", "SHBN 2"},
                                                  {"SBPP M", "SBPP 4"},
                                                  {"SOMD M", "SOMD 1"},
                                                  {"SEXP us", "SEXP 500"},
                                                  {"SFIT us", "SFIT 0"},
                                                  {"SETD P D", "SETD 1 1"},
                                                  {"SETP P M", "SETP 1 2"},
                                                  {"PEEK A", "PEEK 3"},
                                                  {"POKE A V", "POKE 3 17"},
                                                  {"MROI I", "MROI 0"},
                                                  {"NROI N", "NROI 1"},
                                                  {"TEST M", "TEST 1"},
                                                  {"TRIG M", "TRIG 1"},
                                                  {"TEMP N", "TEMP 0"},
                                                  {"FAN F", "FAN 1"},
                                                  {"GFLX M", "GFLX 1"},
                                                  {"GFLY M", "GFLY 1"},
                                                  {"SCLK F", "SCLK 5"},
                                                  {"SROI R C W H", "SROI 0 0 640 480"},
                                                  {"MROI I X Y W H", "MROI 0 8 8 64 64"}};
    for (const tcCommandHelp::tcRow& row : tcCommandHelp::cRows) {
        const QString syntax = QString(row.syntax).mid(1).chopped(1);
        QTest::newRow(row.syntax) << arguments.value(syntax, syntax);
    }
}

void tst_VexaK40Virtual::everyCommandOfTheHelpTable()
{
    QFETCH(QString, command);
    tcVirtualRig rig(cCooled);
    rig.send(command);
    const QString accepted = '<' + command + "><ACK>";
    QTRY_VERIFY2(rig.lastReply().startsWith(accepted), qPrintable(rig.log()));
    QVERIFY(rig.log().endsWith(": " + rig.lastReply() + '\n'));
    // A camera that starts up again hears nothing for a while.
    for (int i = 0; command == "RSET" && i < 50 && !rig.lastReply().startsWith("<VERS>"); ++i) {
        rig.send("VERS");
        QTest::qWait(100);
    }
}

void tst_VexaK40Virtual::everyPreset_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 4; ++index)
        QTest::addRow("preset %d", index) << index;
}

void tst_VexaK40Virtual::everyPreset()
{
    QFETCH(int, index);
    tcVirtualRig rig(cCooled);
    rig.find<QComboBox>("presetsCB")->setCurrentIndex(index);
    rig.find<QPushButton>("SendPresetPB")->click();
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<STRT><ACK>"));
    const QByteArray script(tcPresetTables::of(teCmvType::Cmv2000TEC).first[index].script);
    QStringList expected;
    for (const QByteArray& command : script.trimmed().split('\n'))
        expected.append(command + "<ACK>");
    QStringList replies;
    for (const QString& entry : rig.log().split('\n', Qt::SkipEmptyParts))
        replies.append(entry.mid(14));
    QCOMPARE(replies.mid(1), expected); // the first entry tells that the port is open
}

void tst_VexaK40Virtual::presetOfTheLargeSensors()
{
    tcVirtualRig rig("Virtual K50", teCmvType::Cmv12000);
    for (int index = 0; index < 5; ++index) {
        rig.find<QPushButton>("clearPB")->click();
        rig.find<QComboBox>("presetsCB")->setCurrentIndex(index);
        rig.find<QPushButton>("SendPresetPB")->click();
        QTRY_VERIFY(rig.log().endsWith("<STRT><ACK>\n"));
        QVERIFY2(!rig.log().contains("NACK"), qPrintable(rig.log()));
    }
}

void tst_VexaK40Virtual::coolerAndReadings()
{
    tcVirtualRig rig(cCooled);
    QSignalSpy cooler(&rig.panel, &tcVexaK40::coolerState);
    QSignalSpy readings(&rig.panel, &tcVexaK40::sensorReading);
    rig.find<QPushButton>("tempsPB")->setChecked(true);
    rig.send("STEC 22.5");
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<STEC 22.5><ACK>"));
    rig.send("COOL 1");
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<COOL 1><ACK>"));
    rig.send("GTEC");
    QTRY_COMPARE(cooler.size(), 1);
    QCOMPARE(cooler.first(), QVariantList({true, 22.5}));
    rig.send("SENS 1");
    QTRY_COMPARE(readings.size(), 1);
    QCOMPARE(readings.first().first().toInt(), 1);
    QVERIFY(readings.first().at(1).toDouble() > 0);
    rig.send("SENS 12"); // as designed: never a reading
    QTRY_VERIFY(rig.lastReply().startsWith("<SENS 12><ACK>"));
    QCOMPARE(readings.size(), 1);
    QVERIFY(rig.log().contains("<SENS 12><ACK>"));
}

void tst_VexaK40Virtual::refusedCommand()
{
    tcVirtualRig rig(cCooled);
    rig.send("SROI 0 0 100000 5");
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<SROI 0 0 100000 5><NACK>"));
    rig.send("nonsense");
    QTRY_VERIFY(rig.lastReply() != QStringLiteral("<SROI 0 0 100000 5><NACK>"));
    QVERIFY(rig.lastReply().contains("NACK"));
}

void tst_VexaK40Virtual::keepAliveGoesUnlogged()
{
    tcVirtualRig rig(cCooled);
    const QString before = rig.log();
    rig.find<QPushButton>("keepAlivePB")->setChecked(true);
    QTRY_VERIFY(rig.lastReply().startsWith("<TEMP 0><ACK><"));
    QCOMPARE(rig.log(), before);
}

/// Refuses, delays, cuts, corrupts and drops replies; what comes whole is shown whole.
void tst_VexaK40Virtual::cameraThatLies()
{
    tcVirtualRig rig("Virtual K20 (stubborn)", teCmvType::Cmv2000);
    for (int i = 0; i < 24; ++i) {
        rig.send("GEXP");
        QTest::qWait(40);
    }
    static const QRegularExpression whole("^<GEXP><(ACK><\\d+>|NACK>)");
    int replies = 0;
    const auto count = [&] {
        replies = 0;
        for (const QString& line : rig.log().split('\n'))
            replies += line.section(": ", -1).contains(whole) ? 1 : 0;
        return replies;
    };
    // Of 24 replies two are dropped and up to four corrupted.
    QTRY_VERIFY2(count() >= 16, qPrintable(rig.log()));
    QVERIFY(rig.log().contains("<NACK>"));
}

QTEST_MAIN(tst_VexaK40Virtual)
#include "tst_vexak40virtual.moc"

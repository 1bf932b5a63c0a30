#include "camera/logic/tcCmvNames.h"
#include "camera/logic/tcCommandHelp.h"
#include "camera/logic/tcPresetTables.h"
#include "camlink/logic/tcBasicPresets.h"
#include "tests/sim/tcBenchCamera.h"

#include <QMap>
#include <QMetaEnum>
#include <QTest>

/// The virtual cameras against all that the panels offer to send to them.
class tst_CameraKnows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPreset_data();
    void everyPreset();
    void everyEntryOfTheHelp_data();
    void everyEntryOfTheHelp();
};

static QByteArray modelOf(teCmvType aeType)
{
    static const QMap<teCmvType, QByteArray> models{
        {teCmvType::Cmv300, "k10"},         {teCmvType::Cmv2000, "k20"},
        {teCmvType::Cmv2000TEC, "k20-tec"}, {teCmvType::Cmv4000, "k30"},
        {teCmvType::Cmv8000, "k40"},        {teCmvType::Cmv12000, "k50"},
    };
    return models.value(aeType);
}

void tst_CameraKnows::everyPreset_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<QByteArray>("script");
    const auto add = [](const QByteArray& acModel, const tcPreset& acPreset) {
        QTest::addRow("%s: %s", acModel.constData(), acPreset.label)
            << acModel << QByteArray(acPreset.script);
    };
    for (const tcPreset& preset : tcBasicPresets::cR60)
        add("r60", preset);
    for (const tcPreset& preset : tcBasicPresets::cR70)
        add("r70", preset);
    const auto types = QMetaEnum::fromType<teCmvType>();
    for (int index = 0; index < types.keyCount(); ++index) {
        const auto type = static_cast<teCmvType>(types.value(index));
        QVERIFY(!modelOf(type).isEmpty());
        for (const tcPreset& preset : tcPresetTables::of(type))
            add(modelOf(type), preset);
    }
}

/// A whole script in one write: every command is accepted, in order.
void tst_CameraKnows::everyPreset()
{
    QFETCH(QByteArray, model);
    QFETCH(QByteArray, script);
    tcBenchCamera camera(model.constData());
    camera.send(script);
    camera.now += tcBenchCamera::cSecond;
    QByteArray expected;
    for (const QByteArray& command : script.trimmed().split('\n')) {
        // The smallest sensor shares the presets of the largest and can't have their region.
        const bool beyond = model == "k10" && command == "<SROI 0 0 3360 2496>";
        expected += command + (beyond ? "<NACK>\r\n" : "<ACK>\r\n");
    }
    QCOMPARE(camera.receive(), expected);
    QVERIFY(camera.sim.state().acquiring);
}

void tst_CameraKnows::everyEntryOfTheHelp_data()
{
    QTest::addColumn<QByteArray>("command");
    const QMap<QByteArray, QByteArray> values{
        {"N", "1"}, {"M", "1"}, {"us", "500"}, {"P", "0"}, {"D", "1"},
        {"A", "5"}, {"V", "7"}, {"R", "0"},    {"C", "0"}, {"W", "8"},
        {"H", "8"}, {"I", "0"}, {"X", "0"},    {"Y", "0"}, {"F", "1"},
    };
    for (const tcCommandHelp::tcRow& row : tcCommandHelp::cRows) {
        const QByteArray syntax(row.syntax);
        QByteArrayList words = syntax.mid(1, syntax.size() - 2).split(' ');
        for (int index = 1; index < words.size(); ++index) {
            QVERIFY2(values.contains(words.at(index)), row.syntax);
            words[index] = values.value(words.at(index));
        }
        QTest::newRow(row.syntax) << '<' + words.join(' ') + '>';
    }
}

void tst_CameraKnows::everyEntryOfTheHelp()
{
    QFETCH(QByteArray, command);
    tcBenchCamera camera("k20-tec");
    const QByteArray reply = camera.ask(command);
    QVERIFY2(reply.startsWith(command + "<ACK>"), reply.constData());
    QVERIFY2(reply.endsWith(">\r\n"), reply.constData());
}

QTEST_GUILESS_MAIN(tst_CameraKnows)
#include "tst_cameraknows.moc"

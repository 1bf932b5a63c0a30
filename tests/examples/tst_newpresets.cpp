#include "camera/logic/tcPresetList.h"
#include "camlink/logic/tcPreset.h"
#include "camlink/logic/tcWireCommand.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <array>

//! [table]
/// Presets for measuring dark current.
constexpr std::array<tcPreset, 2> cDarkCurrent{{
    {"Dark, 100 ms", "<STOP>\n<SEXP 100000>\n<TRIG 0>\n<STRT>\n"},
    {"Dark, 1 s", "<STOP>\n<SEXP 1000000>\n<TRIG 0>\n<STRT>\n"},
}};
//! [table]

//! [file]
const char cPresetsFile[] = R"([Cmv2000]
1\name=Dark frame
1\cmds="<STOP>\n<SEXP 100000>\n<STRT>\n"
2\name=Free run
2\cmds="<STOP>\n<TRIG 0>\n<STRT>\n"
size=2
)";
//! [file]

//! [rule]
/// What a camera can carry out: commands in brackets, each no longer than its buffer and ended
/// by a line feed.
bool isScript(const QByteArray& acScript)
{
    const QList<QByteArray> lines = acScript.split('\n');
    for (int line = 0; line + 1 < lines.size(); ++line) {
        const QByteArray& command = lines.at(line);
        if (!command.startsWith('<') || !command.endsWith('>')
            || command.size() > tcWireCommand::cMaxCommand)
            return false;
    }
    return lines.size() > 1 && lines.last().isEmpty();
}
//! [rule]

/// The worked example of a preset table, in the program and in a file.
class tst_NewPresets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyScriptCanBeSent();
    void whatIsNoScript_data();
    void whatIsNoScript();
    void fileStandsBehindTheBuiltIns();
};

void tst_NewPresets::everyScriptCanBeSent()
{
    for (const tcPreset& preset : cDarkCurrent)
        QVERIFY2(isScript(preset.script), preset.label);
}

void tst_NewPresets::whatIsNoScript_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("without a line end") << QByteArray("<STOP>");
    QTest::newRow("without a bracket") << QByteArray("<STOP\n");
    QTest::newRow("too long") << QByteArray('<' + QByteArray(126, 'x') + ">\n");
}

void tst_NewPresets::whatIsNoScript()
{
    QFETCH(QByteArray, script);
    QVERIFY(!isScript(script));
}

void tst_NewPresets::fileStandsBehindTheBuiltIns()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("presets.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(cPresetsFile);
    file.close();
    tcPresetList list;
    list.rebuild(teCmvType::Cmv2000, tcPresetList::read(file.fileName(), teCmvType::Cmv2000));
    QCOMPARE(list.count(), list.builtIns() + 2);
    QCOMPARE(list.at(list.builtIns())->label, "Dark frame");
    QVERIFY(isScript(list.at(list.builtIns() + 1)->script));
}

QTEST_MAIN(tst_NewPresets)
#include "tst_newpresets.moc"

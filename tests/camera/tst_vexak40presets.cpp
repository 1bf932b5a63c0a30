#include "camera/logic/tcPresetTables.h"
#include "tests/camera/tcPanelRig.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTabWidget>

class tst_VexaK40Presets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void boxFollowsTheList();
    void toolTipIsTheScript();
    void everyPresetIsSentWhole_data();
    void everyPresetIsSentWhole();
    void timeoutIsAFifthOfTheLength();
    void presetWithoutPortOrChoice();
    void failedPresetIsNotReported();
    void brokenFileLeavesTheBoxAsItWas();
    void loadingAgainReplacesTheBox();
    void traceCountsSkippedEntries();

    void fileIsSentAsItIs_data();
    void fileIsSentAsItIs();
    void fileDialogIsAskedOnce();
    void fileThatCannotBeReadIsIgnored_data();
    void fileThatCannotBeReadIsIgnored();
    void portClosedWhileTheDialogWasOpen();

    void historyIsKept();
    void loadingAgainReplacesTheHistory();
    void shorterHistoryLeavesNothingBehind();
    void historySizeThatLies_data();
    void historySizeThatLies();
    void lengthLimitIsKept_data();
    void lengthLimitIsKept();
    void advancedIsOnlyRead();
    void startsWithTheTextTab();
    void lastTabComesBack();
    void groupIsTheCameraName_data();
    void groupIsTheCameraName();

private:
    QString path(const char* acName) const { return mFolder->filePath(acName); }
    QString write(const char* acName, const QByteArray& acContent);
    QSettings& settings() { return *mSettings; }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<QSettings> mSettings;
};

void tst_VexaK40Presets::init()
{
    tcFakeSerial::instance().reset();
    mFolder = std::make_unique<QTemporaryDir>();
    mSettings = std::make_unique<QSettings>(path("tarvik.ini"), QSettings::IniFormat);
}

void tst_VexaK40Presets::cleanup()
{
    mSettings.reset();
    QCOMPARE(tcFakeSerial::instance().misuse, QStringList());
}

QString tst_VexaK40Presets::write(const char* acName, const QByteArray& acContent)
{
    QFile file(path(acName));
    if (!file.open(QIODevice::WriteOnly) || file.write(acContent) != acContent.size())
        qFatal("no test file");
    return file.fileName();
}

void tst_VexaK40Presets::boxFollowsTheList()
{
    write("presets.ini",
          "[Cmv2000TEC]\nsize=2\n1\\name=\"Mine, 1\"\n1\\cmds=\"<STOP>\\n\"\n"
          "2\\name=\"%1 %s \xC2\xB5s\"\n2\\cmds=\"<%1 \xC2\xB5>\\n\"\n");
    tcPanelRig rig;
    const auto* box = rig.find<QComboBox>("presetsCB");
    QCOMPARE(box->count(), 0); // before the settings are read
    rig.panel.loadSettings(&settings());
    QCOMPARE(box->count(), 6);
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(box->itemText(0),
             QStringLiteral("8-Tap, 10 Bpp, 1824 x 416, Max fps, 500us exp Free"));
    QCOMPARE(box->itemText(4), QStringLiteral("Mine, 1"));
    QCOMPARE(box->itemText(5), QString::fromUtf8("%1 %s \xC2\xB5s"));
    rig.find<QComboBox>("presetsCB")->setCurrentIndex(5);
    QCOMPARE(box->toolTip(), QString::fromUtf8("<%1 \xC2\xB5>\n"));
    const auto* preset = box->itemData(4).value<tcCamlinkIface::Preset*>();
    QVERIFY(preset);
    QCOMPARE(preset->script, "<STOP>\n");
    QCOMPARE(QByteArray(box->itemData(4).typeName()).replace(" ", ""),
             QByteArray("tcCamlinkIface::Preset*"));
}

void tst_VexaK40Presets::toolTipIsTheScript()
{
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    auto* box = rig.find<QComboBox>("presetsCB");
    QVERIFY(box->toolTip().startsWith("<STOP>\n")); // before anybody has chosen
    for (int index = box->count() - 1; index >= 0; --index) {
        box->setCurrentIndex(index);
        QCOMPARE(box->toolTip().toLatin1(),
                 QByteArray(tcPresetTables::of(teCmvType::Cmv2000TEC).first[index].script));
    }
    QVERIFY(box->toolTip().contains("\n<FAN 1>\n"));
    box->addItem("no record");
    box->setCurrentIndex(box->count() - 1);
    QCOMPARE(box->toolTip(), QString());
}

void tst_VexaK40Presets::everyPresetIsSentWhole_data()
{
    QTest::addColumn<int>("type");
    for (int type = 0; type <= 6; ++type)
        QTest::addRow("type %d", type) << type;
}

void tst_VexaK40Presets::everyPresetIsSentWhole()
{
    QFETCH(int, type);
    tcPanelRig rig(static_cast<teCmvType>(type));
    rig.panel.loadSettings(&settings());
    rig.open();
    auto* box = rig.find<QComboBox>("presetsCB");
    const auto table = tcPresetTables::of(static_cast<teCmvType>(type));
    QCOMPARE(box->count(), table.count);
    for (int index = 0; index < table.count; ++index) {
        rig.line.calls.clear();
        box->setCurrentIndex(index);
        rig.button("SendPresetPB")->click();
        QCOMPARE(rig.line.writes(), QList<QByteArray>{QByteArray(table.first[index].script)});
    }
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Presets::timeoutIsAFifthOfTheLength()
{
    const QByteArray script(75, 'x');
    write("presets.ini",
          "[Cmv2000TEC]\nsize=2\n1\\name=75\n1\\cmds=" + script
              + "\n2\\name=4\n2\\cmds=xxxx\n");
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    rig.open();
    rig.find<QComboBox>("presetsCB")->setCurrentIndex(4);
    rig.button("SendPresetPB")->click();
    rig.find<QComboBox>("presetsCB")->setCurrentIndex(5);
    rig.button("SendPresetPB")->click();
    const QList<tcFakeSerial::tcCall> writes = rig.line.callsOf("clSerialWrite");
    QCOMPARE(writes.at(0).number, 75u);
    QCOMPARE(writes.at(0).timeoutMs, 15u);
    QCOMPARE(writes.at(1).timeoutMs, 0u);
}

void tst_VexaK40Presets::presetWithoutPortOrChoice()
{
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    rig.button("SendPresetPB")->click();
    QCOMPARE(rig.line.calls.size(), 0);
    rig.open();
    rig.find<QComboBox>("presetsCB")->setCurrentIndex(-1);
    rig.button("SendPresetPB")->click();
    QCOMPARE(rig.line.writes().size(), 0);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Presets::failedPresetIsNotReported()
{
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    rig.open();
    rig.line.failing["clSerialWrite"] = -10004;
    rig.button("SendPresetPB")->click();
    QCOMPARE(rig.line.writes().size(), 1);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Presets::brokenFileLeavesTheBoxAsItWas()
{
    const QString broken = write("presets.ini", "[Cmv2000TEC\nsize=1\n");
    tcPanelRig fresh;
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression("No presets from .*presets\\.ini.*format error"));
    fresh.panel.loadSettings(&settings());
    QCOMPARE(fresh.find<QComboBox>("presetsCB")->count(), 0);

    QVERIFY(QFile::remove(broken));
    fresh.panel.loadSettings(&settings());
    QCOMPARE(fresh.find<QComboBox>("presetsCB")->count(), 4);
    QVERIFY(mFolder->path() == QFileInfo(broken).path() && QDir().mkdir(broken));
    fresh.panel.loadSettings(&settings());
    QCOMPARE(fresh.find<QComboBox>("presetsCB")->count(), 4);
    fresh.open();
    fresh.button("SendPresetPB")->click();
    QCOMPARE(fresh.line.writes().size(), 1);
}

void tst_VexaK40Presets::loadingAgainReplacesTheBox()
{
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    rig.panel.loadSettings(&settings());
    QCOMPARE(rig.find<QComboBox>("presetsCB")->count(), 4);
    rig.open();
    rig.button("SendPresetPB")->click();
    QVERIFY(rig.line.writes().first().startsWith("<STOP>\n<STEC 24.0>\n"));
}

void tst_VexaK40Presets::traceCountsSkippedEntries()
{
    write("presets.ini",
          "[Cmv2000TEC]\nsize=3\n1\\name=a\n1\\cmds=<A>\n2\\name=b\n3\\name=c\n3\\cmds=<C>\n");
    tcPanelRig rig;
    QTest::ignoreMessage(
        QtDebugMsg,
        QRegularExpression("Cmv2000TEC.* found.* 4 .* hard coded \\+ .* 3 .*file presets"));
    rig.panel.loadSettings(&settings());
    QCOMPARE(rig.find<QComboBox>("presetsCB")->count(), 6);
}

void tst_VexaK40Presets::fileIsSentAsItIs_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("commands") << QByteArray("<STOP>\n<STRT>\n")
                              << QByteArray("<STOP>\n<STRT>\n");
    QTest::newRow("no line end") << QByteArray("<STOP>") << QByteArray("<STOP>");
    QTest::newRow("text mode") << QByteArray("<STOP>\r\n<STRT>\r\n")
                               << QByteArray("<STOP>\n<STRT>\n");
    QTest::newRow("up to the first NUL")
        << QByteArray("<STOP>\n\0<STRT>\n", 15) << QByteArray("<STOP>\n");
    QTest::newRow("bytes above ASCII")
        << QByteArray("\x80\xff\x01") << QByteArray("\x80\xff\x01");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("a megabyte") << QByteArray(1 << 20, 'x') << QByteArray(1 << 20, 'x');
}

void tst_VexaK40Presets::fileIsSentAsItIs()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, sent);
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = write("script.txt", content);
    tcPanelRig rig;
    rig.open();
    rig.button("SendCustomPB")->click();
    QCOMPARE(rig.line.writes(), QList<QByteArray>{sent});
    QCOMPARE(rig.line.callsOf("clSerialWrite").first().timeoutMs, 1000u);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Presets::fileDialogIsAskedOnce()
{
    tcScriptedDialogs dialogs;
    tcPanelRig rig;
    rig.button("SendCustomPB")->click();
    QCOMPARE(dialogs.asked.size(), 0); // no port
    rig.open();
    rig.button("SendCustomPB")->click();
    QCOMPARE(dialogs.asked.size(), 1);
    QCOMPARE(dialogs.asked.first().kind, QStringLiteral("openFile"));
    QCOMPARE(dialogs.asked.first().title, QStringLiteral("Custom Preset File"));
    QCOMPARE(dialogs.asked.first().text, QString());
    QCOMPARE(dialogs.asked.first().detail, QStringLiteral("preset files (*.txt)"));
    QCOMPARE(rig.line.writes().size(), 0); // cancelled
}

void tst_VexaK40Presets::fileThatCannotBeReadIsIgnored_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("missing") << "missing.txt";
    QTest::newRow("folder") << ".";
}

void tst_VexaK40Presets::fileThatCannotBeReadIsIgnored()
{
    QFETCH(QString, file);
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = mFolder->filePath(file);
    tcPanelRig rig;
    rig.open();
    rig.button("SendCustomPB")->click();
    QCOMPARE(rig.line.writes().size(), 0);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Presets::portClosedWhileTheDialogWasOpen()
{
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = write("script.txt", "<STOP>\n");
    tcPanelRig rig;
    rig.open();
    dialogs.whileOpen = [&] { rig.close(); };
    rig.button("SendCustomPB")->click();
    QCOMPARE(rig.line.writes().size(), 0);
}

void tst_VexaK40Presets::historyIsKept()
{
    {
        tcPanelRig rig;
        for (const char* typed : {"A", "B, with comma", "%1 %s", "\xC2\xB5s"}) {
            rig.type(QString::fromUtf8(typed));
            QTest::keyClick(rig.commandLine(), Qt::Key_Return);
        }
        rig.panel.saveSettings(&settings());
    }
    settings().sync();
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    QCOMPARE(rig.history(),
             QStringList({QString::fromUtf8("\xC2\xB5s"), "%1 %s", "B, with comma", "A"}));
    QCOMPARE(rig.commandLine()->text(), QString());
    QCOMPARE(settings().value("Vexa-K20 (Temp controlled)/cmds/size").toInt(), 4);
    QCOMPARE(settings().value("Vexa-K20 (Temp controlled)/cmds/4/cmd").toString(),
             QStringLiteral("A"));
}

void tst_VexaK40Presets::loadingAgainReplacesTheHistory()
{
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/size", 1);
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/1/cmd", "A");
    tcPanelRig rig;
    rig.type("B");
    QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    for (int load = 0; load < 2; ++load) {
        rig.panel.loadSettings(&settings());
        QCOMPARE(rig.history(), QStringList{"A"});
    }
}

void tst_VexaK40Presets::shorterHistoryLeavesNothingBehind()
{
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/size", 9);
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/9/cmd", "old");
    const QScopedPointer<tcPanelRig> rig(new tcPanelRig);
    rig->type("A");
    QTest::keyClick(rig->commandLine(), Qt::Key_Return);
    rig->panel.saveSettings(&settings());
    QCOMPARE(settings().value("Vexa-K20 (Temp controlled)/cmds/size").toInt(), 1);
    QVERIFY(!settings().contains("Vexa-K20 (Temp controlled)/cmds/9/cmd"));
}

void tst_VexaK40Presets::historySizeThatLies_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QStringList>("history");
    QTest::newRow("missing") << QString() << QStringList();
    QTest::newRow("negative") << "-1" << QStringList();
    QTest::newRow("huge") << "2147483647" << QStringList({"A", "B"});
    QTest::newRow("small") << "1" << QStringList({"A"});
}

void tst_VexaK40Presets::historySizeThatLies()
{
    QFETCH(QString, size);
    if (!size.isEmpty())
        settings().setValue("Vexa-K20 (Temp controlled)/cmds/size", size);
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/1/cmd", "A");
    settings().setValue("Vexa-K20 (Temp controlled)/cmds/2/cmd", "B");
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    QTEST(rig.history(), "history");
}

void tst_VexaK40Presets::lengthLimitIsKept_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("limit");
    QTest::newRow("missing") << QVariant() << 5000;
    QTest::newRow("short") << QVariant(64) << 64;
    QTest::newRow("zero") << QVariant(0) << 0;
    QTest::newRow("negative") << QVariant(-20) << 5000;
    QTest::newRow("no number") << QVariant("long") << 5000;
}

void tst_VexaK40Presets::lengthLimitIsKept()
{
    QFETCH(QVariant, stored);
    QFETCH(int, limit);
    const QString key = "Vexa-K20 (Temp controlled)/mMaxDescriptionLength";
    if (stored.isValid())
        settings().setValue(key, stored);
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    rig.open();
    rig.line.receive(QByteArray(6000, 'x'));
    rig.panel.CheckRxData();
    QTRY_COMPARE(rig.hex().count('x'), limit);
    rig.panel.saveSettings(&settings());
    QCOMPARE(settings().value(key).toInt(), limit);
}

// As designed: nobody but the operator's own editor ever writes it.
void tst_VexaK40Presets::advancedIsOnlyRead()
{
    tcPanelRig rig;
    for (const bool advanced : {true, false}) {
        settings().setValue("Vexa-K20 (Temp controlled)/advanced", advanced);
        rig.panel.loadSettings(&settings());
        for (const char* name : {"addSensorTB", "simSensorsPB", "fakeRXPB", "keepAlivePB"})
            QCOMPARE(rig.find<QWidget>(name)->isHidden(), !advanced);
    }
    settings().remove("Vexa-K20 (Temp controlled)/advanced");
    rig.panel.loadSettings(&settings());
    QVERIFY(rig.find<QWidget>("fakeRXPB")->isHidden());
    rig.panel.saveSettings(&settings());
    QVERIFY(!settings().contains("Vexa-K20 (Temp controlled)/advanced"));
}

void tst_VexaK40Presets::startsWithTheTextTab()
{
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    QCOMPARE(rig.find<QTabWidget>("tabWidget")->currentIndex(), 0);
    rig.panel.saveSettings(&settings());
    QVERIFY(!settings().contains("Vexa-K20 (Temp controlled)/tab"));
}

void tst_VexaK40Presets::lastTabComesBack()
{
    {
        tcPanelRig rig;
        rig.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
        rig.panel.saveSettings(&settings());
    }
    tcPanelRig rig;
    rig.panel.loadSettings(&settings());
    QCOMPARE(rig.find<QTabWidget>("tabWidget")->currentIndex(), 1);

    rig.find<QTabWidget>("tabWidget")->setCurrentIndex(0);
    rig.panel.saveSettings(&settings());
    tcPanelRig next;
    next.panel.loadSettings(&settings());
    QCOMPARE(next.find<QTabWidget>("tabWidget")->currentIndex(), 0);
}

void tst_VexaK40Presets::groupIsTheCameraName_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("group");
    QTest::newRow("Cmv300") << 0 << "Vexa-K10";
    QTest::newRow("Cmv12000") << 5 << "Vexa-K50";
    QTest::newRow("no sensor type") << 6 << "ERROR! unkown CMV Type";
}

void tst_VexaK40Presets::groupIsTheCameraName()
{
    QFETCH(int, type);
    QFETCH(QString, group);
    tcPanelRig rig(static_cast<teCmvType>(type));
    rig.panel.loadSettings(&settings());
    QCOMPARE(settings().group(), QString()); // left as it was
    QCOMPARE(rig.find<QComboBox>("presetsCB")->count(), 5);
    rig.panel.saveSettings(&settings());
    QCOMPARE(settings().group(), QString());
    QCOMPARE(settings().childGroups(), QStringList{group});
    settings().beginGroup(group);
    QStringList keys = settings().allKeys();
    keys.sort();
    QCOMPARE(keys, QStringList({"cmds/size", "mMaxDescriptionLength"}));
    settings().endGroup();
}

QTEST_MAIN(tst_VexaK40Presets)
#include "tst_vexak40presets.moc"

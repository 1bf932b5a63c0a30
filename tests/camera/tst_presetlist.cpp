#include "camera/logic/tcPresetList.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_PresetList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newListHasNoPresets();
    void builtInsFirstThenTheFileThenTheEnd();
    void entriesWithoutNameOrScriptAreSkipped();
    void missingFileIsNoProblem();
    void everySensorTypeHasItsOwnArray_data();
    void everySensorTypeHasItsOwnArray();
    void unknownTypeReadsNothing();
    void lineFeedsFromEscapes();
    void sizes_data();
    void sizes();
    void textsAreInTheLocalEncoding();
    void textsEndAtANul();
    void megabytesOfScript();
    void problems_data();
    void problems();
    void brokenFileIsBrokenForEveryCamera();
    void lettersBeyondAscii_data();
    void lettersBeyondAscii();
    void rebuildingReplacesEverything();
    void theManualsExample();

private:
    QString write(const QByteArray& acContent);

    QTemporaryDir mFolder;
};

QString tst_PresetList::write(const QByteArray& acContent)
{
    // A name of its own each time: the settings library remembers files.
    static int number = 0;
    const QString path = mFolder.filePath(QStringLiteral("presets%1.ini").arg(++number));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(acContent) != acContent.size())
        qFatal("no test file");
    return path;
}

void tst_PresetList::newListHasNoPresets()
{
    tcPresetList list;
    QCOMPARE(list.count(), 0);
    QVERIFY(!list.at(0)->label);
}

void tst_PresetList::builtInsFirstThenTheFileThenTheEnd()
{
    const QString path
        = write("[Cmv300]\nsize=2\n1\\name=\"My, own\"\n1\\cmds=\"<STOP>\\n<STRT>\\n\"\n"
                "2\\name=Two\n2\\cmds=<VERS>\n");
    tcPresetList list;
    list.rebuild(teCmvType::Cmv300, tcPresetList::read(path, teCmvType::Cmv300));
    QCOMPARE(list.builtIns(), 5);
    QCOMPARE(list.count(), 7);
    QCOMPARE(list.at(0)->label, "10-Tap, 8 Bpp, 3360x2496, 95 fps");
    QCOMPARE(list.at(5)->label, "My, own");
    QCOMPARE(list.at(5)->script, "<STOP>\n<STRT>\n");
    QCOMPARE(list.at(6)->label, "Two");
    QCOMPARE(list.at(6)->script, "<VERS>");
    QVERIFY(!list.at(7)->label);
    QVERIFY(!list.at(7)->script);
}

void tst_PresetList::entriesWithoutNameOrScriptAreSkipped()
{
    const QString path = write("[Cmv2000]\nsize=3\n1\\name=One\n1\\cmds=<VERS>\n"
                               "2\\name=Two\n3\\name=Three\n3\\cmds=<GEXP>\n");
    const tcPresetList::tcFile file = tcPresetList::read(path, teCmvType::Cmv2000);
    QCOMPARE(file.problem, QString());
    QCOMPARE(file.size, 3); // announced, the skipped one too
    tcPresetList list;
    list.rebuild(teCmvType::Cmv2000, file);
    QCOMPARE(list.count(), list.builtIns() + 2);
    QCOMPARE(list.at(4)->label, "One");
    QCOMPARE(list.at(5)->label, "Three");
}

void tst_PresetList::missingFileIsNoProblem()
{
    const tcPresetList::tcFile file
        = tcPresetList::read(mFolder.filePath("none.ini"), teCmvType::Cmv300);
    QCOMPARE(file.problem, QString());
    QCOMPARE(file.size, 0);
    QVERIFY(!QFile::exists(mFolder.filePath("none.ini")));
}

void tst_PresetList::everySensorTypeHasItsOwnArray_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("Cmv300") << 0 << QByteArray("of300");
    QTest::newRow("Cmv2000") << 1 << QByteArray("of2000");
    QTest::newRow("Cmv2000TEC") << 2 << QByteArray("of2000TEC");
    QTest::newRow("Cmv4000") << 3 << QByteArray("of4000");
    QTest::newRow("Cmv8000") << 4 << QByteArray("of8000");
    QTest::newRow("Cmv12000") << 5 << QByteArray("of12000");
}

void tst_PresetList::everySensorTypeHasItsOwnArray()
{
    QFETCH(int, type);
    QFETCH(QByteArray, name);
    QByteArray content;
    for (const char* key : {"300", "2000", "2000TEC", "4000", "8000", "12000"})
        content
            += QByteArray("[Cmv") + key + "]\nsize=1\n1\\name=of" + key + "\n1\\cmds=<VERS>\n";
    const tcPresetList::tcFile file
        = tcPresetList::read(write(content), static_cast<teCmvType>(type));
    QCOMPARE(file.rows.size(), 1);
    QCOMPARE(file.rows.first().label, name);
}

void tst_PresetList::unknownTypeReadsNothing()
{
    const tcPresetList::tcFile file = tcPresetList::read(
        write("size=1\n1\\name=a\n1\\cmds=b\n[General]\nsize=1\n"), static_cast<teCmvType>(17));
    QCOMPARE(file.problem, QString());
    QCOMPARE(file.rows.size(), 0);
    tcPresetList list;
    list.rebuild(static_cast<teCmvType>(17), file);
    QCOMPARE(list.count(), 5);
}

void tst_PresetList::lineFeedsFromEscapes()
{
    const tcPresetList::tcFile file = tcPresetList::read(
        write("[Cmv300]\nsize=1\n1\\name=\"a\"\n1\\cmds=\"<STOP>\\n<SROI 0 0 8 8>\\n\"\n"),
        teCmvType::Cmv300);
    QCOMPARE(file.rows.first().script, QByteArray("<STOP>\n<SROI 0 0 8 8>\n"));
}

void tst_PresetList::sizes_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::addColumn<int>("announced");
    QTest::addColumn<int>("rows");
    QTest::newRow("missing") << QByteArray() << 0 << 0;
    QTest::newRow("zero") << QByteArray("size=0\n") << 0 << 0;
    QTest::newRow("negative") << QByteArray("size=-5\n") << -5 << 0;
    QTest::newRow("too small") << QByteArray("size=1\n") << 1 << 1;
    QTest::newRow("right") << QByteArray("size=2\n") << 2 << 2;
    QTest::newRow("largest number") << QByteArray("size=2147483647\n") << 2147483647 << 2;
    QTest::newRow("beyond numbers") << QByteArray("size=99999999999999999999\n") << 0 << 0;
    QTest::newRow("no number") << QByteArray("size=many\n") << 0 << 0;
}

void tst_PresetList::sizes()
{
    QFETCH(QByteArray, size);
    QElapsedTimer timer;
    timer.start();
    const tcPresetList::tcFile file = tcPresetList::read(
        write("[Cmv300]\n" + size + "1\\name=a\n1\\cmds=<A>\n2\\name=b\n2\\cmds=<B>\n"),
        teCmvType::Cmv300);
    QTEST(file.size, "announced");
    QTEST(file.rows.size(), "rows");
    QVERIFY2(timer.elapsed() < 5000, "two thousand million entries were looked for");
    tcPresetList list;
    list.rebuild(teCmvType::Cmv300, file);
    QCOMPARE(list.count(), 5 + file.rows.size());
}

void tst_PresetList::textsAreInTheLocalEncoding()
{
    const QString path
        = write("[Cmv300]\nsize=1\n1\\name=\"10 k\\x3a9\"\n1\\cmds=\"<\\x3a9>\"\n");
    const tcPresetList::tcFile file = tcPresetList::read(path, teCmvType::Cmv300);
    const QString ohm(QChar(0x3a9));
    QCOMPARE(file.rows.size(), 1);
    QCOMPARE(file.rows.first().label, (QStringLiteral("10 k") + ohm).toLocal8Bit());
    QCOMPARE(file.rows.first().script, ('<' + ohm + '>').toLocal8Bit());
}

void tst_PresetList::textsEndAtANul()
{
    const tcPresetList::tcFile file = tcPresetList::read(
        write("[Cmv300]\nsize=3\n1\\name=\"a\\x0 b\"\n1\\cmds=\"<A>\\x0<B>\"\n"
              "2\\name=\"\\x0\"\n2\\cmds=<A>\n3\\name=c\n3\\cmds=\"\\x0<A>\"\n"),
        teCmvType::Cmv300);
    QCOMPARE(file.rows.size(), 1);
    QCOMPARE(file.rows.first().label, QByteArray("a"));
    QCOMPARE(file.rows.first().script, QByteArray("<A>"));
}

void tst_PresetList::megabytesOfScript()
{
    const QByteArray script(4 * 1024 * 1024, 'x');
    const tcPresetList::tcFile file = tcPresetList::read(
        write("[Cmv300]\nsize=1\n1\\name=a\n1\\cmds=" + script + "\n"), teCmvType::Cmv300);
    QCOMPARE(file.rows.size(), 1);
    QCOMPARE(file.rows.first().script.size(), script.size());
}

void tst_PresetList::problems_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("problem");
    QTest::newRow("section without end") << QByteArray("[Cmv300\nsize=1\n") << "format error";
    QTest::newRow("binary") << QByteArray("[\x80\xff\n\x01=\n\0[\xfe\n", 12) << "format error";
    // The library notices this one only when it is too late, and goes on.
    QTest::newRow("a line that is none") << QByteArray("[Cmv300]\nnothing here\n") << "";
    QTest::newRow("empty") << QByteArray() << "";
}

void tst_PresetList::problems()
{
    QFETCH(QByteArray, content);
    const tcPresetList::tcFile file = tcPresetList::read(write(content), teCmvType::Cmv300);
    QTEST(file.problem, "problem");
    const tcPresetList::tcFile folder = tcPresetList::read(mFolder.path(), teCmvType::Cmv300);
    QCOMPARE(folder.problem, QStringLiteral("no regular file"));
    QFile huge(mFolder.filePath("huge.ini"));
    QVERIFY(huge.open(QIODevice::WriteOnly));
    QVERIFY(huge.resize(tcPresetList::cMaxFileBytes + 1));
    huge.close();
    QCOMPARE(tcPresetList::read(huge.fileName(), teCmvType::Cmv300).problem,
             QStringLiteral("too large"));
}

/// The settings library remembers the file, but not that it was broken.
void tst_PresetList::brokenFileIsBrokenForEveryCamera()
{
    const QString path = write("[Cmv300\nsize=1\n1\\name=a\n1\\cmds=<VERS>\n");
    for (const teCmvType type : {teCmvType::Cmv12000, teCmvType::Cmv8000, teCmvType::Cmv300})
        QCOMPARE(tcPresetList::read(path, type).problem, QStringLiteral("format error"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[Cmv300]\nsize=1\n1\\name=mended\n1\\cmds=<VERS>\n");
    file.close();
    const tcPresetList::tcFile mended = tcPresetList::read(path, teCmvType::Cmv300);
    QCOMPARE(mended.problem, QString());
    QCOMPARE(mended.rows.size(), 1);
}

void tst_PresetList::lettersBeyondAscii_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xb6\xc3\x9f"
                                         "e");
    QTest::newRow("Latin-1") << QByteArray("Gr\xf6\xdf"
                                           "e");
    QTest::newRow("escaped") << QByteArray("\"Gr\\xf6\\xdf\" \"e\"");
}

/// Editors write UTF-8 today, older ones Latin-1, which the settings library expects.
void tst_PresetList::lettersBeyondAscii()
{
    QFETCH(QByteArray, name);
    const tcPresetList::tcFile file = tcPresetList::read(
        write("[Cmv300]\nsize=1\n1\\name=" + name + "\n1\\cmds=<VERS>\n"), teCmvType::Cmv300);
    QCOMPARE(file.rows.size(), 1);
    QCOMPARE(file.rows.first().label,
             QString::fromUtf8("Gr\xc3\xb6\xc3\x9f"
                               "e")
                 .toLocal8Bit());
}

void tst_PresetList::rebuildingReplacesEverything()
{
    tcPresetList list;
    tcPresetList::tcFile file;
    for (int i = 0; i < 1000; ++i)
        file.rows.append({QByteArray::number(i), "<A>"});
    list.rebuild(teCmvType::Cmv300, file);
    QCOMPARE(list.count(), 1005);
    QCOMPARE(list.at(1004)->label, "999");
    list.rebuild(teCmvType::Cmv2000TEC, {});
    QCOMPARE(list.count(), 4);
    QVERIFY(QByteArray(list.at(0)->script).startsWith("<STOP>\n<STEC 24.0>\n"));
    QVERIFY(!list.at(4)->label);
}

void tst_PresetList::theManualsExample()
{
    QFile manual(QStringLiteral(MANUAL_FOLDER "/05-presets.md"));
    QVERIFY(manual.open(QIODevice::ReadOnly));
    const QByteArray text = manual.readAll();
    const int begin = text.indexOf("[Cmv2000]");
    const int end = text.indexOf("```", begin);
    QVERIFY(begin >= 0 && end > begin);
    const QString path = write(text.mid(begin, end - begin));
    tcPresetList builtIn;
    builtIn.rebuild(teCmvType::Cmv2000, {});
    tcPresetList list;
    list.rebuild(teCmvType::Cmv2000, tcPresetList::read(path, teCmvType::Cmv2000));
    QCOMPARE(list.count(), builtIn.count() + 2);
    QCOMPARE(QString(list.at(builtIn.count())->label), QString("Dark frame, 100 ms"));
    QCOMPARE(QString(list.at(builtIn.count())->script),
             QString("<STOP>\n<SEXP 100000>\n<STRT>\n"));
    QCOMPARE(QString(list.at(builtIn.count() + 1)->label), QString("Free run"));
}

QTEST_GUILESS_MAIN(tst_PresetList)
#include "tst_presetlist.moc"

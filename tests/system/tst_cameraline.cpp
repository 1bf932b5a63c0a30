// The real program and a camera at the far end of its line: opening, presets, commands, files,
// replies, and everything that a line may do to it.
#include "camlink/logic/tcBasicPresets.h"
#include "tests/support/tcFarEnd.h"
#include "tests/support/tcSystemTest.h"

#include <QFile>

namespace
{

const QString cProgram = QStringLiteral(TARVIK_PROGRAM);
const QString cCameraProgram = QStringLiteral(TARVIK_CAMERA);

enum teBox
{
    Camera,
    Port,
    Preset,
    Example,
    Command, ///< of the full panel; the basic ones have a plain line
};

} // namespace

class tst_CameraLine : public tcSystemTest
{
    Q_OBJECT

private Q_SLOTS:
    void virtualCamera();
    void basicPanelOnALine_data();
    void basicPanelOnALine();
    void fullPanelOnALine_data();
    void fullPanelOnALine();
    void scriptFile();
    void simulatedCameraOnALine();
    void portThatIsTaken();
    void closingHangsUpOnce_data();
    void closingHangsUpOnce();
    void closingDuringAFlood_data();
    void closingDuringAFlood();
    void unplugged_data();
    void unplugged();

private:
    static QString script(const tcPreset& acPreset);
    /// Starts, chooses the camera and opens the only port.
    static bool open(tcOperator& arUser, const QString& acPath, const QString& acCamera);
};

bool tst_CameraLine::open(tcOperator& arUser, const QString& acPath, const QString& acCamera)
{
    arUser.setPorts({acPath}, false);
    return arUser.start(cProgram) && arUser.choose(Camera, acCamera) && arUser.press("Open")
        && QTest::qWaitFor([&] { return arUser.status() == "Connected"; }, 30000);
}

void tst_CameraLine::virtualCamera()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QVERIFY(user.choose(Camera, "Vexa-R60"));
    const QStringList ports = user.entriesOf(Port).filter("Virtual R60");
    QCOMPARE(ports.size(), 1);
    QVERIFY(user.choose(Port, ports.first()));

    // Closed: nothing is sent, nothing is shown.
    QVERIFY(user.press("Send preset"));
    QVERIFY(user.press("Open"));
    TRY_COMPARE(user.status(), QString("Connected"));
    QVERIFY(!user.comboBox(Camera).enabled);
    QVERIFY(user.comboBox(Port).enabled);
    QCOMPARE(user.view("Replies"), QString());

    QVERIFY(user.press("Send preset"));
    TRY_COMPARE(user.view("Replies"), script(tcBasicPresets::cR60.front()));
    QVERIFY(user.type(user.widget(tcOperator::teKind::Text, "Command"), "<SEXP 500>"));
    user.keys({"Return"});
    TRY_VERIFY(user.view("Replies").endsWith("<SEXP 500><ACK>\n"));

    QVERIFY(user.press("Close"));
    TRY_COMPARE(user.status(), QString("Not Connected"));
    QVERIFY(user.comboBox(Camera).enabled);
    QVERIFY(user.button("Open").enabled);
    QCOMPARE(user.close(), 0);
}

/// What a willing camera answers to the preset.
QString tst_CameraLine::script(const tcPreset& acPreset)
{
    return QString::fromLatin1(acPreset.script).replace(">\n", "><ACK>\n");
}

void tst_CameraLine::basicPanelOnALine_data()
{
    QTest::addColumn<QString>("camera");
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QByteArray>("script");
    const tcPreset& r60 = tcBasicPresets::cR60.back();
    const tcPreset& r70 = tcBasicPresets::cR70.back();
    QTest::newRow("R60") << "Vexa-R60" << r60.label << QByteArray(r60.script);
    QTest::newRow("R70") << "Vexa-R70" << r70.label << QByteArray(r70.script);
}

void tst_CameraLine::basicPanelOnALine()
{
    QFETCH(QString, camera);
    QFETCH(QString, preset);
    QFETCH(QByteArray, script);
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator user(screen(), home());
    QVERIFY2(open(user, line.path(), camera), qPrintable(user.output()));
    QCOMPARE(line.baud(), 115200);

    QVERIFY(user.choose(Preset, preset));
    QVERIFY(user.press("Send preset"));
    TRY_COMPARE(line.received(), script);

    line.forget();
    QVERIFY(user.type(user.widget(tcOperator::teKind::Text, "Command"), "VERS"));
    user.keys({"Return"});
    TRY_COMPARE(line.received(), QByteArray("VERS\n"));
    QVERIFY(user.press("Send command"));
    TRY_COMPARE(line.received(), QByteArray("VERS\nVERS\n"));

    // A long reply comes whole and in order, without what no view can show.
    QByteArray reply;
    QString shown;
    for (int number = 0; number < 40; ++number) {
        reply += "<LINE " + QByteArray::number(number)
            + "><A\x01"
              "CK>\r\n";
        shown += QString("<LINE %1><ACK>\n").arg(number);
    }
    line.send(reply);
    TRY_COMPARE(user.view("Replies"), shown);
    QCOMPARE(user.close(), 0);
}

void tst_CameraLine::fullPanelOnALine_data()
{
    QTest::addColumn<QString>("camera");
    QTest::addColumn<QString>("timeout");
    QTest::newRow("K50, reads hand over what there is") << "Vexa-K50"
                                                        << "partial";
    QTest::newRow("K20T, reads hand over all or nothing") << "Vexa-K20 (Temp controlled)"
                                                          << "strict";
}

void tst_CameraLine::fullPanelOnALine()
{
    QFETCH(QString, camera);
    QFETCH(QString, timeout);
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator user(screen(), home());
    user.setEnvironment("CLALLSERIAL_LINE_TIMEOUT", timeout);
    QVERIFY2(open(user, line.path(), camera), qPrintable(user.output()));
    TRY_VERIFY(user.view("Log").contains(": Port opened ["));
    QVERIFY(user.view("Log").contains("] BR set to 16\n"));

    QVERIFY(user.press("Start acquisition"));
    TRY_COMPARE(line.received(), QByteArray("<STRT>\n"));
    QVERIFY(user.press("Stop acquisition"));
    TRY_COMPARE(line.received(), QByteArray("<STRT>\n<STOP>\n"));
    line.send("<STRT><ACK>\r\n<STOP><AC");
    TRY_COMPARE(user.view("Last reply"), QString("<STRT><ACK>"));
    line.send("K>\r\n");
    TRY_COMPARE(user.view("Last reply"), QString("<STOP><ACK>"));
    TRY_VERIFY(user.view("Log").contains(": <STOP><ACK>\n"));

    line.forget();
    QVERIFY(user.type(user.comboBox(Command), "SEXP 500"));
    user.keys({"Return"});
    TRY_COMPARE(line.received(), QByteArray("<SEXP 500>\n"));
    TRY_COMPARE(user.comboBox(Command).name, QString("Command")); // empty: its own name
    QCOMPARE(user.close(), 0);
}

void tst_CameraLine::scriptFile()
{
    QFile file(home() + "/mine.txt");
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("<SVBN 2>\n<SHBN 2>\n") > 0);
    file.close();
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator user(screen(), home());
    QVERIFY2(open(user, line.path(), "Vexa-R60"), qPrintable(user.output()));
    QVERIFY(user.press("Send preset file"));
    TRY_VERIFY(user.button("Cancel").found());
    QVERIFY(user.type(user.focused(), file.fileName()));
    user.keys({"Return"});
    TRY_COMPARE(line.received(), QByteArray("<SVBN 2>\n<SHBN 2>\n"));
    QCOMPARE(user.close(), 0);
}

void tst_CameraLine::simulatedCameraOnALine()
{
    const QString link = home() + "/cam";
    tcChildProcess camera;
    camera.start(cCameraProgram, {"--model", "k20-tec", "--link", link});
    TRY_VERIFY(QFile::exists(link));
    tcOperator user(screen(), home());
    QVERIFY2(open(user, link, "Vexa-K20 (Temp controlled)"), qPrintable(user.output()));
    QVERIFY(user.type(user.comboBox(Command), "VERS"));
    user.keys({"Return"});
    TRY_VERIFY(user.view("Last reply").startsWith("<VERS><ACK><Vexa-K20T"));
    QVERIFY(user.press("Send preset"));
    TRY_VERIFY(user.view("Log").contains("<STRT><ACK>"));
    QVERIFY(user.press("Stop acquisition"));
    TRY_COMPARE(user.view("Last reply"), QString("<STOP><ACK>"));
    QCOMPARE(user.close(), 0);
    QCOMPARE(camera.state(), QProcess::Running);
}

void tst_CameraLine::portThatIsTaken()
{
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator first(screen(), home() + "/first");
    QVERIFY2(open(first, line.path(), "Vexa-R60"), qPrintable(first.output()));
    tcOperator second(screen(), home() + "/second");
    second.setPorts({line.path()}, false);
    QVERIFY2(second.start(cProgram), qPrintable(second.output()));
    QVERIFY(second.choose(Camera, "Vexa-R60"));
    const QString before = second.status();
    QVERIFY(second.press("Open"));
    TRY_VERIFY(!second.view("Replies").isEmpty()); // the library's own words
    QCOMPARE(second.status(), before);
    QVERIFY(second.button("Open").enabled);
    QVERIFY(second.comboBox(Camera).enabled);
    QCOMPARE(second.close(), 0);
    line.send("<STOP><ACK>\r\n");
    TRY_COMPARE(first.view("Replies"), QString("<STOP><ACK>\n"));
    QCOMPARE(first.close(), 0);
}

void tst_CameraLine::closingHangsUpOnce_data()
{
    QTest::addColumn<QString>("camera");
    QTest::addColumn<bool>("byButton");
    QTest::newRow("basic panel, by the button") << "Vexa-R60" << true;
    QTest::newRow("basic panel, with the window") << "Vexa-R60" << false;
    QTest::newRow("full panel, by the button") << "Vexa-K40" << true;
    QTest::newRow("full panel, with the window") << "Vexa-K40" << false;
}

void tst_CameraLine::closingHangsUpOnce()
{
    QFETCH(QString, camera);
    QFETCH(bool, byButton);
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator user(screen(), home());
    QVERIFY2(open(user, line.path(), camera), qPrintable(user.output()));
    QCOMPARE(line.opens(), 1);
    QCOMPARE(line.closes(), 0);
    if (byButton) {
        QVERIFY(user.press("Close"));
        TRY_COMPARE(user.status(), QString("Not Connected"));
        QCOMPARE(line.closes(), 1);
    }
    QCOMPARE(user.close(), 0);
    QCOMPARE(line.opens(), 1);
    QCOMPARE(line.closes(), 1);
    const QSettings settings(user.settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value("panel/camera").toString(), camera);
}

void tst_CameraLine::closingDuringAFlood_data()
{
    QTest::addColumn<QString>("camera");
    QTest::newRow("basic panel") << "Vexa-R60";
    QTest::newRow("full panel") << "Vexa-K40";
}

void tst_CameraLine::closingDuringAFlood()
{
    QFETCH(QString, camera);
    tcFarEnd line;
    QVERIFY(line.isValid());
    tcOperator user(screen(), home());
    QVERIFY2(open(user, line.path(), camera), qPrintable(user.output()));
    line.startFlood("<GEXP><ACK><500>\r\n");
    const QString view = camera == "Vexa-R60" ? "Replies" : "Log";
    TRY_VERIFY(user.view(view).count("<GEXP><ACK><500>\n") > 100);
    // The window still answers: the button works, and so does what comes after it.
    QVERIFY(user.press("Close"));
    TRY_COMPARE(user.status(), QString("Not Connected"));
    const QString atClose = user.view(view);
    QVERIFY(user.press("Open"));
    TRY_COMPARE(user.status(), QString("Connected"));
    TRY_VERIFY(user.view(view) != atClose);
    QCOMPARE(user.close(), 0);
    QCOMPARE(line.closes(), line.opens());
    const QSettings settings(user.settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value("panel/camera").toString(), camera);
}

void tst_CameraLine::unplugged_data()
{
    closingDuringAFlood_data();
}

void tst_CameraLine::unplugged()
{
    QFETCH(QString, camera);
    const QString link = home() + "/cam";
    tcChildProcess cable;
    cable.start(cCameraProgram,
                {"--model", camera == "Vexa-R60" ? "r60" : "k40", "--link", link});
    TRY_VERIFY(QFile::exists(link));
    tcOperator user(screen(), home());
    QVERIFY2(open(user, link, camera), qPrintable(user.output()));
    const QString view = camera == "Vexa-R60" ? "Replies" : "Log";
    QVERIFY(user.press("Send preset"));
    TRY_VERIFY(user.view(view).contains("<STRT><ACK>"));

    QVERIFY(cable.stop());
    const QString shown = user.view(view);
    QVERIFY(user.press("Send preset"));
    QVERIFY(user.press("Close"));
    TRY_COMPARE(user.status(), QString("Not Connected"));
    QCOMPARE(user.view(view), shown); // nothing stale, nothing made up
    QVERIFY(user.comboBox(Camera).enabled);

    // Plugged in again, the same entry of the list works.
    cable.start(cCameraProgram,
                {"--model", camera == "Vexa-R60" ? "r60" : "k40", "--link", link});
    TRY_VERIFY(QFile::exists(link));
    QVERIFY(user.press("Open"));
    TRY_COMPARE(user.status(), QString("Connected"));
    QVERIFY(user.press("Send preset"));
    TRY_VERIFY(user.view(view).count("<STRT><ACK>") == 2);
    QCOMPARE(user.close(), 0);
}

QTEST_GUILESS_MAIN(tst_CameraLine)
#include "tst_cameraline.moc"

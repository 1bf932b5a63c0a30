// The real program from its first start to its end: window, settings file, menus, closing.
#include "tests/support/tcSystemTest.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace
{

const QString cProgram = QStringLiteral(TARVIK_PROGRAM);
const QSize cFirstSize{730, 500};

const QStringList cCameras{"Vexa-K50", "Vexa-R60", "Vexa-R70",
                           "Vexa-K40", "Vexa-K30", "Vexa-K20 (Temp controlled)",
                           "Vexa-K20", "Vexa-K10"};

enum teBox
{
    Camera,
    Port,
};

} // namespace

class tst_Operator : public tcSystemTest
{
    Q_OBJECT

private Q_SLOTS:
    void firstStart();
    void sizeAndCameraAreKept();
    void portsAreListed();
    void noPortsNoOpen();
    void portListIsReadAgain();
    void keyboardAlone();
    void aboutBox();
    void exitByMenu();
    void noDriverOfOpenGlIsLoaded();
    void filesAreOpenedInTheEnvironmentAsItWas();
    void unusableSettings_data();
    void unusableSettings();
    void settingsBelowAFile();
    void settingsOfAMissingCamera();
};

void tst_Operator::firstStart()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QCOMPARE(user.title(), QString("Vexa Camera Link Control Panel 1.5.0"));
    TRY_COMPARE(user.windowSize(), cFirstSize);
    QCOMPARE(user.camera(), QString("Vexa-K50"));
    QCOMPARE(user.entriesOf(Camera), cCameras);
    QCOMPARE(user.status(), "Settings at " + user.settingsFile());
    QVERIFY(user.button("Open").enabled);
    QCOMPARE(user.close(), 0);

    const QSettings settings(user.settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value("mainwindow/size").toSize(), cFirstSize);
    QCOMPARE(settings.value("panel/camera").toString(), QString("Vexa-K50"));
}

void tst_Operator::sizeAndCameraAreKept()
{
    const QSize wanted(911, 677);
    {
        tcOperator user(screen(), home());
        user.setPorts({}, true);
        QVERIFY2(user.start(cProgram), qPrintable(user.output()));
        QVERIFY(user.choose(Camera, "Vexa-R70"));
        user.resize(wanted);
        TRY_COMPARE(user.windowSize(), wanted);
        // The program has heard of its new size when its own layout has followed.
        TRY_VERIFY(user.widget(tcOperator::teKind::StatusBar, user.status()).place.width()
                   == wanted.width());
        QCOMPARE(user.close(), 0);
    }
    tcOperator again(screen(), home());
    again.setPorts({}, true);
    QVERIFY2(again.start(cProgram), qPrintable(again.output()));
    QCOMPARE(again.camera(), QString("Vexa-R70"));
    TRY_COMPARE(again.windowSize(), wanted);
    QVERIFY(again.widget(tcOperator::teKind::Text, "Replies").found());
    QCOMPARE(again.close(), 0);
}

void tst_Operator::portsAreListed()
{
    tcOperator user(screen(), home());
    user.setPorts({"/dev/tarvik-no-such-port"}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    const QStringList ports = user.entriesOf(Port);
    QVERIFY2(ports.size() > 4, qPrintable(ports.join('\n')));
    for (int index = 0; index < ports.size(); ++index) {
        const QRegularExpression form(QString("^%1 : [^:]+ : .+$").arg(index));
        QVERIFY2(form.match(ports.at(index)).hasMatch(), qPrintable(ports.at(index)));
    }
    QCOMPARE(ports.filter("/dev/tarvik-no-such-port").size(), 1);
    QVERIFY(!ports.filter("Virtual K20 (Temp controlled)").isEmpty());
    // Long names of ports and cameras don't widen the window.
    TRY_COMPARE(user.windowSize(), cFirstSize);
    QCOMPARE(user.close(), 0);
}

void tst_Operator::noPortsNoOpen()
{
    tcOperator user(screen(), home());
    user.setPorts({}, false);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QCOMPARE(user.entriesOf(Port), QStringList());
    QVERIFY(user.button("Open").found());
    QVERIFY(!user.button("Open").enabled);
    QCOMPARE(user.close(), 0);
}

void tst_Operator::portListIsReadAgain()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    const QStringList before = user.entriesOf(Port);
    QVERIFY(before.size() > 2);
    const QString chosen = before.at(2);
    QVERIFY(user.choose(Port, chosen));
    user.keys({"F5"});
    // Opening the list reads it once more; the choice stays.
    QVERIFY(user.choose(Port, chosen));
    QCOMPARE(user.entriesOf(Port), before);
    QCOMPARE(user.close(), 0);
}

void tst_Operator::keyboardAlone()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    user.keys({"Down"}); // the list of cameras has the focus
    TRY_COMPARE(user.camera(), QString("Vexa-R60"));
    user.keys({"Tab", "Tab", "space"});
    TRY_COMPARE(user.status(), QString("Connected"));
    user.keys({"Tab", "Tab", "Tab", "Tab"}); // presets, their two buttons, then the command
    QVERIFY(user.type(user.focused(), "<VERS>"));
    user.keys({"Return"});
    TRY_VERIFY(user.view("Replies").startsWith("<VERS><ACK><Vexa-R60"));
    user.keys({"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "space"});
    TRY_COMPARE(user.status(), QString("Not Connected"));
    QCOMPARE(user.close(), 0);
}

void tst_Operator::aboutBox()
{
    using teKind = tcOperator::teKind;
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QVERIFY(user.click(user.widget(teKind::MenuItem, "Help")));
    user.keys({"Down", "Return"});
    TRY_VERIFY(user.button("OK").found());
    const QString said = user.anyText("Version 1.5.0 build 17 - git revision: ");
    QVERIFY2(QRegularExpression("git revision: [0-9a-f]{40}").match(said).hasMatch(),
             qPrintable(said));
    QVERIFY(user.press("OK"));
    TRY_VERIFY(!user.button("OK").found());
    QCOMPARE(user.close(), 0);
}

void tst_Operator::exitByMenu()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QVERIFY(user.choose(Camera, "Vexa-K10"));
    QVERIFY(user.click(user.widget(tcOperator::teKind::MenuItem, "File")));
    user.keys({"Up", "Return"}); // the last entry
    QCOMPARE(user.waitForExit(), 0);
    const QSettings settings(user.settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value("panel/camera").toString(), QString("Vexa-K10"));
}

/// Nothing is drawn with it, and it would take longer to start than the program.
void tst_Operator::noDriverOfOpenGlIsLoaded()
{
    for (const bool chosen : {false, true}) {
        tcOperator user(screen(), home());
        user.setPorts({}, true);
        if (chosen)
            user.setEnvironment("QT_XCB_GL_INTEGRATION", "xcb_glx");
        QVERIFY2(user.start(cProgram), qPrintable(user.output()));
        QVERIFY(user.hasLoaded("libqxcb.so"));
        QCOMPARE(user.hasLoaded("libqxcb-glx-integration.so"), chosen);
        const int status = user.close();
        QVERIFY2(status == 0 || chosen, "a driver may leave something behind, the panel not");
    }
}

void tst_Operator::filesAreOpenedInTheEnvironmentAsItWas()
{
    QFile opener(home() + "/xdg-open");
    QVERIFY(opener.open(QIODevice::WriteOnly));
    opener.write(
        "#!/bin/sh\nenv > \"$HOME/seen.part\"\nmv \"$HOME/seen.part\" \"$HOME/seen\"\n");
    opener.close();
    QVERIFY(opener.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    user.setEnvironment("PATH", home() + ":" + qEnvironmentVariable("PATH"));
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QFile seen(home() + "/seen");
    // A key that got lost leaves the menu open.
    bool opened = false;
    for (int attempt = 0; attempt < 3 && !opened; ++attempt) {
        user.keys({"Escape"});
        QVERIFY(user.click(user.widget(tcOperator::teKind::MenuItem, "File")));
        user.keys({"Down", "Return"});
        opened = QTest::qWaitFor([&seen] { return seen.exists(); }, 10000);
    }
    QVERIFY(seen.open(QIODevice::ReadOnly));
    const QByteArray environment = seen.readAll();
    QVERIFY(environment.contains("HOME="));
    QVERIFY2(!environment.contains("QT_XCB_GL_INTEGRATION"), environment.constData());
    QCOMPARE(user.close(), 0);
}

void tst_Operator::unusableSettings_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a size that is none") << QByteArray("[mainwindow]\nsize=banana\n");
    QTest::newRow("a size of nothing") << QByteArray("[mainwindow]\nsize=@Size(0 -4)\n");
    QTest::newRow("no settings at all") << QByteArray("\0\xff]]=[%%\n=\n@Size(\n", 18);
    QTest::newRow("a megabyte of nothing") << QByteArray(1 << 20, '\xfe');
}

void tst_Operator::unusableSettings()
{
    QFETCH(QByteArray, content);
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    QVERIFY(QDir().mkpath(user.configFolder()));
    QFile file(user.settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    TRY_COMPARE(user.windowSize(), cFirstSize);
    QCOMPARE(user.camera(), QString("Vexa-K50"));
    QCOMPARE(user.close(), 0);
}

// The folder of the settings can't exist, so nothing can be read or stored.
void tst_Operator::settingsBelowAFile()
{
    QFile file(home() + "/file");
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int run = 0; run < 2; ++run) {
        tcOperator user(screen(), home());
        user.setPorts({}, true);
        user.setEnvironment("XDG_CONFIG_HOME", home() + "/file/config");
        QVERIFY2(user.start(cProgram), qPrintable(user.output()));
        TRY_COMPARE(user.windowSize(), cFirstSize);
        QVERIFY(user.status().startsWith("Settings at "));
        QVERIFY(user.choose(Camera, "Vexa-R60"));
        QVERIFY(user.press("Open"));
        TRY_COMPARE(user.status(), QString("Connected"));
        QCOMPARE(user.close(), 0);
        QVERIFY2(user.output().contains("Settings not stored at"), qPrintable(user.output()));
    }
    QVERIFY(QFileInfo(home() + "/file").isFile());
}

void tst_Operator::settingsOfAMissingCamera()
{
    tcOperator user(screen(), home());
    user.setPorts({}, true);
    {
        QSettings settings(user.settingsFile(), QSettings::IniFormat);
        settings.setValue("panel/camera", "vexa-r60"); // the case counts
    }
    QVERIFY2(user.start(cProgram), qPrintable(user.output()));
    QCOMPARE(user.camera(), QString("Vexa-K50"));
    QCOMPARE(user.close(), 0);
}

QTEST_GUILESS_MAIN(tst_Operator)
#include "tst_operator.moc"

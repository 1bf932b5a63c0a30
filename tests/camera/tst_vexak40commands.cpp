#include "camera/logic/tcCommandHelp.h"
#include "tests/camera/tcPanelRig.h"

#include <QSignalSpy>
#include <QWheelEvent>

class tst_VexaK40Commands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { tcFakeSerial::instance().reset(); }
    void cleanup() { QCOMPARE(tcFakeSerial::instance().misuse, QStringList()); }

    void slotsHaveTheirNames();
    void typedCommands_data();
    void typedCommands();
    void returnAndSendDoTheSame_data();
    void returnAndSendDoTheSame();
    void emptyCommandIsIgnored();
    void startAndStop_data();
    void startAndStop();
    void sentCommandLeavesTheCursorOfTheLog();
    void closedPortLogsAnEmptyEntry();
    void sentCommandsRunOnInTheLog();
    void writeTimeout();
    void longCommandIsCut();
    void failedWrite_data();
    void failedWrite();
    void historyRules();
    void historyIsCaseSensitive();
    void historyKeepsWhatWasTyped();
    void upBringsTheNewestBack();
    void wheelBeginsWithTheNewest();
    void examples();
    void sameExampleTwice();
    void sendingClearsTheHint();
    void typedTextHandledAsReceived();
};

void tst_VexaK40Commands::slotsHaveTheirNames()
{
    const QMetaObject& meta = tcVexaK40::staticMetaObject;
    for (const char* slot : {"CheckRxData()", "SendCommand()", "SendPreset()", "SendFile()",
                             "addText(QString)", "onTextChanged()", "showTemps(bool)",
                             "tempTimerCallback()", "requestTemp(int)", "addOmegaMonitor()"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
}

void tst_VexaK40Commands::typedCommands_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("bare") << "VERS" << QByteArray("<VERS>\n");
    QTest::newRow("opened") << "<VERS" << QByteArray("<VERS>\n");
    QTest::newRow("complete") << "<SEXP 500>" << QByteArray("<SEXP 500>\n");
    QTest::newRow("placeholders") << "%1 %s %n" << QByteArray("<%1 %s %n>\n");
    QTest::newRow("lower case stays") << "vers" << QByteArray("<vers>\n");
}

void tst_VexaK40Commands::typedCommands()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, sent);
    tcPanelRig rig;
    rig.open();
    rig.type(typed);
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.line.writes(), QList<QByteArray>{sent});
    QCOMPARE(rig.log(), QString::fromLatin1(sent.chopped(1)));
}

void tst_VexaK40Commands::returnAndSendDoTheSame_data()
{
    QTest::addColumn<bool>("byReturn");
    QTest::newRow("Return") << true;
    QTest::newRow("Send") << false;
}

void tst_VexaK40Commands::returnAndSendDoTheSame()
{
    QFETCH(bool, byReturn);
    tcPanelRig rig;
    rig.open();
    rig.commandLine()->setPlaceholderText("hint");
    for (const char* typed : {"VERS", "GEXP", "VERS"}) {
        rig.type(typed);
        if (byReturn)
            QTest::keyClick(rig.commandLine(), Qt::Key_Return);
        else
            rig.button("SendCommandPB")->click();
        QCOMPARE(rig.commandLine()->text(), QString());
        QCOMPARE(rig.commandLine()->placeholderText(), QString());
    }
    QCOMPARE(rig.line.writes(), (QList<QByteArray>{"<VERS>\n", "<GEXP>\n", "<VERS>\n"}));
    QCOMPARE(rig.history(), QStringList({"GEXP", "VERS"}));
}

void tst_VexaK40Commands::emptyCommandIsIgnored()
{
    tcPanelRig rig;
    rig.open();
    rig.commandLine()->setPlaceholderText("hint");
    QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.line.writes().size(), 0);
    QCOMPARE(rig.log(), QString());
    QCOMPARE(rig.history(), QStringList());
    QCOMPARE(rig.commandLine()->placeholderText(), QStringLiteral("hint"));
}

void tst_VexaK40Commands::startAndStop_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("START") << QByteArray("startPB") << QByteArray("<STRT>\n");
    QTest::newRow("STOP") << QByteArray("stopPB") << QByteArray("<STOP>\n");
}

void tst_VexaK40Commands::startAndStop()
{
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, sent);
    tcPanelRig rig;
    rig.open();
    rig.type("half typed");
    rig.commandLine()->setPlaceholderText("hint");
    rig.button(button.constData())->click();
    QCOMPARE(rig.line.writes(), QList<QByteArray>{sent});
    QCOMPARE(rig.log(), QString::fromLatin1(sent.chopped(1)));
    QCOMPARE(rig.history(), QStringList());
    // As designed: sent like a typed command, which leaves the line empty.
    QCOMPARE(rig.commandLine()->text(), QString());
    QCOMPARE(rig.commandLine()->placeholderText(), QString());
}

/// Whoever reads further up is not taken to the end by what he sends.
void tst_VexaK40Commands::sentCommandLeavesTheCursorOfTheLog()
{
    tcPanelRig rig;
    rig.open();
    rig.panel.addText(QStringLiteral("first\n"));
    rig.logView()->moveCursor(QTextCursor::Start);
    rig.type(QStringLiteral("VERS"));
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.log(), QStringLiteral("first\n<VERS>"));
    QCOMPARE(rig.logView()->textCursor().position(), 0);
}

void tst_VexaK40Commands::closedPortLogsAnEmptyEntry()
{
    const tcPanelRig rig;
    rig.button("startPB")->click();
    QVERIFY(QRegularExpression("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3}: $")
                .match(rig.logView()->toPlainText())
                .hasMatch());
    QCOMPARE(rig.line.calls.size(), 0);
}

// As designed: an entry without a line feed is followed by the next one in the same line.
void tst_VexaK40Commands::sentCommandsRunOnInTheLog()
{
    tcPanelRig rig;
    rig.open();
    rig.button("stopPB")->click();
    rig.button("startPB")->click();
    rig.panel.handleReply("<STRT><ACK>");
    QCOMPARE(rig.log(), QStringLiteral("<STOP><STRT><STRT><ACK>\n"));
}

void tst_VexaK40Commands::writeTimeout()
{
    tcPanelRig rig;
    rig.open();
    QTest::ignoreMessage(
        QtDebugMsg,
        QRegularExpression(
            "^\"\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\" TX: \"<GEXP>\"$"));
    QCOMPARE(rig.panel.writeCommand("<GEXP>"), QStringLiteral("<GEXP>"));
    QCOMPARE(rig.line.callsOf("clSerialWrite").first().timeoutMs, 200u);
    QCOMPARE(rig.panel.writeCommand(QString()), QString());
    QCOMPARE(rig.line.writes().size(), 1);
}

void tst_VexaK40Commands::longCommandIsCut()
{
    tcPanelRig rig;
    rig.open();
    for (const int length : {200, 100000}) {
        rig.line.calls.clear();
        const QString command = '<' + QString(length - 2, 'x') + '>';
        QCOMPARE(rig.panel.writeCommand(command), command);
        QCOMPARE(rig.line.writes(), QList<QByteArray>{command.left(126).toLatin1() + '\n'});
    }
}

void tst_VexaK40Commands::failedWrite_data()
{
    QTest::addColumn<qint32>("status");
    QTest::addColumn<qint32>("textStatus");
    QTest::addColumn<QString>("shown");
    QTest::newRow("the driver's words") << -10004 << 0 << "the driver's own words";
    QTest::newRow("no words") << -12301 << -10007 << "Unknown error code -12301";
}

void tst_VexaK40Commands::failedWrite()
{
    QFETCH(qint32, status);
    QFETCH(qint32, textStatus);
    QFETCH(QString, shown);
    tcPanelRig rig;
    rig.panel.setManufacturer("Maker & Sons");
    rig.open();
    rig.line.failing["clSerialWrite"] = status;
    rig.line.failing["clGetErrorText"] = textStatus;
    rig.type("VERS");
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.log(), shown);
    const tcFakeSerial::tcCall asked = rig.line.callsOf("clGetErrorText").first();
    QCOMPARE(asked.bytes, QByteArray("Maker & Sons"));
    QCOMPARE(static_cast<qint32>(asked.number), status);
}

void tst_VexaK40Commands::historyRules()
{
    tcPanelRig rig;
    for (const char* typed : {"A", "B", "A", "<A>", "C"}) {
        rig.type(typed);
        QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    }
    QCOMPARE(rig.history(), QStringList({"C", "<A>", "B", "A"}));
}

void tst_VexaK40Commands::historyIsCaseSensitive()
{
    tcPanelRig rig;
    rig.open();
    for (const char* typed : {"VERS", "vers"}) {
        rig.type(typed);
        QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    }
    QCOMPARE(rig.history(), QStringList({"vers", "VERS"}));
    QCOMPARE(rig.line.writes(), (QList<QByteArray>{"<VERS>\n", "<vers>\n"}));
}

/// A completed entry would send "<SEXP 500>" where "SEXP 50" was typed.
void tst_VexaK40Commands::historyKeepsWhatWasTyped()
{
    tcPanelRig rig;
    rig.open();
    QTest::keyClicks(rig.commandLine(), "SEXP 500");
    QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    QTest::keyClicks(rig.commandLine(), "SEXP 50");
    QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    QCOMPARE(rig.line.writes(), (QList<QByteArray>{"<SEXP 500>\n", "<SEXP 50>\n"}));
    QCOMPARE(rig.history(), QStringList({"SEXP 50", "SEXP 500"}));
}

void tst_VexaK40Commands::upBringsTheNewestBack()
{
    tcPanelRig rig;
    for (const char* typed : {"A", "B"}) {
        rig.type(typed);
        QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    }
    QTest::keyClick(rig.commandBox(), Qt::Key_Up);
    QCOMPARE(rig.commandLine()->text(), QStringLiteral("B"));
    QTest::keyClick(rig.commandBox(), Qt::Key_Up);
    QCOMPARE(rig.commandLine()->text(), QStringLiteral("A"));
}

void tst_VexaK40Commands::wheelBeginsWithTheNewest()
{
    tcPanelRig rig;
    for (const char* typed : {"A", "B"}) {
        rig.type(typed);
        QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    }
    for (const char* expected : {"B", "A"}) {
        QWheelEvent turn({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(rig.commandBox(), &turn);
        QCOMPARE(rig.commandLine()->text(), QString(expected));
    }
}

void tst_VexaK40Commands::examples()
{
    tcPanelRig rig;
    rig.open();
    auto* box = rig.find<QComboBox>("exampleCB");
    const QStringList entries = tcCommandHelp::entries();
    for (int row = entries.size() - 1; row >= 0; --row) {
        rig.type("half typed");
        box->setCurrentIndex(row);
        QCOMPARE(rig.commandLine()->text(), QString());
        QCOMPARE(rig.commandLine()->placeholderText(), entries.at(row));
    }
    QCOMPARE(rig.line.writes().size(), 0);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Commands::sameExampleTwice()
{
    const tcPanelRig rig;
    auto* box = rig.find<QComboBox>("exampleCB");
    Q_EMIT box->activated(box->currentIndex()); // as a click on the entry that is shown does
    QCOMPARE(rig.commandLine()->placeholderText(), tcCommandHelp::entries().first());
}

void tst_VexaK40Commands::sendingClearsTheHint()
{
    tcPanelRig rig;
    rig.find<QComboBox>("exampleCB")->setCurrentIndex(9);
    QCOMPARE(rig.commandLine()->placeholderText(),
             QStringLiteral("<SEXP us>\tSet the exposure time to us"));
    rig.type("SEXP 500");
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.commandLine()->placeholderText(), QString());
}

void tst_VexaK40Commands::typedTextHandledAsReceived()
{
    tcPanelRig rig;
    rig.type("<GEXP><ACK><500>");
    rig.button("fakeRXPB")->click();
    QCOMPARE(rig.lastReply(), QStringLiteral("<GEXP><ACK><500>"));
    QCOMPARE(rig.log(), QStringLiteral("<GEXP><ACK><500>\n"));
    QCOMPARE(rig.commandLine()->text(), QStringLiteral("<GEXP><ACK><500>"));
    rig.type({});
    rig.button("fakeRXPB")->click();
    QCOMPARE(rig.lastReply(), QStringLiteral("<GEXP><ACK><500>"));
}

QTEST_MAIN(tst_VexaK40Commands)
#include "tst_vexak40commands.moc"

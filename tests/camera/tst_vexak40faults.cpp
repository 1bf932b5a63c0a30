#include "app/logic/tcHexDump.h"
#include "tests/camera/tcPanelRig.h"

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTimer>

class tst_VexaK40Faults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { tcFakeSerial::instance().reset(); }
    void cleanup() { QCOMPARE(tcFakeSerial::instance().misuse, QStringList()); }

    void megabyteWithoutLineEnd();
    void bytesOfAllValues();
    void thousandsOfRepliesInOneRead();
    void replySplitAnywhere();
    void fourGigabytesAnnounced_data();
    void fourGigabytesAnnounced();
    void hugeCommands();
    void foreignText();
    void unplugged();
    void everyCallTimesOut();
    void closedInTheMiddleOfARun();
    void destroyedInTheMiddleOfARun();
    void floodLeavesTimeForTheWindow();
    void lengthLimitZero();
};

void tst_VexaK40Faults::initTestCase()
{
    // A line of the log for each of many thousand replies would only cost time.
    QLoggingCategory::setFilterRules("default.debug=false");
}

void tst_VexaK40Faults::megabyteWithoutLineEnd()
{
    tcPanelRig rig;
    rig.open();
    for (int i = 0; i < 40; ++i) {
        rig.line.receive("<A><ACK>" + QByteArray(100 * 1024, 'x'));
        rig.line.receive("<AB" + QByteArray(1024, '<'));
        rig.panel.CheckRxData();
    }
    while (rig.line.waiting() > 0)
        rig.panel.CheckRxData();
    rig.line.receive("\r\n<B><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.lastReply(), QStringLiteral("<B><ACK>"));
}

void tst_VexaK40Faults::bytesOfAllValues()
{
    tcPanelRig rig;
    rig.open();
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    rig.line.receive(all + "\r\n<A><ACK><" + all.left(10) + ">\r\n<B><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.lastReply(), QStringLiteral("<B><ACK>"));
    QTRY_VERIFY(rig.hex().startsWith(tcHexDump::text(all)));
}

void tst_VexaK40Faults::thousandsOfRepliesInOneRead()
{
    tcPanelRig rig;
    rig.open();
    constexpr int cReplies = 5000;
    QByteArray stream;
    for (int i = 1; i <= cReplies; ++i)
        stream += "<SEXP " + QByteArray::number(i) + "><ACK>\r\n";
    // Nothing is taken from the log, so that each can be found: its limit is far off.
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    settings.setValue(rig.panel.name() + "/mMaxDescriptionLength", 1000000);
    rig.panel.loadSettings(&settings);
    rig.line.receive(stream);
    const QString last = QStringLiteral("<SEXP %1><ACK>").arg(cReplies);
    QTRY_COMPARE_WITH_TIMEOUT(rig.lastReply(), last, 60000);
    QCOMPARE(rig.line.callsOf("clSerialRead").size(), 1);
    QCOMPARE(rig.log(), QString::fromLatin1(stream).remove('\r'));
}

void tst_VexaK40Faults::replySplitAnywhere()
{
    const QByteArray stream = "<GEXP><ACK><500>\r\n";
    tcPanelRig rig;
    rig.open();
    for (int at = 0; at <= stream.size(); ++at) {
        rig.button("clearPB")->click();
        rig.line.receive(stream.left(at));
        rig.line.receive(stream.mid(at));
        while (rig.line.waiting() > 0)
            rig.panel.CheckRxData();
        QCOMPARE(rig.log(), QStringLiteral("<GEXP><ACK><500>\n"));
    }
}

void tst_VexaK40Faults::fourGigabytesAnnounced_data()
{
    QTest::addColumn<bool>("strict");
    QTest::newRow("strict") << true;
    QTest::newRow("partial") << false;
}

void tst_VexaK40Faults::fourGigabytesAnnounced()
{
    QFETCH(bool, strict);
    tcPanelRig rig;
    rig.open();
    rig.line.timeout
        = strict ? tcFakeSerial::teTimeout::Strict : tcFakeSerial::teTimeout::Partial;
    rig.line.partialStatus = 0;
    rig.line.availableCount = 0xFFFFFFFF;
    rig.line.receive("<A><ACK>\r\n");
    for (int i = 0; i < 5; ++i)
        rig.panel.CheckRxData();
    for (const tcFakeSerial::tcCall& call : rig.line.callsOf("clSerialRead"))
        QVERIFY(call.number <= 1024 * 1024);
    QCOMPARE(rig.log(), strict ? QString() : QStringLiteral("<A><ACK>\n"));
    rig.line.availableCount.reset();
    rig.line.receive("<B><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.lastReply(), QStringLiteral("<B><ACK>"));
}

void tst_VexaK40Faults::hugeCommands()
{
    tcPanelRig rig;
    rig.open();
    // What the line edit itself does not hold, the history does not either.
    rig.commandLine()->setMaxLength(200000);
    for (const int length : {200, 100000}) {
        rig.type(QString(length, 'x'));
        QTest::keyClick(rig.commandLine(), Qt::Key_Return);
        QCOMPARE(rig.line.writes().last(), '<' + QByteArray(125, 'x') + '\n');
    }
    QCOMPARE(rig.history().size(), 2);
}

void tst_VexaK40Faults::foreignText()
{
    tcPanelRig rig;
    rig.open();
    const QString typed = QString::fromUtf8("\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7 %1 %s");
    rig.type(typed);
    QTest::keyClick(rig.commandLine(), Qt::Key_Return);
    const QByteArray sent = '<' + typed.toLocal8Bit() + '>';
    QCOMPARE(rig.line.writes(), QList<QByteArray>{sent + '\n'});
    rig.button("clearPB")->click();
    const QByteArray reply = sent + "<ACK><" + typed.toLocal8Bit() + ">\r\n";
    for (const char byte : reply) // each character is cut in all its places
        rig.line.receive(QByteArray(1, byte));
    while (rig.line.waiting() > 0)
        rig.panel.CheckRxData();
    QCOMPARE(rig.log(), '<' + typed + "><ACK><" + typed + ">\n");
}

void tst_VexaK40Faults::unplugged()
{
    tcPanelRig rig;
    rig.open();
    for (const char* call : {"clGetNumBytesAvail", "clSerialRead", "clSerialWrite"})
        rig.line.failing[call] = -10006;
    rig.panel.CheckRxData();
    rig.type("VERS");
    rig.button("SendCommandPB")->click();
    QCOMPARE(rig.log(), QStringLiteral("the driver's own words"));
    rig.close();
    QCOMPARE(rig.line.openRefs(), 0);
}

void tst_VexaK40Faults::everyCallTimesOut()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<A><ACK>\r\n");
    rig.line.failing["clSerialRead"] = -10004;
    for (int i = 0; i < 20; ++i)
        rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QString());
    rig.line.failing.clear();
    rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QStringLiteral("<A><ACK>\n"));
}

void tst_VexaK40Faults::closedInTheMiddleOfARun()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<A><AC");
    QTimer::singleShot(0, &rig.panel, [&] { rig.close(); });
    rig.panel.CheckRxData(); // misuse would be noticed
    QCOMPARE(rig.log(), QString());
    QCOMPARE(rig.line.openRefs(), 0);
}

void tst_VexaK40Faults::destroyedInTheMiddleOfARun()
{
    auto* rig = new tcPanelRig;
    rig->open();
    rig->line.receive("<A><ACK>"); // waits for the rest
    tcVexaK40* panel = &rig->panel;
    QTimer::singleShot(0, this, [&] { delete rig; });
    panel->CheckRxData();
    QCOMPARE(tcFakeSerial::instance().openRefs(), 0);
}

/// However much is waiting, other timers get their turn while it is worked off.
void tst_VexaK40Faults::floodLeavesTimeForTheWindow()
{
    tcPanelRig rig;
    rig.setSlice(tcReceiver::cSliceMs);
    rig.open();
    QByteArray stream;
    for (int i = 0; i < 8000; ++i)
        stream += "<SEXP 500><ACK>\r\n";
    stream += "<END><ACK>\r\n";
    int turns = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, this, [&] { ++turns; });
    other.start(0);
    rig.line.receive(stream);
    QElapsedTimer timer;
    timer.start();
    QTRY_COMPARE_WITH_TIMEOUT(rig.lastReply(), QStringLiteral("<END><ACK>"), 60000);
    const qint64 slices = timer.elapsed() / 20;
    QVERIFY2(turns >= slices / 4, qPrintable(QString::number(turns)));
}

void tst_VexaK40Faults::lengthLimitZero()
{
    tcPanelRig rig;
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    settings.setValue(rig.panel.name() + "/mMaxDescriptionLength", 0);
    rig.panel.loadSettings(&settings);
    rig.open();
    rig.line.receive("<A><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.lastReply(), QStringLiteral("<A><ACK>"));
    QTRY_COMPARE(rig.hex(), QString());
}

QTEST_MAIN(tst_VexaK40Faults)
#include "tst_vexak40faults.moc"

#include "app/logic/tcHexDump.h"
#include "tests/camera/tcPanelRig.h"

#include <QElapsedTimer>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextCursor>
#include <QTimer>

class tst_VexaK40Receiving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { tcFakeSerial::instance().reset(); }
    void cleanup() { QCOMPARE(tcFakeSerial::instance().misuse, QStringList()); }

    void openingSetsTheRateAndTellsSo();
    void refusedRateLeavesTheReceiverStopped();
    void receiverRunsByItself();
    void closedPanelIsQuiet();
    void reopeningForgetsTheUnfinishedLine();

    void entriesAreStamped();
    void operatorsCursorStays();
    void newestEntryIsInView();
    void lengthRule();
    void repliesOfATickChangeTheLogOnce();
    void clearedInTheMiddleOfARun();
    void onTextChangedAppliesTheRule();

    void routing_data();
    void routing();
    void repliesLeaveTheCursorOfTheLog();
    void emptyLineChangesNothing();
    void everyLineIsTraced();
    void awaitedReplyIsNotLogged();
    void awaitedPrefixIsCaseSensitive();
    void readingsGoToTheirCurve();
    void readingsAreLoggedWhileNothingIsPlotted();
    void coolerState();

    void hexViewShowsTheNewestBytes();
    void hexViewShowsWhatIsNoReply();
    void hexViewIsUpToDateWhenItsTabIsChosen();
    void hexViewKeepsItsPlace();
    void hexViewInSightFollowsAtReadingPace();
    void clearEmptiesEverything();
    void clearLeavesTheUnfinishedLine();

    void timersHaveTheirIntervals();
    void keepAliveAsksEverySecond();
    void keepAliveIsNotLogged();
    void keepAliveWithoutPort();
    void withoutKeepAliveNoTimeout();
    void lampIsNeverSwitched();
};

void tst_VexaK40Receiving::openingSetsTheRateAndTellsSo()
{
    tcPanelRig rig;
    rig.ref = tcSerialLink::open(0).ref;
    rig.panel.openPort(rig.ref);
    QCOMPARE(rig.line.callsOf("clSetBaudRate").size(), 1);
    QCOMPARE(rig.line.callsOf("clSetBaudRate").first().number, 16u);
    QCOMPARE(rig.log(), QStringLiteral("Port opened [%1] BR set to 16\n").arg(rig.ref));
}

// As designed: the operator sees the placeholder, not the code.
void tst_VexaK40Receiving::refusedRateLeavesTheReceiverStopped()
{
    tcPanelRig rig;
    rig.line.failing["clSetBaudRate"] = -10008;
    rig.panel.addText(QStringLiteral("first\n"));
    rig.logView()->moveCursor(QTextCursor::Start);
    rig.ref = tcSerialLink::open(0).ref;
    rig.panel.openPort(rig.ref);
    QCOMPARE(rig.log(), QStringLiteral("first\nError %d setting baudrate on COM port!\n"));
    QCOMPARE(rig.logView()->textCursor().position(), 0); // not taken to the end
    QTest::qWait(60); // three ticks, had the timer been started
    QCOMPARE(rig.line.callsOf("clGetNumBytesAvail").size(), 0);
    QCOMPARE(rig.panel.writeCommand("<VERS>"), QStringLiteral("<VERS>")); // the port is its own
    QCOMPARE(rig.line.writes(), QList<QByteArray>{"<VERS>\n"});
}

void tst_VexaK40Receiving::receiverRunsByItself()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<GEXP><ACK><500>\r\n");
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<GEXP><ACK><500>"));
    QCOMPARE(rig.log(), QStringLiteral("<GEXP><ACK><500>\n"));
}

void tst_VexaK40Receiving::closedPanelIsQuiet()
{
    tcPanelRig rig;
    rig.open();
    rig.close();
    rig.line.calls.clear();
    rig.panel.CheckRxData();
    QTest::qWait(60);
    QCOMPARE(rig.line.calls.size(), 0);
    rig.panel.closePort(); // once more
    QCOMPARE(rig.panel.writeCommand("<VERS>"), QString());
}

void tst_VexaK40Receiving::reopeningForgetsTheUnfinishedLine()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<A><AC");
    rig.panel.CheckRxData();
    rig.close();
    rig.open();
    rig.line.receive("K>\r\n<B><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QStringLiteral("<B><ACK>\n"));
}

void tst_VexaK40Receiving::entriesAreStamped()
{
    tcPanelRig rig;
    const QTime before = QTime::currentTime();
    rig.panel.addText("%1 text %s");
    const QString entry = rig.logView()->toPlainText();
    QCOMPARE(entry.mid(12), QStringLiteral(": %1 text %s"));
    const QTime stamp = QTime::fromString(entry.left(12), "HH:mm:ss.zzz");
    QVERIFY(stamp.isValid());
    QVERIFY(before.msecsTo(stamp) >= 0 || before > QTime(23, 59, 50));
}

void tst_VexaK40Receiving::operatorsCursorStays()
{
    tcPanelRig rig;
    rig.panel.addText("one\n");
    QTextCursor cursor = rig.logView()->textCursor();
    cursor.setPosition(3);
    rig.logView()->setTextCursor(cursor);
    rig.panel.addText("two\n");
    QCOMPARE(rig.logView()->textCursor().position(), 3);
    QVERIFY(rig.log().endsWith("two\n"));
}

void tst_VexaK40Receiving::newestEntryIsInView()
{
    tcPanelRig rig;
    rig.panel.resize(700, 360);
    rig.panel.show();
    rig.open();
    const auto newestIsInView = [&rig] {
        const QPlainTextEdit* view = rig.logView();
        return view->textCursor().atEnd()
            && view->viewport()->rect().intersects(view->cursorRect());
    };
    for (int entry = 0; entry < 100; ++entry)
        rig.panel.addText("line\n");
    QVERIFY(newestIsInView());
    for (int reply = 0; reply < 20; ++reply)
        rig.line.receive("<A><ACK>\r\n<B><ACK>\r\n");
    while (rig.line.waiting() > 0)
        rig.panel.CheckRxData();
    QVERIFY(rig.log().endsWith("<A><ACK>\n<B><ACK>\n"));
    QVERIFY(newestIsInView());
}

/// Layout costs most, so there is one for all.
void tst_VexaK40Receiving::repliesOfATickChangeTheLogOnce()
{
    tcPanelRig rig;
    rig.open();
    int changes = 0;
    connect(rig.logView(), &QPlainTextEdit::textChanged, this, [&] { ++changes; });
    rig.line.receive("<A><ACK>\r\n<B><ACK>\r\n");
    rig.line.receive("<C><NACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QStringLiteral("<A><ACK>\n<B><ACK>\n<C><NACK>\n"));
    QCOMPARE(changes, 1);
    rig.panel.handleReply("<D><ACK>"); // outside of a tick nothing is put off
    QVERIFY(rig.log().endsWith("<D><ACK>\n"));
}

void tst_VexaK40Receiving::clearedInTheMiddleOfARun()
{
    tcPanelRig rig;
    rig.open();
    rig.panel.addText("old\n");
    rig.line.receive("<A><ACK>\r\n");
    QTimer::singleShot(0, &rig.panel, [&] {
        rig.find<QPushButton>("clearPB")->click();
        rig.line.receive("<B><ACK>\r\n");
    });
    rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QStringLiteral("<B><ACK>\n"));
}

void tst_VexaK40Receiving::lengthRule()
{
    tcPanelRig rig;
    // 14 characters of stamp, 65 more than the limit of 5000 in all: every A goes.
    rig.panel.addText("AA" + QString(5065 - 14 - 2, 'x'));
    QCOMPARE(rig.log(), QString(5065 - 14 - 2, 'x'));
    // As designed: the oldest text is not cut.
    rig.panel.addText(QString(5000, 'y'));
    QVERIFY(rig.logView()->toPlainText().size() > 10000);
}

void tst_VexaK40Receiving::onTextChangedAppliesTheRule()
{
    tcPanelRig rig;
    rig.logView()->setPlainText("A" + QString(5064, 'x'));
    QCOMPARE(rig.logView()->toPlainText().size(), 5065); // not by the view's own signal
    rig.panel.onTextChanged();
    QCOMPARE(rig.logView()->toPlainText(), QString(5064, 'x'));
    QCOMPARE(rig.logView()->textCursor().position(), 5064);
}

void tst_VexaK40Receiving::routing_data()
{
    QTest::addColumn<bool>("plotting");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("logged");
    const auto logged = [](const char* acReply) { return QString(acReply) + '\n'; };
    QTest::newRow("any other") << false << "<GEXP><ACK><500>" << logged("<GEXP><ACK><500>");
    QTest::newRow("refused") << false << "<SEXP 0><NACK>" << logged("<SEXP 0><NACK>");
    QTest::newRow("line feeds") << false << "\n<A><ACK>\n\n<1>\n" << logged("<A><ACK>\n<1>");
    QTest::newRow("reading, plotting") << true << "<SENS 3><ACK><21.75>" << QString();
    QTest::newRow("reading, not plotting")
        << false << "<SENS 3><ACK><21.75>" << logged("<SENS 3><ACK><21.75>");
    QTest::newRow("two digits, as designed")
        << true << "<SENS 12><ACK><1.20>" << logged("<SENS 12><ACK><1.20>");
    QTest::newRow("no decimal point")
        << true << "<SENS 3><ACK><21>" << logged("<SENS 3><ACK><21>");
    QTest::newRow("cooler on") << false << "<GTEC><ACK><ON><24.0>"
                               << "Setpoint: <GTEC><ACK><ON><24.0>";
    QTest::newRow("cooler in lower case")
        << false << "<GTEC><ACK><off><22.5>" << logged("<GTEC><ACK><off><22.5>");
    QTest::newRow("temperatures nobody waits for")
        << false << "<TEMP 0><ACK><1>" << logged("<TEMP 0><ACK><1>");
    QTest::newRow("placeholders") << false << "<%1><ACK><%s %2>" << logged("<%1><ACK><%s %2>");
}

void tst_VexaK40Receiving::routing()
{
    QFETCH(bool, plotting);
    QFETCH(QString, reply);
    tcPanelRig rig;
    rig.button("tempsPB")->setChecked(plotting);
    rig.panel.handleReply(reply);
    QTEST(rig.log(), "logged");
    QCOMPARE(rig.lastReply(), reply.split('\n', Qt::SkipEmptyParts).join('\n'));
}

/// Whoever reads further up stays there.
void tst_VexaK40Receiving::repliesLeaveTheCursorOfTheLog()
{
    const QStringList replies{"<A><ACK>", "<A><NACK>", "<GTEC><ACK><ON><24.0>"};
    tcPanelRig rig;
    rig.panel.addText(QStringLiteral("first\n"));
    rig.logView()->moveCursor(QTextCursor::Start);
    for (const QString& reply : replies) {
        rig.panel.handleReply(reply);
        QVERIFY(rig.log().contains(reply));
        QCOMPARE(rig.logView()->textCursor().position(), 0);
    }
}

void tst_VexaK40Receiving::emptyLineChangesNothing()
{
    tcPanelRig rig;
    rig.panel.handleReply("<A><ACK>");
    rig.panel.handleReply(QString());
    QCOMPARE(rig.lastReply(), QStringLiteral("<A><ACK>"));
    QCOMPARE(rig.log(), QStringLiteral("<A><ACK>\n"));
}

void tst_VexaK40Receiving::everyLineIsTraced()
{
    tcPanelRig rig;
    const QString stamp("^\"\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\" ");
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(stamp + "LINE:  \"<A><ACK>\"$"));
    rig.panel.handleReply("<A><ACK>");
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(stamp + "LINE:  \"\"$"));
    rig.panel.handleReply(QString());
}

void tst_VexaK40Receiving::awaitedReplyIsNotLogged()
{
    tcPanelRig rig;
    rig.open();
    rig.button("keepAlivePB")->setChecked(true);
    QTRY_COMPARE(rig.line.writes().size(), 1);
    rig.button("keepAlivePB")->setChecked(false);
    const QString others("<A><ACK>\n<TEMP 1><ACK><20.0>\n<A><ACK><TEMP 0>\n");
    rig.panel.handleReply("<A><ACK>");
    rig.panel.handleReply("<TEMP 1><ACK><20.0>");
    rig.panel.handleReply("<A><ACK><TEMP 0>"); // awaited at the start, not anywhere
    QCOMPARE(rig.log(), others);
    rig.panel.handleReply("\n<TEMP 0><ACK><21.0><22.0>\n"); // without its empty lines
    QCOMPARE(rig.log(), others);
    QCOMPARE(rig.lastReply(), QStringLiteral("<TEMP 0><ACK><21.0><22.0>"));
    rig.panel.handleReply("<TEMP 0><ACK><3>"); // nobody waits for a second one
    QCOMPARE(rig.log(), others + "<TEMP 0><ACK><3>\n");
}

void tst_VexaK40Receiving::awaitedPrefixIsCaseSensitive()
{
    tcPanelRig rig;
    rig.open();
    rig.button("keepAlivePB")->setChecked(true);
    QTRY_COMPARE(rig.line.writes().size(), 1);
    rig.panel.handleReply("<temp 0><ACK>");
    QCOMPARE(rig.log(), QStringLiteral("<temp 0><ACK>\n"));
}

void tst_VexaK40Receiving::readingsGoToTheirCurve()
{
    tcPanelRig rig;
    QSignalSpy readings(&rig.panel, &tcVexaK40::sensorReading);
    rig.button("tempsPB")->setChecked(true);
    rig.panel.handleReply("<SENS 3><ACK><21.75>");
    QCOMPARE(readings.size(), 1);
    QCOMPARE(readings.first().at(0).toInt(), 3);
    QCOMPARE(readings.first().at(1).toDouble(), 21.75);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Receiving::readingsAreLoggedWhileNothingIsPlotted()
{
    tcPanelRig rig;
    QSignalSpy readings(&rig.panel, &tcVexaK40::sensorReading);
    rig.panel.handleReply("<SENS 3><ACK><21.75>");
    QCOMPARE(readings.size(), 0);
    QCOMPARE(rig.log(), QStringLiteral("<SENS 3><ACK><21.75>\n"));
}

void tst_VexaK40Receiving::coolerState()
{
    tcPanelRig rig;
    QSignalSpy states(&rig.panel, &tcVexaK40::coolerState);
    rig.panel.handleReply("<GTEC><ACK><OFF><22.5>");
    rig.panel.handleReply("<GTEC><ACK><ON><cold>");
    QCOMPARE(states.size(), 2);
    QCOMPARE(states.at(0), QVariantList({false, 22.5}));
    QCOMPARE(states.at(1), QVariantList({true, 0.0}));
    // As designed: entries without a line feed run on.
    QCOMPARE(rig.log(),
             QStringLiteral("Setpoint: <GTEC><ACK><OFF><22.5>"
                            "Setpoint: <GTEC><ACK><ON><cold>"));
}

void tst_VexaK40Receiving::hexViewShowsTheNewestBytes()
{
    tcPanelRig rig;
    rig.open();
    QByteArray stream;
    for (int i = 0; stream.size() < 6000; ++i)
        stream += "<A " + QByteArray::number(i) + "><ACK>\r\n";
    rig.line.receive(stream.left(300));
    rig.panel.CheckRxData();
    QTRY_COMPARE(rig.hex(), tcHexDump::text(stream.left(300)));
    rig.line.receive(stream.mid(300));
    while (rig.line.waiting() > 0)
        rig.panel.CheckRxData();
    QTRY_COMPARE(rig.hex(), tcHexDump::text(stream.right(5000)));
}

void tst_VexaK40Receiving::hexViewShowsWhatIsNoReply()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive(QByteArray("\0\1\x80\xff no reply", 13));
    rig.panel.CheckRxData();
    QTRY_COMPARE(rig.hex(), tcHexDump::text(QByteArray("\0\1\x80\xff no reply", 13)));
    QCOMPARE(rig.log(), QString());
    QCOMPARE(rig.lastReply(), QString());
}

/// Twenty times a second while bytes come, and to the last of them.
void tst_VexaK40Receiving::hexViewInSightFollowsAtReadingPace()
{
    tcPanelRig rig;
    rig.open();
    rig.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    rig.panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&rig.panel));
    rig.line.receive("first");
    rig.panel.CheckRxData();
    QTRY_COMPARE(rig.hex(), tcHexDump::text(QByteArray("first")));

    QByteArray stream("first");
    int changes = 0;
    connect(rig.find<QPlainTextEdit>("RespHexPTE"), &QPlainTextEdit::textChanged, this,
            [&] { ++changes; });
    QElapsedTimer clock;
    clock.start();
    for (int tick = 0; tick < 60; ++tick) {
        const QByteArray reply = "<A " + QByteArray::number(tick) + "><ACK>\r\n";
        stream += reply;
        rig.line.receive(reply);
        rig.panel.CheckRxData();
        QCoreApplication::processEvents();
    }
    // Every 50 ms, and such a timer may be a twentieth early.
    const qint64 most = clock.elapsed() / 47 + 1;
    QVERIFY2(changes <= most, qPrintable(QString("%1 > %2").arg(changes).arg(most)));
    QTRY_COMPARE(rig.hex(), tcHexDump::text(stream));
}

/// Out of sight it may lag, but nobody ever sees that.
void tst_VexaK40Receiving::hexViewIsUpToDateWhenItsTabIsChosen()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("latest");
    rig.panel.CheckRxData();
    rig.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    QCOMPARE(rig.hex(), tcHexDump::text(QByteArray("latest")));
}

void tst_VexaK40Receiving::hexViewKeepsItsPlace()
{
    tcPanelRig rig;
    rig.find<QTabWidget>("tabWidget")->setCurrentIndex(1);
    rig.panel.resize(700, 360);
    rig.panel.show();
    rig.open();
    rig.line.receive(QByteArray(4000, 'x'));
    QTRY_VERIFY(rig.hex().size() > 4000);
    auto* bar = rig.find<QPlainTextEdit>("RespHexPTE")->verticalScrollBar();
    bar->setValue(20);
    rig.line.receive(QByteArray(100, 'y'));
    QTRY_VERIFY(rig.hex().contains('y'));
    QCOMPARE(bar->value(), 20);
}

void tst_VexaK40Receiving::clearEmptiesEverything()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<A><ACK>\r\n");
    QTRY_VERIFY(!rig.hex().isEmpty());
    rig.button("clearPB")->click();
    QCOMPARE(rig.log(), QString());
    QCOMPARE(rig.hex(), QString());
    QCOMPARE(rig.lastReply(), QStringLiteral("<A><ACK>")); // not cleared
    rig.line.receive("<B><ACK>\r\n");
    QTRY_COMPARE(rig.hex(), tcHexDump::text(QByteArray("<B><ACK>\r\n")));
}

/// Only what is shown goes: the reply that is just coming in comes whole.
void tst_VexaK40Receiving::clearLeavesTheUnfinishedLine()
{
    tcPanelRig rig;
    rig.open();
    rig.line.receive("<A><AC");
    rig.panel.CheckRxData();
    rig.button("clearPB")->click();
    rig.line.receive("K>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(rig.log(), QStringLiteral("<A><ACK>\n"));
}

/// Seen where they fire, so that a slow machine makes no difference.
void tst_VexaK40Receiving::timersHaveTheirIntervals()
{
    class tcWatch : public QObject
    {
    public:
        bool eventFilter(QObject* apTimer, QEvent* apEvent) override
        {
            const auto* timer = qobject_cast<QTimer*>(apTimer);
            if (timer && apEvent->type() == QEvent::Timer && !timer->isSingleShot())
                intervals.insert(timer->interval());
            return false;
        }
        QSet<int> intervals;
    };
    tcWatch watch;
    tcPanelRig rig;
    rig.open();
    qApp->installEventFilter(&watch);
    QTRY_COMPARE(watch.intervals, QSet<int>({20}));
    rig.button("keepAlivePB")->setChecked(true);
    QTRY_COMPARE(watch.intervals, QSet<int>({20, 1000}));
    rig.close();
    watch.intervals.clear();
    QTRY_COMPARE(watch.intervals, QSet<int>({1000})); // it goes on, for the next port
}

void tst_VexaK40Receiving::keepAliveAsksEverySecond()
{
    tcPanelRig rig;
    rig.open();
    rig.button("keepAlivePB")->setChecked(true);
    QTRY_COMPARE(rig.line.writes(), QList<QByteArray>{"<TEMP 0>\n"});
    rig.button("keepAlivePB")->setChecked(false);
    rig.line.calls.clear();
    QTest::qWait(1200); // longer than the interval
    QCOMPARE(rig.line.writes().size(), 0);
}

void tst_VexaK40Receiving::keepAliveIsNotLogged()
{
    tcPanelRig rig;
    rig.line.answer = [](const QByteArray&) { return QByteArray("<TEMP 0><ACK><21.5>\r\n"); };
    rig.open();
    rig.button("keepAlivePB")->setChecked(true);
    QTRY_COMPARE(rig.lastReply(), QStringLiteral("<TEMP 0><ACK><21.5>"));
    QCOMPARE(rig.log(), QString());
    // Nor is a failure: a camera that was pulled would fill the log with one a second.
    rig.line.failing["clSerialWrite"] = -10006;
    rig.line.calls.clear();
    QTRY_COMPARE(rig.line.writes().size(), 1);
    QCOMPARE(rig.log(), QString());
}

void tst_VexaK40Receiving::keepAliveWithoutPort()
{
    tcPanelRig rig;
    rig.button("keepAlivePB")->setChecked(true);
    QTest::qWait(1200);
    QCOMPARE(rig.line.calls.size(), 0);
    rig.panel.handleReply("<TEMP 0><ACK>"); // nothing was asked, so nothing is awaited
    QCOMPARE(rig.log(), QStringLiteral("<TEMP 0><ACK>\n"));
}

void tst_VexaK40Receiving::withoutKeepAliveNoTimeout()
{
    tcPanelRig rig;
    QSignalSpy closing(&rig.panel, &tcVexaK40::requestClosePort);
    rig.open();
    rig.line.receive("<A><ACK>\r\n");
    rig.panel.CheckRxData();
    QTest::qWait(6500);
    QCOMPARE(closing.size(), 0);
    // The same silence counts as soon as somebody cares for it.
    QString loggedBefore;
    QObject::connect(&rig.panel, &tcVexaK40::requestClosePort, this, [&] {
        loggedBefore = rig.log();
        rig.close();
    });
    rig.logView()->moveCursor(QTextCursor::Start);
    rig.button("keepAlivePB")->setChecked(true);
    rig.panel.CheckRxData();
    QCOMPARE(closing.size(), 1);
    QCOMPARE(rig.log(),
             QStringLiteral("<A><ACK>\nTimeout .. no data from camera in > 5 seconds... "
                            "closing connection"));
    QCOMPARE(loggedBefore, QStringLiteral("<A><ACK>\n")); // asked first, told then
    QVERIFY(rig.logView()->textCursor().atEnd());
    rig.panel.CheckRxData();
    QCOMPARE(closing.size(), 1);
    // Reopened with Keep Alive still checked, the port begins anew.
    rig.open();
    rig.panel.CheckRxData();
    QCOMPARE(closing.size(), 1);
}

void tst_VexaK40Receiving::lampIsNeverSwitched()
{
    tcPanelRig rig;
    rig.open();
    auto* lamp = rig.find<QWidget>("rxLed");
    const QImage before = lamp->grab().toImage();
    rig.line.receive("<A><ACK>\r\n");
    rig.panel.CheckRxData();
    QCOMPARE(lamp->grab().toImage(), before);
}

QTEST_MAIN(tst_VexaK40Receiving)
#include "tst_vexak40receiving.moc"

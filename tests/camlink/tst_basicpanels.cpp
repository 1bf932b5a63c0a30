#include "tests/camlink/tcPanelUnderTest.h"
#include "tests/support/tcFakeSerial.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

/// One text for both panels: every test runs against each.
class tst_BasicPanels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { tcPanelUnderTest::addColumn(); }
    void init();
    void cleanup();

    void openSetsTheBaudRateAndPolls();
    void baudRefusedIsToldAndNothingPolls();
    void closeStopsPolling();
    void closedSendsNothing();
    void returnAndButtonSendTheSame();
    void emptyCommandIsALineFeed();
    void longCommandKeepsItsLineFeed();
    void commandStaysInItsLine();
    void eachPresetGoesInOneWrite();
    void fileDialogWording();
    void fileIsSentUpToItsNul();
    void fileOfWindowsLineEndsIsReadAsText();
    void fileThatCannotBeOpened();
    void portClosedBehindTheFileDialog();

    void replyIsShown();
    void controlCharactersNeverShow();
    void longReplyComesInBlocksOf128();
    void strictDriverKeepsTheTailQueued();
    void replySplitAtEveryPosition();
    void repliesGoWhereTheCursorIs();
    void newestReplyIsInSight();
    void whoScrolledBackIsLeftThere();
    void messagesGoWhereTheCursorIs();
    void failingCountReadsNothing();
    void nothingWaitingReadsNothing();
    void failingReadEndsTheDrain();
    void twoEmptyReadsEndTheDrain();
    void floodLeavesAfterItsSlice();
    void drainEndsAfterFiftyMilliseconds();
    void unpluggedWhileOpen();
    void nothingOfTheLastPortIsLeft();
    void writeFailuresAreSilent();
    void neverAsksToClose();

private:
    template <class T>
    T* child(const char* acName) const;
    void open();
    void tick();
    int readsOfOneDrain(const QByteArray& acWaiting);
    bool oneDrainReads(int anTimes, const QByteArray& acWaiting);
    QTimer& pollTimer() const;
    QString shown() const;
    QScrollBar* filledView();
    const tcPanelUnderTest& kind() const;

    tcFakeSerial& mFake = tcFakeSerial::instance();
    std::unique_ptr<tcCamlinkIface> mPanel;
    tcSerialLink::tcRef mRef = 0;
};

const tcPanelUnderTest& tst_BasicPanels::kind() const
{
    QFETCH_GLOBAL(int, kind);
    return tcPanelUnderTest::of(kind);
}

void tst_BasicPanels::init()
{
    mFake.reset();
    mPanel.reset(kind().make());
    mRef = 0;
}

void tst_BasicPanels::cleanup()
{
    mPanel->closePort();
    tcSerialLink::close(mRef);
    QCOMPARE(mFake.misuse, QStringList());
    mPanel.reset();
}

template <class T>
T* tst_BasicPanels::child(const char* acName) const
{
    T* found = mPanel->findChild<T*>(QString::fromLatin1(acName));
    Q_ASSERT(found);
    return found;
}

void tst_BasicPanels::open()
{
    mRef = tcSerialLink::open(0).ref;
    mPanel->openPort(mRef);
}

void tst_BasicPanels::tick()
{
    QVERIFY(QMetaObject::invokeMethod(mPanel.get(), "CheckRxData", Qt::DirectConnection));
}

QString tst_BasicPanels::shown() const
{
    return child<QPlainTextEdit>("PortRespPTE")->toPlainText();
}

QTimer& tst_BasicPanels::pollTimer() const
{
    const auto timers = mPanel->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    if (timers.size() != 1)
        qFatal("%d timers", timers.size());
    return *timers.first();
}

void tst_BasicPanels::openSetsTheBaudRateAndPolls()
{
    open();
    QCOMPARE(mFake.callsOf("clSetBaudRate").size(), 1);
    QCOMPARE(mFake.callsOf("clSetBaudRate").at(0).number, 16u);
    mFake.receive("<VERS>");
    QTRY_COMPARE(shown(), QString("<VERS>"));
    QCOMPARE(pollTimer().interval(), 100);
    QVERIFY(!pollTimer().isSingleShot());
    QVERIFY(pollTimer().isActive());
}

void tst_BasicPanels::baudRefusedIsToldAndNothingPolls()
{
    mFake.failing["clSetBaudRate"] = -10008;
    open();
    QCOMPARE(shown(), QString("Unable to set baud rate!"));
    QVERIFY(!pollTimer().isActive());
    QVERIFY(mFake.callsOf("clGetNumBytesAvail").isEmpty());
    // The panel keeps the port all the same.
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(mFake.callsOf("clSerialWrite").size(), 1);
    QCOMPARE(mFake.callsOf("clSerialWrite").at(0).ref, mRef);
}

void tst_BasicPanels::closeStopsPolling()
{
    open();
    mPanel->closePort();
    QVERIFY(!pollTimer().isActive());
    mFake.calls.clear();
    tick(); // one that was due already
    child<QPushButton>("SendPresetPB")->click();
    QVERIFY(mFake.callsOf("clSerialRead").isEmpty());
    QVERIFY(mFake.writes().isEmpty());
}

void tst_BasicPanels::closedSendsNothing()
{
    tcScriptedDialogs dialogs;
    child<QLineEdit>("CommandLE")->setText("VERS");
    for (const char* name : {"SendCommandPB", "SendPresetPB", "SendCustomPB"})
        child<QPushButton>(name)->click();
    QTest::keyClick(child<QLineEdit>("CommandLE"), Qt::Key_Return);
    QVERIFY(mFake.calls.isEmpty());
    QVERIFY(dialogs.asked.isEmpty());
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::returnAndButtonSendTheSame()
{
    open();
    auto* line = child<QLineEdit>("CommandLE");
    line->setText("text");
    QTest::keyClick(line, Qt::Key_Return);
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(mFake.writes(), (QList<QByteArray>{"text\n", "text\n"}));
    QCOMPARE(mFake.callsOf("clSerialWrite").at(0).timeoutMs, 100u);
}

void tst_BasicPanels::emptyCommandIsALineFeed()
{
    open();
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(mFake.writes(), QList<QByteArray>{"\n"});
}

void tst_BasicPanels::longCommandKeepsItsLineFeed()
{
    open();
    child<QLineEdit>("CommandLE")->setText(QString(200, 'x'));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Command cut to 126 of 200 bytes"));
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(mFake.writes(), QList<QByteArray>{QByteArray(126, 'x') + '\n'});
}

void tst_BasicPanels::commandStaysInItsLine()
{
    open();
    child<QLineEdit>("CommandLE")->setText("VERS");
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(child<QLineEdit>("CommandLE")->text(), QString("VERS"));
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::eachPresetGoesInOneWrite()
{
    open();
    QList<QByteArray> scripts;
    for (int index = 0; index < kind().presetCount; ++index) {
        child<QComboBox>("presetsCB")->setCurrentIndex(index);
        child<QPushButton>("SendPresetPB")->click();
        scripts.append(kind().presets[index].script);
    }
    QCOMPARE(mFake.writes(), scripts);
    QCOMPARE(mFake.callsOf("clSerialWrite").at(0).timeoutMs, 100u);
}

void tst_BasicPanels::fileDialogWording()
{
    tcScriptedDialogs dialogs;
    open();
    child<QPushButton>("SendCustomPB")->click();
    QCOMPARE(dialogs.asked.size(), 1);
    QCOMPARE(dialogs.asked.at(0).kind, QString("openFile"));
    QCOMPARE(dialogs.asked.at(0).title, QString("Custom Preset File"));
    QCOMPARE(dialogs.asked.at(0).text, QString());
    QCOMPARE(dialogs.asked.at(0).detail, QString("preset files (*.txt)"));
    QVERIFY(mFake.writes().isEmpty());
}

void tst_BasicPanels::fileIsSentUpToItsNul()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("100%1 %s.txt");
    QFile file(dialogs.fileAnswer);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("<STOP>\n<STRT>\n\0<RSET>\n", 22));
    file.close();
    open();
    child<QPushButton>("SendCustomPB")->click();
    QCOMPARE(mFake.writes(), QList<QByteArray>{"<STOP>\n<STRT>\n"});
    QCOMPARE(mFake.callsOf("clSerialWrite").at(0).timeoutMs, 1000u);
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::fileOfWindowsLineEndsIsReadAsText()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("preset.txt");
    QFile file(dialogs.fileAnswer);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<STOP>\r\n<STRT>\r\n");
    file.close();
    open();
    child<QPushButton>("SendCustomPB")->click();
    QCOMPARE(mFake.writes(), QList<QByteArray>{"<STOP>\n<STRT>\n"});
}

void tst_BasicPanels::fileThatCannotBeOpened()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    open();
    for (const QString& name : {folder.filePath("absent.txt"), folder.path()}) {
        dialogs.fileAnswer = name;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Script can't be read"));
        child<QPushButton>("SendCustomPB")->click();
    }
    QVERIFY(mFake.writes().isEmpty());
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::portClosedBehindTheFileDialog()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("preset.txt");
    QFile file(dialogs.fileAnswer);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<STOP>\n");
    file.close();
    dialogs.whileOpen = [this] { mPanel->closePort(); };
    open();
    child<QPushButton>("SendCustomPB")->click();
    QVERIFY(mFake.writes().isEmpty());
}

void tst_BasicPanels::replyIsShown()
{
    open();
    mFake.receive("<VERS><ACK><1.0>\r\n");
    tick();
    QCOMPARE(shown(), QString("<VERS><ACK><1.0>\n"));
    const auto read = mFake.callsOf("clSerialRead").at(0);
    QCOMPARE(read.number, 128u);
    QCOMPARE(read.timeoutMs, 100u);
}

void tst_BasicPanels::controlCharactersNeverShow()
{
    open();
    mFake.receive("\x01<VERS>\x01<ACK>\x01");
    tick();
    QCOMPARE(shown(), QString("<VERS><ACK>"));
}

void tst_BasicPanels::longReplyComesInBlocksOf128()
{
    QByteArray reply;
    for (int index = 0; index < 100; ++index)
        reply += QByteArray::number(index) + ' ';
    open();
    mFake.receive(reply);
    int drains = 0;
    while (mFake.waiting() > 0 && drains < 10) { // one, unless the machine stops for a while
        tick();
        ++drains;
    }
    QCOMPARE(shown(), QString::fromLatin1(reply));
    QCOMPARE(mFake.callsOf("clSerialRead").size(), (reply.size() + 127) / 128);
    // Asked once for a whole drain.
    QCOMPARE(mFake.callsOf("clGetNumBytesAvail").size(), drains);
    QVERIFY(oneDrainReads((reply.size() + 127) / 128, reply));
}

/// How often one drain reads what waits; of what it leaves nothing is left.
int tst_BasicPanels::readsOfOneDrain(const QByteArray& acWaiting)
{
    mFake.calls.clear();
    mFake.receive(acWaiting);
    tick();
    const int reads = mFake.callsOf("clSerialRead").size();
    while (mFake.waiting() > 0)
        tick();
    return reads;
}

/// Whether it is that often where the machine does not stop in the middle of one, as it may.
bool tst_BasicPanels::oneDrainReads(int anTimes, const QByteArray& acWaiting)
{
    return QTest::qWaitFor([&] { return readsOfOneDrain(acWaiting) == anTimes; }, cPatienceMs);
}

void tst_BasicPanels::strictDriverKeepsTheTailQueued()
{
    mFake.timeout = tcFakeSerial::teTimeout::Strict;
    open();
    mFake.receive(QByteArray(128, 'a') + "tail");
    tick();
    // A strict driver copies nothing of a block that isn't full: shown is what came, once.
    QCOMPARE(shown(), QString(128, 'a'));
    tick();
    QCOMPARE(shown(), QString(128, 'a'));
    QCOMPARE(mFake.waiting(), 4);
    tick();
    QCOMPARE(mFake.waiting(), 4);
}

void tst_BasicPanels::replySplitAtEveryPosition()
{
    const QByteArray reply = "\x01<GROI><ACK><0><0><2048><1088>\r\n<GEXP><ACK><500>\r\n";
    for (int cut = 0; cut <= reply.size(); ++cut) {
        init();
        open();
        mFake.receive(reply.left(cut));
        mFake.receive(reply.mid(cut));
        for (int poll = 0; poll < 3; ++poll)
            tick();
        QCOMPARE(shown(), QString("<GROI><ACK><0><0><2048><1088>\n<GEXP><ACK><500>\n"));
        mPanel->closePort();
        tcSerialLink::close(mRef);
        mRef = 0;
    }
}

void tst_BasicPanels::repliesGoWhereTheCursorIs()
{
    open();
    mFake.receive("first last");
    tick();
    auto* view = child<QPlainTextEdit>("PortRespPTE");
    QTextCursor cursor = view->textCursor();
    cursor.setPosition(6);
    view->setTextCursor(cursor);
    mFake.receive("middle ");
    tick();
    QCOMPARE(shown(), QString("first middle last"));
}

QScrollBar* tst_BasicPanels::filledView()
{
    mPanel->show();
    open();
    for (int reply = 0; reply < 100; ++reply) {
        mFake.receive("<STRT><ACK>\r\n");
        tick();
    }
    return child<QPlainTextEdit>("PortRespPTE")->verticalScrollBar();
}

void tst_BasicPanels::newestReplyIsInSight()
{
    const QScrollBar* bar = filledView();
    QVERIFY(bar->maximum() > 1);
    // Not the very end: at some heights there is room below the last line.
    const auto* view = child<QPlainTextEdit>("PortRespPTE");
    QVERIFY(view->viewport()->rect().contains(view->cursorRect()));
    QMetaObject::invokeMethod(mPanel.get(), "addText", Q_ARG(QString, "one\nmore"));
    QVERIFY(view->viewport()->rect().contains(view->cursorRect()));
    QVERIFY(view->textCursor().atEnd());
}

void tst_BasicPanels::whoScrolledBackIsLeftThere()
{
    QScrollBar* bar = filledView();
    bar->setValue(3);
    mFake.receive("<STOP><ACK>\r\n");
    tick();
    QMetaObject::invokeMethod(mPanel.get(), "addText", Q_ARG(QString, "one\nmore"));
    QVERIFY(shown().endsWith("<STOP><ACK>\none\nmore"));
    QCOMPARE(bar->value(), 3);
}

void tst_BasicPanels::messagesGoWhereTheCursorIs()
{
    const auto add = [this](const QString& acText) {
        return QMetaObject::invokeMethod(mPanel.get(), "addText", Qt::DirectConnection,
                                         Q_ARG(QString, acText));
    };
    QVERIFY(add("<b>no %1 markup</b>"));
    QVERIFY(add("!"));
    QCOMPARE(shown(), QString("<b>no %1 markup</b>!"));
}

void tst_BasicPanels::failingCountReadsNothing()
{
    open();
    mFake.receive("x");
    mFake.availableCount = 1;
    mFake.failing["clGetNumBytesAvail"] = -10006;
    tick();
    QVERIFY(mFake.callsOf("clSerialRead").isEmpty());
}

void tst_BasicPanels::nothingWaitingReadsNothing()
{
    open();
    tick();
    QCOMPARE(mFake.callsOf("clGetNumBytesAvail").size(), 1);
    QVERIFY(mFake.callsOf("clSerialRead").isEmpty());
}

void tst_BasicPanels::failingReadEndsTheDrain()
{
    open();
    mFake.receive(QByteArray(512, 'x'));
    mFake.failing["clSerialRead"] = -10006;
    tick();
    QCOMPARE(mFake.callsOf("clSerialRead").size(), 1);
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::twoEmptyReadsEndTheDrain()
{
    mFake.partialStatus = 0; // a library whose time-out is a success with nothing read
    open();
    mFake.receive("<STRT>");
    tick();
    QCOMPARE(shown(), QString("<STRT>"));
    QVERIFY(mFake.callsOf("clSerialRead").size() <= 3);
    // A drain whose time is over ends sooner.
    QVERIFY(oneDrainReads(3, "<STRT>"));
}

void tst_BasicPanels::floodLeavesAfterItsSlice()
{
    open();
    int reads = 0;
    // Bytes that never end: each read makes the next block ready.
    mFake.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.function == "clSerialRead" && ++reads < 1000000)
            mFake.feedAtOnce(QByteArray(128, 'f'));
    };
    mFake.receive("f");
    tick();
    QVERIFY(reads < 1000000);
    QVERIFY(mFake.waiting() > 0);
    const QString before = shown();
    tick(); // the next tick goes on where this one left
    QVERIFY(shown().size() > before.size());
    mFake.onCall = nullptr;
}

void tst_BasicPanels::drainEndsAfterFiftyMilliseconds()
{
    const QByteArray three(3 * 128, 'x');
    unsigned long takesMs = 60; // each read, with a slow driver
    mFake.onCall = [&](const tcFakeSerial::tcCall& acCall) {
        if (acCall.function == "clSerialRead")
            QThread::msleep(takesMs);
    };
    open();
    QCOMPARE(readsOfOneDrain(three), 1);
    QCOMPARE(shown(), QString::fromLatin1(three)); // the next ticks went on
    takesMs = 10;
    QVERIFY(oneDrainReads(3, three));
    mFake.onCall = nullptr;
}

void tst_BasicPanels::unpluggedWhileOpen()
{
    open();
    mFake.receive("before");
    tick();
    for (const char* function : {"clGetNumBytesAvail", "clSerialRead", "clSerialWrite"})
        mFake.failing[function] = -10006;
    tick();
    child<QPushButton>("SendPresetPB")->click();
    child<QPushButton>("SendCommandPB")->click();
    tick();
    QCOMPARE(shown(), QString("before"));
}

void tst_BasicPanels::nothingOfTheLastPortIsLeft()
{
    open();
    mFake.receive("\xE2\x82"); // two thirds of a character
    tick();
    mPanel->closePort();
    tcSerialLink::close(mRef);
    open();
    mFake.receive("A");
    tick();
    QCOMPARE(shown(), QString("A"));
}

void tst_BasicPanels::writeFailuresAreSilent()
{
    open();
    mFake.failing["clSerialWrite"] = -10004;
    child<QPushButton>("SendPresetPB")->click();
    child<QPushButton>("SendCommandPB")->click();
    QCOMPARE(shown(), QString());
}

void tst_BasicPanels::neverAsksToClose()
{
    QSignalSpy asked(mPanel.get(), &tcCamlinkIface::requestClosePort);
    open();
    for (const char* function : {"clGetNumBytesAvail", "clSerialRead"})
        mFake.failing[function] = -10006;
    for (int poll = 0; poll < 20; ++poll)
        tick();
    QCOMPARE(asked.count(), 0);
}

QTEST_MAIN(tst_BasicPanels)
#include "tst_basicpanels.moc"

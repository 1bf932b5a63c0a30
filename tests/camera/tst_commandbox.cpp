#include "camera/tcCommandCompleter.h"
#include "camera/tcVexaK40.h"
#include "tests/support/tcFakeSerial.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <memory>

/// The command box under the operator's hands: history by arrow keys, completion while typing.
class tst_CommandBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void arrowsWalkWhatWasSent();
    void sendButtonStartsTheWalkAnew();
    void escapeClears();
    void historyAndHelpAreOffered();
    void whatIsTypedIsSentWhateverIsOffered();
    void shortcutSendsPastWhatIsOffered();
    void chosenOfferFillsTheLineOnly();
    void nothingIsOfferedForNothing();
    void hugeHistory();
    void panelGoesWhileOffering();

private:
    /// Where the desktop sends keys: to the list, not to the line in it.
    static QWidget* focus() { return QApplication::focusWidget(); }
    QLineEdit* line() const { return box()->lineEdit(); }
    QComboBox* box() const { return mPanel->findChild<QComboBox*>("CommandCB"); }
    QAbstractItemView* offers() const
    {
        return mPanel->findChild<tcCommandCompleter*>()->popup();
    }
    QStringList offered() const;
    void send(const QString& acCommand);

    std::unique_ptr<tcVexaK40> mPanel;
    tcSerialLink::tcRef mRef = 0;
};

void tst_CommandBox::init()
{
    tcFakeSerial::instance().reset();
    mPanel = std::make_unique<tcVexaK40>(teCmvType::Cmv2000);
    mRef = tcSerialLink::open(0).ref;
    mPanel->openPort(mRef);
    mPanel->show();
    mPanel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mPanel.get()));
    box()->setFocus();
}

void tst_CommandBox::cleanup()
{
    mPanel->closePort();
    tcSerialLink::close(mRef);
    mPanel.reset();
}

QStringList tst_CommandBox::offered() const
{
    QStringList texts;
    if (!offers()->isVisible())
        return texts;
    const QAbstractItemModel* model = offers()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, 0).data().toString());
    return texts;
}

void tst_CommandBox::send(const QString& acCommand)
{
    line()->setText(acCommand);
    mPanel->SendCommand();
}

void tst_CommandBox::arrowsWalkWhatWasSent()
{
    send("VERS");
    send("GROI");
    QTest::keyClick(focus(), Qt::Key_Up);
    QCOMPARE(line()->text(), QString("GROI"));
    QTest::keyClick(focus(), Qt::Key_Up);
    QCOMPARE(line()->text(), QString("VERS"));
    QTest::keyClick(focus(), Qt::Key_Down);
    QTest::keyClick(focus(), Qt::Key_Down);
    QCOMPARE(line()->text(), QString());
}

void tst_CommandBox::sendButtonStartsTheWalkAnew()
{
    for (const char* command : {"VERS", "GROI", "GEXP"})
        send(command);
    QTest::keyClick(focus(), Qt::Key_Up);
    QTest::keyClick(focus(), Qt::Key_Up);
    mPanel->findChild<QPushButton*>("SendCommandPB")->click();
    QCOMPARE(tcFakeSerial::instance().writes().last(), QByteArray("<GROI>\n"));
    QTest::keyClick(focus(), Qt::Key_Up);
    QCOMPARE(line()->text(), QString("GEXP"));
}

void tst_CommandBox::escapeClears()
{
    line()->setText("VERS");
    QTest::keyClick(focus(), Qt::Key_Escape);
    QCOMPARE(line()->text(), QString());
}

void tst_CommandBox::historyAndHelpAreOffered()
{
    send("<SEXP 500>");
    QTest::keyClicks(focus(), "sexp");
    QCOMPARE(offered(), (QStringList{"<SEXP 500>", "<SEXP us>"}));
    QCOMPARE(line()->text(), QString("sexp"));
    offers()->hide();
}

void tst_CommandBox::whatIsTypedIsSentWhateverIsOffered()
{
    send("<SEXP 500>");
    QTest::keyClicks(focus(), "SEXP 5");
    QVERIFY(offers()->isVisible());
    QTest::keyClick(offers(), Qt::Key_Return);
    QTRY_COMPARE(tcFakeSerial::instance().writes().last(), QByteArray("<SEXP 5>\n"));
}

void tst_CommandBox::shortcutSendsPastWhatIsOffered()
{
    QTest::keyClicks(focus(), "GBPP");
    QVERIFY(offers()->isVisible());
    tcFakeSerial::instance().calls.clear();
    mPanel->SendCommand(); // as Ctrl+Return does
    QCOMPARE(tcFakeSerial::instance().writes(), QList<QByteArray>{"<GBPP>\n"});
    QVERIFY(!offers()->isVisible());
}

void tst_CommandBox::chosenOfferFillsTheLineOnly()
{
    QTest::keyClicks(focus(), "GBPP");
    QVERIFY(offers()->isVisible());
    QTest::keyClick(offers(), Qt::Key_Down);
    QTest::keyClick(offers(), Qt::Key_Return);
    QCOMPARE(line()->text(), QString("<GBPP>"));
    QVERIFY(tcFakeSerial::instance().writes().isEmpty());
}

void tst_CommandBox::nothingIsOfferedForNothing()
{
    QTest::keyClicks(focus(), "no such command");
    QCOMPARE(offered(), QStringList());
}

void tst_CommandBox::hugeHistory()
{
    QStringList many;
    for (int index = 0; index < 100000; ++index)
        many.append(QStringLiteral("<POKE %1 0>").arg(index));
    box()->addItems(many);
    box()->setCurrentIndex(-1);
    QTest::keyClicks(focus(), "POKE");
    // The newest ones and the help entry, however long the history is.
    QCOMPARE(offered().size(), tcCommandCompleter::cMostOfHistory + 1);
    offers()->hide();
}

void tst_CommandBox::panelGoesWhileOffering()
{
    QTest::keyClicks(focus(), "GBPP");
    const QPointer<QAbstractItemView> list = offers();
    QVERIFY(list->isVisible());
    mPanel->closePort();
    mPanel.reset();
    QVERIFY(!list);
    QCoreApplication::processEvents();
    init(); // for the next one, and for cleanup
}

QTEST_MAIN(tst_CommandBox)
#include "tst_commandbox.moc"

#include "tests/support/tcScriptedDialogs.h"
#include "widgets/tcFindBar.h"
#include "widgets/tcReplyView.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QVBoxLayout>

#include <memory>

#ifdef Q_OS_LINUX
#include "tests/support/tcSizeLimit.h"
#endif

class tst_ReplyView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { mPanel.reset(); }

    void menuKeepsTheEntriesOfATextViewFirst();
    void menuNamesKeysAsTheOperatorDoes();
    void ownersActionsEndTheMenu();
    void findMovesToTheHit();
    void findGoesRoundAtTheEnd();
    void findPreviousGoesBack();
    void notFoundIsSaidAndMovesNothing();
    void allHitsInSightAreMarked();
    void barHidesNoLine();
    void escapeEndsIt();
    void shortcutsServeTheFocusedView();
    void markingCostsNoMoreWithMoreText();
    void copyAll();
    void saveTextAs();
    void saveThatFails();
    void saveOntoAFullDisk();
    void goneWhileTheSaveAsks();
    void textGoesWhileFinding();
    void cancelledSave();

private:
    tcFindBar* bar(tcReplyView* apView) const { return apView->findChild<tcFindBar*>(); }
    void type(tcReplyView* apView, const QString& acText);

    std::unique_ptr<QWidget> mPanel;
    tcReplyView* mFirst = nullptr;
    tcReplyView* mSecond = nullptr;
};

void tst_ReplyView::init()
{
    mPanel = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(mPanel.get());
    mFirst = new tcReplyView;
    mSecond = new tcReplyView;
    layout->addWidget(mFirst);
    layout->addWidget(mSecond);
    auto* command = new QLineEdit;
    command->setObjectName("command");
    layout->addWidget(command);
    tcReplyView::installShortcuts(mPanel.get(), {mFirst, mSecond});
    mFirst->setPlainText("<VERS><ACK><1>\n<STRT><NACK>\n<vers><ACK><2>");
    mPanel->resize(400, 400);
    mPanel->show();
    mPanel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(mPanel.get()));
}

void tst_ReplyView::type(tcReplyView* apView, const QString& acText)
{
    apView->beginFind();
    QTest::keyClicks(bar(apView)->findChild<QLineEdit*>(), acText);
}

void tst_ReplyView::menuKeepsTheEntriesOfATextViewFirst()
{
    QStringList texts;
    const std::unique_ptr<QMenu> menu = mFirst->makeMenu();
    for (const QAction* action : menu->actions())
        texts.append(action->text());
    const std::unique_ptr<QMenu> standard(mFirst->createStandardContextMenu());
    for (int index = 0; index < standard->actions().size(); ++index)
        QCOMPARE(texts.at(index), standard->actions().at(index)->text());
    QCOMPARE(texts.mid(standard->actions().size()),
             (QStringList{"", "Copy All", "Save Text As...", "", "Find...\tCtrl+F",
                          "Find Next\tF3", "Find Previous\tShift+F3"}));
}

namespace
{

/// Qt's own German, as far as it names keys.
class tcGermanKeys : public QTranslator
{
public:
    tcGermanKeys() { QCoreApplication::installTranslator(this); }
    ~tcGermanKeys() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* apContext, const char* apText, const char*,
                      int) const override
    {
        if (qstrcmp(apContext, "QShortcut") != 0)
            return {};
        if (qstrcmp(apText, "Ctrl") == 0)
            return QStringLiteral("Strg");
        return qstrcmp(apText, "Shift") == 0 ? QStringLiteral("Umschalt") : QString();
    }
};

} // namespace

void tst_ReplyView::menuNamesKeysAsTheOperatorDoes()
{
    const tcGermanKeys german;
    QStringList texts;
    const std::unique_ptr<QMenu> menu = mFirst->makeMenu();
    for (const QAction* action : menu->actions())
        texts.append(action->text());
    QCOMPARE(texts.mid(texts.size() - 3),
             (QStringList{"Find...\tStrg+F", "Find Next\tF3", "Find Previous\tUmschalt+F3"}));
}

void tst_ReplyView::ownersActionsEndTheMenu()
{
    QAction mine("Log session to file...");
    mFirst->addMenuAction(&mine);
    QCOMPARE(mFirst->makeMenu()->actions().last(), &mine);
}

void tst_ReplyView::findMovesToTheHit()
{
    mFirst->moveCursor(QTextCursor::Start);
    type(mFirst, "NACK");
    QCOMPARE(mFirst->textCursor().selectedText(), QString("NACK"));
    QCOMPARE(mFirst->textCursor().blockNumber(), 1);
}

void tst_ReplyView::findGoesRoundAtTheEnd()
{
    mFirst->moveCursor(QTextCursor::Start);
    type(mFirst, "vers");
    QCOMPARE(mFirst->textCursor().blockNumber(), 0); // whatever the case
    QTest::keyClick(mPanel.get(), Qt::Key_F3);
    QCOMPARE(mFirst->textCursor().blockNumber(), 2);
    QTest::keyClick(mPanel.get(), Qt::Key_F3);
    QCOMPARE(mFirst->textCursor().blockNumber(), 0);
}

void tst_ReplyView::findPreviousGoesBack()
{
    mFirst->moveCursor(QTextCursor::Start);
    type(mFirst, "vers");
    QTest::keyClick(mPanel.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(mFirst->textCursor().blockNumber(), 2);
}

void tst_ReplyView::notFoundIsSaidAndMovesNothing()
{
    mFirst->moveCursor(QTextCursor::End);
    const int before = mFirst->textCursor().position();
    type(mFirst, "zebra");
    QCOMPARE(mFirst->textCursor().position(), before);
    QCOMPARE(bar(mFirst)->findChild<QLabel*>()->text(), QString("Not found"));
    bar(mFirst)->findChild<QLineEdit*>()->clear();
    QCOMPARE(bar(mFirst)->findChild<QLabel*>()->text(), QString());
}

void tst_ReplyView::allHitsInSightAreMarked()
{
    type(mFirst, "ack");
    QCOMPARE(mFirst->extraSelections().size(), 3);
    mFirst->appendPlainText("<STOP><ACK>");
    QCOMPARE(mFirst->extraSelections().size(), 4);
}

void tst_ReplyView::barHidesNoLine()
{
    const int before = mFirst->viewport()->height();
    mFirst->beginFind();
    QVERIFY(bar(mFirst)->isVisible());
    QVERIFY(mFirst->viewport()->height() < before);
    const QRect shown(mFirst->viewport()->mapTo(mFirst, QPoint()), mFirst->viewport()->size());
    QVERIFY(!shown.intersects(bar(mFirst)->geometry()));
}

void tst_ReplyView::escapeEndsIt()
{
    const int before = mFirst->viewport()->height();
    type(mFirst, "ack");
    QTest::keyClick(bar(mFirst)->findChild<QLineEdit*>(), Qt::Key_Escape);
    QVERIFY(!bar(mFirst) || !bar(mFirst)->isVisible());
    QCOMPARE(mFirst->viewport()->height(), before);
    QVERIFY(mFirst->extraSelections().isEmpty());
}

void tst_ReplyView::shortcutsServeTheFocusedView()
{
    mSecond->setFocus();
    QTest::keyClick(mPanel.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(bar(mSecond)->isVisible());
    QVERIFY(!bar(mFirst) || !bar(mFirst)->isVisible());
    QTest::keyClick(bar(mSecond)->findChild<QLineEdit*>(), Qt::Key_Escape);
    mPanel->findChild<QLineEdit*>("command")->setFocus();
    QTest::keyClick(mPanel.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(bar(mFirst)->isVisible());
}

void tst_ReplyView::markingCostsNoMoreWithMoreText()
{
    // Only what is in sight is marked, however much there is.
    QString text;
    for (int line = 0; line < 20000; ++line)
        text += "<STRT><ACK>\n";
    mFirst->setPlainText(text);
    type(mFirst, "ack");
    QVERIFY(mFirst->extraSelections().size() < 100);
    QVERIFY(!mFirst->extraSelections().isEmpty());
}

void tst_ReplyView::copyAll()
{
    mFirst->copyAll();
    QCOMPARE(QApplication::clipboard()->text(), mFirst->toPlainText());
}

void tst_ReplyView::saveTextAs()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("replies %1.txt");
    mFirst->saveTextAs();
    QFile file(dialogs.fileAnswer);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(QString::fromUtf8(file.readAll()), mFirst->toPlainText());
    mFirst->saveTextAs(); // the same file is offered again
    QCOMPARE(dialogs.asked.at(1).text, dialogs.fileAnswer);
}

void tst_ReplyView::saveThatFails()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.path();
    mFirst->saveTextAs();
    QCOMPARE(dialogs.asked.size(), 2);
    QCOMPARE(dialogs.asked.at(1).kind, QString("warning"));
    QCOMPARE(dialogs.asked.at(1).text, "Error trying to save\n" + folder.path());
}

void tst_ReplyView::saveOntoAFullDisk()
{
#ifdef Q_OS_LINUX
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("view.txt");
    mFirst->setPlainText("a few bytes, fewer than any buffer holds");
    {
        const tcSizeLimit full(0);
        mFirst->saveTextAs();
    }
    QCOMPARE(dialogs.asked.size(), 2);
    QCOMPARE(dialogs.asked.at(1).kind, QString("warning"));
    QCOMPARE(dialogs.asked.at(1).text, "Error trying to save\n" + dialogs.fileAnswer);
    QVERIFY(!QFile::exists(dialogs.fileAnswer));
#else
    QSKIP("needs a limit on the size of files");
#endif
}

void tst_ReplyView::goneWhileTheSaveAsks()
{
    QTemporaryDir folder;
    tcScriptedDialogs dialogs;
    dialogs.fileAnswer = folder.filePath("view.txt");
    dialogs.whileOpen = [this] { mPanel.reset(); };
    mFirst->saveTextAs();
    QVERIFY(!QFile::exists(dialogs.fileAnswer));
    QCOMPARE(dialogs.asked.size(), 1);
}

void tst_ReplyView::textGoesWhileFinding()
{
    mFirst->setPlainText("one\ntwo\none\n");
    mFirst->beginFind();
    QTest::keyClicks(mFirst->findChild<QLineEdit*>(), "one");
    QCOMPARE(mFirst->extraSelections().size(), 2);
    mFirst->clear();
    mFirst->findNext();
    mFirst->findPrevious();
    QVERIFY(mFirst->extraSelections().isEmpty());
    QVERIFY(!mFirst->textCursor().hasSelection());
    mFirst->setPlainText("one");
    mFirst->findNext();
    QCOMPARE(mFirst->textCursor().selectedText(), QString("one"));
}

void tst_ReplyView::cancelledSave()
{
    tcScriptedDialogs dialogs;
    mFirst->saveTextAs();
    QCOMPARE(dialogs.asked.size(), 1);
}

QTEST_MAIN(tst_ReplyView)
#include "tst_replyview.moc"

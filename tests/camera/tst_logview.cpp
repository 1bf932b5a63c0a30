#include "camera/tcLogView.h"

#include <QPlainTextEdit>
#include <QRandomGenerator>
#include <QTest>

namespace
{

/// The rule at its word: the text is copied and set anew at each entry.
void appendPlainly(QString& arText, const QString& acEntry, int anLimit)
{
    arText += acEntry;
    const int excess = arText.size() - anLimit;
    if (excess > 0 && excess <= 0xFFFF)
        arText.remove(QChar(ushort(excess)), Qt::CaseSensitive);
}

} // namespace

class tst_LogView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesRunOnWhereTheyHaveNoLineFeed();
    void cursorAtTheEndFollows();
    void cursorOfTheOperatorStays();
    void cursorGoesToTheEndOnRequest();
    void textBelowTheLimitIsLeftAlone();
    void tooLongALogPutsTheCursorToTheEnd();
    void goingToTheEndEndsASelection();
    void sameAsTheRuleAtItsWord_data();
    void sameAsTheRuleAtItsWord();
    void othersMayChangeTheText();
    void charactersOfTheTextEngine();
    void unchangedTextIsNotSetAnew();
    void daysOfRepliesAreBounded();

    void heldEntriesComeInOnePiece();
    void heldEntriesFollowTheRuleAtItsWord_data();
    void heldEntriesFollowTheRuleAtItsWord();
    void heldEntriesLeaveTheCursorOfTheOperator();
    void heldEntriesTakeTheCursorToTheEndOnRequest();
    void heldEntriesAreClearedToo();
    void manyHeldEntriesAreShownBeforeTheRelease();
    void longLinesAreBrokenAcrossHeldEntries();
    void heldEntriesAreBounded();
};

void tst_LogView::entriesRunOnWhereTheyHaveNoLineFeed()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("1: <VERS>", false);
    log->append("2: <VERS><ACK>\n", false);
    log->append("3: %1 %s\n", false);
    QCOMPARE(view.toPlainText(), QStringLiteral("1: <VERS>2: <VERS><ACK>\n3: %1 %s\n"));
}

void tst_LogView::cursorAtTheEndFollows()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one\n", false);
    log->append("two\n", false);
    QCOMPARE(view.textCursor().position(), 8);
}

void tst_LogView::cursorOfTheOperatorStays()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one two three\n", false);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(4);
    cursor.setPosition(7, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    log->append("four\n", false);
    QCOMPARE(view.toPlainText(), QStringLiteral("one two three\nfour\n"));
    QCOMPARE(view.textCursor().position(), 7);
    QCOMPARE(view.textCursor().selectedText(), QStringLiteral("two"));
}

void tst_LogView::cursorGoesToTheEndOnRequest()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one\n", false);
    view.moveCursor(QTextCursor::Start);
    log->append("two\n", true);
    QCOMPARE(view.textCursor().position(), 8);
}

void tst_LogView::textBelowTheLimitIsLeftAlone()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("12345", false);
    view.moveCursor(QTextCursor::Start);
    log->applyLimit(5);
    QCOMPARE(view.toPlainText(), QStringLiteral("12345"));
    QCOMPARE(view.textCursor().position(), 0);
}

void tst_LogView::tooLongALogPutsTheCursorToTheEnd()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("123456", false);
    view.moveCursor(QTextCursor::Start);
    log->applyLimit(5);
    QCOMPARE(view.toPlainText(), QStringLiteral("123456"));
    QCOMPARE(view.textCursor().position(), 6);
}

void tst_LogView::goingToTheEndEndsASelection()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("123456", false);
    view.selectAll();
    log->applyLimit(5);
    QVERIFY(!view.textCursor().hasSelection());
    QVERIFY(view.textCursor().atEnd());
}

void tst_LogView::sameAsTheRuleAtItsWord_data()
{
    QTest::addColumn<int>("limit");
    QTest::newRow("a few lines") << 300;
    QTest::newRow("some lines") << 1000;
    QTest::newRow("default") << 5000;
}

// As designed: the rule takes the character whose code is the excess, not the oldest text.
void tst_LogView::sameAsTheRuleAtItsWord()
{
    QFETCH(int, limit);
    int removals = 0;
    for (quint32 seed = 1; seed <= 12; ++seed) {
        QRandomGenerator random(seed);
        QPlainTextEdit view;
        auto* log = new tcLogView(&view);
        QString expected;
        while (expected.size() < limit + 300) {
            const QString entry = QStringLiteral("12:34:56.%1: <SEXP %2><ACK><%3>%4")
                                      .arg(random.bounded(1000))
                                      .arg(random.bounded(100000))
                                      .arg(random.generateDouble())
                                      .arg(random.bounded(3) ? "\n" : "");
            log->append(entry, false);
            log->applyLimit(limit);
            const int before = expected.size() + entry.size();
            appendPlainly(expected, entry, limit);
            removals += expected.size() < before ? 1 : 0;
            QCOMPARE(view.toPlainText(), expected);
        }
    }
    QVERIFY2(removals > 0, "the rule was never put to the test");
}

void tst_LogView::othersMayChangeTheText()
{
    QPlainTextEdit view("AAA");
    auto* log = new tcLogView(&view);
    log->append(QString(62, 'x'), false); // 65 over nothing: the code of A
    log->applyLimit(0);
    QCOMPARE(view.toPlainText(), QString(62, 'x'));
    view.setPlainText(QString(60, 'y') + "AAAA");
    log->append("z", false);
    log->applyLimit(0);
    QCOMPARE(view.toPlainText(), QString(60, 'y') + "z");
    view.clear();
    log->append("A" + QString(64, 'x'), false);
    log->applyLimit(0);
    QCOMPARE(view.toPlainText(), QString(64, 'x'));
}

/// Ten over: the rule takes line feeds, whatever the text engine makes of them.
void tst_LogView::charactersOfTheTextEngine()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append(QString("a\nb") + QChar(QChar::LineSeparator) + "c"
                    + QChar(QChar::ParagraphSeparator) + "d" + QChar(0xFDD0) + "ef",
                false);
    QCOMPARE(view.toPlainText(), QStringLiteral("a\nb\nc\nd\nef"));
    log->applyLimit(0);
    QCOMPARE(view.toPlainText(), QStringLiteral("abcdef"));
    view.clear();
    log->append("a\rb\r\nc\r\r\nd\n\re", false);
    QCOMPARE(view.toPlainText(), QStringLiteral("a\nb\nc\n\nd\n\ne"));
    log->applyLimit(1); // eleven characters, ten over
    QCOMPARE(view.toPlainText(), QStringLiteral("abcde"));
    view.clear();
    log->append(QString(31, 'x') + QChar(QChar::Nbsp), false); // 32 over: the code of a blank
    log->applyLimit(0);
    QCOMPARE(view.toPlainText(), QString(31, 'x'));
}

void tst_LogView::unchangedTextIsNotSetAnew()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append(QString(100, 'x'), false);
    int changes = 0;
    connect(&view, &QPlainTextEdit::textChanged, this, [&] { ++changes; });
    log->applyLimit(10);
    QCOMPARE(changes, 0);
}

void tst_LogView::daysOfRepliesAreBounded()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    int most = 0;
    for (int line = 0; line < 50000; ++line) {
        log->append(QString::number(line) + '\n', false);
        most = std::max(most, view.document()->blockCount());
    }
    QVERIFY2(most <= 20001, qPrintable(QString::number(most)));
    QVERIFY(view.document()->blockCount() > 15000);
    QVERIFY(view.toPlainText().endsWith("49998\n49999\n")); // the newest stay
    // The length rule counts what is there after a drop as it did before it.
    QString text = view.toPlainText();
    const int limit = text.size() - '9';
    log->applyLimit(limit);
    QCOMPARE(view.toPlainText(), text.remove('9'));
}

void tst_LogView::heldEntriesComeInOnePiece()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one\n", false);
    int changes = 0;
    connect(&view, &QPlainTextEdit::textChanged, this, [&] { ++changes; });
    log->hold();
    log->append("two ends with a return\r", false);
    log->append("\nthree\n", false);
    log->append("four", false);
    QCOMPARE(view.toPlainText(), QStringLiteral("one\n"));
    log->release();
    QCOMPARE(view.toPlainText(), QStringLiteral("one\ntwo ends with a return\n\nthree\nfour"));
    QCOMPARE(changes, 1);
    QCOMPARE(view.textCursor().position(), view.toPlainText().size());
    log->append(" and five\n", false);
    QVERIFY(view.toPlainText().endsWith("\nfour and five\n"));
    log->release(); // nothing is held
    QCOMPARE(changes, 2);
}

void tst_LogView::heldEntriesFollowTheRuleAtItsWord_data()
{
    sameAsTheRuleAtItsWord_data();
}

void tst_LogView::heldEntriesFollowTheRuleAtItsWord()
{
    QFETCH(int, limit);
    int removals = 0;
    for (quint32 seed = 1; seed <= 12; ++seed) {
        QRandomGenerator random(seed);
        QPlainTextEdit view;
        auto* log = new tcLogView(&view);
        QString expected;
        while (expected.size() < limit + 300) {
            log->hold();
            for (int held = random.bounded(20); held >= 0; --held) {
                const QString entry = QStringLiteral("12:34:56.%1: <SEXP %2><ACK>%3")
                                          .arg(random.bounded(1000))
                                          .arg(random.bounded(100000))
                                          .arg(random.bounded(3) ? "\n" : "");
                log->append(entry, false);
                log->applyLimit(limit);
                const int before = expected.size() + entry.size();
                appendPlainly(expected, entry, limit);
                removals += expected.size() < before ? 1 : 0;
            }
            log->release();
            QCOMPARE(view.toPlainText(), expected);
        }
    }
    QVERIFY2(removals > 0, "the rule was never put to the test");
}

void tst_LogView::heldEntriesLeaveTheCursorOfTheOperator()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one two three\n", false);
    QTextCursor cursor = view.textCursor();
    cursor.setPosition(4);
    view.setTextCursor(cursor);
    log->hold();
    log->append("four\n", false);
    log->append("five\n", false);
    log->applyLimit(1000);
    log->release();
    QCOMPARE(view.textCursor().position(), 4);
}

void tst_LogView::heldEntriesTakeTheCursorToTheEndOnRequest()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one\n", false);
    for (const bool tooLong : {false, true}) {
        view.moveCursor(QTextCursor::Start);
        log->hold();
        log->append("two\n", !tooLong);
        if (tooLong)
            log->applyLimit(5);
        log->append("three\n", false);
        log->release();
        QCOMPARE(view.textCursor().position(), view.toPlainText().size());
    }
}

void tst_LogView::heldEntriesAreClearedToo()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("one\n", false);
    log->hold();
    log->append(QString(65, 'x'), false);
    log->clear();
    log->append("A" + QString(64, 'y'), false); // 65 over nothing: the code of A
    log->applyLimit(0);
    log->release();
    QCOMPARE(view.toPlainText(), QString(64, 'y'));
}

/// So that no single change of the view takes long.
void tst_LogView::manyHeldEntriesAreShownBeforeTheRelease()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    int changes = 0;
    connect(&view, &QPlainTextEdit::textChanged, this, [&] { ++changes; });
    QString expected;
    log->hold();
    for (int entry = 0; entry < 2000; ++entry) {
        expected += QString::number(entry) + ": <GEXP><ACK><500>\n";
        log->append(QString::number(entry) + ": <GEXP><ACK><500>\n", false);
        QVERIFY(expected.size() - view.toPlainText().size() <= 8192);
    }
    log->release();
    QCOMPARE(view.toPlainText(), expected);
    QVERIFY2(changes < 10, qPrintable(QString::number(changes)));
}

void tst_LogView::longLinesAreBrokenAcrossHeldEntries()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    log->append("begins ", false);
    log->hold();
    for (int entry = 0; entry < 30; ++entry)
        log->append(QString(1000, 'x'), false);
    log->append("\nshort", false);
    log->append("ened\n", false);
    log->release();
    const QStringList lines = view.toPlainText().split('\n');
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines.at(0).size(), 10000);
    QCOMPARE(lines.at(2).size(), 10000);
    QCOMPARE(lines.at(3).size(), 7);
    QCOMPARE(lines.at(4), QStringLiteral("shortened"));
}

void tst_LogView::heldEntriesAreBounded()
{
    QPlainTextEdit view;
    auto* log = new tcLogView(&view);
    for (int piece = 0; piece < 500; ++piece) {
        log->hold();
        for (int line = 0; line < 100; ++line)
            log->append(QString::number(100 * piece + line) + '\n', false);
        log->release();
        QVERIFY(view.document()->blockCount() <= 20001);
    }
    QVERIFY(view.document()->blockCount() > 15000);
    QString text = view.toPlainText();
    QVERIFY(text.endsWith("49998\n49999\n"));
    const int limit = text.size() - '9';
    log->applyLimit(limit);
    QCOMPARE(view.toPlainText(), text.remove('9'));
}

QTEST_MAIN(tst_LogView)
#include "tst_logview.moc"

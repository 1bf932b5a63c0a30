#include "camera/tcLogView.h"

#include "camera/logic/tcLongLines.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace
{

/// Marks of the text engine, which the camera's bytes may spell: they end a line as well.
bool endsLine(QChar aCharacter)
{
    switch (aCharacter.unicode()) {
    case '\n':
    case '\r':
    case 0xFDD0:
    case 0xFDD1:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

/// The text with its line ends as the document takes them, each one line feed.
QString withLineFeeds(const QString& acText)
{
    const auto isOdd
        = [](QChar aCharacter) { return aCharacter != '\n' && endsLine(aCharacter); };
    if (std::none_of(acText.begin(), acText.end(), isOdd))
        return acText;
    QString text = acText;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (QChar& character : text) {
        if (endsLine(character))
            character = '\n';
    }
    return text;
}

/// A character of the document as the view's plain text has it.
QChar plain(QChar aCharacter)
{
    switch (aCharacter.unicode()) {
    case QChar::LineSeparator:
        return '\n';
    case QChar::Nbsp:
        return ' ';
    default:
        return aCharacter;
    }
}

// The length rule lets a log grow for ever, and people leave the panel running for days.
constexpr int cMostLines = 20000;
constexpr int cMostCharacters = 12000000;
constexpr int cShareDropped = 10; ///< of the lines, at once, so that it happens seldom
constexpr int cMostHeld = 8192;   ///< characters, so that the view's share stays short

} // namespace

tcLogView::tcLogView(QPlainTextEdit* apView) : QObject(apView), mView(apView)
{
    countAnew(mView->toPlainText());
    connect(mView->document(), &QTextDocument::contentsChange, this,
            &tcLogView::onContentsChange);
}

int tcLogView::length() const
{
    return mView->document()->characterCount() - 1 + mPending.size();
}

/// Characters behind the last line end.
int tcLogView::endColumn() const
{
    const int lineFeed = mPending.lastIndexOf('\n');
    if (lineFeed >= 0)
        return mPending.size() - lineFeed - 1;
    return mView->document()->lastBlock().length() - 1 + mPending.size();
}

void tcLogView::append(const QString& acText, bool abToEnd)
{
    const QString text = tcLongLines::broken(withLineFeeds(acText), endColumn());
    mPending += text;
    if (mCountsHold) {
        for (const QChar character : text)
            mCounts.add(plain(character));
    }
    mEndWanted = mEndWanted || abToEnd;
    if (!mHeld || mPending.size() > cMostHeld)
        flush();
}

void tcLogView::release()
{
    mHeld = false;
    flush();
}

void tcLogView::clear()
{
    mPending.clear();
    mEndWanted = false;
    mView->clear();
}

void tcLogView::flush()
{
    if (!mPending.isEmpty()) {
        mChanging = true;
        QTextCursor end(mView->document());
        end.movePosition(QTextCursor::End);
        end.insertText(std::exchange(mPending, {}));
        dropOldest();
        mChanging = false;
    }
    if (std::exchange(mEndWanted, false))
        moveToEnd();
}

/// Bounds what is kept, far above any length that the operator sets.
void tcLogView::dropOldest()
{
    QTextDocument* document = mView->document();
    const int lines = document->blockCount();
    if (lines <= cMostLines && length() <= cMostCharacters)
        return;
    const QTextBlock kept = document->findBlockByNumber(lines / cShareDropped + 1);
    for (QTextBlock block = document->begin(); mCountsHold && block != kept;
         block = block.next()) {
        for (const QChar character : block.text())
            mCounts.remove(plain(character));
        mCounts.remove('\n');
    }
    QTextCursor oldest(document);
    oldest.setPosition(kept.position(), QTextCursor::KeepAnchor);
    oldest.removeSelectedText();
}

void tcLogView::showCursor()
{
    mView->ensureCursorVisible();
}

/// A cursor that is there already costs no layout.
void tcLogView::moveToEnd()
{
    const QTextCursor cursor = mView->textCursor();
    if (cursor.hasSelection() || !cursor.atEnd())
        mView->moveCursor(QTextCursor::End);
}

void tcLogView::applyLimit(int anLimit)
{
    if (length() <= anLimit)
        return;
    if (!mCountsHold) {
        flush();
        countAnew(mView->toPlainText());
    }
    if (mCounts.removesAnything(anLimit)) {
        flush();
        const QString text = tcLogLimit::applied(mView->toPlainText(), anLimit);
        mView->setPlainText(text);
        countAnew(text);
    }
    mEndWanted = true;
    if (!mHeld)
        flush();
}

/// Whatever else changes the text makes the counts worthless until they are needed again.
void tcLogView::onContentsChange()
{
    if (mChanging)
        return;
    mCountsHold = length() == 0;
    if (mCountsHold)
        mCounts.clear();
}

void tcLogView::countAnew(const QString& acText)
{
    mCounts.clear();
    mCounts.add(acText);
    mCountsHold = true;
}

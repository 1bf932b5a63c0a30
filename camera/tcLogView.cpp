#include "camera/tcLogView.h"

#include "camera/logic/tcLongLines.h"

#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

namespace
{

/// A character of the document as the view's plain text has it.
QChar plain(QChar aCharacter)
{
    switch (aCharacter.unicode()) {
    case 0xFDD0: // frame marks of the text engine, which the camera's bytes may spell
    case 0xFDD1:
    case QChar::ParagraphSeparator:
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

} // namespace

tcLogView::tcLogView(QPlainTextEdit* apView) : QObject(apView), mView(apView)
{
    countAnew(mView->toPlainText());
    connect(mView->document(), &QTextDocument::contentsChange, this,
            &tcLogView::onContentsChange);
}

int tcLogView::length() const
{
    return mView->document()->characterCount() - 1;
}

void tcLogView::append(const QString& acText, bool abToEnd)
{
    const int from = length();
    mAppending = true;
    QTextCursor end(mView->document());
    end.movePosition(QTextCursor::End);
    end.insertText(tcLongLines::broken(acText, end.positionInBlock()));
    mAppending = false;
    if (mCountsHold)
        count(from, length());
    dropOldest();
    if (abToEnd)
        moveToEnd();
}

/// Bounds what is kept, far above any length that the operator sets.
void tcLogView::dropOldest()
{
    const int lines = mView->document()->blockCount();
    if (lines <= cMostLines && length() <= cMostCharacters)
        return;
    QTextCursor oldest(mView->document());
    oldest.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor,
                        lines / cShareDropped + 1);
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
    if (!mCountsHold)
        countAnew(mView->toPlainText());
    if (mCounts.removesAnything(anLimit)) {
        const QString text = tcLogLimit::applied(mView->toPlainText(), anLimit);
        mView->setPlainText(text);
        countAnew(text);
    }
    moveToEnd();
}

/// Whatever else changes the text makes the counts worthless until they are needed again.
void tcLogView::onContentsChange()
{
    if (mAppending)
        return;
    mCountsHold = length() == 0;
    if (mCountsHold)
        mCounts.clear();
}

void tcLogView::count(int anFrom, int anTo)
{
    QTextCursor added(mView->document());
    added.setPosition(anFrom);
    added.setPosition(anTo, QTextCursor::KeepAnchor);
    for (const QChar character : added.selectedText())
        mCounts.add(plain(character));
}

void tcLogView::countAnew(const QString& acText)
{
    mCounts.clear();
    mCounts.add(acText);
    mCountsHold = true;
}

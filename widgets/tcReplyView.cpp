#include "widgets/tcReplyView.h"

#include "widgets/tcDialogs.h"
#include "widgets/tcFindBar.h"
#include "widgets/tcWholeFile.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardPaths>
#include <QTextBlock>

namespace
{

constexpr char cFindKey[] = "Ctrl+F";
constexpr char cFindNextKey[] = "F3";
constexpr char cFindPreviousKey[] = "Shift+F3";

/// A key's name as the entries before call theirs, in the operator's language.
QString withKey(const QString& acText, const char* apKey)
{
    return acText + '\t'
        + QKeySequence(QLatin1String(apKey)).toString(QKeySequence::NativeText);
}

} // namespace

tcReplyView::tcReplyView(QWidget* apParent) : QPlainTextEdit(apParent)
{
    setUndoRedoEnabled(false); // nobody undoes a reply, and each one would be kept twice
    // Emitted for scrolled, changed and resized text alike.
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect&, int anDy) {
        if (anDy != 0 && isFinding())
            markHits();
    });
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (isFinding())
            markHits();
    });
}

/// Made at first need: there are many views, and few are ever searched.
tcFindBar& tcReplyView::bar()
{
    if (mBar)
        return *mBar;
    mBar = new tcFindBar(this);
    mBar->hide();
    connect(mBar, &tcFindBar::wantedChanged, this, [this] {
        // What is typed is looked for from the hit before, so that it grows with the word.
        QTextCursor cursor = textCursor();
        cursor.setPosition(cursor.selectionStart());
        setTextCursor(cursor);
        findNext();
    });
    connect(mBar, &tcFindBar::next, this, &tcReplyView::findNext);
    connect(mBar, &tcFindBar::previous, this, &tcReplyView::findPrevious);
    connect(mBar, &tcFindBar::closed, this, &tcReplyView::endFind);
    return *mBar;
}

bool tcReplyView::isFinding() const
{
    return mBar && mBar->isVisible();
}

tcReplyView::~tcReplyView() = default;

void tcReplyView::addMenuAction(QAction* apAction)
{
    mMoreActions.append(apAction);
}

std::unique_ptr<QMenu> tcReplyView::makeMenu()
{
    std::unique_ptr<QMenu> menu(createStandardContextMenu());
    menu->addSeparator();
    menu->addAction(tr("Copy All"), this, &tcReplyView::copyAll);
    menu->addAction(tr("Save Text As..."), this, &tcReplyView::saveTextAs);
    menu->addSeparator();
    menu->addAction(withKey(tr("Find..."), cFindKey), this, &tcReplyView::beginFind);
    menu->addAction(withKey(tr("Find Next"), cFindNextKey), this, &tcReplyView::findNext);
    menu->addAction(withKey(tr("Find Previous"), cFindPreviousKey), this,
                    &tcReplyView::findPrevious);
    if (!mMoreActions.isEmpty())
        menu->addSeparator();
    menu->addActions(mMoreActions);
    return menu;
}

void tcReplyView::contextMenuEvent(QContextMenuEvent* apEvent)
{
    // Shown without a loop of its own: the view may go while the menu is open.
    QMenu* menu = makeMenu().release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(apEvent->globalPos());
}

void tcReplyView::installShortcuts(QWidget* apPanel, const QList<tcReplyView*>& acViews)
{
    const auto add = [&](const QKeySequence& acKey, void (tcReplyView::*apDo)()) {
        auto* shortcut = new QShortcut(acKey, apPanel);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, apPanel, [acViews, apDo] {
            tcReplyView* chosen = acViews.first();
            const QWidget* focus = QApplication::focusWidget();
            for (tcReplyView* view : acViews) {
                if (focus == view || (view->isVisible() && view->isAncestorOf(focus)))
                    chosen = view;
            }
            (chosen->*apDo)();
        });
    };
    add(QKeySequence(QLatin1String(cFindKey)), &tcReplyView::beginFind);
    add(QKeySequence(QLatin1String(cFindNextKey)), &tcReplyView::findNext);
    add(QKeySequence(QLatin1String(cFindPreviousKey)), &tcReplyView::findPrevious);
}

void tcReplyView::beginFind()
{
    placeBar();
    setViewportMargins(0, 0, 0, bar().sizeHint().height());
    bar().beginTyping();
    markHits();
}

void tcReplyView::endFind()
{
    bar().hide();
    setViewportMargins(0, 0, 0, 0);
    setExtraSelections({});
    setFocus();
}

void tcReplyView::findFrom(bool abBackward)
{
    const QString wanted = bar().wanted();
    if (wanted.isEmpty()) {
        bar().showFound(true);
        beginFind();
        return;
    }
    const QTextDocument::FindFlags way
        = abBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = find(wanted, way);
    if (!found) { // once around
        const QTextCursor before = textCursor();
        moveCursor(abBackward ? QTextCursor::End : QTextCursor::Start);
        found = find(wanted, way);
        if (!found)
            setTextCursor(before);
    }
    bar().showFound(found);
    markHits();
}

void tcReplyView::markHits()
{
    QList<QTextEdit::ExtraSelection> marks;
    const QString wanted = bar().wanted();
    QTextBlock block = wanted.isEmpty() ? QTextBlock() : firstVisibleBlock();
    for (; block.isValid(); block = block.next()) {
        if (blockBoundingGeometry(block).translated(contentOffset()).top()
            > viewport()->height())
            break;
        const QString text = block.text();
        for (int at = text.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive)) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = QTextCursor(block);
            mark.cursor.setPosition(block.position() + at);
            mark.cursor.setPosition(block.position() + at + wanted.size(),
                                    QTextCursor::KeepAnchor);
            mark.format.setBackground(QColor(255, 213, 79));
            mark.format.setForeground(Qt::black);
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
}

void tcReplyView::placeBar()
{
    const int height = bar().sizeHint().height();
    const QRect inside = contentsRect();
    const int side = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
    const int below = horizontalScrollBar()->isVisible() ? horizontalScrollBar()->height() : 0;
    bar().setGeometry(inside.left(), inside.bottom() + 1 - height - below,
                      inside.width() - side, height);
}

void tcReplyView::resizeEvent(QResizeEvent* apEvent)
{
    QPlainTextEdit::resizeEvent(apEvent);
    if (mBar)
        placeBar();
    if (isFinding())
        markHits();
}

void tcReplyView::copyAll()
{
    QApplication::clipboard()->setText(toPlainText());
}

void tcReplyView::saveTextAs()
{
    const QString start = mLastFile.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
        : mLastFile;
    const QPointer<tcReplyView> self(this);
    const QString name = tcDialogs::current().saveFile(
        this, tr("Save Text As"), start, tr("text files (*.txt);; All files (*)"));
    if (!self || name.isEmpty())
        return;
    QByteArray text = toPlainText().toUtf8();
#ifdef Q_OS_WIN
    text.replace('\n', "\r\n");
#endif
    tcWholeFile file(name);
    const bool written
        = file.open() && file.device().write(text) == text.size() && file.commit();
    if (written)
        mLastFile = name;
    else
        tcDialogs::current().warning(this, tr("Save Text As"),
                                     tr("Error trying to save\n%1").arg(name));
}

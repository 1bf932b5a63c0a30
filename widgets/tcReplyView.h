#pragma once

#include <QList>
#include <QPlainTextEdit>

#include <memory>

class QMenu;
class tcFindBar;

/// A view of what a camera sends, with what operators expect of one: find with all hits marked,
/// copy all, save as text. The find bar takes room of its own below the text and hides no line.
///
/// Marking looks only at what is in sight, so it costs the same however long the text is.
class tcReplyView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit tcReplyView(QWidget* apParent = nullptr);
    ~tcReplyView() override;

    /// Ends the context menu of this view; not owned.
    void addMenuAction(QAction* apAction);
    /// The context menu, with the entries of any text view first.
    std::unique_ptr<QMenu> makeMenu();

    /// Ctrl+F, F3 and Shift+F3 anywhere in the panel: for the view that has the focus, else the
    /// first one.
    static void installShortcuts(QWidget* apPanel, const QList<tcReplyView*>& acViews);

    /// Whether a reply that is now inserted at the cursor would be seen.
    bool isCursorInSight() const { return viewport()->rect().intersects(cursorRect()); }

    void beginFind();
    void findNext() { findFrom(false); }
    void findPrevious() { findFrom(true); }
    void copyAll();
    /// Asks for a file. A failure is shown in a box; an old file of that name is kept then.
    void saveTextAs();

protected:
    void contextMenuEvent(QContextMenuEvent* apEvent) override;
    void resizeEvent(QResizeEvent* apEvent) override;

private:
    tcFindBar& bar();
    bool isFinding() const;
    void findFrom(bool abBackward);
    void endFind();
    void markHits();
    void placeBar();

    tcFindBar* mBar = nullptr;    ///< by Qt parenthood; null until somebody searches
    QList<QAction*> mMoreActions; ///< not owned
    QString mLastFile;
};

#pragma once

#include "camera/logic/tcLogLimit.h"

#include <QObject>

class QPlainTextEdit;

/// Keeps a plain-text view as the panel's log. An entry costs the same however long the log is:
/// the document is asked for its length, and the text is set anew only when the length rule
/// removes something from it. Many entries at once cost little more than one: while the log is
/// held, they gather, and the view gets them in one piece.
class tcLogView : public QObject
{
    Q_OBJECT

public:
    /// Owned by the view.
    explicit tcLogView(QPlainTextEdit* apView);

    /// From now on the view may lag behind; order, texts and length rule are as without.
    void hold() { mHeld = true; }
    /// Shows all that came meanwhile.
    void release();
    /// Empties the log, what the view does not show yet included.
    void clear();

    /// Adds the text behind all others; lines that grow absurdly long are broken. The view's
    /// cursor stays where the operator put it, unless it stands at the end or abToEnd sends it
    /// there.
    void append(const QString& acText, bool abToEnd);

    /// Scrolls to the cursor: once for all entries that come in one go.
    void showCursor();

    /// Applies the length rule; the cursor goes to the end of a log that is too long.
    void applyLimit(int anLimit);

private:
    int length() const;
    int endColumn() const;
    void flush();
    void dropOldest();
    void moveToEnd();
    void onContentsChange();
    void countAnew(const QString& acText);

    QPlainTextEdit* mView; ///< not owned
    QString mPending;      ///< goes behind the view's text; line feeds are its only line ends
    tcLogLimit mCounts;
    bool mCountsHold = true; ///< they are those of the whole text, the pending one included
    bool mChanging = false;  ///< the view, by this object
    bool mHeld = false;
    bool mEndWanted = false; ///< the cursor is to go to the end
};

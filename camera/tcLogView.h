#pragma once

#include "camera/logic/tcLogLimit.h"

#include <QObject>

class QPlainTextEdit;

/// Keeps a plain-text view as the panel's log. An entry costs the same however long the log is:
/// the document is asked for its length, and the text is set anew only when the length rule
/// removes something from it.
class tcLogView : public QObject
{
    Q_OBJECT

public:
    /// Owned by the view.
    explicit tcLogView(QPlainTextEdit* apView);

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
    void dropOldest();
    void moveToEnd();
    void onContentsChange();
    void count(int anFrom, int anTo);
    void countAnew(const QString& acText);

    QPlainTextEdit* mView; ///< not owned
    tcLogLimit mCounts;
    bool mCountsHold = true; ///< they are those of the whole text
    bool mAppending = false;
};

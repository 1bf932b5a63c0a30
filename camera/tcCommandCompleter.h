#pragma once

#include <QCompleter>
#include <QStringListModel>

class QComboBox;

/// Offers, while a command is typed, what was sent before and the commands that the camera
/// knows. Only offers: the line stays as typed until an entry is chosen. Child of its box,
/// which knows nothing of it: a box takes a completer's rows for its own, and its case for its
/// rule.
class tcCommandCompleter : public QCompleter
{
    Q_OBJECT

public:
    explicit tcCommandCompleter(QComboBox* apHistory);

    static constexpr int cMostOfHistory = 500; ///< newest entries; more are of little help

    bool eventFilter(QObject* apWatched, QEvent* apEvent) override;

private:
    void offer(const QString& acTyped);
    void refill();

    QComboBox* mHistory;                 ///< parent
    QAbstractItemView* mPopup = nullptr; ///< of the completer; null until something is typed
    QStringListModel mEntries;
    bool mOld = true; ///< the history has changed since the entries were made
};

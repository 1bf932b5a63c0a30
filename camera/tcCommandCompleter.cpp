#include "camera/tcCommandCompleter.h"

#include "camera/logic/tcCommandHelp.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

tcCommandCompleter::tcCommandCompleter(QComboBox* apHistory)
    : QCompleter(apHistory), mHistory(apHistory)
{
    setModel(&mEntries);
    setCompletionMode(PopupCompletion);
    setCaseSensitivity(Qt::CaseInsensitive);
    setFilterMode(Qt::MatchContains); // whoever types SEXP means <SEXP us>
    const auto grownOld = [this] { mOld = true; };
    connect(mHistory->model(), &QAbstractItemModel::rowsInserted, this, grownOld);
    connect(mHistory->model(), &QAbstractItemModel::rowsRemoved, this, grownOld);
    connect(mHistory->model(), &QAbstractItemModel::modelReset, this, grownOld);
    mHistory->setCompleter(nullptr);
    QLineEdit* line = mHistory->lineEdit();
    setWidget(line);
    connect(line, &QLineEdit::textEdited, this, &tcCommandCompleter::offer);
    // Sent by a shortcut, which the list does not end for.
    connect(line, &QLineEdit::textChanged, this, [this](const QString& acText) {
        if (acText.isEmpty() && mPopup)
            mPopup->hide();
    });
    connect(this, qOverload<const QString&>(&QCompleter::activated), line, &QLineEdit::setText);
}

/// Return on an entry chooses it; the line must not see that Return and send what was typed.
bool tcCommandCompleter::eventFilter(QObject* apWatched, QEvent* apEvent)
{
    // The list is watched from the moment it is made, before it is known here.
    if (mPopup && apWatched == mPopup && apEvent->type() == QEvent::KeyPress) {
        const QModelIndex entry = mPopup->currentIndex();
        const int key = static_cast<QKeyEvent*>(apEvent)->key();
        if (entry.isValid() && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            mPopup->hide();
            mHistory->lineEdit()->setText(entry.data().toString());
            return true;
        }
    }
    return QCompleter::eventFilter(apWatched, apEvent);
}

void tcCommandCompleter::offer(const QString& acTyped)
{
    mPopup = popup(); // made at first need, as few panels are ever typed into
    refill();
    setCompletionPrefix(acTyped);
    if (acTyped.isEmpty() || completionCount() == 0)
        mPopup->hide();
    else
        complete();
}

void tcCommandCompleter::refill()
{
    if (!std::exchange(mOld, false))
        return;
    QStringList entries;
    const int count = std::min(mHistory->count(), cMostOfHistory);
    for (int index = 0; index < count; ++index)
        entries.append(mHistory->itemText(index));
    for (const tcCommandHelp::tcRow& row : tcCommandHelp::cRows)
        entries.append(QString::fromLatin1(row.syntax));
    entries.removeDuplicates();
    mEntries.setStringList(entries);
}

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QLineEdit;

/// Arrow keys of a command line: Up goes back through what was sent, Down comes forward to what
/// was being typed, Escape clears the line, be it on its own or that of an editable list. A
/// child of its line.
class tcHistoryKeys : public QObject
{
    Q_OBJECT

public:
    /// What was sent, the newest first; asked at each key, so it may grow meanwhile.
    using tcHistory = std::function<QStringList()>;

    tcHistoryKeys(QLineEdit* apLine, tcHistory aHistory);

    bool eventFilter(QObject* apWatched, QEvent* apEvent) override;

private:
    void onTextChanged(const QString& acText);
    void go(int anStep);

    QLineEdit* mLine; ///< parent
    tcHistory mHistory;
    QString mDraft;  ///< what was being typed before the first Up
    int mShown = -1; ///< index of the entry in the line; -1 for the draft
};

#include "widgets/tcHistoryKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

tcHistoryKeys::tcHistoryKeys(QLineEdit* apLine, tcHistory aHistory)
    : QObject(apLine), mLine(apLine), mHistory(std::move(aHistory))
{
    mLine->installEventFilter(this);
    // The keys of an editable list go to the list, which hands them to its line past all
    // filters.
    if (QWidget* list = mLine->focusProxy())
        list->installEventFilter(this);
    connect(mLine, &QLineEdit::textEdited, this, [this] { mShown = -1; });
    connect(mLine, &QLineEdit::returnPressed, this, [this] { mShown = -1; });
    // A button sends too, and leaves the line empty.
    connect(mLine, &QLineEdit::textChanged, this, &tcHistoryKeys::onTextChanged);
}

bool tcHistoryKeys::eventFilter(QObject* apWatched, QEvent* apEvent)
{
    if (apEvent->type() != QEvent::KeyPress)
        return QObject::eventFilter(apWatched, apEvent);
    const auto* key = static_cast<QKeyEvent*>(apEvent);
    if (key->modifiers() & ~Qt::KeypadModifier)
        return QObject::eventFilter(apWatched, apEvent);
    switch (key->key()) {
    case Qt::Key_Up:
        go(+1);
        return true;
    case Qt::Key_Down:
        go(-1);
        return true;
    case Qt::Key_Escape:
        if (mLine->text().isEmpty())
            break; // a dialog around it may want the key
        mShown = -1;
        mLine->clear();
        return true;
    default:
        break;
    }
    return QObject::eventFilter(apWatched, apEvent);
}

void tcHistoryKeys::onTextChanged(const QString& acText)
{
    if (acText.isEmpty())
        mShown = -1;
}

void tcHistoryKeys::go(int anStep)
{
    const QStringList history = mHistory();
    // The history may have been begun anew meanwhile.
    const int wanted = qMin(mShown, history.size()) + anStep;
    if (wanted < -1 || wanted >= history.size())
        return;
    if (mShown < 0)
        mDraft = mLine->text();
    mShown = wanted;
    mLine->setText(wanted < 0 ? mDraft : history.at(wanted));
}

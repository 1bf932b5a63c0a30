#include "widgets/tcFindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace
{

QToolButton* addButton(QHBoxLayout* apLayout, Qt::ArrowType aeArrow, const QString& acText)
{
    auto* button = new QToolButton;
    button->setArrowType(aeArrow);
    button->setAutoRaise(true);
    button->setToolTip(acText);
    button->setAccessibleName(acText);
    apLayout->addWidget(button);
    return button;
}

} // namespace

tcFindBar::tcFindBar(QWidget* apParent)
    : QWidget(apParent), mLine(new QLineEdit), mVerdict(new QLabel)
{
    setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    mLine->setPlaceholderText(tr("Find"));
    mLine->setAccessibleName(tr("Find"));
    mLine->setClearButtonEnabled(true);
    layout->addWidget(mLine, 1);
    layout->addWidget(mVerdict);
    auto* back = addButton(layout, Qt::UpArrow, tr("Find previous (Shift+F3)"));
    auto* on = addButton(layout, Qt::DownArrow, tr("Find next (F3)"));
    connect(mLine, &QLineEdit::textChanged, this, &tcFindBar::wantedChanged);
    connect(back, &QToolButton::clicked, this, &tcFindBar::previous);
    connect(on, &QToolButton::clicked, this, &tcFindBar::next);
    setFocusProxy(mLine);
}

QString tcFindBar::wanted() const
{
    return mLine->text();
}

void tcFindBar::beginTyping()
{
    show();
    mLine->setFocus(Qt::ShortcutFocusReason);
    mLine->selectAll();
}

void tcFindBar::showFound(bool abFound)
{
    mVerdict->setText(abFound || wanted().isEmpty() ? QString() : tr("Not found"));
}

void tcFindBar::keyPressEvent(QKeyEvent* apEvent)
{
    if (apEvent->key() == Qt::Key_Escape)
        Q_EMIT closed();
    else if (apEvent->key() == Qt::Key_Return || apEvent->key() == Qt::Key_Enter)
        apEvent->modifiers() & Qt::ShiftModifier ? Q_EMIT previous() : Q_EMIT next();
    else
        QWidget::keyPressEvent(apEvent);
}

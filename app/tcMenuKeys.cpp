#include "app/tcMenuKeys.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>

namespace
{

void openMenuBar(QMenuBar& arBar)
{
    const QList<QAction*> menus = arBar.actions();
    if (!menus.isEmpty() && arBar.isVisible())
        arBar.setActiveAction(menus.first());
}

#ifndef Q_OS_WIN
/// What the menu key does.
void openContextMenu()
{
    QWidget* widget = QApplication::focusWidget();
    if (!widget)
        return;
    const QPoint pos = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, pos, widget->mapToGlobal(pos));
    QApplication::sendEvent(widget, &event);
}
#endif

} // namespace

void tcMenuKeys::install(QMainWindow& arWindow)
{
    auto* bar = new QShortcut(QKeySequence(Qt::Key_F10), &arWindow);
    QObject::connect(bar, &QShortcut::activated, &arWindow,
                     [&arWindow] { openMenuBar(*arWindow.menuBar()); });
#ifndef Q_OS_WIN // where the system itself turns it into a request for the menu
    auto* context = new QShortcut(QKeySequence(Qt::SHIFT + Qt::Key_F10), &arWindow);
    context->setContext(Qt::ApplicationShortcut);
    QObject::connect(context, &QShortcut::activated, &arWindow, &openContextMenu);
#endif
}

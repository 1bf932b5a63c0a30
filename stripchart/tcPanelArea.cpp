#include "stripchart/tcPanelArea.h"

#include <QEvent>
#include <QScrollBar>

QSize tcPanelArea::sizeHint() const
{
    return {neededWidth(), widget() ? widget()->sizeHint().height() : 0};
}

QSize tcPanelArea::minimumSizeHint() const
{
    return {neededWidth(), QScrollArea::minimumSizeHint().height()};
}

bool tcPanelArea::eventFilter(QObject* apObject, QEvent* apEvent)
{
    if (apObject == widget() && apEvent->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(apObject, apEvent);
}

int tcPanelArea::neededWidth() const
{
    const int content = widget() ? widget()->minimumSizeHint().width() : 0;
    return content + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

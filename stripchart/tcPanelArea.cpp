#include "stripchart/tcPanelArea.h"

#include <QEvent>
#include <QScrollBar>

namespace
{
constexpr int cFewestChars = 12;
} // namespace

QSize tcPanelArea::sizeHint() const
{
    return {neededWidth(), widget() ? widget()->sizeHint().height() : 0};
}

QSize tcPanelArea::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * cFewestChars,
            QScrollArea::minimumSizeHint().height()};
}

bool tcPanelArea::eventFilter(QObject* apObject, QEvent* apEvent)
{
    if (apObject == widget() && apEvent->type() == QEvent::LayoutRequest) {
        updateGeometry();
        Q_EMIT contentChanged();
    }
    return QScrollArea::eventFilter(apObject, apEvent);
}

int tcPanelArea::neededWidth() const
{
    const int content = widget() ? widget()->minimumSizeHint().width() : 0;
    return content + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

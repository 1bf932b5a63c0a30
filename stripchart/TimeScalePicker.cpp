#include "stripchart/TimeScalePicker.h"

#include "app/logic/tcPointText.h"
#include "stripchart/tcMarkerTable.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPen>
#include <qwt_event_pattern.h>
#include <qwt_picker_machine.h>
#include <qwt_plot.h>

namespace
{
const QColor cTrackerShade(0, 0, 0, 170); ///< behind the text, so that curves don't cross it
} // namespace

TimeScalePicker::TimeScalePicker(QWidget* apCanvas, tcMarkerTable& arMarkers)
    : QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::CrossRubberBand,
                    QwtPicker::ActiveOnly, apCanvas)
    , mMarkers(arMarkers)
{
    setStateMachine(new QwtPickerDragPointMachine);
    setRubberBandPen(QPen(Qt::green));
    setTrackerPen(QPen(Qt::white));
    setMousePattern(QwtEventPattern::MouseSelect1, Qt::LeftButton, Qt::ControlModifier);
}

bool TimeScalePicker::eventFilter(QObject* apObject, QEvent* apEvent)
{
    if (apObject == canvas() && apEvent->type() == QEvent::MouseButtonPress) {
        mMenuOpened = false;
        if (handlePress(*static_cast<QMouseEvent*>(apEvent)))
            return true;
    } else if (apObject == canvas() && apEvent->type() == QEvent::ContextMenu) {
        const auto* request = static_cast<QContextMenuEvent*>(apEvent);
        const bool byMouse = request->reason() == QContextMenuEvent::Mouse;
        // With Shift the press belongs to the zoomer.
        if (byMouse && (mMenuOpened || request->modifiers().testFlag(Qt::ShiftModifier)))
            return true;
    }
    return QwtPlotPicker::eventFilter(apObject, apEvent);
}

bool TimeScalePicker::handlePress(const QMouseEvent& acEvent)
{
    if (acEvent.button() == Qt::LeftButton && acEvent.modifiers().testFlag(Qt::AltModifier)) {
        Q_EMIT markerRequest(acEvent.pos());
        return true;
    }
    if (acEvent.button() != Qt::RightButton || !mMarkers.markerAt(acEvent.pos()))
        return false;
    mMenuOpened = true;
    QMenu* menu = mMarkers.menuFor(mMarkers.keyAt(acEvent.pos())).release();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(acEvent.globalPos());
    return true;
}

QwtText TimeScalePicker::trackerTextF(const QPointF& acPoint) const
{
    QwtText text(tcPointText::timed(acPoint.x(), acPoint.y()));
    text.setBackgroundBrush(cTrackerShade);
    return text;
}

#pragma once

#include <QPoint>
#include <qwt_plot_picker.h>

class tcMarkerTable;

/// Reads time and value under the mouse, and turns clicks on the canvas into markers and their
/// menus.
class TimeScalePicker : public QwtPlotPicker
{
    Q_OBJECT

public:
    /// Belongs to the canvas; arMarkers outlives it.
    TimeScalePicker(QWidget* apCanvas, tcMarkerTable& arMarkers);

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

Q_SIGNALS:
    void markerRequest(const QPoint& pos); ///< in pixels of the canvas

protected:
    QwtText trackerTextF(const QPointF& acPoint) const override;

private:
    bool handlePress(const QMouseEvent& acEvent);

    tcMarkerTable& mMarkers;
    bool mMenuOpened = false; ///< by the latest press, whose plot menu stays away then
};

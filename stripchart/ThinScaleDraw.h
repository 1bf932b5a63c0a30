#pragma once

#include <qwt_scale_draw.h>

/// Leaves labels of an upright axis out evenly where it is too low for all, so that no two
/// touch.
class ThinScaleDraw : public QwtScaleDraw
{
protected:
    void drawLabel(QPainter* apPainter, double anValue) const override;
};

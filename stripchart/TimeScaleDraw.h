#pragma once

#include <qwt_scale_draw.h>

/// Labels times, in ms since the epoch, with the local clock time.
class TimeScaleDraw : public QwtScaleDraw
{
public:
    void setShowMilliseconds(bool abOn);
    bool showMilliseconds() const { return mShowMilliseconds; }

    QwtText label(double anMsSinceEpoch) const override;

protected:
    /// Draws no label that would touch its neighbour.
    void drawLabel(QPainter* apPainter, double anValue) const override;

private:
    bool mShowMilliseconds = false;
};

#include "stripchart/TimeScaleDraw.h"

#include "app/logic/tcPointText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <qwt_scale_map.h>

#include <cmath>

void TimeScaleDraw::setShowMilliseconds(bool abOn)
{
    mShowMilliseconds = abOn;
    invalidateCache();
}

QwtText TimeScaleDraw::label(double anMsSinceEpoch) const
{
    const QString time = tcPointText::clock(anMsSinceEpoch);
    return mShowMilliseconds ? time : time.section('.', 0, 0);
}

void TimeScaleDraw::drawLabel(QPainter* apPainter, double anValue) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    // Slanted labels lie side by side: what counts is their height across the slant.
    const double slant = std::abs(std::sin(labelRotation() * 3.14159265358979 / 180.0));
    const double height = QFontMetricsF(apPainter->font()).height();
    const double room
        = slant > 0.1 ? height / slant : labelSize(apPainter->font(), anValue).width();
    const double gaps = std::max(ticks.size() - 1, 1);
    const double gap = ticks.size() < 2
        ? room
        : std::abs(scaleMap().transform(ticks.last()) - scaleMap().transform(ticks.first()))
            / gaps;
    const int stride = std::max(1, static_cast<int>(std::ceil(room / std::max(gap, 1.0))));
    // Counted from the epoch, so that the same times keep their labels while the axis scrolls.
    const double step = ticks.size() < 2 ? 1.0 : (ticks.last() - ticks.first()) / gaps;
    if (std::fmod(std::round(anValue / step), stride) == 0.0)
        QwtScaleDraw::drawLabel(apPainter, anValue);
}

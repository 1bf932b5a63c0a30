#include "stripchart/ThinScaleDraw.h"

#include "stripchart/logic/tcAxisMath.h"

#include <QFontMetricsF>
#include <QPainter>

void ThinScaleDraw::drawLabel(QPainter* apPainter, double anValue) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double height = QFontMetricsF(apPainter->font()).height();
    const int stride = tcAxisMath::labelStride(ticks.size(), length(), height);
    if (ticks.indexOf(anValue) % stride == 0)
        QwtScaleDraw::drawLabel(apPainter, anValue);
}

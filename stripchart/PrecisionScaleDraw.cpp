#include "stripchart/PrecisionScaleDraw.h"

#include "stripchart/logic/tcAxisMath.h"

#include <QFontMetricsF>
#include <QPainter>

void PrecisionScaleDraw::setPrecision(int anDecimals)
{
    mPrecision = anDecimals;
    invalidateCache();
}

QwtText PrecisionScaleDraw::label(double anValue) const
{
    return QString::number(anValue, 'f', mPrecision);
}

void PrecisionScaleDraw::drawLabel(QPainter* apPainter, double anValue) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    const double height = QFontMetricsF(apPainter->font()).height();
    const int stride = tcAxisMath::labelStride(ticks.size(), length(), height);
    if (ticks.indexOf(anValue) % stride == 0)
        QwtScaleDraw::drawLabel(apPainter, anValue);
}

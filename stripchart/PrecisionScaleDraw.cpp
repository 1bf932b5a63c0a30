#include "stripchart/PrecisionScaleDraw.h"

void PrecisionScaleDraw::setPrecision(int anDecimals)
{
    mPrecision = anDecimals;
    invalidateCache();
}

QwtText PrecisionScaleDraw::label(double anValue) const
{
    return QString::number(anValue, 'f', mPrecision);
}

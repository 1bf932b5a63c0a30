#pragma once

#include <qwt_scale_draw.h>

/// Labels values with a fixed number of decimals.
class PrecisionScaleDraw : public QwtScaleDraw
{
public:
    void setPrecision(int anDecimals);
    int precision() const { return mPrecision; }

    QwtText label(double anValue) const override;

protected:
    /// On a low axis labels are left out evenly, so that no two touch.
    void drawLabel(QPainter* apPainter, double anValue) const override;

private:
    int mPrecision = 3;
};

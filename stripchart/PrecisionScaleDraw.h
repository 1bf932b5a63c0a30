#pragma once

#include "stripchart/ThinScaleDraw.h"

/// Labels values with a fixed number of decimals.
class PrecisionScaleDraw : public ThinScaleDraw
{
public:
    void setPrecision(int anDecimals);
    int precision() const { return mPrecision; }

    QwtText label(double anValue) const override;

private:
    int mPrecision = 3;
};

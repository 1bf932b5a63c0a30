#pragma once

#include <qwt_scale_engine.h>

/// Divides a time axis, in ms, at round times: every 15 seconds, never every 20000/3 ms.
class TimeScaleEngine : public QwtLinearScaleEngine
{
public:
    /// A step of 0 is chosen to suit; any other is taken as it is.
    QwtScaleDiv divideScale(double anFrom, double anTo, int anMaxMajor, int anMaxMinor,
                            double anStep = 0.0) const override;
};

#include "stripchart/TimeScaleEngine.h"

#include "stripchart/logic/tcAxisMath.h"

#include <cmath>

QwtScaleDiv TimeScaleEngine::divideScale(double anFrom, double anTo, int anMaxMajor,
                                         int anMaxMinor, double anStep) const
{
    const double step
        = anStep == 0.0 ? tcAxisMath::timeStep(std::abs(anTo - anFrom), anMaxMajor) : anStep;
    return QwtLinearScaleEngine::divideScale(anFrom, anTo, anMaxMajor, anMaxMinor, step);
}

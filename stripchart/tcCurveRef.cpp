#include "stripchart/tcCurveRef.h"

#include "stripchart/tcStripCurve.h"

#include <qwt_plot.h>

tcCurveRef::tcCurveRef(const QwtPlot& acPlot, tcStripCurve* apCurve, QObject* apParent)
    : QObject(apParent)
{
    if (!apCurve || apCurve->plot() != &acPlot)
        return;
    mCurve = apCurve;
    connect(&acPlot, &QwtPlot::itemAttached, this, [this](QwtPlotItem* apItem, bool abOn) {
        // A curve that is being deleted tells so as a mere plot item: compare, never look
        // inside.
        if (abOn || !mCurve || apItem != static_cast<QwtPlotItem*>(mCurve))
            return;
        mCurve = nullptr;
        Q_EMIT gone();
    });
}

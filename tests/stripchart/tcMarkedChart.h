#pragma once

#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"
#include "tests/stripchart/tcChartProbe.h"
#include "tests/support/tcScriptedDialogs.h"

/// A chart from 0 to 100 with one curve "A" that holds one sample: 40, four seconds ago.
struct tcMarkedChart : tcChartProbe
{
    static constexpr double cT = static_cast<double>(cNow);

    tcMarkedChart()
    {
        a = curve("A");
        key = chart->addCurve(a.get());
        a->addSample(now - 4000, 40.0);
        chart->setYRange(0, 0.0, 100.0);
        chart->stopUpdates();
        show();
        chart->tick();
        plot->replot();
    }
    ~tcMarkedChart() { a.reset(); }

    QPoint samplePixel() const { return pixel(cT - 4000.0, 40.0); }
    tcStripMarker* only() const { return chart->markers().markers().first(); }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
    tcScriptedDialogs dialogs;
};

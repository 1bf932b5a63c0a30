#pragma once

#include "sim/chartdemo/tcChartFeed.h"
#include "stripchart/tcStripChart.h"

#include <QElapsedTimer>
#include <QTimer>

class tcStripCurve;

/// A chart and the curves that feed it. It owns both.
class tcDemoWindow : public QObject
{
    Q_OBJECT

public:
    struct tcOptions
    {
        int curves = 6;
        double rate = 4.0; ///< readings a second and curve
        int samples = 400; ///< that each curve begins with
        int keep = 1000;   ///< that each curve keeps
        int spanS = 60;
        quint32 seed = 1;
        bool longNames = false;
        bool minMax = false;
        int markers = 0;
    };

    explicit tcDemoWindow(const tcOptions& acOptions);
    ~tcDemoWindow() override;

    tcStripChart& chart() { return mChart; }

private:
    void addCurves();
    void fillPast();
    void addExtras();
    void feed();

    tcOptions mOptions;
    tcChartFeed mFeed;
    tcStripChart mChart;
    QVector<tcStripCurve*> mCurves; ///< owned
    QUuid mKey;
    QTimer mTimer;
    qint64 mFedUntilMs = 0;
};

#include "sim/chartdemo/tcDemoWindow.h"

#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripCurve.h"

#include <QAction>
#include <QDateTime>
#include <QMenu>
#include <QPen>
#include <QSpinBox>
#include <qwt_plot.h>

#include <algorithm>
#include <vector>

namespace
{
constexpr int cFeedIntervalMs = 10;
} // namespace

tcDemoWindow::tcDemoWindow(const tcOptions& acOptions)
    : mOptions(acOptions)
    , mFeed(acOptions.curves, acOptions.seed, acOptions.longNames)
    , mFedUntilMs(QDateTime::currentMSecsSinceEpoch())
{
    mChart.setChartName(QStringLiteral("Demo"));
    mChart.findChild<QSpinBox*>(QStringLiteral("spinBoxSamples"))->setValue(mOptions.keep);
    addCurves();
    fillPast();
    mChart.findChild<QSpinBox*>(QStringLiteral("spinBoxSpanSec"))->setValue(mOptions.spanS);
    mChart.tick();
    addExtras();
    connect(&mTimer, &QTimer::timeout, this, &tcDemoWindow::feed);
    mTimer.start(cFeedIntervalMs);
}

tcDemoWindow::~tcDemoWindow()
{
    qDeleteAll(mCurves);
}

void tcDemoWindow::addCurves()
{
    mChart.setYRange(0, 10.0, 50.0);
    mKey = QUuid::createUuid();
    for (int i = 0; i < mFeed.channels().size(); ++i) {
        auto* curve = new tcStripCurve(i);
        curve->setTitle(mFeed.channels().at(i).name);
        curve->setPen(tcStripCurve::stripCurveColor(i));
        mCurves.append(curve);
        mChart.addCurve(curve, mKey);
        if (!mFeed.channels().at(i).right)
            continue;
        mChart.assignAxis(curve, 1);
        mChart.setYRange(1, 0.0, 100.0);
    }
}

void tcDemoWindow::fillPast()
{
    const auto count = static_cast<std::size_t>(mOptions.samples);
    const double step = 1000.0 / mOptions.rate;
    std::vector<double> times(count);
    std::vector<double> values(count);
    for (int i = 0; i < mCurves.size(); ++i) {
        for (std::size_t k = 0; k < count; ++k) {
            times[k] = static_cast<double>(mFedUntilMs) - step * static_cast<double>(count - k);
            values[k] = mFeed.value(i, static_cast<qint64>(times[k]));
        }
        mCurves.at(i)->addSamples(times.data(), values.data(), mOptions.samples);
    }
}

void tcDemoWindow::addExtras()
{
    mChart.showMinMax(mOptions.minMax);
    if (mOptions.minMax) {
        const QUuid line = mChart.addLineMarker(QStringLiteral("Set Point"), 25.0);
        mChart.setLineMarker(line, 18.0, QPen(Qt::white, 0.0, Qt::DashLine));
    }
    auto* plot = mChart.findChild<QwtPlot*>(QStringLiteral("qwtPlot"));
    plot->updateAxes();
    for (int i = 0; i < mOptions.markers; ++i)
        mChart.markers().place({40 + 37 * i % 500, 30 + 23 * i % 150});
}

void tcDemoWindow::feed()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const double step = 1000.0 / mOptions.rate;
    const auto first = static_cast<qint64>(static_cast<double>(mFedUntilMs) / step) + 1;
    const auto last = static_cast<qint64>(static_cast<double>(now) / step);
    for (qint64 k = first; k <= last; ++k) {
        const auto time = static_cast<qint64>(static_cast<double>(k) * step);
        for (int i = 0; i < mCurves.size(); ++i)
            mChart.updateData(mKey, i, time, mFeed.value(i, time));
    }
    mFedUntilMs = std::max(now, mFedUntilMs);
}

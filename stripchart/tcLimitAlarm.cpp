#include "stripchart/tcLimitAlarm.h"

#include "app/logic/tcPointText.h"
#include "stripchart/logic/tcMeasure.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripLegend.h"
#include "widgets/tcDialogs.h"

#include <QPointer>
#include <qwt_plot.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace
{
constexpr int cIntervalMs = 250;

qint64 readings(const tcStripCurve& acCurve)
{
    std::vector<double> times;
    std::vector<double> values;
    return acCurve.copyAddedSince(std::numeric_limits<int>::max(), times, values);
}
} // namespace

tcLimitAlarm::tcLimitAlarm(QwtPlot& arPlot, QwtLegend& arLegend, std::function<bool()> acIsLive)
    : mPlot(arPlot), mLegend(arLegend), mIsLive(std::move(acIsLive))
{
    mTimer.setInterval(cIntervalMs);
    connect(&mTimer, &QTimer::timeout, this, &tcLimitAlarm::poll);
}

void tcLimitAlarm::setLimits(const QString& acCurve, const tcLimits& acLimits)
{
    dropGone();
    if (acLimits.isOff())
        mLimits.remove(acCurve);
    else
        mLimits.insert(acCurve, acLimits);
    for (auto watched = mWatched.begin(); watched != mWatched.end();) {
        const bool isIt = watched->name == acCurve;
        if (isIt)
            watched->watch.setLimits(acLimits);
        if (isIt && acLimits.isOff()) {
            color(*watched->curve, false);
            watched = mWatched.erase(watched);
            continue;
        }
        if (isIt)
            watched->seen = std::max<qint64>(0, watched->seen - 1); // judge the newest anew
        ++watched;
    }
    if (mLimits.isEmpty())
        return mTimer.stop();
    mTimer.start();
    poll();
}

tcLimits tcLimitAlarm::proposal(const QString& acCurve) const
{
    tcLimits proposed{0.0, 0.0};
    double lowest = 0.0;
    double highest = 0.0;
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (const QwtPlotItem* item : items) {
        const auto* curve = static_cast<const tcStripCurve*>(item);
        if (curve->title().text() != acCurve || !curve->finiteYRange(&lowest, &highest))
            continue;
        proposed.lower = std::floor(lowest);
        proposed.upper = std::ceil(highest);
        break;
    }
    return proposed;
}

void tcLimitAlarm::dropGone()
{
    const auto isGone = [](const tcWatched& acEach) { return acEach.lifetime.expired(); };
    mWatched.erase(std::remove_if(mWatched.begin(), mWatched.end(), isGone), mWatched.end());
}

void tcLimitAlarm::poll()
{
    dropGone();
    if (mIsLive())
        meetCurves();
    for (tcWatched& watched : mWatched)
        look(watched);
    // Once, however many readings came at a time.
    if (std::exchange(mBellDue, false))
        tcDialogs::current().bell();
    // Last, since whoever hears it may change anything here.
    const QPointer<tcLimitAlarm> alive(this);
    const QStringList texts = std::exchange(mTexts, {});
    for (const QString& text : texts)
        if (alive)
            Q_EMIT crossed(text);
}

void tcLimitAlarm::meetCurves()
{
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items) {
        auto* curve = static_cast<tcStripCurve*>(item);
        const QString name = curve->title().text();
        const auto isIt = [curve](const tcWatched& acEach) { return acEach.curve == curve; };
        if (!mLimits.contains(name) || std::any_of(mWatched.cbegin(), mWatched.cend(), isIt))
            continue;
        tcLimitWatch watch;
        watch.setLimits(mLimits.value(name));
        // The newest reading is judged at once, those before it are history.
        mWatched.push_back(
            {curve, curve->lifetime(), name, std::max<qint64>(0, readings(*curve) - 1), watch});
    }
}

void tcLimitAlarm::look(tcWatched& arWatched)
{
    const QString name = arWatched.curve->title().text();
    if (name != arWatched.name) {
        mLimits.insert(name, mLimits.take(arWatched.name));
        arWatched.name = name;
    }
    std::vector<double> times;
    std::vector<double> values;
    arWatched.seen = arWatched.curve->copyAddedSince(arWatched.seen, times, values);
    for (std::size_t i = 0; i < values.size(); ++i)
        if (arWatched.watch.add(values[i]))
            tell(arWatched, times[i], values[i]);
    color(*arWatched.curve, arWatched.watch.state() != tcLimitWatch::teState::Inside);
}

void tcLimitAlarm::tell(const tcWatched& acWatched, double anTimeMs, double anValue)
{
    const QString time = tcPointText::clock(anTimeMs);
    const QString name = acWatched.name.trimmed(); // a camera's sensor ends in a blank
    const QString value = tcMeasure::valueText(anValue);
    const tcLimits& limits = acWatched.watch.limits();
    const tcLimitWatch::teState state = acWatched.watch.state();
    if (state != tcLimitWatch::teState::Inside && mBeeps)
        mBellDue = true;
    if (state == tcLimitWatch::teState::Above)
        mTexts.append(
            tr("%1: %2 is above the upper limit of %3, at %4")
                .arg(name, value, tcMeasure::valueText(limits.upper.value_or(0.0)), time));
    else if (state == tcLimitWatch::teState::Below)
        mTexts.append(
            tr("%1: %2 is below the lower limit of %3, at %4")
                .arg(name, value, tcMeasure::valueText(limits.lower.value_or(0.0)), time));
    else
        mTexts.append(tr("%1: %2 is within its limits again, at %3").arg(name, value, time));
}

void tcLimitAlarm::color(tcStripCurve& arCurve, bool abAlarm)
{
    if (arCurve.plot() != &mPlot)
        return;
    QWidget* widget = mLegend.legendWidget(mPlot.itemToInfo(&arCurve));
    if (auto* label = qobject_cast<tcLegendLabel*>(widget))
        label->setAlarm(abAlarm);
}

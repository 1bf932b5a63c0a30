#include "stripchart/tcLoadedFile.h"

#include "stripchart/logic/tcCsvReader.h"
#include "stripchart/tcCurveTable.h"
#include "stripchart/tcStripCurve.h"

#include <algorithm>
#include <limits>

tcLoadedFile::tcLoadedFile() = default;
tcLoadedFile::~tcLoadedFile() = default;

bool tcLoadedFile::owns(const tcStripCurve* apCurve) const
{
    return std::any_of(mCurves.begin(), mCurves.end(),
                       [apCurve](const auto& acOwned) { return acOwned.get() == apCurve; });
}

void tcLoadedFile::setLiveAside(const tcCurveTable& acCurves)
{
    for (const QUuid& key : acCurves.keys()) {
        for (tcStripCurve* curve : acCurves.curves(key)) {
            if (!owns(curve))
                mWaiting.append(
                    {key, curve, curve->lifetime(), curve->index(), curve->isVisible()});
        }
    }
}

bool tcLoadedFile::show(tcCsvReader& arReader, const tcFiling& acFile, const tcStep& acStep)
{
    mCurves.clear();
    mShown = true;
    const QUuid key = QUuid::createUuid();
    const auto columns = arReader.columnCount();
    mCurves.reserve(columns);
    for (size_t i = 0; i < columns; ++i) {
        auto curve = std::make_unique<tcStripCurve>(static_cast<int>(i));
        curve->setTitle(QwtText(arReader.title(i), QwtText::PlainText));
        curve->setPen(tcStripCurve::stripCurveColor(static_cast<int>(i)));
        mCurves.push_back(std::move(curve));
        acFile(mCurves.back().get(), key);
        const tcColumnView samples = arReader.samples(i);
        const auto rows = static_cast<int>(
            std::min<qint64>(samples.count, std::numeric_limits<int>::max() - 1));
        // Filing gave it the capacity of live curves; a file is shown whole.
        if (rows > mCurves.back()->sampleCount())
            mCurves.back()->setSampleCount(rows);
        mCurves.back()->addSamples(samples.times, samples.values, rows);
        arReader.release(i);
        if (!acStep(static_cast<qint64>(i), static_cast<qint64>(columns)))
            return false;
    }
    return true;
}

void tcLoadedFile::resume(const tcFiling& acFile)
{
    mCurves.clear();
    mShown = false;
    const QVector<tcLive> waiting = std::exchange(mWaiting, {});
    for (const tcLive& live : waiting) {
        // Its maker may have shown it again meanwhile.
        if (live.life.expired() || live.curve->plot())
            continue;
        acFile(live.curve, live.key);
        if (!live.visible)
            live.curve->setVisible(false);
    }
}

tcStripCurve* tcLoadedFile::waiting(const QUuid& acKey, int anIndex) const
{
    for (const tcLive& live : mWaiting) {
        if (live.key == acKey && live.index == anIndex && !live.life.expired())
            return live.curve;
    }
    return nullptr;
}

void tcLoadedFile::forget(const tcStripCurve* apCurve)
{
    const auto isIt = [apCurve](const tcLive& acLive) { return acLive.curve == apCurve; };
    mWaiting.erase(std::remove_if(mWaiting.begin(), mWaiting.end(), isIt), mWaiting.end());
}

void tcLoadedFile::forget(const QUuid& acKey)
{
    const auto isIt = [&acKey](const tcLive& acLive) { return acLive.key == acKey; };
    mWaiting.erase(std::remove_if(mWaiting.begin(), mWaiting.end(), isIt), mWaiting.end());
}

bool tcLoadedFile::timeRange(double* apFirst, double* apLast) const
{
    bool any = false;
    for (const auto& curve : mCurves) {
        double first = 0;
        double last = 0;
        if (!curve->finiteXRange(&first, &last))
            continue;
        *apFirst = any ? std::min(*apFirst, first) : first;
        *apLast = any ? std::max(*apLast, last) : last;
        any = true;
    }
    return any;
}

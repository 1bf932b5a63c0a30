#pragma once

#include "stripchart/logic/tcSampleStore.h"

#include <qwt_series_data.h>

#include <memory>
#include <mutex>

/// The samples of one curve and their lock. The lock is not recursive and is never held while
/// something outside is called.
struct tcLockedSamples
{
    mutable std::mutex mutex;
    tcSampleStore store;
};

/// Shows the samples of a curve to the plot without copying them. Any thread may ask.
class tcCurveSeries : public QwtSeriesData<QPointF>
{
public:
    explicit tcCurveSeries(std::shared_ptr<tcLockedSamples> apSamples);

    std::size_t size() const override;
    /// A null point beyond the end, where a shrinking series may leave its reader.
    QPointF sample(std::size_t anIndex) const override;
    /// Over finite numbers; invalid, as for an empty series, when one coordinate has none.
    QRectF boundingRect() const override;

private:
    std::shared_ptr<tcLockedSamples> mSamples;
};

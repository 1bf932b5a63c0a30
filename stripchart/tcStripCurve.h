#pragma once

#include <QVector>
#include <qwt_plot_curve.h>

#include <memory>
#include <vector>

class tcCurveNotifier;
class tcCurveSeries;
class tcStripMarker;
struct tcLockedSamples;

/// One live series of the strip chart over a bounded store of samples. What is drawn, and what
/// the inherited queries tell, is the store itself at any time.
///
/// Samples may be added from any thread; everything else belongs to the GUI thread. Owned by
/// whoever made it; it does not own the markers that follow it.
class tcStripCurve : public QwtPlotCurve
{
public:
    explicit tcStripCurve(int anIndex);
    ~tcStripCurve() override;

    static constexpr int cRtti = QwtPlotItem::Rtti_PlotUserItem; ///< 1000
    int rtti() const override { return cRtti; }
    int index() const { return mIndex; } ///< the curve's place within its source

    /// One of fifteen colours; negative indices count from the end.
    static QColor stripCurveColor(int anIndex);

    /// A full curve drops its oldest sample for the new one. Time in ms since the epoch.
    void addSample(qint64 anMsSinceEpoch, double anValue);
    /// The same for each of anCount samples, shown as one change.
    void addSamples(const double* apTimes, const double* apValues, int anCount);
    void clear();

    /// The number of samples kept is one more than this, 100 for a new curve. Raising it
    /// changes no sample; lowering it cuts the times, or pads them with zeros, to this number.
    void setSampleCount(int anCount);
    int sampleCount() const;

    /// The markers that follow the curve are shown and hidden with it.
    void setVisible(bool abOn) override;

    void addMarker(tcStripMarker* apMarker); ///< once, however often it is called
    void removeMarker(tcStripMarker* apMarker);
    QVector<tcStripMarker*> markers() const { return mMarkers; }

    /// Samples from anFirst on as they are at one moment, either array may be null; returns how
    /// many were copied.
    int copySamples(int anFirst, int anCount, double* apTimes, double* apValues) const;
    /// The readings added after the first anSeen, as far as they are still held, each with its
    /// own time; returns how many were added since the curve was made.
    qint64 copyAddedSince(qint64 anSeen, std::vector<double>& arTimes,
                          std::vector<double>& arValues) const;

    /// Expires with the curve, so that whoever keeps its address can tell.
    std::weak_ptr<const void> lifetime() const { return mSamples; }

    /// Smallest and largest value (time) that is a finite number; false when there is none.
    bool finiteYRange(double* apLowest, double* apHighest) const;
    bool finiteXRange(double* apEarliest, double* apLatest) const;

    /// Exact, where the height of a rectangle would round. 1 and -1 as with the rectangle when
    /// there is no finite value.
    double minYValue() const;
    double maxYValue() const;

protected:
    /// Paints what can be seen of the samples; the lock is held only while that is found out.
    void drawLines(QPainter* apPainter, const QwtScaleMap& acX, const QwtScaleMap& acY,
                   const QRectF& acCanvas, int anFrom, int anTo) const override;

private:
    // The series belongs to the store for good.
    using QwtPlotCurve::setRawSamples;
    using QwtPlotCurve::setSamples;
    using QwtSeriesStore<QPointF>::setData;
    using QwtSeriesStore<QPointF>::swapData;

    bool isPlainLine(QPainter* apPainter, const QwtScaleMap& acX, const QwtScaleMap& acY) const;
    void samplesChanged();

    int mIndex;
    std::shared_ptr<tcLockedSamples> mSamples; ///< shared with the series alone
    std::unique_ptr<tcCurveNotifier> mNotifier;
    QVector<tcStripMarker*> mMarkers; ///< not owned
};

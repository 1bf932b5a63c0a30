#pragma once

#include <QUuid>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

class QwtPlot;
class tcCsvReader;
class tcCurveTable;
class tcStripCurve;

/// The curves of the file that the chart shows, which it owns, and the live curves that wait
/// meanwhile, which it does not: their makers may delete them at any time. GUI thread only.
class tcLoadedFile
{
public:
    using tcFiling = std::function<QUuid(tcStripCurve*, const QUuid&)>;
    using tcStep = std::function<bool(qint64 anDone, qint64 anTotal)>;

    tcLoadedFile();
    ~tcLoadedFile();

    bool isShown() const { return mShown; }

    /// Puts the live curves of the table aside and deletes those of a file shown before.
    void setLiveAside(const tcCurveTable& acCurves);
    /// Makes one curve for each column, filed under one new key, and moves the samples over.
    /// False when acStep said stop; some columns are missing then.
    bool show(tcCsvReader& arReader, const tcFiling& acFile, const tcStep& acStep);
    /// Deletes the curves of the file and files the live ones again, each as visible as it was.
    void resume(const tcFiling& acFile);

    /// A live curve that waits; null for any other.
    tcStripCurve* waiting(const QUuid& acKey, int anIndex) const;
    /// Takes a live curve out of those that wait.
    void forget(const tcStripCurve* apCurve);
    void forget(const QUuid& acKey);

    /// Of all samples shown; false when there is none.
    bool timeRange(double* apFirst, double* apLast) const;

private:
    struct tcLive
    {
        QUuid key;
        tcStripCurve* curve = nullptr; ///< not owned
        std::weak_ptr<const void> life;
        int index = 0;
        bool visible = true;
    };

    bool owns(const tcStripCurve* apCurve) const;

    std::vector<std::unique_ptr<tcStripCurve>> mCurves;
    QVector<tcLive> mWaiting;
    bool mShown = false;
};

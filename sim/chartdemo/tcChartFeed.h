#pragma once

#include <QString>
#include <QVector>

/// Values as a camera's sensors would give them: slow drift, a cooler that swings in, noise.
/// The same seed gives the same values.
class tcChartFeed
{
public:
    static constexpr int cMaxCurves = 16;

    struct tcChannel
    {
        QString name;
        double base = 0.0;
        double swing = 0.0;
        double periodS = 1.0;
        double noise = 0.0;
        bool right = false; ///< belongs on the right axis
    };

    /// 1 to 16 curves; other numbers are brought into that range.
    tcChartFeed(int anCurves, quint32 anSeed, bool abLongNames);

    const QVector<tcChannel>& channels() const { return mChannels; }
    /// The value of a channel at a time in ms; any order of times.
    double value(int anChannel, qint64 anMs) const;

private:
    QVector<tcChannel> mChannels;
    quint32 mSeed;
};

#pragma once

#include <QString>

#include <functional>
#include <vector>

/// Recorded readings on their way through the present once more, at a speed of their own: told
/// the time, it hands out what is due. A reading is stamped with the moment at which it is due,
/// so that at ten times the speed a recorded minute takes six seconds of the chart. Not
/// thread-safe.
class tcReplay
{
public:
    static constexpr int cMinSpeed = 1;
    static constexpr int cMaxSpeed = 1000;
    /// No step hands out more, so that one that comes late does not block; the next goes on.
    static constexpr int cMaxPerStep = 20000;

    struct tcColumn
    {
        QString title;
        std::vector<double> times; ///< ms since the epoch, in any order
        std::vector<double> values;
    };
    using tcSink = std::function<void(size_t anColumn, qint64 anMsSinceEpoch, double anValue)>;

    /// The earliest reading of all columns is due at anNow; speeds out of range are brought
    /// into it.
    tcReplay(std::vector<tcColumn> aColumns, int anSpeed, qint64 anNow);

    /// Hands out what is due up to anNow, all columns together in the order of time. False when
    /// nothing is left. The sink must not do away with the replay.
    bool step(qint64 anNow, const tcSink& acSink);

    /// Begins anew: the earliest reading is due at anNow.
    void restart(qint64 anNow);
    /// Of the present, from the first reading to the last, in ms.
    qint64 duration() const;

    size_t columnCount() const { return mColumns.size(); }
    QString title(size_t anColumn) const { return mColumns[anColumn].title; }
    size_t readings(size_t anColumn) const { return mColumns[anColumn].times.size(); }
    int speed() const { return mSpeed; }

private:
    struct tcCursor
    {
        QString title;
        std::vector<double> times;
        std::vector<double> values;
        size_t next = 0;
    };

    static tcCursor sorted(tcColumn aColumn);
    /// The column whose next reading is the earliest; null when nothing is left.
    tcCursor* earliest();
    qint64 dueAt(double anTime) const;

    std::vector<tcCursor> mColumns;
    int mSpeed;
    qint64 mStart;     ///< present at which the first reading is due
    double mFirst = 0; ///< recorded time of it
};

#pragma once

#include "stripchart/logic/tcLimitWatch.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class QwtLegend;
class QwtPlot;
class tcStripCurve;

/// Watches the readings of curves for limits, however they come into the curve, and colours the
/// legend's entry of a curve that left them. Limits belong to a curve's name, so that they hold
/// for the curves of the next start too; a curve that is renamed takes them along.
///
/// Nothing runs while there are no limits.
class tcLimitAlarm : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it. acIsLive tells whether new curves hold live readings: those of a file
    /// that is looked at are not watched, while live curves behind it are.
    tcLimitAlarm(QwtPlot& arPlot, QwtLegend& arLegend, std::function<bool()> acIsLive);

    tcLimits limits(const QString& acCurve) const { return mLimits.value(acCurve); }
    void setLimits(const QString& acCurve, const tcLimits& acLimits);
    /// Limits about all that the curve holds, to begin with: switched on, they alarm nobody
    /// yet.
    tcLimits proposal(const QString& acCurve) const;
    bool beeps() const { return mBeeps; }
    void setBeeps(bool abOn) { mBeeps = abOn; }

    void poll(); ///< looks at the readings that came since; the timer calls it

Q_SIGNALS:
    /// For the operator: curve, value, limit and the time of the reading.
    void crossed(const QString& acText);

private:
    struct tcWatched
    {
        tcStripCurve* curve; ///< not owned; gone when the lifetime has expired
        std::weak_ptr<const void> lifetime;
        QString name;
        qint64 seen;
        tcLimitWatch watch;
    };

    void dropGone();
    void meetCurves();
    void look(tcWatched& arWatched);
    void tell(const tcWatched& acWatched, double anTimeMs, double anValue);
    void color(tcStripCurve& arCurve, bool abAlarm);

    QwtPlot& mPlot;
    QwtLegend& mLegend;
    std::function<bool()> mIsLive;
    QMap<QString, tcLimits> mLimits;
    std::vector<tcWatched> mWatched;
    QStringList mTexts; ///< still to be told
    QTimer mTimer;
    bool mBeeps = false;
    bool mBellDue = false;
};

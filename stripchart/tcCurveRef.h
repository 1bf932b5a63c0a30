#pragma once

#include <QObject>

class QwtPlot;
class tcStripCurve;

/// Points at a curve for as long as it is on the plot; null once it left it, was deleted, or
/// the plot itself is gone. What waits for the operator (a menu, a dialog) holds curves in this
/// way, since their makers may delete them at any time.
class tcCurveRef : public QObject
{
    Q_OBJECT

public:
    /// A curve that is on another plot, or on none, is null from the start.
    tcCurveRef(const QwtPlot& acPlot, tcStripCurve* apCurve, QObject* apParent = nullptr);

    tcStripCurve* get() const { return mCurve; }

Q_SIGNALS:
    void gone(); ///< get() is null already

private:
    tcStripCurve* mCurve = nullptr; ///< not owned
};

#pragma once

#include "stripchart/logic/tcAxisMath.h"

#include <QObject>

class PrecisionScaleDraw;
class QDoubleSpinBox;
class QRectF;
class QwtPlot;
class QwtPlotGrid;
class TimeScaleDraw;
class tcStripCurve;
namespace Ui
{
class StripChart;
}

/// Scales the axes of the plot, by hand from the boxes of the left panel and to what the curves
/// hold. Value axes are numbered 0 (left) and 1 (right); times are ms since the epoch.
class tcAxisControl : public QObject
{
    Q_OBJECT

public:
    /// Gives the axes their scale draws, the boxes their first values and ranges; arForm and
    /// arGrid outlive the control.
    tcAxisControl(Ui::StripChart& arForm, QwtPlotGrid& arGrid);

    /// Width of the window that scrolls with the clock, in ms; 0 stops the scrolling.
    qint64 spanMs() const { return mSpanMs; }
    void setSpanMs(qint64 anSpanMs) { mSpanMs = anSpanMs; }
    /// The operator's span in seconds; anNowMs is the present.
    void changeSpan(int anSeconds, qint64 anNowMs);
    /// With as many labelled times as the plot has room for. A range without a width is
    /// ignored, here and below.
    void setXRange(double anFrom, double anTo);
    /// Widens the time axis to all samples of the curve.
    void includeTimesOf(const tcStripCurve& acCurve);
    /// Scrolls the time axis so that it ends at anEndMs.
    void scrollTo(qint64 anEndMs);
    /// Held, the time axis stays where it is when it should scroll.
    void setHeld(bool abOn) { mHeld = abOn; }

    void applyBoxes(int anAxis); ///< makes the axis show what its boxes say
    /// Writes the range into the boxes of the axis, within their limits, and applies it.
    void setYRange(int anAxis, double anFrom, double anTo);
    void copyLimitsToBoxes(); ///< of both axes; changes neither
    /// Fits the axis to one curve, or with null to all visible curves on it.
    void fitY(int anAxis, const tcStripCurve* apCurve);
    void fitX(); ///< to the visible curves of the left axis
    void takeZoom(const QRectF& acRect);
    void assign(tcStripCurve& arCurve, int anAxis); ///< with the markers that follow it

    /// Three labels on the left axis of a low chart, tidy steps on that of a higher one.
    void fitHeight(bool abLow);
    void showTimeLabels(bool abOn);
    void showMilliseconds(bool abOn);

    void setVerbosity(int anLevel) { mVerbosity = anLevel; }

private:
    void connectActions();

    struct tcBoxes
    {
        QDoubleSpinBox& min;
        QDoubleSpinBox& max;
    };
    tcBoxes boxes(int anAxis) const;
    tcAxisMath::tcRange rangeOfBoxes(int anAxis) const;
    bool isAutomatic(int anAxis) const;
    void showRange(int anAxis, const tcAxisMath::tcRange& acRange);
    void measureTimeLabels();
    QVector<const tcStripCurve*> visibleCurves(int anAxis) const;
    void logSpread(const char* apText, const char* apMin, const char* apMax,
                   const tcAxisMath::tcRange& acRange) const;

    Ui::StripChart& mForm;
    QwtPlot& mPlot;
    QwtPlotGrid& mGrid;
    TimeScaleDraw* mTimeDraw;           ///< owned by the plot
    PrecisionScaleDraw* mPrecisionDraw; ///< owned by the plot
    qint64 mSpanMs = 10000;
    int mVerbosity = 0;
    bool mHeld = false;
};

#pragma once

#include <QObject>

#include <functional>

class QwtPlot;
class QWidget;
class tcCurveTable;

/// Exports what can be seen of the chart: the visible curves within the range of the time axis,
/// with the dialogs and boxes around it. GUI thread only.
class tcChartExport : public QObject
{
    Q_OBJECT

public:
    /// All outlive it.
    tcChartExport(QWidget& arChart, QwtPlot& arPlot, const tcCurveTable& acCurves);

    /// Asks for the file; the range is the one that was shown when the question was asked.
    void run(const QString& acChartName, const QString& acFolder);

Q_SIGNALS:
    void fileUsed(const QString& acFile);

private:
    bool write(const QString& acFile, double anFrom, double anTo, bool* apCancelled);

    QWidget& mChart;
    QwtPlot& mPlot;
    const tcCurveTable& mCurves;
    bool mBusy = false;
};

#pragma once

#include "stripchart/tcStripCurve.h"

#include <QDialog>
#include <QMetaType>

class QFormLayout;
class QwtPlot;

Q_DECLARE_METATYPE(tcStripCurve*)

/// Lets the operator move each curve to the left or the right axis, at once. It follows titles
/// that change, and a curve that leaves the plot leaves it.
class tcAxisChooser : public QDialog
{
    Q_OBJECT

public:
    /// One row a curve in the order given; acPlot outlives the dialog or is its ancestor.
    tcAxisChooser(const QwtPlot& acPlot, const QVector<tcStripCurve*>& acCurves,
                  QWidget* apParent);

Q_SIGNALS:
    void axisChosen(tcStripCurve* apCurve, int anAxis); ///< 0 left, 1 right

private:
    void addRow(const QwtPlot& acPlot, tcStripCurve& arCurve);

    QFormLayout* mRows;
};

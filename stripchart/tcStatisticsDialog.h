#pragma once

#include <QDialog>
#include <QPair>
#include <QTimer>

class QComboBox;
class QLabel;
class QTableWidget;
class QwtPlot;
class tcMeasuringCursors;
class tcStripCurve;

/// A table that sums up each visible curve, over the times in view or between the measuring
/// cursors. It stands beside the chart and works itself out anew once a second while it is
/// seen, less often where that takes long.
class tcStatisticsDialog : public QDialog
{
    Q_OBJECT

public:
    /// Both outlive the dialog.
    tcStatisticsDialog(const QwtPlot& acPlot, const tcMeasuringCursors& acCursors,
                       QWidget* apParent);

    void refresh();
    /// The table with its head, cells parted by tabs.
    QString text() const;

protected:
    void showEvent(QShowEvent* apEvent) override;
    void hideEvent(QHideEvent* apEvent) override;

private:
    void buildTable();
    QPair<double, double> span();
    void showCurve(int anRow, const tcStripCurve& acCurve, const QPair<double, double>& acSpan);
    void takeCursors();
    void copy() const;

    const QwtPlot& mPlot;
    const tcMeasuringCursors& mCursors;
    QComboBox* mRange;
    QLabel* mTimes;
    QTableWidget* mTable;
    QTimer mTimer{this};
    qint64 mCostMs = 0; ///< of the latest refresh
};

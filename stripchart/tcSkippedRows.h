#pragma once

#include "stripchart/logic/tcCsvReport.h"

#include <QObject>
#include <QPointer>

class QAction;
class QDialog;
class QWidget;

/// Shows on request what was passed over in a loaded file: each line's number with the reason.
/// The action is enabled while there is something to show. GUI thread only.
class tcSkippedRows : public QObject
{
    Q_OBJECT

public:
    /// The chart outlives this and is the parent of the dialog.
    explicit tcSkippedRows(QWidget& arChart);
    ~tcSkippedRows() override;

    QAction* action() const { return mAction; } ///< belongs to the chart
    /// An open dialog shows the new report, and closes when there is nothing to show.
    void setReport(const tcCsvReport& acReport);

private:
    void show();
    void fill() const;

    QWidget& mChart;
    QAction* mAction;
    QPointer<QDialog> mDialog;
    tcCsvReport mReport;
};

#pragma once

#include "stripchart/tcChartExport.h"
#include "stripchart/tcFileDrop.h"
#include "stripchart/tcRecentFiles.h"
#include "stripchart/tcSkippedRows.h"

class tcChartFiles;
class tcChartLog;

/// What a chart offers around its files beyond saving and loading: a submenu among the chart's
/// own actions, and thereby at the end of the plot menu, and the drop of a file. GUI thread
/// only.
class tcFileTools : public QObject
{
    Q_OBJECT

public:
    /// What it works on; all outlive it.
    struct tcParts
    {
        QWidget& chart;
        QwtPlot& plot;
        const tcCurveTable& curves;
        tcChartFiles& files;
        tcChartLog& log;
    };

    /// The function tells the chart's name at the time.
    tcFileTools(const tcParts& acParts, const std::function<QString()>& acName);
    ~tcFileTools() override;

private:
    void load(const QString& acFile);
    void exportRange();

    tcParts mParts;
    std::function<QString()> mName;
    tcChartExport mExport;
    tcRecentFiles mRecent;
    tcSkippedRows mSkipped;
    tcFileDrop mDrop;
    std::unique_ptr<QMenu> mMenu;
};

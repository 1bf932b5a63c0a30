#pragma once

#include "stripchart/tcChartExport.h"
#include "stripchart/tcChartReplay.h"
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
    /// What only the chart itself can do.
    struct tcActions
    {
        std::function<QString()> name; ///< of the chart, at the time
        tcChartReplay::tcFiling fileCurve;
        tcChartReplay::tcFeed updateData;
        std::function<void()> resumeFeed;
        std::function<qint64()> now;
    };

    tcFileTools(const tcParts& acParts, const tcActions& acActions);
    ~tcFileTools() override;

    QString status() const { return mReplay.status(); } ///< for the window title

Q_SIGNALS:
    void statusChanged();

private:
    void load(const QString& acFile);
    void exportRange();
    QString folder() const;
    tcChartReplay::tcActions replayActions(const tcActions& acActions) const;

    tcParts mParts;
    std::function<QString()> mName;
    tcChartExport mExport;
    tcRecentFiles mRecent;
    tcSkippedRows mSkipped;
    tcFileDrop mDrop;
    tcChartReplay mReplay;
    std::unique_ptr<QMenu> mMenu;
};

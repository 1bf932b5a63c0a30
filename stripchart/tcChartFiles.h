#pragma once

#include "stripchart/logic/tcCsvReport.h"
#include "stripchart/tcLoadedFile.h"
#include "stripchart/tcLoadedMarkers.h"

#include <QObject>
#include <QString>

class QIODevice;
class QWidget;
class tcAxisControl;
class tcCsvReader;
class tcMarkerTable;
namespace Ui
{
class StripChart;
}

/// Saves and loads the chart's samples and saves its picture: the dialogs, boxes and cursors
/// around the files. GUI thread only. While a long file is worked on the event loop runs; asked
/// for another one meanwhile it does nothing.
class tcChartFiles : public QObject
{
    Q_OBJECT

public:
    /// What it works on; all outlive it.
    struct tcParts
    {
        QWidget& chart;
        Ui::StripChart& form;
        tcCurveTable& curves;
        tcMarkerTable& markers;
        tcAxisControl& axes;
    };
    /// What only the chart itself can do.
    struct tcActions
    {
        tcLoadedFile::tcFiling fileCurve;
        std::function<void()> resetData;
        std::function<bool()> stopUpdates; ///< returns whether they ran
        std::function<void()> startUpdates;
    };

    tcChartFiles(const tcParts& acParts, tcActions aActions);
    ~tcChartFiles() override;

    void save(const QString& acChartName);
    /// Asks for the file unless one is given; here and in savePicture().
    void load(const QString& acFile, const QString& acChartName);
    void savePicture(const QString& acFile, const QString& acChartName);
    /// Back from a loaded file to the live curves; the updates are the caller's business.
    void resume();

    /// The last file saved, loaded, logged or pictured.
    QString rememberedFile() const { return mFile; }
    void remember(const QString& acFile) { mFile = acFile; }

    /// A reading for a live curve that waits until the file is done with; any other is ignored.
    void keepReading(const QUuid& acKey, int anIndex, qint64 anMsSinceEpoch, double anValue);
    tcLoadedFile& loadedFile() { return mLoaded; }
    QString status() const { return mStatus; } ///< for the window title
    /// What was passed over in the file shown; empty while none is.
    const tcCsvReport& report() const { return mReport; }

Q_SIGNALS:
    void statusChanged();
    void reportChanged();
    void fileUsed(const QString& acFile); ///< saved or loaded

private:
    struct tcSpan
    {
        int seconds = 0;
        qint64 ms = 0;
    };

    bool write(const QString& acPath, bool* apStopped);
    void showFile(QIODevice& arDevice, const QString& acFile, const QString& acChartName);
    bool readRows(tcCsvReader& arReader, const tcLoadedFile::tcStep& acStep);
    void showSpan();
    void setStatus(const QString& acStatus);
    void setReport(const tcCsvReport& acReport);
    void warn(const QString& acChartName, const QString& acText);

    tcParts mParts;
    tcActions mActions;
    tcLoadedFile mLoaded;
    tcLoadedMarkers mFileMarkers;
    tcCsvReport mReport;
    QString mFile;
    QString mStatus;
    tcSpan mLiveSpan; ///< while a file is shown
    bool mBusy = false;
};

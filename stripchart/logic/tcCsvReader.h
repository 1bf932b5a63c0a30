#pragma once

#include "stripchart/logic/tcCsvBuffer.h"
#include "stripchart/logic/tcCsvMarkers.h"
#include "stripchart/logic/tcCsvReport.h"
#include "stripchart/logic/tcCsvWriter.h"

#include <QStringList>

#include <vector>

/// Reads the chart's comma-separated files: in one pass, in time proportional to the file and
/// in memory proportional to the samples kept, whatever the file holds. Not thread-safe.
///
/// Lines end with a line feed, a carriage return or both. A field that is no number makes no
/// sample, a row whose time can't be read makes none at all; both are reported.
class tcCsvReader
{
public:
    /// No file gets more curves than this; fields beyond are reported.
    static constexpr size_t cMaxColumns = 65536;
    /// Rows may be longer than the header: the curves that came while the file was logged.
    static constexpr size_t cMaxSurplus = 256;
    static constexpr int cMaxTitle = 1000;

    /// The device is open for reading, may be a pipe, and outlives the reader. Not owned.
    explicit tcCsvReader(QIODevice& arDevice);

    /// Reads the first line and names the columns: by its parts, empty ones left out, or, where
    /// it begins with a number, "Column 2" and so on. False when it has fewer than two parts.
    bool readHeader();
    /// Reads all rows; false when stopped.
    bool readRows(const tcProgress& acProgress = {});

    /// Of values, the time stamps left out.
    size_t columnCount() const { return mColumns.size(); }
    QString title(size_t anColumn) const { return mColumns[anColumn].title; }
    /// The column's samples in the order of the file.
    tcColumnView samples(size_t anColumn) const;
    void release(size_t anColumn); ///< frees its memory

    const QVector<tcCsvMarker>& markers() const { return mMarkers.markers(); }
    const tcCsvReport& report() const { return mReport; }
    bool failed() const { return mBuffer.failed(); } ///< the file could not be read to its end

private:
    struct tcColumn
    {
        QString title;
        std::vector<double> values;
        std::vector<double> times; ///< unused while every row has a value
        bool sparse = false;
    };

    void nameColumns(const QStringList& acParts);
    void parse(const char* acStop);
    const char* skipLine(const char* acAt, const char* acStop);
    void dropOversized();
    const char* parseTime(const char* acAt, const char* acStop);
    const char* parseValue(const char* acAt, const char* acStop);
    bool slowTime(const QByteArray& acText);
    void slowValue(const QByteArray& acText);
    void addValue(double anValue);
    void endField(char aDelimiter);
    void endLine(char aDelimiter);
    void makeRoom();

    qint64 mTotal = 0; ///< bytes of the device, 0 where it can't tell
    tcCsvBuffer mBuffer;
    std::vector<tcColumn> mColumns;
    size_t mNamed = 0; ///< columns that the header gave
    std::vector<double> mRowTimes;
    tcCsvMarkers mMarkers;
    tcCsvReport mReport;
    qint64 mLine = 1;
    size_t mField = 0;       ///< place of the field to come within its row
    bool mSkipping = false;  ///< up to the end of the line
    bool mComment = false;   ///< what is skipped may be a marker
    bool mOversized = false; ///< the field to come has lost its start
    bool mAfterReturn = false;
    bool mRoomMade = false;
};

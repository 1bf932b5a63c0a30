#pragma once

#include "stripchart/logic/tcCsvReport.h"

#include <QPointF>
#include <QString>

class tcCsvBuffer;

/// A marker that a chart file tells of.
struct tcCsvMarker
{
    QPointF point; ///< time in ms since the epoch and value
    QString label;
};

/// Gathers the markers among the comment lines of a file, "#MARKER,x,y,label" each. The label
/// may hold commas. Not thread-safe.
class tcCsvMarkers
{
public:
    static constexpr int cMaxMarkers = 1000; ///< of one file; each is an item of the plot
    static constexpr int cMaxLine = 4096;    ///< bytes; the rest of a longer line is left out

    /// The next piece of a comment line, as it comes.
    void append(const char* acpFrom, const char* acpTo);
    /// The line is complete: a marker is kept, a broken one reported, any other comment
    /// ignored. The buffer knows the encoding.
    void endLine(qint64 anLine, tcCsvReport& arReport, const tcCsvBuffer& acBuffer);

    const QVector<tcCsvMarker>& markers() const { return mMarkers; }

private:
    QByteArray mText;
    QVector<tcCsvMarker> mMarkers;
};

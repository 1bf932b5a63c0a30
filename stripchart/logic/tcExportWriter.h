#pragma once

#include "stripchart/logic/tcCsvWriter.h"

/// Writes samples for other programs: "time" and the titles, then one line for each time, in
/// local ISO 8601 time with milliseconds, and each value with as many digits as it takes to
/// read it back. The chart's own reader reads it too. Not thread-safe.
class tcExportWriter
{
public:
    /// The device is open for writing and outlives the writer. Not owned.
    explicit tcExportWriter(QIODevice& arDevice);

    /// A comma or line feed in a title would make another column of it and becomes a semicolon
    /// or a blank.
    void header(const QStringList& acTitles);
    /// A value that is no finite number leaves its field empty. False when stopped or failed.
    bool rows(tcRowMerge& arMerge, const tcProgress& acProgress = {});
    /// Hands everything to the device. Without it the last lines are lost.
    bool flush();

private:
    void row(const tcRowMerge& acMerge);
    void time(qint64 anMs);

    QIODevice& mDevice; ///< not owned
    QByteArray mBuffer;
    qint64 mMinute;          ///< since the epoch, of mMinuteText
    QByteArray mMinuteText;  ///< up to the colon before the seconds
    bool mEvenMinute = true; ///< local minutes begin with those of the epoch
    bool mOk = true;
};

#pragma once

#include "stripchart/logic/tcRowMerge.h"

#include <QScopedPointer>
#include <QString>
#include <QStringList>
#include <QTextEncoder>

#include <functional>
#include <vector>

class QIODevice;

/// What has been done and how much there is, in the same unit; false asks to stop.
using tcProgress = std::function<bool(qint64 anDone, qint64 anTotal)>;

/// Writes the chart's comma-separated files. Lines end with a line feed; texts are encoded as a
/// text stream encodes them.
///
/// Everything goes through one large buffer; the first write that falls short stops all further
/// ones, and ok() tells. Not thread-safe.
class tcCsvWriter
{
public:
    /// The device is open for writing and outlives the writer. Not owned.
    explicit tcCsvWriter(QIODevice& arDevice);

    /// What heads the time column of a saved file and of a log.
    static QString savedTimeTitle() { return QStringLiteral("ms since epoch"); }
    static QString loggedTimeTitle() { return QStringLiteral("TimeStamp"); }

    /// Titles stand as they are, whatever is in them, each with a comma behind it.
    void header(const QString& acTimeTitle, const QStringList& acTitles);
    /// All rows of the merge, one field for each of its columns, three decimals. False when
    /// stopped or failed.
    bool rows(tcRowMerge& arMerge, const tcProgress& acProgress = {});
    void emptyLine();
    /// "#MARKER," with the point and its label. A line feed in the label becomes a blank, or it
    /// would start a row.
    void marker(double anX, double anY, const QString& acLabel);

    /// Hands everything to the device. Without it the last lines are lost.
    bool flush();
    bool ok() const { return mOk; }

private:
    void reserve(size_t anBytes);
    void text(const QString& acText);
    void byte(char aByte);
    void row(const tcRowMerge& acMerge);

    QIODevice& mDevice; ///< not owned
    QScopedPointer<QTextEncoder> mEncoder;
    std::vector<char> mBuffer;
    char* mAt;
    bool mOk = true;
};

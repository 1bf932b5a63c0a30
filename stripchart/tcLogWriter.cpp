#include "stripchart/tcLogWriter.h"

#include "stripchart/logic/tcCsvWriter.h"
#include "stripchart/tcStripCurve.h"

#include <QBuffer>
#include <QTextCodec>

namespace
{

constexpr qint64 cMaxHeaderBytes = 16 * 1024 * 1024;

/// Titles in the first line of a chart file; none when it is something else.
QStringList titlesIn(const QString& acPath)
{
    QFile file(acPath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readLine(cMaxHeaderBytes).trimmed();
    QStringList titles = QTextCodec::codecForLocale()->toUnicode(bytes).split(',');
    const QString first = titles.takeFirst();
    if (first != tcCsvWriter::loggedTimeTitle() && first != tcCsvWriter::savedTimeTitle())
        return {};
    if (!titles.isEmpty() && titles.last().isEmpty())
        titles.removeLast();
    return titles;
}

QByteArray written(const std::function<void(tcCsvWriter&)>& acWrite)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    tcCsvWriter writer(buffer);
    acWrite(writer);
    writer.flush();
    return buffer.data();
}

QByteArray headerLine(const QStringList& acTitles)
{
    return written([&acTitles](tcCsvWriter& arWriter) {
        arWriter.header(tcCsvWriter::loggedTimeTitle(), acTitles);
    });
}

struct tcReadings
{
    std::vector<double> times;
    std::vector<double> values;

    /// The log tells of readings after 1970 alone: no clock gives others.
    void keepLaterThanEpoch()
    {
        size_t kept = 0;
        for (size_t i = 0; i < times.size(); ++i) {
            if (!(times[i] >= 1.0))
                continue;
            times[kept] = times[i];
            values[kept++] = values[i];
        }
        times.resize(kept);
        values.resize(kept);
    }
};

} // namespace

tcLogWriter::tcLogWriter(const QString& acPath) : mFile(acPath) { }

bool tcLogWriter::open()
{
    return mFile.open();
}

bool tcLogWriter::write(const QVector<tcStripCurve*>& acCurves, qint64 anNow)
{
    forgetDeleted();
    if (!findFile())
        return false; // the curves hold the readings meanwhile
    QByteArray lines;
    if (mFile.isEmpty())
        lines = header(acCurves);
    else if (!mStarted)
        continueColumns();
    mStarted = true;
    lines += rows(acCurves);
    return mFile.write(lines, anNow);
}

bool tcLogWriter::findFile()
{
    const tcLogFile::tePlace place = mFile.find();
    if (place != tcLogFile::tePlace::Another)
        return place == tcLogFile::tePlace::Same;
    // Lines that wait are in the columns of the old file.
    if (mFile.waiting() > 0)
        mFile.putFirst(mHeader);
    else
        mStarted = false;
    return true;
}

bool tcLogWriter::close()
{
    return mFile.close();
}

void tcLogWriter::forgetDeleted()
{
    for (auto seen = mSeen.begin(); seen != mSeen.end();) {
        if (!seen->life.expired()) {
            ++seen;
            continue;
        }
        mColumns.forget(seen.key());
        seen = mSeen.erase(seen);
    }
}

QByteArray tcLogWriter::header(const QVector<tcStripCurve*>& acCurves)
{
    mColumns.clear();
    QStringList titles;
    for (const tcStripCurve* curve : acCurves) {
        titles << curve->title().text();
        mColumns.assign(curve, titles.last());
    }
    mHeader = headerLine(titles);
    return mHeader;
}

void tcLogWriter::continueColumns()
{
    // The header that stands there names the columns of what is added below it.
    const QStringList titles = titlesIn(mFile.fileName());
    mColumns.takeTitles(titles);
    mHeader = headerLine(titles);
}

QByteArray tcLogWriter::rows(const QVector<tcStripCurve*>& acCurves)
{
    std::vector<tcReadings> readings(static_cast<size_t>(acCurves.size()));
    for (int i = 0; i < acCurves.size(); ++i) {
        const tcStripCurve* curve = acCurves.at(i);
        mColumns.assign(curve, curve->title().text());
        tcSeen& seen = mSeen[curve];
        seen.life = curve->lifetime();
        tcReadings& added = readings[static_cast<size_t>(i)];
        seen.added = curve->copyAddedSince(seen.added, added.times, added.values);
        added.keepLaterThanEpoch();
    }
    std::vector<tcColumnView> columns(static_cast<size_t>(mColumns.count()));
    for (int i = 0; i < acCurves.size(); ++i) {
        const tcReadings& added = readings[static_cast<size_t>(i)];
        columns[static_cast<size_t>(mColumns.column(acCurves.at(i)) - 1)] = {
            added.times.data(), added.values.data(), static_cast<qint64>(added.times.size())};
    }
    tcRowMerge merge(columns);
    if (merge.total() == 0)
        return {};
    return written([&merge](tcCsvWriter& arWriter) { arWriter.rows(merge); });
}

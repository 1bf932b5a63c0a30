#include "stripchart/logic/tcCsvWriter.h"

#include "stripchart/logic/tcNumberText.h"

#include <QIODevice>
#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace
{

constexpr size_t cBufferBytes = 256 * 1024;
constexpr int cRowsPerLook = 4096; ///< rows between two calls of the progress function

} // namespace

tcCsvWriter::tcCsvWriter(QIODevice& arDevice)
    : mDevice(arDevice)
    , mEncoder(QTextCodec::codecForLocale()->makeEncoder(QTextCodec::IgnoreHeader))
    , mBuffer(cBufferBytes)
    , mAt(mBuffer.data())
{
}

void tcCsvWriter::header(const QString& acTimeTitle, const QStringList& acTitles)
{
    text(acTimeTitle + ',');
    for (const QString& title : acTitles)
        text(title + ',');
    byte('\n');
}

bool tcCsvWriter::rows(tcRowMerge& arMerge, const tcProgress& acProgress)
{
    int untilLook = cRowsPerLook;
    while (mOk && arMerge.next()) {
        row(arMerge);
        if (--untilLook > 0)
            continue;
        untilLook = cRowsPerLook;
        if (acProgress && !acProgress(arMerge.done(), arMerge.total()))
            return false;
    }
    return mOk;
}

void tcCsvWriter::row(const tcRowMerge& acMerge)
{
    constexpr size_t cFieldBytes = tcNumberText::cLongest + 1;
    const std::vector<const double*>& values = acMerge.values();
    // One look at the room left for the whole row, unless it is as wide as the buffer itself.
    const bool wide = (values.size() + 2) * cFieldBytes > cBufferBytes;
    reserve(wide ? cFieldBytes : (values.size() + 2) * cFieldBytes);
    char* at = tcNumberText::writeInteger(mAt, acMerge.time());
    for (const double* value : values) {
        if (wide) {
            mAt = at;
            reserve(cFieldBytes + 1);
            at = mAt;
        }
        *at++ = ',';
        if (value)
            at = tcNumberText::writeFixed3(at, *value);
    }
    *at++ = '\n';
    mAt = at;
}

void tcCsvWriter::emptyLine()
{
    byte('\n');
}

void tcCsvWriter::marker(double anX, double anY, const QString& acLabel)
{
    QString label = acLabel;
    label.replace(QLatin1String("\r\n"), QLatin1String(" "));
    label.replace('\n', ' ');
    label.replace('\r', ' ');
    text(QStringLiteral("#MARKER,"));
    for (const double coordinate : {anX, anY}) {
        reserve(tcNumberText::cLongest + 2);
        mAt = tcNumberText::writeFixed3(mAt, coordinate);
        *mAt++ = ',';
    }
    text(label + '\n');
}

void tcCsvWriter::text(const QString& acText)
{
    const QByteArray bytes = mEncoder->fromUnicode(acText);
    const char* from = bytes.constData();
    auto left = static_cast<size_t>(bytes.size());
    while (left > 0) {
        const size_t part = std::min(left, cBufferBytes);
        reserve(part);
        std::memcpy(mAt, from, part);
        mAt += part;
        from += part;
        left -= part;
    }
}

void tcCsvWriter::byte(char aByte)
{
    reserve(1);
    *mAt++ = aByte;
}

void tcCsvWriter::reserve(size_t anBytes)
{
    if (static_cast<size_t>(mBuffer.data() + mBuffer.size() - mAt) < anBytes)
        flush();
}

bool tcCsvWriter::flush()
{
    const qint64 count = mAt - mBuffer.data();
    mAt = mBuffer.data();
    if (mOk && count > 0)
        mOk = mDevice.write(mBuffer.data(), count) == count;
    return mOk;
}

#include "stripchart/logic/tcExportWriter.h"

#include <QDateTime>
#include <QIODevice>
#include <QLocale>
#include <QTextCodec>

#include <cmath>
#include <limits>

namespace
{

constexpr int cBufferBytes = 256 * 1024;
constexpr int cRowsPerLook = 4096; ///< rows between two calls of the progress function
constexpr qint64 cMsPerMinute = 60000;
constexpr int cMsPerSecond = 1000;

qint64 minuteOf(qint64 anMs)
{
    const qint64 minute = anMs / cMsPerMinute;
    return anMs % cMsPerMinute < 0 ? minute - 1 : minute;
}

} // namespace

tcExportWriter::tcExportWriter(QIODevice& arDevice)
    : mDevice(arDevice), mMinute(std::numeric_limits<qint64>::min())
{
    mBuffer.reserve(cBufferBytes);
}

void tcExportWriter::header(const QStringList& acTitles)
{
    QString line = QStringLiteral("time");
    for (QString title : acTitles) {
        title.replace(',', ';').replace('\n', ' ').replace('\r', ' ');
        line += ',' + title;
    }
    mBuffer += QTextCodec::codecForLocale()->fromUnicode(line + '\n');
}

bool tcExportWriter::rows(tcRowMerge& arMerge, const tcProgress& acProgress)
{
    int untilLook = cRowsPerLook;
    while (mOk && arMerge.next()) {
        row(arMerge);
        if (mBuffer.size() > cBufferBytes / 2)
            flush();
        if (--untilLook > 0)
            continue;
        untilLook = cRowsPerLook;
        if (acProgress && !acProgress(arMerge.done(), arMerge.total()))
            return false;
    }
    return mOk;
}

void tcExportWriter::row(const tcRowMerge& acMerge)
{
    time(acMerge.time());
    for (const double* value : acMerge.values()) {
        mBuffer += ',';
        if (value && std::isfinite(*value))
            mBuffer += QByteArray::number(*value, 'g', QLocale::FloatingPointShortest);
    }
    mBuffer += '\n';
}

void tcExportWriter::time(qint64 anMs)
{
    // Asking for the local time takes longer than all the rest of a row, so it is asked once a
    // minute. Zones of long ago are apart by seconds too.
    const qint64 minute = minuteOf(anMs);
    if (minute != mMinute) {
        const QDateTime begin = QDateTime::fromMSecsSinceEpoch(minute * cMsPerMinute);
        mMinute = minute;
        mEvenMinute = begin.time().second() == 0;
        mMinuteText = begin.toString(QStringLiteral("yyyy-MM-ddTHH:mm:")).toLatin1();
    }
    if (!mEvenMinute) {
        mBuffer += QDateTime::fromMSecsSinceEpoch(anMs).toString(Qt::ISODateWithMs).toLatin1();
        return;
    }
    const int ms = static_cast<int>(anMs - minute * cMsPerMinute);
    const int second = ms / cMsPerSecond;
    const int fraction = ms % cMsPerSecond;
    const auto digit = [](int anNumber) { return static_cast<char>('0' + anNumber % 10); };
    const char text[] = {digit(second / 10),    digit(second),        '.',
                         digit(fraction / 100), digit(fraction / 10), digit(fraction)};
    mBuffer += mMinuteText;
    mBuffer.append(text, sizeof text);
}

bool tcExportWriter::flush()
{
    if (mOk && !mBuffer.isEmpty())
        mOk = mDevice.write(mBuffer) == mBuffer.size();
    mBuffer.resize(0);
    return mOk;
}

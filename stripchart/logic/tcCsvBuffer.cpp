#include "stripchart/logic/tcCsvBuffer.h"

#include <QIODevice>
#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace
{

constexpr qint64 cMarkBytes = 4; ///< the longest byte order mark

} // namespace

tcCsvBuffer::tcCsvBuffer(QIODevice& arDevice) : mDevice(arDevice), mBytes(cInitialBytes) { }

qint64 tcCsvBuffer::read(char* apTo, qint64 anMax)
{
    const qint64 count = mDevice.read(apTo, anMax);
    if (count <= 0) {
        mAtEnd = true;
        mFailed = count < 0;
        return 0;
    }
    mBytesRead += count;
    return count;
}

void tcCsvBuffer::start()
{
    mStarted = true;
    char head[cMarkBytes];
    qint64 count = 0;
    while (count < cMarkBytes && !mAtEnd)
        count += read(head + count, cMarkBytes - count);
    const QByteArray bytes(head, static_cast<int>(count));
    const QTextCodec* codec = QTextCodec::codecForUtfText(bytes, nullptr);
    mUnicode = codec != nullptr;
    if (codec && codec->name() != "UTF-8") {
        mDecoder.reset(codec->makeDecoder());
        const QByteArray first = mDecoder->toUnicode(bytes).toUtf8();
        std::copy(first.begin(), first.end(), mBytes.begin());
        mEnd = static_cast<size_t>(first.size());
        return;
    }
    const qptrdiff mark = codec ? 3 : 0;
    std::copy(bytes.begin() + mark, bytes.end(), mBytes.begin());
    mEnd = static_cast<size_t>(count - mark);
}

bool tcCsvBuffer::fill(size_t anMaxBytes)
{
    if (!mStarted)
        start();
    if (mBegin > 0) {
        std::memmove(mBytes.data(), mBytes.data() + mBegin, size());
        mEnd -= mBegin;
        mBegin = 0;
    }
    // One byte stays free for the line feed at the very end.
    if (mEnd + 1 >= mBytes.size() && mBytes.size() < anMaxBytes)
        mBytes.resize(std::min(2 * mBytes.size(), anMaxBytes));
    const size_t room = mBytes.size() - mEnd - 1;
    if (room < 8 || mAtEnd)
        return false;
    if (!mDecoder) {
        const qint64 count = read(mBytes.data() + mEnd, static_cast<qint64>(room));
        mEnd += static_cast<size_t>(count);
        return count > 0;
    }
    // Two bytes of UTF-16 become three of UTF-8 at most; one byte is never the whole of a
    // character, so at most three may have waited in the decoder.
    QByteArray raw(static_cast<int>(std::min<size_t>(room / 2 - 3, cInitialBytes)), '\0');
    raw.resize(static_cast<int>(read(raw.data(), raw.size())));
    const QByteArray text = mDecoder->toUnicode(raw).toUtf8();
    std::memcpy(mBytes.data() + mEnd, text.constData(), static_cast<size_t>(text.size()));
    mEnd += static_cast<size_t>(text.size());
    return !raw.isEmpty();
}

void tcCsvBuffer::terminate()
{
    mBytes[mEnd++] = '\n';
}

void tcCsvBuffer::consume(const char* acpUpTo)
{
    mBegin = static_cast<size_t>(acpUpTo - mBytes.data());
}

QString tcCsvBuffer::decode(const QByteArray& acBytes) const
{
    return mUnicode ? QString::fromUtf8(acBytes.constData(), acBytes.size())
                    : QTextCodec::codecForLocale()->toUnicode(acBytes);
}

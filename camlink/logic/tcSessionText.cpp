#include "camlink/logic/tcSessionText.h"

#include <utility>

namespace
{

QByteArray stamped(const QDateTime& acWhen, const char* acWay, const QByteArray& acText)
{
    return acWhen.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")).toLatin1() + ' ' + acWay
        + ' ' + acText + '\n';
}

constexpr struct
{
    char byte;
    char letter;
} cShort[] = {{'\\', '\\'}, {'\r', 'r'}, {'\n', 'n'}, {'\t', 't'}};

} // namespace

namespace tcSessionText
{

QByteArray escaped(const QByteArray& acBytes)
{
    QByteArray text;
    text.reserve(acBytes.size() + 8);
    for (const char byte : acBytes) {
        char letter = 0;
        for (const auto& row : cShort)
            letter = row.byte == byte ? row.letter : letter;
        if (letter != 0)
            text.append('\\').append(letter);
        else if (byte >= 0x20 && byte < 0x7F)
            text.append(byte);
        else
            text.append("\\x").append(QByteArray(1, byte).toHex());
    }
    return text;
}

QByteArray sent(const QDateTime& acWhen, const QByteArray& acBytes)
{
    return stamped(acWhen, "TX", escaped(acBytes));
}

QByteArray received(const QDateTime& acWhen, const QByteArray& acBytes)
{
    return stamped(acWhen, "RX", escaped(acBytes));
}

QByteArray note(const QDateTime& acWhen, const QString& acText)
{
    return stamped(acWhen, "--", escaped(acText.toUtf8()));
}

} // namespace tcSessionText

QList<QByteArray> tcSessionLines::append(const QByteArray& acPiece)
{
    mRest += acPiece;
    QList<QByteArray> lines;
    int start = 0;
    for (int end = mRest.indexOf('\n'); end >= 0; end = mRest.indexOf('\n', start)) {
        lines.append(mRest.mid(start, end + 1 - start));
        start = end + 1;
    }
    mRest.remove(0, start);
    while (mRest.size() >= cLongest) {
        lines.append(mRest.left(cLongest));
        mRest.remove(0, cLongest);
    }
    return lines;
}

QByteArray tcSessionLines::takeRest()
{
    return std::exchange(mRest, {});
}

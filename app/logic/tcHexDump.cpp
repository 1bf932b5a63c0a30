#include "app/logic/tcHexDump.h"

#include <algorithm>
#include <array>

namespace tcHexDump
{
namespace
{

constexpr int cColumns = 16;
constexpr int cOffsetDigits = 8;
constexpr int cFrame
    = cOffsetDigits + 1 + 3 * cColumns + 1 + 1; ///< a row without its characters

/// What one byte looks like; the view is rebuilt whole for every reply, so nothing is formatted
/// twice.
struct tcByteLook
{
    ushort high = 0;
    ushort low = 0;
    ushort character = 0;
};

constexpr ushort digit(int anValue)
{
    return static_cast<ushort>(anValue < 10 ? '0' + anValue : 'a' + anValue - 10);
}

constexpr std::array<tcByteLook, 256> makeLooks()
{
    std::array<tcByteLook, 256> looks{};
    for (int byte = 0; byte < 256; ++byte) {
        const bool printable = byte >= 0x20 && byte <= 0x7E;
        looks[static_cast<size_t>(byte)] = {digit(byte >> 4), digit(byte & 0xF),
                                            static_cast<ushort>(printable ? byte : '.')};
    }
    return looks;
}

constexpr std::array<tcByteLook, 256> cLooks = makeLooks();

ushort* putByte(ushort* apTo, uchar anByte)
{
    const tcByteLook& look = cLooks[anByte];
    *apTo++ = look.high;
    *apTo++ = look.low;
    *apTo++ = ' ';
    return apTo;
}

ushort* putRow(ushort* apTo, int anOffset, const uchar* apBytes, int anCount)
{
    apTo = std::fill_n(apTo, cOffsetDigits - 2, ushort('0'));
    apTo = putByte(apTo, static_cast<uchar>(anOffset & 0xFF));
    for (int column = 0; column < anCount; ++column)
        apTo = putByte(apTo, apBytes[column]);
    apTo = std::fill_n(apTo, 3 * (cColumns - anCount) + 1, ushort(' '));
    for (int column = 0; column < anCount; ++column)
        *apTo++ = cLooks[apBytes[column]].character;
    *apTo++ = '\n';
    return apTo;
}

} // namespace

QString text(const char* apBytes, int anLength)
{
    if (!apBytes || anLength <= 0)
        return {};
    const int rows = (anLength - 1) / cColumns + 1;
    QString dump(rows * cFrame + anLength, Qt::Uninitialized);
    auto* to = reinterpret_cast<ushort*>(dump.data());
    const auto* bytes = reinterpret_cast<const uchar*>(apBytes);
    for (int offset = 0; offset < anLength; offset += cColumns)
        to = putRow(to, offset, bytes + offset, std::min(cColumns, anLength - offset));
    return dump;
}

QString text(const QByteArray& acBytes)
{
    return text(acBytes.constData(), acBytes.size());
}

} // namespace tcHexDump

#include "stripchart/logic/tcNumberText.h"

#include <QString>

#include <array>
#include <cstring>

namespace
{

constexpr quint64 cOne = 1;
constexpr quint64 cLargestExact = cOne << 53; ///< every integer up to here is a double
constexpr int cExponentBias = 1023;
constexpr int cMantissaBits = 52;
constexpr int cMaxDigits = 18; ///< more might overflow 64 bits

constexpr std::array<double, 19> cPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                              1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                              1e14, 1e15, 1e16, 1e17, 1e18};

struct tcPairs
{
    char digits[200];
};

constexpr tcPairs pairsOfDigits()
{
    tcPairs pairs{};
    for (int i = 0; i < 100; ++i) {
        pairs.digits[2 * i] = static_cast<char>('0' + i / 10);
        pairs.digits[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

constexpr tcPairs cPairs = pairsOfDigits();

char* writeDigits(char* apOut, quint64 anNumber)
{
    if (anNumber < 10) {
        *apOut = static_cast<char>('0' + anNumber);
        return apOut + 1;
    }
    if (anNumber < 100) {
        std::memcpy(apOut, cPairs.digits + 2 * anNumber, 2);
        return apOut + 2;
    }
    char digits[20];
    int first = sizeof digits;
    while (anNumber >= 100) {
        first -= 2;
        std::memcpy(digits + first, cPairs.digits + 2 * (anNumber % 100), 2);
        anNumber /= 100;
    }
    if (anNumber >= 10) {
        first -= 2;
        std::memcpy(digits + first, cPairs.digits + 2 * anNumber, 2);
    } else {
        digits[--first] = static_cast<char>('0' + anNumber);
    }
    const auto count = sizeof digits - static_cast<size_t>(first);
    std::memcpy(apOut, digits + first, count);
    return apOut + count;
}

char* writeWithQt(char* apOut, double anNumber)
{
    const QByteArray text = QString::number(anNumber, 'f', 3).toLatin1();
    std::memcpy(apOut, text.constData(), static_cast<size_t>(text.size()));
    return apOut + text.size();
}

/// Zero bytes included, which the plain conversion takes for the end.
QString wholeText(const QByteArray& acText)
{
    return QString::fromLatin1(acText.constData(), acText.size());
}

bool isDigit(char aChar)
{
    return static_cast<unsigned char>(aChar - '0') < 10;
}

} // namespace

char* tcNumberText::writeInteger(char* apOut, qint64 anNumber)
{
    auto magnitude = static_cast<quint64>(anNumber);
    if (anNumber < 0) {
        *apOut++ = '-';
        magnitude = 0 - magnitude;
    }
    return writeDigits(apOut, magnitude);
}

char* tcNumberText::writeFixed3(char* apOut, double anNumber)
{
    quint64 bits = 0;
    std::memcpy(&bits, &anNumber, sizeof bits);
    const int exponent = static_cast<int>(bits >> cMantissaBits & 0x7ff) - cExponentBias;
    // From 2^53 on, infinities and what is no number: nothing that a sensor sends.
    if (exponent > cMantissaBits)
        return writeWithQt(apOut, anNumber);
    if (bits >> 63 && anNumber < 0)
        *apOut++ = '-';
    quint64 whole = 0;
    quint64 thousandths = 0;
    // Below 2^-11 even the largest number rounds to nothing. From there on the number is a
    // 53-bit mantissa over a power of two, so that its fraction times 1000 is exact in 64 bits.
    if (exponent >= -11) {
        const quint64 mantissa = (bits & ((cOne << cMantissaBits) - 1)) | cOne << cMantissaBits;
        const int shift = cMantissaBits - exponent;
        const quint64 mask = (cOne << shift) - 1;
        const quint64 scaled = (mantissa & mask) * 1000;
        whole = mantissa >> shift;
        thousandths = scaled >> shift;
        if (shift > 0 && (scaled & mask) >= cOne << (shift - 1))
            ++thousandths;
        if (thousandths == 1000) {
            thousandths = 0;
            ++whole;
        }
    }
    apOut = writeDigits(apOut, whole);
    *apOut++ = '.';
    *apOut++ = static_cast<char>('0' + thousandths / 100);
    std::memcpy(apOut, cPairs.digits + 2 * (thousandths % 100), 2);
    return apOut + 2;
}

const char* tcNumberText::scanInteger(const char* apText, qint64& arNumber)
{
    const bool negative = *apText == '-';
    const char* at = apText + (negative ? 1 : 0);
    const char* first = at;
    quint64 number = 0;
    for (; isDigit(*at); ++at)
        number = number * 10 + static_cast<quint64>(*at - '0');
    const auto digits = at - first;
    if (digits == 0 || digits > cMaxDigits)
        return nullptr;
    arNumber = negative ? -static_cast<qint64>(number) : static_cast<qint64>(number);
    return at;
}

const char* tcNumberText::scanDecimal(const char* apText, double& arNumber)
{
    const bool negative = *apText == '-';
    const char* at = apText + (negative ? 1 : 0);
    const char* first = at;
    quint64 mantissa = 0;
    for (; isDigit(*at); ++at)
        mantissa = mantissa * 10 + static_cast<quint64>(*at - '0');
    auto digits = at - first;
    qptrdiff decimals = 0;
    if (*at == '.') {
        first = ++at;
        for (; isDigit(*at); ++at)
            mantissa = mantissa * 10 + static_cast<quint64>(*at - '0');
        decimals = at - first;
        digits += decimals;
    }
    // An exact integer over an exact power of ten: the division rounds once, so it is right.
    if (digits == 0 || digits > cMaxDigits || mantissa > cLargestExact)
        return nullptr;
    auto number = static_cast<double>(mantissa);
    if (decimals > 0)
        number /= cPowersOfTen[static_cast<size_t>(decimals)];
    arNumber = negative ? -number : number;
    return at;
}

bool tcNumberText::parseInteger(const QByteArray& acText, qint64& arNumber)
{
    bool ok = false;
    const qint64 number = wholeText(acText).toLongLong(&ok);
    if (ok)
        arNumber = number;
    return ok;
}

bool tcNumberText::parseDecimal(const QByteArray& acText, double& arNumber)
{
    bool ok = false;
    const double number = wholeText(acText).toDouble(&ok);
    if (ok)
        arNumber = number;
    return ok;
}

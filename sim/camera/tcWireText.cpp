#include "sim/camera/tcWireText.h"

#include <cmath>

namespace tcWireText
{
namespace
{

constexpr size_t cMaxDigits = 10;

std::optional<int64_t> digits(std::string_view acText)
{
    if (acText.empty() || acText.size() > cMaxDigits)
        return std::nullopt;
    int64_t value = 0;
    for (const char digit : acText) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        value = value * 10 + (digit - '0');
    }
    return value;
}

} // namespace

std::optional<std::vector<std::string_view>> words(std::string_view acText)
{
    std::vector<std::string_view> list;
    for (;;) {
        const size_t end = acText.find(' ');
        const std::string_view word = acText.substr(0, end);
        if (word.empty())
            return std::nullopt;
        list.push_back(word);
        if (end == std::string_view::npos)
            return list;
        acText.remove_prefix(end + 1);
    }
}

std::string trimmed(const std::string& acText)
{
    constexpr const char* cBlanks = " \t\r";
    const size_t begin = acText.find_first_not_of(cBlanks);
    if (begin == std::string::npos)
        return {};
    return acText.substr(begin, acText.find_last_not_of(cBlanks) - begin + 1);
}

std::optional<int64_t> integer(std::string_view acText)
{
    const bool negative = !acText.empty() && acText.front() == '-';
    const std::optional<int64_t> value = digits(negative ? acText.substr(1) : acText);
    if (!value)
        return std::nullopt;
    return negative ? -*value : *value;
}

std::optional<int64_t> hundredths(std::string_view acText)
{
    const bool negative = !acText.empty() && acText.front() == '-';
    if (negative)
        acText.remove_prefix(1);
    const size_t point = acText.find('.');
    const std::optional<int64_t> whole = digits(acText.substr(0, point));
    if (!whole)
        return std::nullopt;
    int64_t fraction = 0;
    if (point != std::string_view::npos) {
        const std::string_view decimals = acText.substr(point + 1);
        const std::optional<int64_t> value = digits(decimals);
        if (!value || decimals.size() > 2)
            return std::nullopt;
        fraction = decimals.size() == 1 ? *value * 10 : *value;
    }
    const int64_t value = *whole * 100 + fraction;
    return negative ? -value : value;
}

std::string fixed(double anValue, int anDecimals)
{
    int64_t scale = 1;
    for (int decimal = 0; decimal < anDecimals; ++decimal)
        scale *= 10;
    const int64_t scaled = std::llround(std::abs(anValue) * static_cast<double>(scale));
    std::string text = std::to_string(scaled / scale);
    if (anDecimals > 0) {
        const std::string fraction = std::to_string(scaled % scale);
        text += '.' + std::string(static_cast<size_t>(anDecimals) - fraction.size(), '0')
            + fraction;
    }
    return anValue < 0 && scaled != 0 ? '-' + text : text;
}

std::string hexByte(unsigned anValue)
{
    constexpr char cDigits[] = "0123456789ABCDEF";
    return {'0', 'x', cDigits[anValue >> 4 & 0xF], cDigits[anValue & 0xF]};
}

} // namespace tcWireText

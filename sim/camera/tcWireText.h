#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Numbers and words as they stand on the camera's line and in the files that describe it:
/// always with a decimal point, whatever the locale of the program around.
namespace tcWireText
{

/// Words separated by exactly one blank each; none if a blank leads, ends or is doubled.
std::optional<std::vector<std::string_view>> words(std::string_view acText);

/// Without the blanks, tabs and carriage returns around it.
std::string trimmed(const std::string& acText);

/// Decimal digits, a minus sign allowed, at most ten digits.
std::optional<int64_t> integer(std::string_view acText);

/// A decimal number with at most two decimals, in hundredths: "24.0" is 2400.
std::optional<int64_t> hundredths(std::string_view acText);

/// Rounded to the number of decimals (0 to 6).
std::string fixed(double anValue, int anDecimals);

/// Two hexadecimal digits behind "0x".
std::string hexByte(unsigned anValue);

} // namespace tcWireText

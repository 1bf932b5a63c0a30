#pragma once

#include <cstdint>
#include <string>

/// The texts of the statuses that every maker shares.
namespace tcStatusText
{

/// False for a status that only a maker's library knows.
bool find(int32_t anStatus, std::string& arText);

/// Rate of a baud code, which is a single bit; 0 for any other number.
uint32_t baudOfCode(uint32_t anCode);

} // namespace tcStatusText

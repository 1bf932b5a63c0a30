#include "clallserial/tcStatusText.h"

#include "camlink/clserial.h"

#include <array>

namespace tcStatusText
{
namespace
{

struct tcRow
{
    int32_t status;
    const char* text;
};

constexpr std::array<tcRow, 14> cTexts{{
    {CL_ERR_NO_ERR, "No error"},
    {CL_ERR_BUFFER_TOO_SMALL, "The buffer is too small"},
    {CL_ERR_MANU_DOES_NOT_EXIST, "There is no library of that manufacturer"},
    {CL_ERR_PORT_IN_USE, "The port is in use or can't be opened"},
    {CL_ERR_TIMEOUT, "The operation was not completed in time"},
    {CL_ERR_INVALID_INDEX, "There is no port of that index"},
    {CL_ERR_INVALID_REFERENCE, "The port is not open or is no longer there"},
    {CL_ERR_ERROR_NOT_FOUND, "There is no text for that error"},
    {CL_ERR_BAUD_RATE_NOT_SUPPORTED, "The port does not support that baud rate"},
    {CL_ERR_OUT_OF_MEMORY, "Out of memory"},
    {CL_ERR_REGISTRY_KEY_NOT_FOUND, "The registry does not name the makers' libraries"},
    {CL_ERR_INVALID_PTR, "A pointer is missing"},
    {CL_ERR_UNABLE_TO_LOAD_DLL, "A maker's library can't be loaded"},
    {CL_ERR_FUNCTION_NOT_FOUND, "A maker's library lacks a function"},
}};

constexpr std::array<uint32_t, 8> cBauds{
    {9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600}};

} // namespace

bool find(int32_t anStatus, std::string& arText)
{
    for (const tcRow& row : cTexts) {
        if (row.status == anStatus) {
            arText = row.text;
            return true;
        }
    }
    return false;
}

uint32_t baudOfCode(uint32_t anCode)
{
    for (size_t bit = 0; bit < cBauds.size(); ++bit) {
        if (anCode == 1u << bit)
            return cBauds[bit];
    }
    return 0;
}

} // namespace tcStatusText

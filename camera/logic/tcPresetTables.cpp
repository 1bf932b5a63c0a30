#include "camera/logic/tcPresetTables.h"

#include <array>

namespace tcPresetTables
{
namespace
{

// As designed: the presets called "5ms exp" ask for 500 microseconds like the others.
// clang-format off
constexpr std::array<tcPreset, 4> cTwoAndFourMegapixels{{
    {"8-Tap, 10 Bpp, 1824 x 416, Max fps, 500us exp Free",
     "<STOP>\n<SCLK 6>\n<NROI 1>\n<SROI 336 112 1824 416>\n<SOMD 0>\n<SBPP 4>\n"
     "<SEXP 500>\n<SFIT 0>\n<TRIG 0>\n<STRT>\n"},
    {"8-Tap, 10 Bpp, 1824 x 416, 500us exp Trigger on CAM0",
     "<STOP>\n<SCLK 6>\n<NROI 1>\n<SROI 336 112 1824 416>\n<SOMD 0>\n<SBPP 4>\n"
     "<SEXP 500>\n<SFIT 0>\n<TRIG 1>\n<STRT>\n"},
    {"8-Tap, 10 Bpp, 2048 x 1088, Max fps, 5ms exp Free",
     "<STOP>\n<SCLK 5>\n<NROI 1>\n<SROI 0 0 2048 1088>\n<SOMD 0>\n<SBPP 4>\n"
     "<SEXP 500>\n<SFIT 0>\n<TRIG 0>\n<STRT>\n"},
    {"8-Tap, 10 Bpp, 2048 x 1088, 5ms exp Trigger on CAM0",
     "<STOP>\n<SCLK 5>\n<NROI 1>\n<SROI 0 0 2048 1088>\n<SOMD 0>\n<SBPP 4>\n"
     "<SEXP 500>\n<SFIT 0>\n<TRIG 1>\n<STRT>\n"},
}};

constexpr std::array<tcPreset, 4> cTemperatureControlled{{
    {"8-Tap, 10 Bpp, 1824 x 416, Max fps, 500us exp Free",
     "<STOP>\n<STEC 24.0>\n<COOL 1>\n<FAN 1>\n<SCLK 6>\n<NROI 1>\n"
     "<SROI 336 112 1824 416>\n<SOMD 0>\n<SBPP 4>\n<SEXP 500>\n<SFIT 0>\n"
     "<TRIG 0>\n<STRT>\n"},
    {"8-Tap, 10 Bpp, 1824 x 416, 500us exp Trigger on CAM0",
     "<STOP>\n<STEC 24.0>\n<COOL 1>\n<FAN 1>\n<SCLK 6>\n<NROI 1>\n"
     "<SROI 336 112 1824 416>\n<SOMD 0>\n<SBPP 4>\n<SEXP 500>\n<SFIT 0>\n"
     "<TRIG 1>\n<STRT>\n"},
    {"8-Tap, 10 Bpp, 2048 x 1088, Max fps, 5ms exp Free",
     "<STOP>\n<STEC 24.0>\n<COOL 1>\n<FAN 1>\n<SCLK 5>\n<NROI 1>\n"
     "<SROI 0 0 2048 1088>\n<SOMD 0>\n<SBPP 4>\n<SEXP 500>\n<SFIT 0>\n<TRIG 0>\n"
     "<STRT>\n"},
    {"8-Tap, 10 Bpp, 2048 x 1088, 5ms exp Trigger on CAM0",
     "<STOP>\n<STEC 24.0>\n<COOL 1>\n<FAN 1>\n<SCLK 5>\n<NROI 1>\n"
     "<SROI 0 0 2048 1088>\n<SOMD 0>\n<SBPP 4>\n<SEXP 500>\n<SFIT 0>\n<TRIG 1>\n"
     "<STRT>\n"},
}};

constexpr std::array<tcPreset, 5> cOthers{{
    {"10-Tap, 8 Bpp, 3360x2496, 95 fps",
     "<STOP>\n<NROI 1>\n<SROI 0 0 3360 2496>\n<SOMD 0>\n<SBPP 0>\n<SCLK 7>\n"
     "<SFIT 0>\n<STRT>\n"},
    {"10-Tap, 16 Bpp, 3360x2496, 47 fps",
     "<STOP>\n<NROI 1>\n<SROI 0 0 3360 2496>\n<SOMD 0>\n<SBPP 1>\n<SCLK 2>\n"
     "<SFIT 0>\n<STRT>\n"},
    {"Base, 8 Bpp x 2, 3360x2496, 20 fps",
     "<STOP>\n<NROI 1>\n<SROI 0 0 3360 2496>\n<SOMD 1>\n<SBPP 0>\n<SFIT 50000>\n"
     "<STRT>\n"},
    {"Base, 16 Bpp, 3360x2496, 10 fps",
     "<STOP>\n<NROI 1>\n<SROI 0 0 3360 2496>\n<SOMD 1>\n<SBPP 1>\n<SFIT 100000>\n"
     "<STRT>\n"},
    {"Base, 12 Bpp x 2, 3360x2496, 20 fps",
     "<STOP>\n<NROI 1>\n<SROI 0 0 3360 2496>\n<SOMD 1>\n<SBPP 2>\n<SFIT 50000>\n"
     "<STRT>\n"},
}};
// clang-format on

template <size_t cCount>
tcTable table(const std::array<tcPreset, cCount>& acRows)
{
    return {acRows.data(), static_cast<int>(cCount)};
}

} // namespace

tcTable of(teCmvType aeType)
{
    switch (aeType) {
    case teCmvType::Cmv2000:
    case teCmvType::Cmv4000:
        return table(cTwoAndFourMegapixels);
    case teCmvType::Cmv2000TEC:
        return table(cTemperatureControlled);
    case teCmvType::Cmv300:
    case teCmvType::Cmv8000:
    case teCmvType::Cmv12000:
        break;
    }
    return table(cOthers);
}

} // namespace tcPresetTables

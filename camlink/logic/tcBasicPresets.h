#pragma once

#include "camlink/logic/tcPreset.h"

#include <array>

/// Preset tables of the basic cameras, one row a preset, in the order the operator sees. RS and
/// GS name the rolling and the global shutter.
namespace tcBasicPresets
{

// clang-format off
constexpr std::array<tcPreset, 5> cR60{{
    {"10-Tap, 8 Bpp, 2560x2160, 70 fps",  "<STOP>\n<SROI 0 0 2560 2160>\n<SOMD 0>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"10-Tap, 16 Bpp, 2560x2160, 70 fps", "<STOP>\n<SROI 0 0 2560 2160>\n<SOMD 0>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 8 Bpp x 2, 2560x2160, 28 fps", "<STOP>\n<SROI 0 0 2560 2160>\n<SOMD 1>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 16 Bpp, 2560x2160, 14 fps",   "<STOP>\n<SROI 0 0 2560 2160>\n<SOMD 1>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 12 Bpp x 2, 2560x2160, 28 fps", "<STOP>\n<SROI 0 0 2560 2160>\n<SOMD 1>\n<SBPP 2>\n<SFIT 0>\n<STRT>\n"},
}};

constexpr std::array<tcPreset, 10> cR70{{
    {"10-Tap, 8 Bpp, 1920x1080, 75 fps (RS)",   "<STOP>\n<SMOD 0>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 0>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"10-Tap, 16 Bpp, 1920x1080, 75 fps (RS)",  "<STOP>\n<SMOD 0>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 0>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 8 Bpp x 2, 1920x1080, 75 fps (RS)", "<STOP>\n<SMOD 0>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 1>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 16 Bpp, 1920x1080, 30 fps (RS)",    "<STOP>\n<SMOD 0>\n<SROI 0 0 1920 1080>\n<SCLK 80>\n<SSQRT 0>\n<SOMD 1>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 12 Bpp x 2, 1920x1080, 75 fps (RS)", "<STOP>\n<SMOD 0>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 1>\n<SOMD 1>\n<SBPP 2>\n<SFIT 0>\n<STRT>\n"},
    {"10-Tap, 8 Bpp, 1920x1080, 37 fps (GS)",   "<STOP>\n<SMOD 1>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 0>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"10-Tap, 16 Bpp, 1920x1080, 37 fps (GS)",  "<STOP>\n<SMOD 1>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 0>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 8 Bpp x 2, 1920x1080, 37 fps (GS)", "<STOP>\n<SMOD 1>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 0>\n<SOMD 1>\n<SBPP 0>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 16 Bpp, 1920x1080, 14 fps (GS)",    "<STOP>\n<SMOD 1>\n<SROI 0 0 1920 1080>\n<SCLK 80>\n<SSQRT 0>\n<SOMD 1>\n<SBPP 1>\n<SFIT 0>\n<STRT>\n"},
    {"Base, 12 Bpp x 2, 1920x1080, 37 fps (GS)", "<STOP>\n<SMOD 1>\n<SROI 0 0 1920 1080>\n<SCLK 200>\n<SSQRT 1>\n<SOMD 1>\n<SBPP 2>\n<SFIT 0>\n<STRT>\n"},
}};
// clang-format on

} // namespace tcBasicPresets

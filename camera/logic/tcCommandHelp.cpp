#include "camera/logic/tcCommandHelp.h"

#include <QCoreApplication>

#include <cstring>

namespace tcCommandHelp
{

// As designed: the wording is kept, "cooliung" too, and the set forms of GFLX and GFLY are
// written with the mnemonics that get.
// clang-format off
const std::array<tcRow, 37> cRows{{
    {"<VERS>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the camera version")},
    {"<SVBN N>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the vertical binning factor to N")},
    {"<GVBN>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the vertical binning factor")},
    {"<SHBN N>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the horizontal binning factor to N")},
    {"<GHBN>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the horizontal binning factor")},
    {"<SBPP M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the BitsPerPixel mode to M")},
    {"<GBPP>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the BitsPerPixel mode")},
    {"<GOMD>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the output mode")},
    {"<SOMD M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the output mode to M")},
    {"<SEXP us>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the exposure time to us")},
    {"<GEXP>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the exposure time")},
    {"<SFIT us>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the Frame Interval Time to us")},
    {"<GFIT>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the Frame Interval Time")},
    {"<SETD P D>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the GPIO pin P direction (1=out)")},
    {"<SETP P M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the GPIO pin P mode [low (0), high (1), \"expose strobe\" (2)]")},
    {"<GETP>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the state of all GPIO pins as a bitmask (0x00 through 0x07)")},
    {"<PEEK A>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the value of a sensor register at address A")},
    {"<POKE A V>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the value of a sensor register at address A to value V")},
    {"<RSET>", QT_TRANSLATE_NOOP("tcVexaK40", "Reset the camera")},
    {"<SROI R C W H>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the ROI to WxH at Column,Row")},
    {"<GROI>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the ROI <StartRow><StartColumn><Width><Height>")},
    {"<MROI I>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the ROI at index I")},
    {"<MROI I X Y W H>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the ROI at index I to WxH at X,Y")},
    {"<NROI>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the number of ROIs supported")},
    {"<NROI N>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the number of ROIs to N")},
    {"<STRT>", QT_TRANSLATE_NOOP("tcVexaK40", "Start acquisition")},
    {"<STOP>", QT_TRANSLATE_NOOP("tcVexaK40", "Stop Acquisition")},
    {"<TEST M>", QT_TRANSLATE_NOOP("tcVexaK40", "Test pattern control [0 = OFF, 1 = Sensor, 2 = FPGA]")},
    {"<TRIG M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set the trigger mode for the camera [0=Internally triggered free-run, 1=External trigger on CamIO 0]")},
    {"<TEMP N>", QT_TRANSLATE_NOOP("tcVexaK40", "Get the temperature of the sensor [0-ALL]")},
    {"<FAN F>", QT_TRANSLATE_NOOP("tcVexaK40", "Turn the cooliung fan on / off (if applicable) [0=OFF, 1=ON]")},
    {"<GFLX M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set Flip X state [1=Flip]")},
    {"<GFLX>", QT_TRANSLATE_NOOP("tcVexaK40", "Get Flip X state [1=Flip]")},
    {"<GFLY M>", QT_TRANSLATE_NOOP("tcVexaK40", "Set Flip Y state [1=Flip]")},
    {"<GFLY>", QT_TRANSLATE_NOOP("tcVexaK40", "Get Flip Y state [1=Flip]")},
    {"<SCLK F>", QT_TRANSLATE_NOOP("tcVexaK40", "Set current SCLK frequency to the sensor [see docs]")},
    {"<GCLK>", QT_TRANSLATE_NOOP("tcVexaK40", "Get current SCLK frequency of the sensor")},
}};
// clang-format on

QString entry(const tcRow& acRow)
{
    constexpr size_t cShortSyntax = 7; ///< ends before the first tab stop
    const char* tabs = std::strlen(acRow.syntax) <= cShortSyntax ? "\t\t" : "\t";
    return QLatin1String(acRow.syntax) + QLatin1String(tabs)
        + QCoreApplication::translate("tcVexaK40", acRow.description);
}

QStringList entries()
{
    QStringList list;
    for (const tcRow& row : cRows)
        list.append(entry(row));
    return list;
}

} // namespace tcCommandHelp

#include "camera/logic/tcCommandHelp.h"

#include <QTest>

namespace
{

const QStringList cExpected{
    "<VERS>\t\tGet the camera version",
    "<SVBN N>\tSet the vertical binning factor to N",
    "<GVBN>\t\tGet the vertical binning factor",
    "<SHBN N>\tSet the horizontal binning factor to N",
    "<GHBN>\t\tGet the horizontal binning factor",
    "<SBPP M>\tSet the BitsPerPixel mode to M",
    "<GBPP>\t\tGet the BitsPerPixel mode",
    "<GOMD>\t\tGet the output mode",
    "<SOMD M>\tSet the output mode to M",
    "<SEXP us>\tSet the exposure time to us",
    "<GEXP>\t\tGet the exposure time",
    "<SFIT us>\tSet the Frame Interval Time to us",
    "<GFIT>\t\tGet the Frame Interval Time",
    "<SETD P D>\tSet the GPIO pin P direction (1=out)",
    "<SETP P M>\tSet the GPIO pin P mode [low (0), high (1), \"expose strobe\" (2)]",
    "<GETP>\t\tGet the state of all GPIO pins as a bitmask (0x00 through 0x07)",
    "<PEEK A>\tGet the value of a sensor register at address A",
    "<POKE A V>\tSet the value of a sensor register at address A to value V",
    "<RSET>\t\tReset the camera",
    "<SROI R C W H>\tSet the ROI to WxH at Column,Row",
    "<GROI>\t\tGet the ROI <StartRow><StartColumn><Width><Height>",
    "<MROI I>\tGet the ROI at index I",
    "<MROI I X Y W H>\tSet the ROI at index I to WxH at X,Y",
    "<NROI>\t\tGet the number of ROIs supported",
    "<NROI N>\tSet the number of ROIs to N",
    "<STRT>\t\tStart acquisition",
    "<STOP>\t\tStop Acquisition",
    "<TEST M>\tTest pattern control [0 = OFF, 1 = Sensor, 2 = FPGA]",
    "<TRIG M>\tSet the trigger mode for the camera [0=Internally triggered free-run, "
    "1=External trigger on CamIO 0]",
    "<TEMP N>\tGet the temperature of the sensor [0-ALL]",
    "<FAN F>\t\tTurn the cooliung fan on / off (if applicable) [0=OFF, 1=ON]",
    "<GFLX M>\tSet Flip X state [1=Flip]",
    "<GFLX>\t\tGet Flip X state [1=Flip]",
    "<GFLY M>\tSet Flip Y state [1=Flip]",
    "<GFLY>\t\tGet Flip Y state [1=Flip]",
    "<SCLK F>\tSet current SCLK frequency to the sensor [see docs]",
    "<GCLK>\t\tGet current SCLK frequency of the sensor",
};

} // namespace

class tst_CommandHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyEntryToTheLetter();
    void twoTabsUpToSevenCharacters();
};

void tst_CommandHelp::everyEntryToTheLetter()
{
    const QStringList entries = tcCommandHelp::entries();
    QCOMPARE(entries.size(), 37);
    for (int row = 0; row < cExpected.size(); ++row)
        QCOMPARE(entries.at(row), cExpected.at(row));
}

void tst_CommandHelp::twoTabsUpToSevenCharacters()
{
    QCOMPARE(tcCommandHelp::entry({"1234567", "x"}), QStringLiteral("1234567\t\tx"));
    QCOMPARE(tcCommandHelp::entry({"12345678", "x"}), QStringLiteral("12345678\tx"));
}

QTEST_GUILESS_MAIN(tst_CommandHelp)
#include "tst_commandhelp.moc"

#pragma once

#include <QCoreApplication>
#include <QString>

#include <array>

/// Which value axis a sensor's curve goes on, as the sensor list stores it.
enum class teSensorKind
{
    Source = 0, ///< an external data source: right axis
    Left = 1,
    Right = 2,
};

struct tcSensorRow
{
    const char* name;
    teSensorKind kind;
};

/// The camera's own sensors; a sensor's number is its row's index plus one.
constexpr std::array<tcSensorRow, 15> cCameraSensors{{
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "Sensor Temperature"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "Board Temperature"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "Thermistor Temperature"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "Ambient Temperature"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "Relative Humidity"), teSensorKind::Right},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "TEC Drive current"), teSensorKind::Right},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "TEC Voltage"), teSensorKind::Right},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "IVRESH"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "I3P3V"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "I3P0V"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "I2P0V"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "2P1V"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "3V3RESH"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "3P0V"), teSensorKind::Left},
    {QT_TRANSLATE_NOOP("tcSensorMonitor", "3P3V"), teSensorKind::Left},
}};

namespace tcSensorTable
{

/// "<SENS 3>".
QString pollCommand(int anNumber);

/// How far a simulated reading may lie from 25.0, in thousandths: below it down to this, above
/// it up to one less.
constexpr int cSimulatedSpread = 2000;
/// What a camera would answer to the poll; anThousandths is the distance from 25.0.
QString simulatedReply(const QString& acPollCommand, int anThousandths);

/// What the sensor list shows: the display text where there is one, else the name, a blank and
/// the type of the source, which a camera sensor has none of.
QString listText(const QString& acName, const QString& acSourceType,
                 const QString& acDisplayText);

} // namespace tcSensorTable

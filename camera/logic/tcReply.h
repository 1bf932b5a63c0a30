#pragma once

#include <QString>

#include <optional>

/// What the camera's replies mean: the echoed command, ACK or NACK, value fields, each in angle
/// brackets.
namespace tcReply
{

/// A bracketed field, then one that begins with any number of N and ACK. What follows on the
/// line, or on further ones, does not matter.
bool isReply(const QString& acLine);
bool isReply(const QStringRef& arLine);

/// Without the empty lines in it and without line feeds at its ends.
QString normalised(const QString& acLine);

struct tcSensorReading
{
    int number = 0; ///< 0 to 9
    double value = 0;
};
/// As designed: a sensor number of one digit only, and a value with a decimal point. Nothing
/// for a value beyond all numbers, which no chart could show.
std::optional<tcSensorReading> sensorReading(const QString& acText);

struct tcCoolerState
{
    bool on = false;
    double setPoint = 0; ///< degrees Celsius; 0 when the camera's figure can't be read
};
/// As designed: ON and OFF in upper case only.
std::optional<tcCoolerState> coolerState(const QString& acText);

} // namespace tcReply

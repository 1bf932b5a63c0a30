#include "camera/logic/tcReply.h"

#include <QRegularExpression>

#include <cmath>

namespace tcReply
{
namespace
{

// Each is compiled once, when first asked for.

const QRegularExpression& replyPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^<[^>]+><N*ACK.*>"));
    return pattern;
}

const QRegularExpression& sensorPattern()
{
    static const QRegularExpression pattern(QStringLiteral(R"(<SENS (\d)><ACK><(\d*\.\d*)>)"));
    return pattern;
}

const QRegularExpression& coolerPattern()
{
    static const QRegularExpression pattern(QStringLiteral("<GTEC><ACK><(ON|OFF)><(.*)>"));
    return pattern;
}

} // namespace

bool isReply(const QString& acLine)
{
    return isReply(QStringRef(&acLine));
}

bool isReply(const QStringRef& arLine)
{
    return arLine.startsWith('<') && replyPattern().match(arLine).hasMatch();
}

QString normalised(const QString& acLine)
{
    if (!acLine.contains('\n'))
        return acLine;
    return acLine.split('\n', Qt::SkipEmptyParts).join('\n');
}

std::optional<tcSensorReading> sensorReading(const QString& acText)
{
    const QRegularExpressionMatch match = sensorPattern().match(acText);
    if (!match.hasMatch())
        return std::nullopt;
    const double value = match.capturedRef(2).toDouble();
    if (!std::isfinite(value)) // more digits than a number holds
        return std::nullopt;
    return tcSensorReading{match.capturedRef(1).toInt(), value};
}

std::optional<tcCoolerState> coolerState(const QString& acText)
{
    const QRegularExpressionMatch match = coolerPattern().match(acText);
    if (!match.hasMatch())
        return std::nullopt;
    const double setPoint = match.capturedRef(2).toDouble(); // 0 for what is no figure
    return tcCoolerState{match.capturedRef(1) == QLatin1String("ON"),
                         std::isfinite(setPoint) ? setPoint : 0};
}

} // namespace tcReply

#include "camera/logic/tcSensorTable.h"

#include <QLocale>

namespace tcSensorTable
{

QString pollCommand(int anNumber)
{
    return QStringLiteral("<SENS %1>").arg(anNumber);
}

QString simulatedReply(const QString& acPollCommand, int anThousandths)
{
    // Divided once, so that the value is the decimal fraction and prints as one.
    constexpr int cMiddle = 25000;
    const QString value = QString::number((cMiddle + anThousandths) / 1000.0, 'g',
                                          QLocale::FloatingPointShortest);
    return QStringLiteral("%1<ACK><%2>").arg(acPollCommand, value);
}

QString listText(const QString& acName, const QString& acSourceType,
                 const QString& acDisplayText)
{
    if (!acDisplayText.isEmpty())
        return acDisplayText;
    return QStringLiteral("%1 %2").arg(acName, acSourceType);
}

} // namespace tcSensorTable

#include "app/logic/tcPointText.h"

#include <QDateTime>

QString tcPointText::pair(double anX, double anY, int anDecimals)
{
    return QString::number(anX, 'f', anDecimals) + ',' + QString::number(anY, 'f', anDecimals);
}

QString tcPointText::clock(double anMsSinceEpoch)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(anMsSinceEpoch))
        .toString(QStringLiteral("hh:mm:ss.zzz"));
}

QString tcPointText::timed(double anMsSinceEpoch, double anValue)
{
    return clock(anMsSinceEpoch) + ',' + QString::number(anValue, 'f', 3);
}

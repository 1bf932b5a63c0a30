#include "app/logic/tcPointText.h"

QString tcPointText::pair(double anX, double anY, int anDecimals)
{
    return QString::number(anX, 'f', anDecimals) + ',' + QString::number(anY, 'f', anDecimals);
}

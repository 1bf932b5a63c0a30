#include "camera/logic/tcIniArray.h"

#include <QStringList>

#include <algorithm>

std::vector<int> tcIniArray::entryNumbers(const QSettings& acSettings, int anSize)
{
    std::vector<int> numbers;
    for (const QString& group : acSettings.childGroups()) {
        const int number = group.toInt();
        if (number >= 1 && number <= anSize && group == QString::number(number))
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

#include "sources/logic/tcTC08Channel.h"

QStringList tcTC08Channel::inputNames()
{
    QStringList names;
    for (int channel = cFirstInput; channel <= cLastInput; ++channel)
        names.append(QStringLiteral("CH%1").arg(channel));
    return names;
}

qint32 tcTC08Channel::number(const QString& acName)
{
    return acName.mid(2).toInt();
}

bool tcTC08Channel::isInput(qint32 anChannel)
{
    return anChannel > 0 && anChannel < cCount;
}

bool tcTC08Channel::overflowed(qint16 anFlags, int anChannel)
{
    return (anFlags & (1 << anChannel)) != 0;
}

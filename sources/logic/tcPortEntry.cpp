#include "sources/logic/tcPortEntry.h"

#include <QStringList>

QString tcPortEntry::text() const
{
    return QStringLiteral("%1 [ %2 ]").arg(name, description);
}

QString tcPortEntry::portName(const QString& acText)
{
    return acText.left(acText.indexOf(QStringLiteral(" [ ")));
}

QVector<tcPortEntry> tcPortEntry::parseList(const QString& acText)
{
    QVector<tcPortEntry> list;
    for (const QString& item : acText.split(u';')) {
        const QString name = item.section(u'=', 0, 0).trimmed();
        if (!name.isEmpty())
            list.append({name, item.section(u'=', 1).trimmed()});
    }
    return list;
}

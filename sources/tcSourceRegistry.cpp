#include "sources/tcSourceRegistry.h"

#include <QDebug>
#include <QMap>

namespace
{

/// Made when first asked for, since builders register from the constructors of static objects.
QMap<QString, tcSourceRegistry::tcBuilder>& builders()
{
    static auto* map = new QMap<QString, tcSourceRegistry::tcBuilder>;
    return *map;
}

} // namespace

bool tcSourceRegistry::registerBuilder(const QString& acType, const tcBuilder& acBuilder)
{
    if (builders().contains(acType)) {
        qWarning() << "Builder already registered for type" << acType;
        return false;
    }
    builders().insert(acType, acBuilder);
    qDebug() << "Adding builder for type " << acType;
    return true;
}

tcDataSource* tcSourceRegistry::createSource(const QString& acType, const QString& acName,
                                             QObject* apParent)
{
    const auto found = builders().constFind(acType);
    if (found == builders().constEnd()) {
        qWarning() << "No builder registered for type" << acType << "[" << acName << "]";
        return nullptr;
    }
    const tcBuilder builder = *found; // a builder may register others and move the map
    return builder(acName, apParent);
}

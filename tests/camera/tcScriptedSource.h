#pragma once

#include "sources/tcDataSource.h"
#include "sources/tcSourceRegistry.h"

#include <QList>

#include <functional>

/// A data source without an instrument: the test says what it reads and how it stops.
class tcScriptedSource : public tcDataSource
{
    Q_OBJECT

public:
    tcScriptedSource(const QString& acName, QObject* apParent)
        : tcDataSource(apParent), name(acName)
    {
        living.append(this);
    }
    ~tcScriptedSource() override
    {
        living.removeAll(this);
        if (whileGoing)
            whileGoing();
    }

    QStringList availableChannels() override { return {}; }
    QString displayName() override { return name; }
    QString typeName() override { return QStringLiteral("Scripted"); }
    void prepareStop() override { ++preparations; }
    void start() override { ++starts; }
    void stop() override
    {
        ++stops;
        if (whileStopping)
            whileStopping();
    }

    /// Under "Scripted"; once for all tests of a program.
    static void registerType()
    {
        tcSourceRegistry::registerBuilder(QStringLiteral("Scripted"),
                                          [](const QString& acName, QObject* apParent) {
                                              return new tcScriptedSource(acName, apParent);
                                          });
    }

    QString name;
    int starts = 0;
    int preparations = 0;
    int stops = 0;
    static inline QList<tcScriptedSource*> living;
    static inline std::function<void()> whileStopping;
    static inline std::function<void()> whileGoing; ///< as real ones do, which stop then
};

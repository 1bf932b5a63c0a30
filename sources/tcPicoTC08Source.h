#pragma once

#include "sources/tcDataSource.h"
#include "sources/tcDebugSource.h"

/// One input of a USB thermocouple logger. All of them share the driver and its one loop.
class tcPicoTC08Source : public tcDataSource, public tcDebugSource
{
    Q_OBJECT

public:
    /// The channel is the number in a name like "CH3".
    explicit tcPicoTC08Source(const QString& acName, QObject* apParent = nullptr);
    ~tcPicoTC08Source() override;

    static QString registeredName() { return QStringLiteral("Pico TC08"); }

    QStringList availableChannels() override;
    QString displayName() override;
    QString typeName() override;
    void start() override; ///< a second source of a channel takes it over from the first
    void stop() override;

private:
    void leave();

    qint32 mChannel = 0; ///< 1 to 8; others never register
};

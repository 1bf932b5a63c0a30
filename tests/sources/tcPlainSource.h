#pragma once

#include "sources/tcDataSource.h"

/// A source of no instrument, for what only needs one to speak for it.
class tcPlainSource : public tcDataSource
{
public:
    QStringList availableChannels() override { return {}; }
    QString displayName() override { return {}; }
    QString typeName() override { return {}; }
    void start() override { }
    void stop() override { }
};

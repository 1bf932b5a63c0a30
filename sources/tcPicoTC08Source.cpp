#include "sources/tcPicoTC08Source.h"

#include "sources/logic/tcTC08Channel.h"
#include "sources/tcTC08Ops.h"

tcPicoTC08Source::tcPicoTC08Source(const QString& acName, QObject* apParent)
    : tcDataSource(apParent), tcDebugSource("tcPicoTC08Source")
{
    mTypeName = registeredName();
    if (!acName.isEmpty())
        mChannel = tcTC08Channel::number(acName);
    tcTC08Ops::ensureInstance();
}

tcPicoTC08Source::~tcPicoTC08Source()
{
    leave();
}

QStringList tcPicoTC08Source::availableChannels()
{
    const tcTC08Ops* ops = tcTC08Ops::instance();
    return ops && ops->isLoaded() ? tcTC08Channel::inputNames() : QStringList();
}

QString tcPicoTC08Source::displayName()
{
    // As designed: the type name fills both places, so every channel has the same title.
    return QStringLiteral("%1 CH %1").arg(typeName());
}

QString tcPicoTC08Source::typeName()
{
    return mTypeName;
}

void tcPicoTC08Source::start()
{
    if (tcTC08Ops* ops = tcTC08Ops::instance())
        ops->addSource(mChannel, this);
}

void tcPicoTC08Source::stop()
{
    leave();
}

void tcPicoTC08Source::leave()
{
    if (tcTC08Ops* ops = tcTC08Ops::instance())
        ops->removeSource(mChannel);
}

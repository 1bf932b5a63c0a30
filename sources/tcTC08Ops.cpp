#include "sources/tcTC08Ops.h"

#include "sources/logic/tcTC08Channel.h"
#include "sources/tcPicoTC08MonWorker.h"
#include "sources/tcPicoTC08Source.h"

#include <QCoreApplication>
#include <QDebug>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace
{

std::unique_ptr<tcTC08Ops>& theInstance()
{
    // Emptied with the application object; never destroyed by the process, where it would be
    // too late to wait for anybody.
    static auto* instance = new std::unique_ptr<tcTC08Ops>;
    return *instance;
}

void destroyInstance()
{
    theInstance().reset();
}

/// A driver is taken from where drivers are installed, never from the folder in which somebody
/// happens to start the panel, such as a folder of downloads.
void excludeCurrentFolder()
{
#ifdef Q_OS_WIN
    SetDllDirectoryW(L"");
#endif
}

} // namespace

tcTC08Ops::tcTC08Ops(const QString& acLibrary) : QLibrary(acLibrary)
{
    // Nobody knows whether a thread is still inside the driver when the process ends.
    setLoadHints(QLibrary::PreventUnloadHint);
    excludeCurrentFolder();
    if (!load())
        return;
    mCalls.resolve([this](const char* name) { return resolve(name); });
    mWorker = std::make_shared<tcPicoTC08MonWorker>(mCalls);
    mWorker->start();
    if (const QCoreApplication* application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this,
                [this] { mWorker->requestStop(); });
    if (!mWorker->isUsable())
        unload();
}

tcTC08Ops::~tcTC08Ops()
{
    if (!mWorker)
        return;
    for (size_t channel = 0; channel < tcTC08Channel::cCount; ++channel)
        mWorker->link().setSource(channel, nullptr);
    if (mWorker->stop())
        unload();
    else
        qWarning() << "Worker for" << tcPicoTC08MonWorker::name() << " stuck... killing";
}

tcTC08Ops* tcTC08Ops::instance()
{
    return theInstance().get();
}

void tcTC08Ops::ensureInstance()
{
    if (!instance()) {
        theInstance() = std::make_unique<tcTC08Ops>(QStringLiteral("usbtc08"));
        qAddPostRoutine(destroyInstance);
    }
    if (!instance()->isLoaded())
        qWarning() << "Unable to load" << instance()->fileName();
}

void tcTC08Ops::addSource(int anChannel, tcPicoTC08Source* apSource)
{
    if (!canServe(anChannel))
        return;
    if (mWorker->link().setSource(size_t(anChannel), apSource))
        qWarning() << "Replacing source for PICO TC08 channel" << anChannel;
    qDebug() << "Added source for PICO TC08 channel" << anChannel;
}

void tcTC08Ops::removeSource(int anChannel)
{
    if (!canServe(anChannel))
        return;
    // As designed: the slot is cleared whoever is in it.
    mWorker->link().setSource(size_t(anChannel), nullptr);
    qDebug() << "Removed source for PICO TC08 channel" << anChannel;
}

bool tcTC08Ops::canServe(int anChannel) const
{
    return tcTC08Channel::isInput(anChannel) && mWorker && mWorker->isUsable();
}

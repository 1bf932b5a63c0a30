#include "sources/tcOmegaTempMonitor.h"

#include "sources/logic/tcPortEntry.h"
#include "sources/tcOmegaMonWorker.h"

#include <QDebug>
#include <QSerialPortInfo>

#include <utility>

tcOmegaTempMonitor::tcOmegaTempMonitor(const QString& acPortName, QObject* apParent)
    : tcDataSource(apParent)
    , tcDebugSource("tcOmegaTempMonitor")
    , mWorker(std::make_shared<tcOmegaMonWorker>(this, acPortName))
{
    mTypeName = registeredName();
}

tcOmegaTempMonitor::~tcOmegaTempMonitor()
{
    stopWorker();
}

QStringList tcOmegaTempMonitor::availableChannels()
{
    QStringList entries;
    QStringList names;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        entries.append(tcPortEntry{port.portName(), port.description()}.text());
        names.append(port.portName());
    }
    const QString extra = qEnvironmentVariable("TARVIK_EXTRA_SERIAL_PORTS");
    for (const tcPortEntry& entry : tcPortEntry::parseList(extra)) {
        if (!names.contains(entry.name))
            entries.append(entry.text());
    }
    return entries;
}

QString tcOmegaTempMonitor::displayName()
{
    return QStringLiteral("%1 %2").arg(typeName(),
                                       mWorker ? mWorker->portName() : QStringLiteral("None"));
}

QString tcOmegaTempMonitor::typeName()
{
    return mTypeName;
}

void tcOmegaTempMonitor::prepareStop()
{
    if (mWorker)
        mWorker->requestStop();
}

void tcOmegaTempMonitor::start()
{
    if (mWorker)
        mWorker->start();
}

void tcOmegaTempMonitor::stop()
{
    stopWorker();
}

void tcOmegaTempMonitor::stopWorker()
{
    // Forgotten first: events run while it stops, and one of them may stop or delete this
    // monitor, which is not touched after the wait.
    const std::shared_ptr<tcOmegaMonWorker> worker = std::exchange(mWorker, nullptr);
    if (!worker)
        return;
    worker->link().setSource(0, nullptr);
    if (!worker->stop())
        qWarning() << "Worker for" << worker->portName() << " stuck... killing";
}

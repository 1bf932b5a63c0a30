#pragma once

#include "sources/tcDataSource.h"
#include "sources/tcDebugSource.h"

#include <memory>

class tcOmegaMonWorker;

/// A thermometer on a serial port. Starts with a worker for the port; stopping deletes it, so a
/// monitor runs once.
///
/// Beside the ports that the system reports, availableChannels() offers those named in the
/// environment variable TARVIK_EXTRA_SERIAL_PORTS, "port=description;port=description". That is
/// how a thermometer on a pseudo-terminal is reached, which no system lists among its ports.
class tcOmegaTempMonitor : public tcDataSource, public tcDebugSource
{
    Q_OBJECT

public:
    explicit tcOmegaTempMonitor(const QString& acPortName, QObject* apParent = nullptr);
    ~tcOmegaTempMonitor() override;

    static QString registeredName() { return QStringLiteral("Omega UTC"); }

    QStringList availableChannels() override;
    QString displayName() override;
    QString typeName() override;
    void prepareStop() override;
    void start() override;
    void stop() override;

private:
    void stopWorker();

    std::shared_ptr<tcOmegaMonWorker> mWorker; ///< none once stopped
};

#include "sources/tcOmegaMonWorker.h"

#include "sources/logic/tcOmegaReply.h"

#include <QDateTime>
#include <QDebug>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSerialPort>

#include <algorithm>
#include <utility>

namespace
{

constexpr char cWakeUp[] = "\r\n";
constexpr char cRequest[] = "c\r\n";
constexpr qint64 cRequestSize = 3;
constexpr int cWaitMs = 1000;
constexpr int cWaitSliceMs = 50; ///< how long a silent thermometer delays a stop
constexpr int cPauseMs = 100;
/// One line is read for each request, so whatever comes unasked, or in pieces, stays behind and
/// is read later. A reading is stamped when it is read: this much may be a second old, and no
/// more is kept.
constexpr qint64 cMaxBacklog = 64;

void applySettings(QSerialPort& arPort)
{
    arPort.setBaudRate(QSerialPort::Baud38400, QSerialPort::AllDirections);
    arPort.setDataBits(QSerialPort::Data8);
    arPort.setParity(QSerialPort::NoParity);
    arPort.setStopBits(QSerialPort::OneStop);
    arPort.setFlowControl(QSerialPort::NoFlowControl);
}

/// Runs a wait of the port's in slices, for a second at most, so that a stop is noticed.
template <class tWait>
bool waitInSlices(QSerialPort& arPort, const tcWorkerLink& acLink, tWait aWait)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!acLink.stopRequested() && !elapsed.hasExpired(cWaitMs)) {
        arPort.clearError(); // a time-out stays until cleared
        const auto left = static_cast<int>(std::max<qint64>(1, cWaitMs - elapsed.elapsed()));
        if (aWait(std::min(cWaitSliceMs, left)))
            return true;
        if (arPort.error() != QSerialPort::TimeoutError)
            return false;
    }
    return false;
}

void handleLine(const QByteArray& acLine, tcWorkerLink& arLink)
{
    const QString line = tcOmegaReply::toText(acLine);
    const tcOmegaReply::tcResult reply = tcOmegaReply::parse(line);
    if (reply.kind == tcOmegaReply::teKind::Reading)
        arLink.emitReading(0, QDateTime::currentMSecsSinceEpoch(), reply.value);
    else if (reply.kind == tcOmegaReply::teKind::Bad)
        arLink.emitMessage(0, tcOmegaMonWorker::tr("Bad read: %1").arg(line));
}

/// Polls until asked to stop. A thermometer that was pulled is reported once.
void pollUntilStopped(QSerialPort& arPort, const QString& acPortName, qint64 anPollIntervalMs,
                      tcWorkerLink& arLink)
{
    QElapsedTimer sinceOpened;
    sinceOpened.start();
    QString lastFault;
    while (!arLink.stopRequested()) {
        // As designed: never started afresh, so once the first interval is over each turn asks,
        // and the thermometer is polled as fast as it answers.
        if (sinceOpened.elapsed() >= anPollIntervalMs) {
            const QString fault = tcOmegaMonWorker::poll(arPort, arLink);
            if (!fault.isEmpty() && lastFault.isEmpty())
                arLink.emitMessage(
                    0, tcOmegaMonWorker::tr("Error %1 polling %2").arg(fault, acPortName));
            lastFault = fault;
        }
        arLink.pause(cPauseMs);
    }
}

void openAndPoll(const QString& acPortName, qint64 anPollIntervalMs, tcWorkerLink& arLink)
{
    // A port listens through its thread's event dispatcher; making an event loop provides one.
    const QEventLoop dispatcher;
    QSerialPort port(acPortName);
    applySettings(port);
    const bool opened = port.open(QIODevice::ReadWrite);
    if (arLink.stopRequested()) // opening may have hung, with nobody left to tell
        return;
    if (!opened) {
        arLink.emitMessage(
            0, tcOmegaMonWorker::tr("Error %1 opening %2").arg(port.errorString(), acPortName));
        return;
    }
    port.write(cWakeUp);
    port.flush();
    pollUntilStopped(port, acPortName, anPollIntervalMs, arLink);
    port.close();
}

} // namespace

tcOmegaMonWorker::tcOmegaMonWorker(tcDataSource* apOwner, const QString& acPortName,
                                   qint64 anPollIntervalMs)
    : tcDeviceWorker(std::make_shared<tcWorkerLink>())
    , mPortName(acPortName)
    , mPollIntervalMs(anPollIntervalMs)
{
    mLink->setSource(0, apOwner);
}

std::function<void()> tcOmegaMonWorker::loop() const
{
    return [link = mLink, portName = mPortName, pollIntervalMs = mPollIntervalMs] {
        openAndPoll(portName, pollIntervalMs, *link);
        link->setFinished(); // only now is the port free for others
    };
}

QString tcOmegaMonWorker::poll(QSerialPort& arPort, tcWorkerLink& arLink)
{
    arPort.clearError();
    const qint64 written = arPort.write(cRequest);
    const bool complete = written == cRequestSize;
    if (!complete) {
        arLink.emitMessage(0,
                           tr("Bad write: %1/3 bytes [%2]")
                               .arg(QString::number(written), arPort.errorString()));
        arLink.requestStop();
    }
    waitInSlices(arPort, arLink, [&](int ms) { return arPort.waitForBytesWritten(ms); });
    if (waitInSlices(arPort, arLink, [&](int ms) { return arPort.waitForReadyRead(ms); }))
        handleLine(arPort.readLine(), arLink);
    if (arPort.bytesAvailable() > cMaxBacklog)
        arPort.readAll();

    const QSerialPort::SerialPortError error = arPort.error();
    if (!complete || error == QSerialPort::NoError || error == QSerialPort::TimeoutError)
        return {};
    // Nothing leaves a port that is gone; without this its buffer grows with each request.
    QString fault = arPort.errorString();
    arPort.clear();
    // A port that was pulled reads as an end of file, which leaves an older error's text
    // standing.
    if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError) {
        qDebug().noquote() << "Thermometer at" << arPort.portName() << "gone:" << fault;
        fault = tr("device gone");
    }
    return fault;
}

#pragma once

#include "sources/tcDeviceWorker.h"

#include <QCoreApplication>
#include <QString>

class QSerialPort;

/// Opens the port of a serial thermometer and asks it for its temperature, as fast as it
/// answers, until told to stop.
class tcOmegaMonWorker : public tcDeviceWorker
{
    Q_DECLARE_TR_FUNCTIONS(tcOmegaMonWorker)

public:
    /// The owner receives readings and messages. Requests begin anPollIntervalMs after the port
    /// was opened.
    tcOmegaMonWorker(tcDataSource* apOwner, const QString& acPortName,
                     qint64 anPollIntervalMs = 1000);

    QString portName() const { return mPortName; }
    qint64 pollIntervalMs() const { return mPollIntervalMs; }

    /// One request and its reply, on an open port. Returns what is wrong with the port, whose
    /// buffers were dropped then, or nothing. Takes no longer than two seconds, and ends soon
    /// after the link was asked to stop.
    static QString poll(QSerialPort& arPort, tcWorkerLink& arLink);

protected:
    std::function<void()> loop() const override;

private:
    const QString mPortName;
    const qint64 mPollIntervalMs;
};

#pragma once

#include "sources/tcDataSource.h"

#include <QObject>
#include <QStringList>
#include <QThread>
#include <QVector>

/// What a source emits, as it arrives on the thread of this object.
class tcReceived : public QObject
{
public:
    explicit tcReceived(tcDataSource* apSource)
    {
        connect(apSource, &tcDataSource::tempReading, this, [this](qint64 ms, double value) {
            times.append(ms);
            values.append(value);
            rightThread = rightThread && QThread::currentThread() == thread();
        });
        connect(apSource, &tcDataSource::message, this,
                [this](const QString& text) { messages.append(text); });
    }

    QVector<qint64> times;
    QVector<double> values;
    QStringList messages;
    bool rightThread = true;
};

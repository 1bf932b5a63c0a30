#pragma once

#include "sources/tcDeviceWorker.h"
#include "sources/tcTC08Calls.h"

/// Reads all channels of the first logger once a second and hands each channel's temperature to
/// the source in that channel's slot of the link. Runs whether or not there is any.
class tcPicoTC08MonWorker : public tcDeviceWorker
{
public:
    explicit tcPicoTC08MonWorker(const tcTC08Calls& acCalls, qint32 anPeriodMs = 1000);

    static QString name() { return QStringLiteral("tcPicoTC08MonWorker"); }
    /// False if the driver lacks a function, so that nothing will ever be read.
    bool isUsable() const { return mCalls.missing().isEmpty(); }

protected:
    std::function<void()> loop() const override;

private:
    const tcTC08Calls mCalls;
    const qint32 mPeriodMs; ///< pause between readings
};

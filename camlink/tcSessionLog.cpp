#include "camlink/tcSessionLog.h"

#include "widgets/tcFileSync.h"

#include <QDir>

namespace
{

constexpr int cSilenceMs = 200;

} // namespace

tcSessionLog::tcSessionLog(QObject* apParent) : QObject(apParent)
{
    mSilence.setSingleShot(true);
    mSilence.setInterval(cSilenceMs);
    connect(&mSilence, &QTimer::timeout, this, &tcSessionLog::writeRest);
}

tcSessionLog::~tcSessionLog()
{
    stop();
}

bool tcSessionLog::open()
{
    mRefused = tcFileSync::mayHang(mFile.fileName());
    return !mRefused
        && mFile.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void tcSessionLog::sayUnable()
{
    Q_EMIT message(tr("Unable to log to %1: %2")
                       .arg(QDir::toNativeSeparators(mFile.fileName()),
                            mRefused ? tr("not a regular file") : mFile.errorString()));
}

bool tcSessionLog::start(const QString& acFile)
{
    stop();
    mFile.setFileName(acFile);
    if (!open()) {
        sayUnable();
        return false;
    }
    mMissing = 0;
    mRunning = true;
    tcSerialLink::setTap(this);
    note(tr("log started"));
    Q_EMIT runningChanged(true);
    return true;
}

void tcSessionLog::stop()
{
    if (!isRunning())
        return;
    note(tr("log ended"));
    tcSerialLink::setTap(nullptr);
    mRunning = false;
    mFile.close();
    Q_EMIT runningChanged(false);
}

void tcSessionLog::note(const QString& acText)
{
    writeRest();
    write(tcSessionText::note(QDateTime::currentDateTime(), acText));
}

void tcSessionLog::sent(const QByteArray& acBytes, qint32 anStatus)
{
    writeRest();
    write(tcSessionText::sent(QDateTime::currentDateTime(), acBytes));
    if (anStatus != 0)
        note(tr("the line refused it with status %1").arg(anStatus));
}

void tcSessionLog::received(const QByteArray& acBytes)
{
    const QDateTime now = QDateTime::currentDateTime();
    for (const QByteArray& line : mLines.append(acBytes))
        write(tcSessionText::received(now, line));
    mSilence.start();
}

void tcSessionLog::writeRest()
{
    mSilence.stop();
    const QByteArray rest = mLines.takeRest();
    if (!rest.isEmpty())
        write(tcSessionText::received(QDateTime::currentDateTime(), rest));
}

/// What goes into a deleted or replaced file is lost, and the system reports no error.
void tcSessionLog::goOnIfGone()
{
    if (mFile.isOpen() && mFile.exists() && tcFileSync::isInPlace(mFile))
        return;
    mFile.close();
    if (open())
        Q_EMIT message(tr("%1 was gone and is begun anew")
                           .arg(QDir::toNativeSeparators(mFile.fileName())));
}

void tcSessionLog::write(const QByteArray& acLine)
{
    if (!isRunning())
        return;
    goOnIfGone();
    QByteArray text = acLine;
    if (mMissing > 0) {
        // A refused line may have left half of itself behind.
        text = '\n'
            + tcSessionText::note(QDateTime::currentDateTime(),
                                  tr("%1 bytes of log are missing here").arg(mMissing))
            + acLine;
    }
    if (mFile.isOpen() && mFile.write(text) == text.size()) {
        mMissing = 0;
        return;
    }
    if (mMissing == 0)
        sayUnable();
    mMissing += acLine.size();
}

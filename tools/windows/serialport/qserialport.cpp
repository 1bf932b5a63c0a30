// Stand-in for the serial port class of Qt on Windows: the public interface of Qt over
// overlapped Win32 calls, in the naming style of the interface that it implements.
#include "qserialport_p.h"

#include <QtCore/qdeadlinetimer.h>

QT_BEGIN_NAMESPACE

QSerialPort::QSerialPort(QObject* parent)
    : QIODevice(*new QSerialPortPrivate, parent), d_dummy(nullptr)
{
}

QSerialPort::QSerialPort(const QString& name, QObject* parent) : QSerialPort(parent)
{
    setPortName(name);
}

QSerialPort::QSerialPort(const QSerialPortInfo& info, QObject* parent) : QSerialPort(parent)
{
    setPort(info);
}

QSerialPort::~QSerialPort()
{
    if (isOpen())
        close();
}

void QSerialPort::setPortName(const QString& name)
{
    Q_D(QSerialPort);
    d->portName = serialPortName(name);
}

QString QSerialPort::portName() const
{
    Q_D(const QSerialPort);
    return d->portName;
}

void QSerialPort::setPort(const QSerialPortInfo& info)
{
    setPortName(info.portName());
}

bool QSerialPort::open(OpenMode mode)
{
    Q_D(QSerialPort);
    if (isOpen()) {
        d->fail(OpenError, tr("Device is already open"));
        return false;
    }
    if (!(mode & ReadWrite) || (mode & (Append | Truncate | Text | Unbuffered))) {
        d->fail(UnsupportedOperationError, tr("Unsupported open mode"));
        return false;
    }
    clearError();
    if (!d->openDevice(mode))
        return false;
    return QIODevice::open(mode);
}

void QSerialPort::close()
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return;
    }
    d->closeDevice();
    QIODevice::close();
}

bool QSerialPort::setBaudRate(qint32 baudRate, Directions directions)
{
    Q_D(QSerialPort);
    if (baudRate <= 0 || directions != AllDirections) {
        d->fail(UnsupportedOperationError, tr("Unsupported baud rate or direction"));
        return false;
    }
    const qint32 old = d->baudRate;
    d->baudRate = baudRate;
    if (isOpen() && !d->applySettings()) {
        d->baudRate = old;
        d->failFromSystem(GetLastError(), UnsupportedOperationError);
        return false;
    }
    if (old != baudRate)
        Q_EMIT baudRateChanged(baudRate, directions);
    return true;
}

qint32 QSerialPort::baudRate(Directions directions) const
{
    Q_D(const QSerialPort);
    return directions == AllDirections ? d->baudRate : qint32(UnknownBaud);
}

#define STANDIN_SETTING(Type, setter, getter, member, changed)                                 \
    bool QSerialPort::setter(Type value)                                                       \
    {                                                                                          \
        Q_D(QSerialPort);                                                                      \
        const Type old = d->member;                                                            \
        d->member = value;                                                                     \
        if (isOpen() && !d->applySettings()) {                                                 \
            d->member = old;                                                                   \
            d->failFromSystem(GetLastError(), UnsupportedOperationError);                      \
            return false;                                                                      \
        }                                                                                      \
        if (old != value)                                                                      \
            Q_EMIT changed(value);                                                             \
        return true;                                                                           \
    }                                                                                          \
    QSerialPort::Type QSerialPort::getter() const                                              \
    {                                                                                          \
        Q_D(const QSerialPort);                                                                \
        return d->member;                                                                      \
    }

STANDIN_SETTING(DataBits, setDataBits, dataBits, dataBits, dataBitsChanged)
STANDIN_SETTING(Parity, setParity, parity, parity, parityChanged)
STANDIN_SETTING(StopBits, setStopBits, stopBits, stopBits, stopBitsChanged)
STANDIN_SETTING(FlowControl, setFlowControl, flowControl, flowControl, flowControlChanged)

#undef STANDIN_SETTING

bool QSerialPort::setDataTerminalReady(bool set)
{
    Q_D(QSerialPort);
    if (!d->setModemLine(SETDTR, CLRDTR, set))
        return false;
    Q_EMIT dataTerminalReadyChanged(set);
    return true;
}

bool QSerialPort::isDataTerminalReady()
{
    Q_D(QSerialPort);
    DCB s;
    memset(&s, 0, sizeof s);
    s.DCBlength = sizeof s;
    return isOpen() && GetCommState(d->device, &s) && s.fDtrControl != DTR_CONTROL_DISABLE;
}

bool QSerialPort::setRequestToSend(bool set)
{
    Q_D(QSerialPort);
    if (d->flowControl == HardwareControl) {
        d->fail(UnsupportedOperationError, tr("RTS is driven by the hardware flow control"));
        return false;
    }
    if (!d->setModemLine(SETRTS, CLRRTS, set))
        return false;
    Q_EMIT requestToSendChanged(set);
    return true;
}

bool QSerialPort::isRequestToSend()
{
    Q_D(QSerialPort);
    DCB s;
    memset(&s, 0, sizeof s);
    s.DCBlength = sizeof s;
    return isOpen() && GetCommState(d->device, &s) && s.fRtsControl != RTS_CONTROL_DISABLE;
}

QSerialPort::PinoutSignals QSerialPort::pinoutSignals()
{
    Q_D(QSerialPort);
    PinoutSignals out = NoSignal;
    DWORD status = 0;
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return out;
    }
    if (!GetCommModemStatus(d->device, &status)) {
        d->failFromSystem(GetLastError(), UnknownError);
        return out;
    }
    if (status & MS_CTS_ON)
        out |= ClearToSendSignal;
    if (status & MS_DSR_ON)
        out |= DataSetReadySignal;
    if (status & MS_RING_ON)
        out |= RingIndicatorSignal;
    if (status & MS_RLSD_ON)
        out |= DataCarrierDetectSignal;
    if (isDataTerminalReady())
        out |= DataTerminalReadySignal;
    if (isRequestToSend())
        out |= RequestToSendSignal;
    return out;
}

bool QSerialPort::flush()
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return false;
    }
    return d->_q_startAsyncWrite();
}

bool QSerialPort::clear(Directions directions)
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return false;
    }
    DWORD what = 0;
    if (directions & Input) {
        d->buffer.clear();
        what |= PURGE_RXABORT | PURGE_RXCLEAR;
    }
    if (directions & Output) {
        d->writeBuffer.clear();
        what |= PURGE_TXABORT | PURGE_TXCLEAR;
    }
    return PurgeComm(d->device, what);
}

bool QSerialPort::atEnd() const
{
    return QIODevice::atEnd();
}

#if QT_DEPRECATED_SINCE(5, 2)
bool QSerialPort::setDataErrorPolicy(DataErrorPolicy policy)
{
    Q_D(QSerialPort);
    d->errorPolicy = policy;
    return true;
}

QSerialPort::DataErrorPolicy QSerialPort::dataErrorPolicy() const
{
    Q_D(const QSerialPort);
    return d->errorPolicy;
}
#endif

#if QT_DEPRECATED_SINCE(5, 3)
void QSerialPort::setSettingsRestoredOnClose(bool restore)
{
    Q_D(QSerialPort);
    d->restoreSettings = restore;
}

bool QSerialPort::settingsRestoredOnClose() const
{
    Q_D(const QSerialPort);
    return d->restoreSettings;
}
#endif

QSerialPort::SerialPortError QSerialPort::error() const
{
    Q_D(const QSerialPort);
    return d->error;
}

void QSerialPort::clearError()
{
    Q_D(QSerialPort);
    d->fail(NoError);
}

qint64 QSerialPort::readBufferSize() const
{
    Q_D(const QSerialPort);
    return d->readLimit;
}

void QSerialPort::setReadBufferSize(qint64 size)
{
    Q_D(QSerialPort);
    d->readLimit = qMax<qint64>(0, size);
}

bool QSerialPort::isSequential() const
{
    return true;
}

qint64 QSerialPort::bytesAvailable() const
{
    return QIODevice::bytesAvailable();
}

qint64 QSerialPort::bytesToWrite() const
{
    Q_D(const QSerialPort);
    return QIODevice::bytesToWrite() + d->inFlight.size();
}

bool QSerialPort::canReadLine() const
{
    return QIODevice::canReadLine();
}

bool QSerialPort::waitForReadyRead(int msecs)
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return false;
    }
    d->_q_startAsyncWrite();
    QDeadlineTimer deadline(msecs < 0 ? QDeadlineTimer(QDeadlineTimer::Forever)
                                      : QDeadlineTimer(msecs));
    for (;;) {
        const HANDLE events[2] = {d->commWait.hEvent, d->writeJob.hEvent};
        const qint64 left = deadline.remainingTime();
        const DWORD r
            = WaitForMultipleObjects(2, events, FALSE, left < 0 ? INFINITE : DWORD(left));
        if (r == WAIT_OBJECT_0) {
            if (d->commEventArrived())
                return true;
            if (!isOpen() || !d->commWaitPending)
                return false;
        } else if (r == WAIT_OBJECT_0 + 1) {
            d->writeFinished();
            if (!isOpen())
                return false;
        } else {
            d->fail(TimeoutError, tr("Operation timed out"));
            return false;
        }
    }
}

bool QSerialPort::waitForBytesWritten(int msecs)
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return false;
    }
    if (d->writeBuffer.isEmpty() && !d->writePending)
        return false;
    if (!d->_q_startAsyncWrite())
        return false;
    QDeadlineTimer deadline(msecs < 0 ? QDeadlineTimer(QDeadlineTimer::Forever)
                                      : QDeadlineTimer(msecs));
    for (;;) {
        const HANDLE events[2] = {d->writeJob.hEvent, d->commWait.hEvent};
        const qint64 left = deadline.remainingTime();
        const DWORD r
            = WaitForMultipleObjects(2, events, FALSE, left < 0 ? INFINITE : DWORD(left));
        if (r == WAIT_OBJECT_0) {
            if (d->writeFinished())
                return true;
            if (!isOpen() || !d->writePending)
                return false;
        } else if (r == WAIT_OBJECT_0 + 1) {
            d->commEventArrived();
            if (!isOpen())
                return false;
        } else {
            d->fail(TimeoutError, tr("Operation timed out"));
            return false;
        }
    }
}

#if QT_DEPRECATED_SINCE(5, 5)
bool QSerialPort::sendBreak(int duration)
{
    if (!setBreakEnabled(true))
        return false;
    Sleep(duration > 0 ? DWORD(duration) : 250);
    return setBreakEnabled(false);
}
#endif

bool QSerialPort::setBreakEnabled(bool set)
{
    Q_D(QSerialPort);
    if (!isOpen()) {
        d->fail(NotOpenError, tr("Device is not open"));
        return false;
    }
    if (!(set ? SetCommBreak(d->device) : ClearCommBreak(d->device))) {
        d->failFromSystem(GetLastError(), UnknownError);
        return false;
    }
    if (d->breakOn != set) {
        d->breakOn = set;
        Q_EMIT breakEnabledChanged(set);
    }
    return true;
}

bool QSerialPort::isBreakEnabled() const
{
    Q_D(const QSerialPort);
    return d->breakOn;
}

QSerialPort::Handle QSerialPort::handle() const
{
    Q_D(const QSerialPort);
    return d->device;
}

qint64 QSerialPort::readData(char*, qint64)
{
    Q_D(QSerialPort);
    // The read buffer is empty here; with a limited buffer the driver may hold more.
    if (d->readLimit > 0 && isOpen() && d->fetchInput() < 0)
        return -1;
    return 0;
}

qint64 QSerialPort::readLineData(char* data, qint64 maxSize)
{
    return QIODevice::readLineData(data, maxSize);
}

qint64 QSerialPort::writeData(const char* data, qint64 maxSize)
{
    Q_D(QSerialPort);
    d->writeBuffer.append(data, maxSize);
    if (!d->writePending)
        QMetaObject::invokeMethod(this, "_q_startAsyncWrite", Qt::QueuedConnection);
    return maxSize;
}

QT_END_NAMESPACE

#include "moc_qserialport.cpp"

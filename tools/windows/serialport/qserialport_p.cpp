// What the stand-in for the serial port class of Qt does with a device: overlapped Win32 calls.
#include "qserialport_p.h"

#include <QtCore/qscopedvaluerollback.h>

QT_BEGIN_NAMESPACE

QString serialDevicePath(const QString& name)
{
    return name.startsWith(QLatin1String("\\\\.\\")) ? name : QLatin1String("\\\\.\\") + name;
}

QString serialPortName(const QString& path)
{
    return path.startsWith(QLatin1String("\\\\.\\")) ? path.mid(4) : path;
}

QSerialPortPrivate::QSerialPortPrivate()
{
    readBufferChunkSize = 16384;
    writeBufferChunkSize = 16384;
    memset(&savedState, 0, sizeof savedState);
    memset(&savedTimeouts, 0, sizeof savedTimeouts);
    memset(&commWait, 0, sizeof commWait);
    memset(&writeJob, 0, sizeof writeJob);
}

QSerialPortPrivate::~QSerialPortPrivate()
{
    closeDevice();
}

void QSerialPortPrivate::fail(QSerialPort::SerialPortError code, const QString& text)
{
    Q_Q(QSerialPort);
    error = code;
    if (code != QSerialPort::NoError)
        q->setErrorString(text.isEmpty() ? qt_error_string(int(GetLastError())) : text);
    else
        q->setErrorString(QString());
    Q_EMIT q->errorOccurred(code);
#if QT_DEPRECATED_SINCE(5, 8)
    Q_EMIT q->error(code);
#endif
}

void QSerialPortPrivate::failFromSystem(DWORD code, QSerialPort::SerialPortError fallback)
{
    QSerialPort::SerialPortError e = fallback;
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        e = QSerialPort::DeviceNotFoundError;
        break;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
        e = device == INVALID_HANDLE_VALUE ? QSerialPort::PermissionError
                                           : QSerialPort::ResourceError;
        break;
    case ERROR_INVALID_HANDLE:
    case ERROR_DEVICE_REMOVED:
    case ERROR_BAD_COMMAND:
    case ERROR_OPERATION_ABORTED:
        e = QSerialPort::ResourceError;
        break;
    case ERROR_NOT_SUPPORTED:
    case ERROR_INVALID_PARAMETER:
        e = QSerialPort::UnsupportedOperationError;
        break;
    default:
        break;
    }
    fail(e, qt_error_string(int(code)));
}

bool QSerialPortPrivate::openDevice(QIODevice::OpenMode mode)
{
    Q_Q(QSerialPort);
    DWORD access = 0;
    if (mode & QIODevice::ReadOnly)
        access |= GENERIC_READ;
    if (mode & QIODevice::WriteOnly)
        access |= GENERIC_WRITE;

    const QString path = serialDevicePath(portName);
    device = CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()), access, 0, nullptr,
                         OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (device == INVALID_HANDLE_VALUE) {
        failFromSystem(GetLastError(), QSerialPort::OpenError);
        return false;
    }

    savedState.DCBlength = sizeof savedState;
    if (!GetCommState(device, &savedState) || !GetCommTimeouts(device, &savedTimeouts)) {
        const DWORD code = GetLastError();
        CloseHandle(device);
        device = INVALID_HANDLE_VALUE;
        failFromSystem(code, QSerialPort::OpenError);
        return false;
    }

    COMMTIMEOUTS t;
    memset(&t, 0, sizeof t);
    t.ReadIntervalTimeout = MAXDWORD; // a read returns at once with what is there
    if (!SetCommTimeouts(device, &t) || !applySettings()) {
        const DWORD code = GetLastError();
        restoreSettings = false;
        closeDevice();
        restoreSettings = true;
        failFromSystem(code, QSerialPort::OpenError);
        return false;
    }
    PurgeComm(device, PURGE_RXABORT | PURGE_TXABORT | PURGE_RXCLEAR | PURGE_TXCLEAR);

    memset(&commWait, 0, sizeof commWait);
    memset(&writeJob, 0, sizeof writeJob);
    commWait.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    writeJob.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);

    commNotifier = new QWinEventNotifier(commWait.hEvent, q);
    QObject::connect(commNotifier, &QWinEventNotifier::activated, q,
                     [this] { commEventArrived(); });
    writeNotifier = new QWinEventNotifier(writeJob.hEvent, q);
    QObject::connect(writeNotifier, &QWinEventNotifier::activated, q,
                     [this] { writeFinished(); });

    if (mode & QIODevice::ReadOnly) {
        if (!SetCommMask(device, EV_RXCHAR) || !armCommWait()) {
            const DWORD code = GetLastError();
            closeDevice();
            failFromSystem(code, QSerialPort::OpenError);
            return false;
        }
    }
    return true;
}

void QSerialPortPrivate::closeDevice()
{
    delete commNotifier;
    commNotifier = nullptr;
    delete writeNotifier;
    writeNotifier = nullptr;

    if (device != INVALID_HANDLE_VALUE) {
        SetCommMask(device, 0);      // ends a pending WaitCommEvent
        CancelIoEx(device, nullptr); // whichever thread started it
        DWORD n = 0;
        if (commWaitPending)
            GetOverlappedResult(device, &commWait, &n, TRUE);
        if (writePending)
            GetOverlappedResult(device, &writeJob, &n, TRUE);
        if (restoreSettings) {
            SetCommState(device, &savedState);
            SetCommTimeouts(device, &savedTimeouts);
        }
        CloseHandle(device);
        device = INVALID_HANDLE_VALUE;
    }
    if (commWait.hEvent)
        CloseHandle(commWait.hEvent);
    if (writeJob.hEvent)
        CloseHandle(writeJob.hEvent);
    memset(&commWait, 0, sizeof commWait);
    memset(&writeJob, 0, sizeof writeJob);
    commWaitPending = writePending = false;
    breakOn = false;
    inFlight.clear();
}

bool QSerialPortPrivate::applySettings()
{
    DCB s;
    memset(&s, 0, sizeof s);
    s.DCBlength = sizeof s;
    if (!GetCommState(device, &s))
        return false;
    s.fBinary = TRUE;
    s.fNull = FALSE;
    s.fAbortOnError = FALSE;
    s.fErrorChar = FALSE;
    s.fInX = s.fOutX = FALSE;
    s.fOutxCtsFlow = s.fOutxDsrFlow = FALSE;
    s.fDsrSensitivity = FALSE;
    if (s.fDtrControl == DTR_CONTROL_HANDSHAKE)
        s.fDtrControl = DTR_CONTROL_DISABLE;
    if (s.fRtsControl == RTS_CONTROL_HANDSHAKE || s.fRtsControl == RTS_CONTROL_TOGGLE)
        s.fRtsControl = RTS_CONTROL_DISABLE;

    s.BaudRate = DWORD(baudRate);
    s.ByteSize = BYTE(dataBits);
    s.fParity = parity != QSerialPort::NoParity;
    switch (parity) {
    case QSerialPort::EvenParity:
        s.Parity = EVENPARITY;
        break;
    case QSerialPort::OddParity:
        s.Parity = ODDPARITY;
        break;
    case QSerialPort::SpaceParity:
        s.Parity = SPACEPARITY;
        break;
    case QSerialPort::MarkParity:
        s.Parity = MARKPARITY;
        break;
    default:
        s.Parity = NOPARITY;
        break;
    }
    switch (stopBits) {
    case QSerialPort::OneAndHalfStop:
        s.StopBits = ONE5STOPBITS;
        break;
    case QSerialPort::TwoStop:
        s.StopBits = TWOSTOPBITS;
        break;
    default:
        s.StopBits = ONESTOPBIT;
        break;
    }
    if (flowControl == QSerialPort::SoftwareControl) {
        s.fInX = s.fOutX = TRUE;
    } else if (flowControl == QSerialPort::HardwareControl) {
        s.fOutxCtsFlow = TRUE;
        s.fRtsControl = RTS_CONTROL_HANDSHAKE;
    }
    return SetCommState(device, &s);
}

bool QSerialPortPrivate::armCommWait()
{
    if (commWaitPending)
        return true;
    ResetEvent(commWait.hEvent);
    commMask = 0;
    if (!WaitCommEvent(device, &commMask, &commWait) && GetLastError() != ERROR_IO_PENDING)
        return false;
    // Completed at once or pending: either way the event object tells.
    commWaitPending = true;
    return true;
}

qint64 QSerialPortPrivate::fetchInput()
{
    DWORD errors = 0;
    COMSTAT st;
    memset(&st, 0, sizeof st);
    if (!ClearCommError(device, &errors, &st))
        return -1;
    qint64 room = st.cbInQue;
    if (readLimit > 0)
        room = qMin(room, readLimit - buffer.size());
    if (room <= 0)
        return 0;

    QByteArray chunk(int(room), Qt::Uninitialized);
    OVERLAPPED ov;
    memset(&ov, 0, sizeof ov);
    ov.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD got = 0;
    bool ok = ReadFile(device, chunk.data(), DWORD(chunk.size()), nullptr, &ov);
    if (ok || GetLastError() == ERROR_IO_PENDING)
        ok = GetOverlappedResult(device, &ov, &got, TRUE);
    const DWORD code = ok ? 0 : GetLastError();
    CloseHandle(ov.hEvent);
    if (!ok) {
        SetLastError(code);
        return -1;
    }
    buffer.append(chunk.constData(), got);
    return got;
}

bool QSerialPortPrivate::commEventArrived()
{
    Q_Q(QSerialPort);
    if (device == INVALID_HANDLE_VALUE || !commWaitPending)
        return false;
    DWORD n = 0;
    if (!GetOverlappedResult(device, &commWait, &n, FALSE)) {
        const DWORD code = GetLastError();
        if (code == ERROR_IO_INCOMPLETE)
            return false;
        commWaitPending = false;
        ResetEvent(commWait.hEvent);
        failFromSystem(code, QSerialPort::ReadError);
        return false;
    }
    commWaitPending = false;
    const qint64 got = fetchInput();
    if (got < 0) {
        ResetEvent(commWait.hEvent);
        failFromSystem(GetLastError(), QSerialPort::ReadError);
        return false;
    }
    if (!armCommWait()) {
        failFromSystem(GetLastError(), QSerialPort::ResourceError);
        return got > 0;
    }
    if (got > 0 && !inReadyRead) {
        QScopedValueRollback<bool> guard(inReadyRead, true);
        Q_EMIT q->readyRead();
    }
    return got > 0;
}

bool QSerialPortPrivate::_q_startAsyncWrite()
{
    if (device == INVALID_HANDLE_VALUE)
        return false;
    if (writePending || writeBuffer.isEmpty())
        return true;
    inFlight = writeBuffer.read();
    const HANDLE ev = writeJob.hEvent;
    memset(&writeJob, 0, sizeof writeJob);
    writeJob.hEvent = ev;
    ResetEvent(ev);
    if (!WriteFile(device, inFlight.constData(), DWORD(inFlight.size()), nullptr, &writeJob)
        && GetLastError() != ERROR_IO_PENDING) {
        const DWORD code = GetLastError();
        inFlight.clear();
        failFromSystem(code, QSerialPort::WriteError);
        return false;
    }
    writePending = true;
    return true;
}

bool QSerialPortPrivate::writeFinished()
{
    Q_Q(QSerialPort);
    if (device == INVALID_HANDLE_VALUE || !writePending)
        return false;
    DWORD n = 0;
    if (!GetOverlappedResult(device, &writeJob, &n, FALSE)) {
        const DWORD code = GetLastError();
        if (code == ERROR_IO_INCOMPLETE)
            return false;
        writePending = false;
        ResetEvent(writeJob.hEvent);
        inFlight.clear();
        failFromSystem(code, QSerialPort::WriteError);
        return false;
    }
    writePending = false;
    ResetEvent(writeJob.hEvent);
    inFlight.clear();
    if (!writeBuffer.isEmpty())
        _q_startAsyncWrite();
    if (!inBytesWritten) {
        QScopedValueRollback<bool> guard(inBytesWritten, true);
        Q_EMIT q->bytesWritten(n);
    }
    return true;
}

bool QSerialPortPrivate::setModemLine(DWORD onFunction, DWORD offFunction, bool on)
{
    if (device == INVALID_HANDLE_VALUE) {
        fail(QSerialPort::NotOpenError, QSerialPort::tr("Device is not open"));
        return false;
    }
    if (!EscapeCommFunction(device, on ? onFunction : offFunction)) {
        failFromSystem(GetLastError(), QSerialPort::UnknownError);
        return false;
    }
    return true;
}

QT_END_NAMESPACE

// Private part of the stand-in for the serial port module of Qt. The public classes are those
// of its own headers.
#ifndef QSERIALPORT_P_H
#define QSERIALPORT_P_H

#include <QtCore/private/qiodevice_p.h>
#include <QtCore/qwineventnotifier.h>
#include <QtSerialPort/qserialport.h>
#include <QtSerialPort/qserialportinfo.h>

#include <qt_windows.h>

QT_BEGIN_NAMESPACE

class QSerialPortPrivate : public QIODevicePrivate
{
    Q_DECLARE_PUBLIC(QSerialPort)
public:
    QSerialPortPrivate();
    ~QSerialPortPrivate() override;

    // settings, kept while closed and applied by open()
    QString portName;
    qint32 baudRate = 9600;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
    QSerialPort::FlowControl flowControl = QSerialPort::NoFlowControl;
    QSerialPort::DataErrorPolicy errorPolicy = QSerialPort::IgnorePolicy;
    bool restoreSettings = true;
    bool breakOn = false;
    qint64 readLimit = 0;

    QSerialPort::SerialPortError error = QSerialPort::NoError;

    // device state, valid while open
    HANDLE device = INVALID_HANDLE_VALUE;
    DCB savedState;
    COMMTIMEOUTS savedTimeouts;
    OVERLAPPED commWait; // pending WaitCommEvent
    OVERLAPPED writeJob; // pending WriteFile
    DWORD commMask = 0;
    bool commWaitPending = false;
    QByteArray inFlight; // bytes handed to the pending WriteFile
    bool writePending = false;
    bool inReadyRead = false;
    bool inBytesWritten = false;
    QWinEventNotifier* commNotifier = nullptr;
    QWinEventNotifier* writeNotifier = nullptr;

    bool openDevice(QIODevice::OpenMode mode);
    void closeDevice();
    bool applySettings();
    bool setModemLine(DWORD onFunction, DWORD offFunction, bool on);

    bool armCommWait();
    bool commEventArrived(); // true if bytes were added to the read buffer
    qint64 fetchInput();     // moves what the driver holds into the read buffer; -1 on error
    bool _q_startAsyncWrite();
    bool writeFinished(); // true if the pending write completed

    void fail(QSerialPort::SerialPortError code, const QString& text = QString());
    void failFromSystem(DWORD code, QSerialPort::SerialPortError fallback);
};

class QSerialPortInfoPrivate
{
public:
    QString portName, device, description, manufacturer, serialNumber;
    quint16 vendor = 0, product = 0;
    bool hasVendor = false, hasProduct = false;
};

class QSerialPortInfoPrivateDeleter
{
public:
    static void cleanup(QSerialPortInfoPrivate* p) { delete p; }
};

QString serialDevicePath(const QString& name);
QString serialPortName(const QString& path);

QT_END_NAMESPACE

#endif

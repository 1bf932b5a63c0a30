// Stand-in for the serial port list of Qt on Windows: ports of the device class "Ports" with
// their texts, then whatever else the serial device map names.
#include "qserialport_p.h"

#include <QtCore/qset.h>
#include <QtCore/quuid.h>

#include <algorithm>
#include <setupapi.h>

QT_BEGIN_NAMESPACE

namespace
{

QString deviceText(HDEVINFO set, SP_DEVINFO_DATA* dev, DWORD property)
{
    wchar_t text[1024] = {};
    DWORD type = 0;
    if (!SetupDiGetDeviceRegistryPropertyW(set, dev, property, &type,
                                           reinterpret_cast<BYTE*>(text),
                                           sizeof text - sizeof(wchar_t), nullptr))
        return QString();
    return QString::fromWCharArray(text).trimmed();
}

QString regString(HKEY key, const wchar_t* name)
{
    wchar_t text[256] = {};
    DWORD size = sizeof text - sizeof(wchar_t), type = 0;
    if (RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size)
            != ERROR_SUCCESS
        || type != REG_SZ)
        return QString();
    return QString::fromWCharArray(text).trimmed();
}

bool hexAfter(const QString& text, const char* tag, quint16* out)
{
    const int at = text.indexOf(QLatin1String(tag), 0, Qt::CaseInsensitive);
    bool ok = false;
    if (at >= 0)
        *out = text.midRef(at + int(strlen(tag)), 4).toUShort(&ok, 16);
    return ok;
}

int portNumber(const QString& name)
{
    return name.startsWith(QLatin1String("COM"), Qt::CaseInsensitive) ? name.midRef(3).toInt()
                                                                      : 0;
}

} // namespace

QSerialPortInfo::QSerialPortInfo() = default;

QSerialPortInfo::QSerialPortInfo(const QSerialPortInfoPrivate& dd)
    : d_ptr(new QSerialPortInfoPrivate(dd))
{
}

QSerialPortInfo::QSerialPortInfo(const QSerialPort& port) : QSerialPortInfo(port.portName()) { }

QSerialPortInfo::QSerialPortInfo(const QString& name)
{
    const QString wanted = serialPortName(name);
    const auto all = availablePorts();
    for (const QSerialPortInfo& i : all) {
        if (i.portName().compare(wanted, Qt::CaseInsensitive) == 0) {
            *this = i;
            return;
        }
    }
}

QSerialPortInfo::QSerialPortInfo(const QSerialPortInfo& other)
    : d_ptr(other.d_ptr ? new QSerialPortInfoPrivate(*other.d_ptr) : nullptr)
{
}

QSerialPortInfo::~QSerialPortInfo() = default;

QSerialPortInfo& QSerialPortInfo::operator=(const QSerialPortInfo& other)
{
    QSerialPortInfo(other).swap(*this);
    return *this;
}

void QSerialPortInfo::swap(QSerialPortInfo& other)
{
    d_ptr.swap(other.d_ptr);
}

QString QSerialPortInfo::portName() const
{
    return d_ptr ? d_ptr->portName : QString();
}
QString QSerialPortInfo::systemLocation() const
{
    return d_ptr ? d_ptr->device : QString();
}
QString QSerialPortInfo::description() const
{
    return d_ptr ? d_ptr->description : QString();
}
QString QSerialPortInfo::manufacturer() const
{
    return d_ptr ? d_ptr->manufacturer : QString();
}
QString QSerialPortInfo::serialNumber() const
{
    return d_ptr ? d_ptr->serialNumber : QString();
}
quint16 QSerialPortInfo::vendorIdentifier() const
{
    return d_ptr ? d_ptr->vendor : 0;
}
quint16 QSerialPortInfo::productIdentifier() const
{
    return d_ptr ? d_ptr->product : 0;
}
bool QSerialPortInfo::hasVendorIdentifier() const
{
    return d_ptr && d_ptr->hasVendor;
}
bool QSerialPortInfo::hasProductIdentifier() const
{
    return d_ptr && d_ptr->hasProduct;
}

#if QT_DEPRECATED_SINCE(5, 6)
bool QSerialPortInfo::isBusy() const
{
    if (!d_ptr)
        return false;
    const HANDLE h
        = CreateFileW(reinterpret_cast<const wchar_t*>(d_ptr->device.utf16()),
                      GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_ACCESS_DENIED;
    CloseHandle(h);
    return false;
}
#endif

#if QT_DEPRECATED_SINCE(5, 2)
bool QSerialPortInfo::isValid() const
{
    return !isNull() && !QSerialPortInfo(portName()).isNull();
}
#endif

QList<qint32> QSerialPortInfo::standardBaudRates()
{
    return {110,   300,   600,   1200,  2400,   4800,   9600,  14400,
            19200, 38400, 56000, 57600, 115200, 128000, 256000};
}

QList<QSerialPortInfo> QSerialPortInfo::availablePorts()
{
    QList<QSerialPortInfo> ports;
    QSet<QString> seen;

    // {4D36E978-E325-11CE-BFC1-08002BE10318}, the device setup class "Ports (COM & LPT)"
    static const GUID portsClass
        = {0x4d36e978, 0xe325, 0x11ce, {0xbf, 0xc1, 0x08, 0x00, 0x2b, 0xe1, 0x03, 0x18}};
    const HDEVINFO set = SetupDiGetClassDevsW(&portsClass, nullptr, nullptr, DIGCF_PRESENT);
    if (set != INVALID_HANDLE_VALUE) {
        SP_DEVINFO_DATA dev;
        memset(&dev, 0, sizeof dev);
        dev.cbSize = sizeof dev;
        for (DWORD i = 0; SetupDiEnumDeviceInfo(set, i, &dev); ++i) {
            const HKEY key
                = SetupDiOpenDevRegKey(set, &dev, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ);
            if (key == INVALID_HANDLE_VALUE)
                continue;
            QSerialPortInfoPrivate p;
            p.portName = regString(key, L"PortName");
            RegCloseKey(key);
            if (p.portName.isEmpty()
                || p.portName.startsWith(QLatin1String("LPT"), Qt::CaseInsensitive))
                continue;
            p.device = serialDevicePath(p.portName);
            p.description = deviceText(set, &dev, SPDRP_DEVICEDESC);
            p.manufacturer = deviceText(set, &dev, SPDRP_MFG);
            wchar_t id[512] = {};
            if (SetupDiGetDeviceInstanceIdW(set, &dev, id, 511, nullptr)) {
                const QString inst = QString::fromWCharArray(id);
                p.hasVendor = hexAfter(inst, "VID_", &p.vendor);
                p.hasProduct = hexAfter(inst, "PID_", &p.product);
                const int cut = inst.lastIndexOf(QLatin1Char('\\'));
                if (p.hasVendor && cut >= 0 && !inst.midRef(cut + 1).contains(QLatin1Char('&')))
                    p.serialNumber = inst.mid(cut + 1);
            }
            seen.insert(p.portName.toUpper());
            ports.append(QSerialPortInfo(p));
        }
        SetupDiDestroyDeviceInfoList(set);
    }

    HKEY map = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_READ, &map)
        == ERROR_SUCCESS) {
        for (DWORD i = 0;; ++i) {
            wchar_t name[512], value[256] = {};
            DWORD nameSize = 512, valueSize = sizeof value - sizeof(wchar_t), type = 0;
            const LONG r = RegEnumValueW(map, i, name, &nameSize, nullptr, &type,
                                         reinterpret_cast<BYTE*>(value), &valueSize);
            if (r == ERROR_NO_MORE_ITEMS)
                break;
            if (r != ERROR_SUCCESS || type != REG_SZ)
                continue;
            QSerialPortInfoPrivate p;
            p.portName = QString::fromWCharArray(value).trimmed();
            if (p.portName.isEmpty() || seen.contains(p.portName.toUpper()))
                continue;
            seen.insert(p.portName.toUpper());
            p.device = serialDevicePath(p.portName);
            ports.append(QSerialPortInfo(p));
        }
        RegCloseKey(map);
    }

    std::stable_sort(ports.begin(), ports.end(),
                     [](const QSerialPortInfo& a, const QSerialPortInfo& b) {
                         return portNumber(a.portName()) < portNumber(b.portName());
                     });
    return ports;
}

QT_END_NAMESPACE

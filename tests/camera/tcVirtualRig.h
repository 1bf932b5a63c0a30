#pragma once

#include "camera/tcVexaK40.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>

/// A panel, and the virtual camera of its model behind the serial library that ships with it.
class tcVirtualRig
{
public:
    explicit tcVirtualRig(const char* acPort, teCmvType aeType = teCmvType::Cmv2000TEC)
        : panel(aeType)
    {
        // Every reply of a test stays in the log.
        QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
        settings.setValue(panel.name() + "/mMaxDescriptionLength", 1000000);
        panel.loadSettings(&settings);
        QObject::connect(&panel, &tcVexaK40::requestClosePort, &panel, [this] { close(); });
        const auto ports = tcSerialLink::ports();
        for (int index = 0; index < ports.size(); ++index) {
            if (ports.at(index).portId == acPort)
                ref = tcSerialLink::open(static_cast<quint32>(index)).ref;
        }
        if (ref == 0)
            qFatal("no virtual camera %s", acPort);
        panel.openPort(ref);
    }
    ~tcVirtualRig() { close(); }

    /// Virtual cameras only, with these faults in all of them; the library reads it once, at
    /// its first call.
    static void chooseFaults(const QByteArray& acFaults)
    {
        qputenv("CLALLSERIAL_VENDOR_USE", "off");
        qputenv("CLALLSERIAL_HOST_SCAN", "off");
        qputenv("CLALLSERIAL_VIRTUAL_USE", "on");
        qputenv("CLALLSERIAL_VIRTUAL_FAULTS", acFaults);
    }

    void close()
    {
        panel.closePort();
        tcSerialLink::close(ref);
        ref = 0;
    }
    template <typename Widget>
    Widget* find(const char* acName) const
    {
        return panel.findChild<Widget*>(acName);
    }
    void send(const QString& acCommand)
    {
        find<QComboBox>("CommandCB")->lineEdit()->setText(acCommand);
        find<QPushButton>("SendCommandPB")->click();
    }
    QString lastReply() const { return find<QPlainTextEdit>("lastRespPTE")->toPlainText(); }
    QString log() const { return find<QPlainTextEdit>("PortRespPTE")->toPlainText(); }

    QTemporaryDir folder;
    tcVexaK40 panel;
    tcSerialLink::tcRef ref = 0;
};

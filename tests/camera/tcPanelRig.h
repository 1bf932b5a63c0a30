#pragma once

#include "camera/tcReceiver.h"
#include "camera/tcVexaK40.h"
#include "tests/support/tcFakeSerial.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// A panel with a scripted line, and short names for the widgets that tests ask for.
class tcPanelRig
{
public:
    explicit tcPanelRig(teCmvType aeType = teCmvType::Cmv2000TEC) : panel(aeType)
    {
        // On a busy computer the usual slice may be over before a run has read anything.
        setSlice(60'000);
    }
    ~tcPanelRig() { close(); }

    template <typename Widget>
    Widget* find(const char* acName) const
    {
        auto* widget = panel.findChild<Widget*>(acName);
        if (!widget)
            qFatal("no %s in the form", acName);
        return widget;
    }
    QPushButton* button(const char* acName) const { return find<QPushButton>(acName); }
    QComboBox* commandBox() const { return find<QComboBox>("CommandCB"); }
    QLineEdit* commandLine() const { return commandBox()->lineEdit(); }
    QPlainTextEdit* logView() const { return find<QPlainTextEdit>("PortRespPTE"); }
    QString lastReply() const { return find<QPlainTextEdit>("lastRespPTE")->toPlainText(); }
    QString hex() const { return find<QPlainTextEdit>("RespHexPTE")->toPlainText(); }

    /// The log without its time stamps, after a look at each of them.
    QString log() const
    {
        static const QRegularExpression stamp(
            QStringLiteral("\\d\\d:\\d\\d:\\d\\d\\.\\d{3}: "));
        return logView()->toPlainText().remove(stamp);
    }
    QStringList history() const
    {
        QStringList texts;
        for (int i = 0; i < commandBox()->count(); ++i)
            texts.append(commandBox()->itemText(i));
        return texts;
    }

    /// Opens a port and clears what that logged.
    void open()
    {
        ref = tcSerialLink::open(0).ref;
        panel.openPort(ref);
        button("clearPB")->click();
        line.calls.clear();
    }
    void close()
    {
        panel.closePort();
        if (ref != 0)
            tcSerialLink::close(ref);
        ref = 0;
    }
    void setSlice(qint64 anMs) { panel.findChild<tcReceiver*>()->setSlice(anMs); }
    void type(const QString& acText) { commandLine()->setText(acText); }

    tcVexaK40 panel;
    tcFakeSerial& line = tcFakeSerial::instance();
    tcSerialLink::tcRef ref = 0;
};

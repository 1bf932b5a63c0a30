#include "camlink/tcBasicPanel.h"
#include "tests/support/tcFakeSerial.h"
#include "ui_VexaR60.h"

#include <QTest>

#include <array>
#include <memory>

//! [presets]
/// Presets of the Vexa-R80, in the order the operator sees.
constexpr std::array<tcPreset, 2> cR80{{
    {"Full frame", "<STOP>\n<SROI 0 0 1280 1024>\n<SOMD 0>\n<SBPP 0>\n<STRT>\n"},
    {"Quarter frame", "<STOP>\n<SROI 0 0 640 512>\n<SOMD 0>\n<SBPP 0>\n<STRT>\n"},
}};
//! [presets]

//! [panel]
/// Panel of the Vexa-R80.
class tcVexaR80 : public tcBasicPanel
{
    Q_OBJECT

public:
    explicit tcVexaR80(QWidget* apParent = nullptr)
        : tcBasicPanel({cR80.data(), int(cR80.size())}, apParent)
        , mForm(std::make_unique<Ui::VexaR60>())
    {
        mForm->setupUi(this);
        connectForm(this, *mForm);
    }

    QString name() const override { return QStringLiteral("Vexa-R80"); }

public Q_SLOTS:
    void CheckRxData() { drainReceived(); }
    void SendCommand() { sendTypedCommand(); }
    void SendPreset() { sendChosenPreset(); }
    void SendFile() { sendChosenFile(); }
    void addText(QString acText) { showText(acText); }

private:
    std::unique_ptr<Ui::VexaR60> mForm; ///< the basic cameras' widgets are the same
};
//! [panel]

/// The worked example of a new camera model.
class tst_NewCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFake.reset();
        mFake.ports = {{"Maker", "Port", 0}};
    }
    void listsItsPresets();
    void sendsAPresetAndShowsTheAnswer();

private:
    tcFakeSerial& mFake = tcFakeSerial::instance();
};

void tst_NewCamera::listsItsPresets()
{
    const tcVexaR80 panel;
    QCOMPARE(panel.name(), QString("Vexa-R80"));
    const auto* presets = panel.findChild<QComboBox*>("presetsCB");
    QCOMPARE(presets->count(), 2);
    QCOMPARE(presets->itemText(1), QString("Quarter frame"));
}

void tst_NewCamera::sendsAPresetAndShowsTheAnswer()
{
    tcVexaR80 panel;
    const tcSerialLink::tcOpened port = tcSerialLink::open(0);
    panel.openPort(port.ref);
    panel.SendPreset();
    QCOMPARE(mFake.writes(), QList<QByteArray>{QByteArray(cR80[0].script)});
    mFake.feedAtOnce("<STOP><ACK>\r\n");
    const auto* view = panel.findChild<QPlainTextEdit*>("PortRespPTE");
    QTRY_COMPARE(view->toPlainText(), QString("<STOP><ACK>\n"));
    panel.closePort();
    tcSerialLink::close(port.ref);
}

QTEST_MAIN(tst_NewCamera)
#include "tst_newcamera.moc"

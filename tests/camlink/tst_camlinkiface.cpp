#include "camlink/tcCamlinkIface.h"

#include <QMetaMethod>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>

#include <type_traits>

namespace
{

/// As little as a panel can be.
class tcBarePanel : public tcCamlinkIface
{
public:
    QString name() const override { return QStringLiteral("bare"); }
    void openPort(tcSerialLink::tcRef aRef) override { mSerialRef = aRef; }
    void closePort() override { mSerialRef = 0; }

    QString manufacturer() const { return mManufacturer; }
    tcSerialLink::tcRef port() const { return mSerialRef; }
};

} // namespace

class tst_CamlinkIface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void presetTypeIsRegisteredByTheFirstPanel(); // before any other test needs the type
    void newPanelHasNeitherPortNorText();
    void asksToCloseAndNothingElse();
    void settingsAreLeftAlone();
    void nameAndPortAreThePanelsOwn();
    void presetsTravelInVariants();
};

void tst_CamlinkIface::presetTypeIsRegisteredByTheFirstPanel()
{
    const tcBarePanel panel;
    const int type = QMetaType::type("tcCamlinkIface::Preset *");
    QVERIFY(type != QMetaType::UnknownType);
    QCOMPARE(type, qMetaTypeId<tcCamlinkIface::Preset*>());
    QVERIFY(QMetaType(type).flags() & QMetaType::MovableType);
    const tcBarePanel second;
    QCOMPARE(QMetaType::type("tcCamlinkIface::Preset *"), type);
}

void tst_CamlinkIface::newPanelHasNeitherPortNorText()
{
    const tcBarePanel panel;
    QCOMPARE(panel.port(), tcSerialLink::tcRef(0));
    QCOMPARE(panel.manufacturer(), QString());
}

void tst_CamlinkIface::asksToCloseAndNothingElse()
{
    const QMetaObject& meta = tcCamlinkIface::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod only = meta.method(meta.methodOffset());
    QCOMPARE(only.methodSignature(), QByteArray("requestClosePort()"));
    QCOMPARE(only.methodType(), QMetaMethod::Signal);
}

void tst_CamlinkIface::settingsAreLeftAlone()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    settings.setValue("panel/camera", "Vexa-R60");
    tcBarePanel panel;
    panel.loadSettings(&settings);
    panel.saveSettings(&settings);
    QCOMPARE(settings.allKeys(), QStringList{"panel/camera"});
    QCOMPARE(settings.value("panel/camera").toString(), QString("Vexa-R60"));
}

void tst_CamlinkIface::nameAndPortAreThePanelsOwn()
{
    QVERIFY(std::is_abstract_v<tcCamlinkIface>);
    tcBarePanel panel;
    tcCamlinkIface& base = panel;
    base.setManufacturer("Maker");
    base.openPort(0x10);
    QCOMPARE(panel.manufacturer(), QString("Maker"));
    QCOMPARE(panel.port(), tcSerialLink::tcRef(0x10));
    base.closePort();
    QCOMPARE(panel.port(), tcSerialLink::tcRef(0));
}

void tst_CamlinkIface::presetsTravelInVariants()
{
    tcCamlinkIface::Preset preset{"label", "<STOP>\n"};
    const QVariant item = QVariant::fromValue(&preset);
    QCOMPARE(item.value<tcCamlinkIface::Preset*>(), &preset);
    QCOMPARE(QByteArray(item.typeName()), QByteArray("tcCamlinkIface::Preset*"));
}

QTEST_MAIN(tst_CamlinkIface)
#include "tst_camlinkiface.moc"

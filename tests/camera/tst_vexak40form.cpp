#include "camera/logic/tcCommandHelp.h"
#include "camera/tcHelpDelegate.h"
#include "tests/camera/tcPanelRig.h"
#include "widgets/LedIndicator.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QRadioButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace
{

/// Names of the widgets in the order in which Tab visits them.
QStringList tabOrder(QWidget& arPanel)
{
    QStringList names;
    const QWidget* first = &arPanel;
    for (const QWidget* widget = first->nextInFocusChain(); widget != first;
         widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() & Qt::TabFocus && arPanel.isAncestorOf(widget)
            && !widget->objectName().startsWith("qt_"))
            names.append(widget->objectName());
    }
    return names;
}

} // namespace

class tst_VexaK40Form : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void title();
    void texts_data();
    void texts();
    void shortTextsAreExplained_data();
    void shortTextsAreExplained();
    void spinBoxes_data();
    void spinBoxes();
    void comboBoxes();
    void examplesAreInColumnsWheneverTheyDropDown();
    void timingAndRegionsAreHidden();
    void advancedControlsAreHiddenAtFirst();
    void checkableButtons();
    void views();
    void lamp();
    void helpEntriesWithoutHint();
    void everyControlHasAnAccessibleName();
    void tabOrderFollowsTheEye();
    void longSensorNamesAreShownWhole();
    void narrowSensorsLeaveThePeriodWhole();
    void fitsTheDefaultWindow_data();
    void fitsTheDefaultWindow();
};

void tst_VexaK40Form::names_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("Cmv300") << 0 << "Vexa-K10";
    QTest::newRow("Cmv2000") << 1 << "Vexa-K20";
    QTest::newRow("Cmv2000TEC") << 2 << "Vexa-K20 (Temp controlled)";
    QTest::newRow("Cmv4000") << 3 << "Vexa-K30";
    QTest::newRow("Cmv8000") << 4 << "Vexa-K40";
    QTest::newRow("Cmv12000") << 5 << "Vexa-K50";
    QTest::newRow("no sensor type") << 99 << "ERROR! unkown CMV Type";
}

void tst_VexaK40Form::names()
{
    QFETCH(int, type);
    const tcVexaK40 panel(static_cast<teCmvType>(type));
    QTEST(panel.name(), "name");
}

void tst_VexaK40Form::title()
{
    const tcPanelRig rig;
    QCOMPARE(rig.panel.objectName(), QStringLiteral("VexaK40"));
    QCOMPARE(rig.panel.windowTitle(), QStringLiteral("Vexa-K40"));
}

void tst_VexaK40Form::texts_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* acName, const char* acKind, const char* acText) {
        QTest::newRow(acName) << QByteArray(acName) << QByteArray(acKind) << QString(acText);
    };
    row("label", "QLabel", "Preset");
    row("SendPresetPB", "QPushButton", "Send");
    row("SendCustomPB", "QPushButton", "Send Custom");
    row("TimingGroupBox", "QGroupBox", "Timing");
    row("label_6", "QLabel", "Exposure Time [ms]");
    row("label_5", "QLabel", "Frame Interval Time [ms] ");
    row("ROIGroupBox", "QGroupBox", "ROI");
    row("singleROIRB", "QRadioButton", "Single ROI");
    row("multiROIRB", "QRadioButton", "Multi-ROI");
    row("label_7", "QLabel", "Regions");
    row("label_4", "QLabel", "Start Col");
    row("label_3", "QLabel", "End Row");
    row("label_2", "QLabel", "Start Row");
    row("label_8", "QLabel", "End Col");
    row("startPB", "QPushButton", "START");
    row("stopPB", "QPushButton", "STOP");
    row("SendCommandPB", "QPushButton", "Send");
    row("fakeRXPB", "QPushButton", "RX");
    row("keepAlivePB", "QPushButton", "Keep Alive");
    row("clearPB", "QPushButton", "Clear");
    row("tempsPB", "QPushButton", "Plot Sensors");
    row("simSensorsPB", "QPushButton", "Sim");
    row("addSensorTB", "QToolButton", "Add Sensor");
}

void tst_VexaK40Form::texts()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, kind);
    const tcPanelRig rig;
    const auto* widget = rig.find<QWidget>(name.constData());
    QCOMPARE(QByteArray(widget->metaObject()->className()), kind);
    QTEST(widget->property(kind == "QGroupBox" ? "title" : "text").toString(), "text");
}

void tst_VexaK40Form::shortTextsAreExplained_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("SendPresetPB") << "Send preset";
    QTest::newRow("SendCustomPB") << "Send custom preset file";
    QTest::newRow("fakeRXPB") << "Handle the command text as received";
    QTest::newRow("keepAlivePB")
        << "Ask the camera each second, and close the port after 5 seconds without data";
    QTest::newRow("simSensorsPB") << "Simulate sensors";
}

void tst_VexaK40Form::shortTextsAreExplained()
{
    const tcPanelRig rig;
    QTEST(rig.find<QPushButton>(QTest::currentDataTag())->toolTip(), "toolTip");
}

void tst_VexaK40Form::spinBoxes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("toolTip");
    const auto row
        = [](const char* acName, int anMinimum, int anMaximum, int anValue, const char* acTip) {
              QTest::newRow(acName)
                  << QByteArray(acName) << anMinimum << anMaximum << anValue << QString(acTip);
          };
    row("exposureSpinBox", 0, 24000000, 20, "Exposure time in milliseconds.");
    row("intervalSpinBox", 10, 65535, 1000,
        "For multiframe reads, specifies the interval between capture cycles.");
    row("numROISB", 1, 8, 1, "");
    row("startRow", 0, 1000, 0, "Start Row for area readout capture.");
    row("endRow", 0, 1000, 0, "End Row for area readout capture.");
    row("endCol", 0, 10000, 1023, "End column for area readout capture.");
    row("startCol", 0, 1000, 0, "start column for area readout capture.");
    row("pollSecSB", 1, 99, 2, "");
}

void tst_VexaK40Form::spinBoxes()
{
    QFETCH(QByteArray, name);
    const tcPanelRig rig;
    const auto* box = rig.find<QSpinBox>(name.constData());
    QTEST(box->minimum(), "minimum");
    QTEST(box->maximum(), "maximum");
    QTEST(box->value(), "value");
    QTEST(box->toolTip(), "toolTip");
    QCOMPARE(box->prefix(), name == "pollSecSB" ? QStringLiteral("Every ") : QString());
    QCOMPARE(box->suffix(), name == "pollSecSB" ? QStringLiteral(" sec") : QString());
}

void tst_VexaK40Form::comboBoxes()
{
    const tcPanelRig rig;
    const QComboBox* command = rig.commandBox();
    QVERIFY(command->isEditable());
    QVERIFY(command->lineEdit()->isClearButtonEnabled());
    QVERIFY(!command->duplicatesEnabled());
    QCOMPARE(command->insertPolicy(), QComboBox::InsertAtTop);
    QCOMPARE(command->count(), 0);
    QVERIFY2(!command->completer(), "a completed command is not the one that was typed");
    QVERIFY(!rig.find<QComboBox>("presetsCB")->isEditable());
    QVERIFY(!rig.find<QComboBox>("exampleCB")->isEditable());
    QCOMPARE(rig.find<QComboBox>("regionComboBox")->count(), 0);
}

void tst_VexaK40Form::examplesAreInColumnsWheneverTheyDropDown()
{
    tcPanelRig rig;
    auto* examples = rig.find<QComboBox>("exampleCB");
    rig.panel.show();
    for (int time = 0; time < 2; ++time) {
        examples->showPopup();
        QVERIFY(qobject_cast<tcHelpDelegate*>(examples->view()->itemDelegate()));
        QCOMPARE(examples->view()->model()->rowCount(), 37);
        examples->hidePopup();
    }
    QCOMPARE(examples->findChildren<tcHelpDelegate*>().size(), 1);
}

void tst_VexaK40Form::timingAndRegionsAreHidden()
{
    const tcPanelRig rig;
    QVERIFY(rig.find<QGroupBox>("TimingGroupBox")->isHidden());
    QVERIFY(rig.find<QGroupBox>("ROIGroupBox")->isHidden());
    for (const char* inTiming : {"label_6", "exposureSpinBox", "label_5", "intervalSpinBox"})
        QCOMPARE(rig.find<QWidget>(inTiming)->parentWidget()->objectName(),
                 QStringLiteral("TimingGroupBox"));
    for (const char* inRegions : {"singleROIRB", "multiROIRB", "numROISB", "regionComboBox",
                                  "startRow", "endRow", "startCol", "endCol"})
        QCOMPARE(rig.find<QWidget>(inRegions)->parentWidget()->objectName(),
                 QStringLiteral("ROIGroupBox"));
}

void tst_VexaK40Form::advancedControlsAreHiddenAtFirst()
{
    const tcPanelRig rig;
    for (const char* name : {"addSensorTB", "simSensorsPB", "fakeRXPB", "keepAlivePB"})
        QVERIFY(rig.find<QWidget>(name)->isHidden());
    for (const char* name : {"sensorsLW", "tempsPB", "pollSecSB", "clearPB", "rxLed"})
        QVERIFY(!rig.find<QWidget>(name)->isHidden());
}

void tst_VexaK40Form::checkableButtons()
{
    const tcPanelRig rig;
    for (const char* name : {"keepAlivePB", "tempsPB", "simSensorsPB"}) {
        QVERIFY(rig.button(name)->isCheckable());
        QVERIFY(!rig.button(name)->isChecked());
    }
    for (const char* name : {"SendPresetPB", "SendCustomPB", "startPB", "stopPB",
                             "SendCommandPB", "fakeRXPB", "clearPB"})
        QVERIFY(!rig.button(name)->isCheckable());
}

void tst_VexaK40Form::views()
{
    const tcPanelRig rig;
    const auto* tabs = rig.find<QTabWidget>("tabWidget");
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Text"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Hex"));
    QCOMPARE(tabs->widget(0)->objectName(), QStringLiteral("tabText"));
    QCOMPARE(tabs->widget(1)->objectName(), QStringLiteral("tabHex"));
    QCOMPARE(tabs->currentIndex(), 0);
    QVERIFY(rig.find<QSplitter>("splitter")->isAncestorOf(tabs));
    for (const char* name : {"PortRespPTE", "RespHexPTE", "lastRespPTE"})
        QCOMPARE(rig.find<QPlainTextEdit>(name)->font().family(),
                 QStringLiteral("Courier New"));
    QVERIFY(rig.logView()->isReadOnly());
    QVERIFY(rig.logView()->centerOnScroll());
    QVERIFY(rig.find<QPlainTextEdit>("RespHexPTE")->centerOnScroll());
    QVERIFY(!rig.find<QPlainTextEdit>("lastRespPTE")->centerOnScroll());
}

void tst_VexaK40Form::lamp()
{
    const tcPanelRig rig;
    auto* lamp = rig.find<LedIndicator>("rxLed");
    QVERIFY(!lamp->state());
    QCOMPARE(lamp->minimumSize(), QSize(18, 18)); // diameter 8 and its margin
    QVERIFY(lamp->minimumWidth() >= 16);
    QImage image(lamp->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    lamp->render(&image, {}, {}, QWidget::RenderFlags());
    QCOMPARE(image.pixelColor(13, 13), QColor(Qt::gray));
}

void tst_VexaK40Form::helpEntriesWithoutHint()
{
    const tcPanelRig rig;
    const auto* examples = rig.find<QComboBox>("exampleCB");
    QCOMPARE(examples->count(), 37);
    for (int row = 0; row < 37; ++row)
        QCOMPARE(examples->itemText(row), tcCommandHelp::entries().at(row));
    QCOMPARE(rig.commandLine()->placeholderText(), QString());
}

void tst_VexaK40Form::everyControlHasAnAccessibleName()
{
    const tcPanelRig rig;
    for (QWidget* widget : rig.panel.findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")
            || widget->focusPolicy() == Qt::NoFocus)
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(
            face
                && (!face->text(QAccessible::Name).isEmpty() || widget->inherits("QTabWidget")),
            qPrintable(widget->objectName()));
    }
}

void tst_VexaK40Form::tabOrderFollowsTheEye()
{
    tcPanelRig rig;
    const QStringList expected{"presetsCB",  "SendPresetPB", "SendCustomPB", "exampleCB",
                               "startPB",    "stopPB",       "CommandCB",    "SendCommandPB",
                               "fakeRXPB",   "keepAlivePB",  "tabs",         "PortRespPTE",
                               "RespHexPTE", "clearPB",      "lastRespPTE",  "sensorsLW",
                               "tempsPB",    "pollSecSB",    "simSensorsPB", "addSensorTB"};
    // "Text" and "Hex", whose bar the form can't name.
    rig.find<QTabWidget>("tabWidget")->tabBar()->setObjectName("tabs");
    QStringList order;
    for (const QString& name : tabOrder(rig.panel)) {
        if (expected.contains(name))
            order.append(name);
    }
    QCOMPARE(order.join(" "), expected.join(" "));
}

/// Ports have long names, and two that end alike must be told apart.
void tst_VexaK40Form::longSensorNamesAreShownWhole()
{
    tcPanelRig rig;
    auto* list = rig.find<QListWidget>("sensorsLW");
    list->addItem("/dev/serial0 [ USB to serial adapter of the thermometer ] Omega UTC");
    rig.panel.resize(710, 360);
    rig.panel.show();
    const QListWidgetItem* added = list->item(list->count() - 1);
    QTRY_VERIFY(list->visualItemRect(list->item(0)).height() > 0);
    const int line = list->visualItemRect(list->item(0)).height();
    QTRY_VERIFY(list->visualItemRect(added).height() >= 2 * line - 4);
    QVERIFY(list->visualItemRect(added).width() <= list->viewport()->width());
}

/// Whoever gives the views all the room still reads how often the camera is asked.
void tst_VexaK40Form::narrowSensorsLeaveThePeriodWhole()
{
    tcPanelRig rig;
    rig.panel.resize(710, 360);
    rig.panel.show();
    rig.find<QSplitter>("sensorSplitter")->setSizes({10000, 0});
    const auto* period = rig.find<QSpinBox>("pollSecSB");
    QTRY_VERIFY(period->isVisible());
    QApplication::sendPostedEvents();
    QVERIFY2(period->width() >= period->sizeHint().width(),
             qPrintable(QString::number(period->width())));
}

void tst_VexaK40Form::fitsTheDefaultWindow_data()
{
    QTest::addColumn<bool>("advanced");
    QTest::newRow("as delivered") << false;
    QTest::newRow("advanced") << true;
}

/// The chooser's two rows, menu and status bar take some 140 of the window's 730 x 500.
void tst_VexaK40Form::fitsTheDefaultWindow()
{
    QFETCH(bool, advanced);
    tcPanelRig rig;
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("tarvik.ini"), QSettings::IniFormat);
    settings.setValue(rig.panel.name() + "/advanced", advanced);
    rig.panel.loadSettings(&settings);
    const QSize needed = rig.panel.minimumSizeHint();
    QVERIFY2(needed.width() <= 710, qPrintable(QString::number(needed.width())));
    QVERIFY2(needed.height() <= 360, qPrintable(QString::number(needed.height())));
}

QTEST_MAIN(tst_VexaK40Form)
#include "tst_vexak40form.moc"

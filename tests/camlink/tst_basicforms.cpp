#include "tests/camlink/tcPanelUnderTest.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

/// What the basic panels look like before anybody touches them.
class tst_BasicForms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { tcPanelUnderTest::addColumn(); }
    void init() { mPanel.reset(kind().make()); }
    void cleanup() { mPanel.reset(); }

    void nameAndForm();
    void slotsInTheirOrder();
    void widgetTexts_data();
    void widgetTexts();
    void spinBoxes_data();
    void spinBoxes();
    void hiddenGroups();
    void widgetsFromTopToBottom();
    void labelsOfRegionAreWide();
    void presetsInTableOrder();
    void responseViewIsReadOnly();

private:
    template <class T>
    T* child(const char* acName) const
    {
        T* found = mPanel->findChild<T*>(QString::fromLatin1(acName));
        Q_ASSERT(found);
        return found;
    }
    static const tcPanelUnderTest& kind()
    {
        QFETCH_GLOBAL(int, kind);
        return tcPanelUnderTest::of(kind);
    }

    std::unique_ptr<tcCamlinkIface> mPanel;
};

void tst_BasicForms::nameAndForm()
{
    QCOMPARE(mPanel->name(), QString(kind().name));
    QCOMPARE(mPanel->windowTitle(), QString(kind().name));
    QCOMPARE(mPanel->objectName(), QString(kind().name).remove('-'));
    QCOMPARE(mPanel->size(), QSize(380, 492));
}

void tst_BasicForms::slotsInTheirOrder()
{
    const QMetaObject* meta = mPanel->metaObject();
    QStringList methods;
    for (int index = meta->methodOffset(); index < meta->methodCount(); ++index)
        methods.append(QString::fromLatin1(meta->method(index).methodSignature()));
    QCOMPARE(methods,
             (QStringList{"CheckRxData()", "SendCommand()", "SendPreset()", "SendFile()",
                          "addText(QString)"}));
}

void tst_BasicForms::widgetTexts_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("text");
    const char* const rows[][3] = {
        {"label", "text", "Preset"},
        {"SendPresetPB", "text", "Send"},
        {"SendCustomPB", "text", "Send Custom"},
        {"TimingGroupBox", "title", "Timing"},
        {"label_6", "text", "Exposure Time [ms]"},
        {"label_5", "text", "Frame Interval Time [ms] "},
        {"ROIGroupBox", "title", "ROI"},
        {"label_2", "text", "Start Row"},
        {"label_3", "text", "End Row"},
        {"label_4", "text", "Start Col"},
        {"label_8", "text", "End Col"},
        {"SendCommandPB", "text", "Send"},
        {"exposureSpinBox", "toolTip", "Exposure time in milliseconds."},
        {"intervalSpinBox", "toolTip",
         "For multiframe reads, specifies the interval between capture cycles."},
        {"startRow", "toolTip", "Start Row for area readout capture."},
        {"endRow", "toolTip", "End Row for area readout capture."},
        {"startCol", "toolTip", "start column for area readout capture."},
        {"endCol", "toolTip", "End column for area readout capture."},
    };
    for (const auto& row : rows)
        QTest::newRow(row[0]) << row[0] << row[1] << row[2];
    QTest::newRow("tip of SendPresetPB") << "SendPresetPB"
                                         << "toolTip"
                                         << "Send preset";
    QTest::newRow("tip of SendCustomPB") << "SendCustomPB"
                                         << "toolTip"
                                         << "Send preset file";
}

void tst_BasicForms::widgetTexts()
{
    QFETCH(QString, object);
    QFETCH(QString, property);
    const auto* widget = mPanel->findChild<QWidget*>(object);
    QVERIFY(widget);
    QTEST(widget->property(property.toLatin1().constData()).toString(), "text");
}

void tst_BasicForms::spinBoxes_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("exposure") << "exposureSpinBox" << 0 << 24000000 << 20;
    QTest::newRow("interval") << "intervalSpinBox" << 10 << 65535 << 1000;
    QTest::newRow("start row") << "startRow" << 0 << 1000 << 0;
    QTest::newRow("end row") << "endRow" << 0 << 1000 << 0;
    QTest::newRow("start column") << "startCol" << 0 << 1000 << 0;
    QTest::newRow("end column") << "endCol" << 0 << 10000 << 1023;
}

void tst_BasicForms::spinBoxes()
{
    QFETCH(QString, object);
    const auto* box = mPanel->findChild<QSpinBox*>(object);
    QVERIFY(box);
    QTEST(box->minimum(), "minimum");
    QTEST(box->maximum(), "maximum");
    QTEST(box->value(), "value");
}

void tst_BasicForms::hiddenGroups()
{
    mPanel->show();
    QVERIFY(child<QGroupBox>("TimingGroupBox")->isHidden());
    QVERIFY(child<QGroupBox>("ROIGroupBox")->isHidden());
}

/// Names of the widgets as they follow each other in the layout and in those inside it.
static QStringList namesIn(const QLayout* apLayout)
{
    QStringList names;
    for (int index = 0; index < apLayout->count(); ++index) {
        QLayoutItem* item = apLayout->itemAt(index);
        if (item->layout())
            names += namesIn(item->layout());
        else if (item->widget())
            names.append(item->widget()->objectName());
        if (item->widget() && item->widget()->layout())
            names += namesIn(item->widget()->layout());
    }
    return names;
}

void tst_BasicForms::widgetsFromTopToBottom()
{
    QVERIFY(qobject_cast<QVBoxLayout*>(mPanel->layout()));
    QCOMPARE(namesIn(mPanel->layout()),
             (QStringList{"label",           "presetsCB",   "SendPresetPB",    "SendCustomPB",
                          "TimingGroupBox",  "label_6",     "exposureSpinBox", "label_5",
                          "intervalSpinBox", "ROIGroupBox", "label_2",         "startRow",
                          "label_3",         "endRow",      "label_4",         "startCol",
                          "label_8",         "endCol",      "CommandLE",       "SendCommandPB",
                          "PortRespPTE"}));
}

void tst_BasicForms::labelsOfRegionAreWide()
{
    for (const char* name : {"label_2", "label_3", "label_4", "label_8"})
        QVERIFY2(child<QLabel>(name)->minimumWidth() >= 50, name);
}

void tst_BasicForms::presetsInTableOrder()
{
    const auto* box = child<QComboBox>("presetsCB");
    QCOMPARE(box->count(), kind().presetCount);
    for (int index = 0; index < box->count(); ++index) {
        QCOMPARE(box->itemText(index), QString(kind().presets[index].label));
        QVERIFY(!box->itemData(index).isValid());
    }
}

void tst_BasicForms::responseViewIsReadOnly()
{
    auto* view = child<QPlainTextEdit>("PortRespPTE");
    QVERIFY(view->isReadOnly());
    QTest::keyClicks(view, "typed");
    QCOMPARE(view->toPlainText(), QString());
}

QTEST_MAIN(tst_BasicForms)
#include "tst_basicforms.moc"

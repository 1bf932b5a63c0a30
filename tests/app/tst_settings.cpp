#include "app/tcSettings.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

class tst_Settings : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir mDir;

    QString file(const char* acName) const { return mDir.filePath(acName); }

private Q_SLOTS:
    void cleanup() { tcSettings::setDefaultFile({}); }

    void noDefaultFileAtStart() { QCOMPARE(tcSettings::defaultFile(), QString()); }

    void factoryUsesTheGivenFileAsIni()
    {
        tcSettings::setDefaultFile(file("default.ini"));
        const auto settings = tcSettings::create(file("given.ini"));
        QCOMPARE(settings->fileName(), file("given.ini"));
        QCOMPARE(settings->format(), QSettings::IniFormat);
        QVERIFY(!settings->parent());
    }

    void factoryUsesTheDefaultFileForAnEmptyPath()
    {
        tcSettings::setDefaultFile(file("default.ini"));
        QCOMPARE(tcSettings::create()->fileName(), file("default.ini"));
    }

    void factoryWithoutAnyFileUsesTheSystemScope()
    {
        QCoreApplication::setApplicationName("Vexa Tarvik");
        const auto settings = tcSettings::create();
        QCOMPARE(settings->scope(), QSettings::SystemScope);
        QCOMPARE(settings->format(), QSettings::IniFormat);
        QCOMPARE(settings->organizationName(), QString("Quillon"));
        QCOMPARE(settings->applicationName(), QString("Vexa Tarvik"));
        const QSettings same(QSettings::IniFormat, QSettings::SystemScope, "Quillon",
                             "Vexa Tarvik");
        QCOMPARE(settings->fileName(), same.fileName());
        QVERIFY(settings->fileName().endsWith("Quillon/Vexa Tarvik.ini"));
    }

    void lastHolderDeletesTheSettings()
    {
        auto settings = tcSettings::create(file("shared.ini"));
        QPointer<tcSettings> watched(settings.data());
        auto second = settings;
        settings.reset();
        QVERIFY(watched);
        second.reset();
        QVERIFY(!watched);
    }

    void stateComesBackUnderTheObjectName_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::newRow("object name") << QByteArray();
        QTest::newRow("given key") << QByteArray("other");
    }

    void stateComesBackUnderTheObjectName()
    {
        QFETCH(QByteArray, key);
        const char* given = key.isNull() ? nullptr : key.constData();
        QSettings settings(file("state.ini"), QSettings::IniFormat);
        settings.clear();

        checkRoundTrip<QAction>(
            settings, given, [](QAction& arAction) { arAction.setCheckable(true); },
            [](QAction& arAction) { arAction.setChecked(true); },
            [](const QAction& acAction) { return QVariant(acAction.isChecked()); });
        checkRoundTrip<QSpinBox>(
            settings, given, [](QSpinBox&) {}, [](QSpinBox& arBox) { arBox.setValue(42); },
            [](const QSpinBox& acBox) { return QVariant(acBox.value()); });
        checkRoundTrip<QDoubleSpinBox>(
            settings, given, [](QDoubleSpinBox&) {},
            [](QDoubleSpinBox& arBox) { arBox.setValue(1.25); },
            [](const QDoubleSpinBox& acBox) { return QVariant(acBox.value()); });
    }

    void keysAreRelativeToTheOpenGroup()
    {
        QSettings settings(file("group.ini"), QSettings::IniFormat);
        QSpinBox box;
        box.setObjectName("spinBoxSamples");
        box.setValue(7);
        settings.beginGroup("tcStripChart_Cam");
        tcSettings::save(settings, box);
        settings.endGroup();
        QCOMPARE(settings.value("tcStripChart_Cam/spinBoxSamples").toInt(), 7);
    }

    void missingKeyLeavesTheControlUnchanged()
    {
        QSettings settings(file("missing.ini"), QSettings::IniFormat);
        QAction action;
        action.setCheckable(true);
        action.setChecked(true);
        QSpinBox box;
        box.setValue(5);
        QDoubleSpinBox fine;
        fine.setValue(2.5);
        tcSettings::restore(settings, action, "none");
        tcSettings::restore(settings, box, "none");
        tcSettings::restore(settings, fine, "none");
        QVERIFY(action.isChecked());
        QCOMPARE(box.value(), 5);
        QCOMPARE(fine.value(), 2.5);
    }

    void valueThatDoesNotConvertLeavesTheSpinBoxUnchanged_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("text") << QVariant("abc");
        QTest::newRow("empty") << QVariant("");
        QTest::newRow("list") << QVariant(QStringList{"1", "2"});
        QTest::newRow("bytes") << QVariant(QByteArray("\x01\x02", 2));
        QTest::newRow("not a number") << QVariant("nan");
    }

    void valueThatDoesNotConvertLeavesTheSpinBoxUnchanged()
    {
        QFETCH(QVariant, stored);
        QSettings settings(file("broken.ini"), QSettings::IniFormat);
        settings.setValue("key", stored);
        QSpinBox box;
        box.setValue(5);
        QDoubleSpinBox fine;
        fine.setValue(2.5);
        tcSettings::restore(settings, box, "key");
        tcSettings::restore(settings, fine, "key");
        QCOMPARE(box.value(), 5);
        QCOMPARE(fine.value(), 2.5);
    }

    void textWithAFractionDoesNotConvertToInt()
    {
        QSettings settings(file("fraction.ini"), QSettings::IniFormat);
        settings.setValue("key", "21.5");
        QSpinBox box;
        box.setValue(5);
        tcSettings::restore(settings, box, "key");
        QCOMPARE(box.value(), 5);
    }

    void actionStateIsReadAsBool_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("checked");
        QTest::newRow("true") << QVariant(true) << true;
        QTest::newRow("false") << QVariant(false) << false;
        QTest::newRow("text true") << QVariant("true") << true;
        QTest::newRow("text false") << QVariant("false") << false;
        QTest::newRow("one") << QVariant(1) << true;
        QTest::newRow("zero") << QVariant(0) << false;
        QTest::newRow("empty text") << QVariant("") << false;
    }

    void actionStateIsReadAsBool()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, checked);
        QSettings settings(file("state.ini"), QSettings::IniFormat);
        settings.setValue("key", stored);
        for (const bool before : {false, true}) {
            QAction action;
            action.setCheckable(true);
            action.setChecked(before);
            tcSettings::restore(settings, action, "key");
            QCOMPARE(action.isChecked(), checked);
        }
    }

    void actionThatIsNotCheckableIsLeftAlone()
    {
        QSettings settings(file("action.ini"), QSettings::IniFormat);
        QAction action;
        action.setObjectName("actionSave");
        tcSettings::save(settings, action);
        QVERIFY(!settings.contains("actionSave"));
        settings.setValue("actionSave", true);
        tcSettings::restore(settings, action);
        QVERIFY(!action.isChecked());
    }

    void actionStateIsWrittenAsBool()
    {
        QSettings settings(file("bool.ini"), QSettings::IniFormat);
        QAction action;
        action.setCheckable(true);
        action.setChecked(true);
        tcSettings::save(settings, action, "grid");
        settings.sync();
        QFile raw(file("bool.ini"));
        QVERIFY(raw.open(QIODevice::ReadOnly));
        QVERIFY(raw.readAll().contains("grid=true"));
    }

    void numbersAreWrittenAsNumbers()
    {
        QSettings settings(file("numbers.ini"), QSettings::IniFormat);
        QSpinBox box;
        box.setSuffix(" s");
        box.setValue(42);
        QDoubleSpinBox fine;
        fine.setSuffix(" mm");
        fine.setDecimals(4);
        fine.setValue(1.25);
        tcSettings::save(settings, box, "span");
        tcSettings::save(settings, fine, "width");
        settings.sync();
        QFile raw(file("numbers.ini"));
        QVERIFY(raw.open(QIODevice::ReadOnly | QIODevice::Text));
        const QByteArray written = raw.readAll();
        QVERIFY2(written.contains("span=42\n"), written.constData());
        QVERIFY2(written.contains("width=1.25\n"), written.constData());
    }

private:
    template <typename T, typename Prepare, typename Change, typename State>
    void checkRoundTrip(QSettings& arSettings, const char* acKey, Prepare aPrepare,
                        Change aChange, State aState)
    {
        T saved;
        saved.setObjectName("control");
        aPrepare(saved);
        aChange(saved);
        tcSettings::save(arSettings, saved, acKey);
        QVERIFY(arSettings.contains(acKey ? acKey : "control"));

        T restored;
        restored.setObjectName("control");
        aPrepare(restored);
        QVERIFY(aState(restored) != aState(saved));
        tcSettings::restore(arSettings, restored, acKey);
        QCOMPARE(aState(restored), aState(saved));
        arSettings.clear();
    }
};

QTEST_MAIN(tst_Settings)
#include "tst_settings.moc"

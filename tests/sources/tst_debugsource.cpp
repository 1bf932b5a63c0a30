#include "sources/tcDebugSource.h"
#include "sources/tcOmegaTempMonitor.h"
#include "sources/tcPicoTC08Source.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>
#include <memory>

class tst_DebugSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { tcDebugSource::setSettingsProvider({}); }
    void startsWithItsClassName();
    void identifiesItselfByItsAddress();
    void levelIsZeroWithoutProvider();
    void levelIsZeroWhenNoSettingsAreProvided();
    void levelComesFromTheSettings_data();
    void levelComesFromTheSettings();
    void levelCanBeSet();
    void twoOfOneNameAreBothListed();
    void unlistedIsNeverInTheIndex();
    void virtualOperationsStartWithTheLevel();
    void sourcesAreDebugSources();
};

void tst_DebugSource::startsWithItsClassName()
{
    const tcDebugSource source("tcSome");
    QCOMPARE(source.debugName(), QStringLiteral("tcSome"));
    const tcDebugSource nameless(nullptr);
    QCOMPARE(nameless.debugName(), QString());
}

void tst_DebugSource::identifiesItselfByItsAddress()
{
    const tcDebugSource source("tcSome");
    bool parsed = false;
    QCOMPARE(source.debugId().toULongLong(&parsed, 16),
             qulonglong(reinterpret_cast<quintptr>(&source)));
    QVERIFY(parsed);
    QVERIFY(!source.debugId().contains(' '));
}

void tst_DebugSource::levelIsZeroWithoutProvider()
{
    QCOMPARE(tcDebugSource("tcSome").debugLevel(), 0);
    QCOMPARE(tcOmegaTempMonitor(QStringLiteral("COM1")).debugLevel(), 0);
    QCOMPARE(tcPicoTC08Source(QStringLiteral("CH1")).debugLevel(), 0);
}

void tst_DebugSource::levelIsZeroWhenNoSettingsAreProvided()
{
    int asked = 0;
    tcDebugSource::setSettingsProvider([&asked] {
        ++asked;
        return QSharedPointer<QSettings>();
    });
    QCOMPARE(tcDebugSource("tcSome").debugLevel(), 0);
    QCOMPARE(asked, 1);
}

void tst_DebugSource::levelComesFromTheSettings_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("level");
    QTest::newRow("its own key") << QByteArray("tcOmegaTempMonitor") << 3;
    QTest::newRow("bare key without a name") << QByteArray("") << 7;
    QTest::newRow("no key") << QByteArray("tcOther") << 0;
    QTest::newRow("no number") << QByteArray("tcBroken") << 0;
}

void tst_DebugSource::levelComesFromTheSettings()
{
    QFETCH(QByteArray, name);
    const QTemporaryDir folder;
    const auto settings = QSharedPointer<QSettings>::create(folder.filePath("levels.ini"),
                                                            QSettings::IniFormat);
    settings->setValue("tcOmegaTempMonitor/debugLevel", 3);
    settings->setValue("debugLevel", 7);
    settings->setValue("tcBroken/debugLevel", "much");
    tcDebugSource::setSettingsProvider([settings] { return settings; });
    QTEST(tcDebugSource(name.constData()).debugLevel(), "level");
}

void tst_DebugSource::levelCanBeSet()
{
    tcDebugSource source("tcSome");
    source.setDebugLevel(5);
    QCOMPARE(source.debugLevel(), 5);
}

void tst_DebugSource::twoOfOneNameAreBothListed()
{
    const QString name = QStringLiteral("tcOmegaTempMonitor");
    auto first = std::make_unique<tcOmegaTempMonitor>(QStringLiteral("COM1"));
    const auto second = std::make_unique<tcOmegaTempMonitor>(QStringLiteral("COM2"));
    QCOMPARE(tcDebugSource::index().count(name), 2);
    first.reset();
    QCOMPARE(tcDebugSource::index().values(name), QList<tcDebugSource*>{second.get()});
}

void tst_DebugSource::unlistedIsNeverInTheIndex()
{
    const tcDebugSource listed("tcSome");
    {
        const tcDebugSource unlisted("tcSome", true);
        QCOMPARE(tcDebugSource::index().count("tcSome"), 1);
        QCOMPARE(unlisted.debugId(), QString());
    }
    QCOMPARE(tcDebugSource::index().count("tcSome"), 1);
}

void tst_DebugSource::virtualOperationsStartWithTheLevel()
{
#if defined(__GNUC__) && !defined(Q_OS_WIN)
    void (tcDebugSource::*operation)(int) = &tcDebugSource::setDebugLevel;
    quintptr place = 0;
    std::memcpy(&place, &operation, sizeof place);
    QCOMPARE(place, quintptr(1)); // the first slot of the table
#else
    QSKIP("The layout of pointers to operations is known for one compiler only.");
#endif
}

void tst_DebugSource::sourcesAreDebugSources()
{
    tcOmegaTempMonitor omega(QStringLiteral("COM1"));
    tcPicoTC08Source pico(QStringLiteral("CH1"));
    QCOMPARE(omega.debugName(), QStringLiteral("tcOmegaTempMonitor"));
    QCOMPARE(pico.debugName(), QStringLiteral("tcPicoTC08Source"));
    QObject* object = &omega;
    QCOMPARE(object->qt_metacast("tcOmegaTempMonitor"), static_cast<void*>(&omega));
    QCOMPARE(object->qt_metacast("tcDebugSource"),
             static_cast<void*>(static_cast<tcDebugSource*>(&omega)));
    object = &pico;
    QCOMPARE(object->qt_metacast("tcPicoTC08Source"), static_cast<void*>(&pico));
    QCOMPARE(object->qt_metacast("tcDebugSource"),
             static_cast<void*>(static_cast<tcDebugSource*>(&pico)));
}

QTEST_GUILESS_MAIN(tst_DebugSource)
#include "tst_debugsource.moc"

#include "sources/tcOmegaTempMonitor.h"
#include "sources/tcPicoTC08Source.h"
#include "sources/tcSourceRegistry.h"
#include "tests/sources/tcCaughtLog.h"

#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

class tst_SourceRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothTypesAreThereBeforeMain();
    void secondBuilderIsRefused();
    void unknownTypeGivesNothing();
    void emptyBuilderThrows();
    void builderMayReturnNothing();
    void builderGetsNameAndParent();
    void createsTheBuiltInTypes();
    void thermometerTakesThePortOfItsEntry_data();
    void thermometerTakesThePortOfItsEntry();
};

void tst_SourceRegistry::bothTypesAreThereBeforeMain()
{
    // Nobody can listen before main, so another process is listened to.
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(), {"-functions"});
    QVERIFY(program.waitForFinished());
    const QList<QByteArray> lines = program.readAllStandardError().split('\n');
    QVERIFY(lines.size() >= 2);
    QCOMPARE(lines.at(0).trimmed(), QByteArray("Adding builder for type  \"Omega UTC\""));
    QCOMPARE(lines.at(1).trimmed(), QByteArray("Adding builder for type  \"Pico TC08\""));
    const auto isEntry = [](const QByteArray& line) { return line.contains("Adding builder"); };
    QCOMPARE(std::count_if(lines.begin(), lines.end(), isEntry), 2);
}

void tst_SourceRegistry::secondBuilderIsRefused()
{
    const tcCaughtLog log;
    QVERIFY(!tcSourceRegistry::registerBuilder(
        "Omega UTC", [](const QString&, QObject*) -> tcDataSource* { return nullptr; }));
    QCOMPARE(log.warnings(), QStringList{"Builder already registered for type \"Omega UTC\""});
    QCOMPARE(log.debugs(), QStringList());
    const std::unique_ptr<tcDataSource> source(
        tcSourceRegistry::createSource("Omega UTC", "COM1", nullptr));
    QVERIFY(qobject_cast<tcOmegaTempMonitor*>(source.get()));
}

void tst_SourceRegistry::unknownTypeGivesNothing()
{
    const tcCaughtLog log;
    QCOMPARE(tcSourceRegistry::createSource("Nothing", "COM1", this), nullptr);
    QCOMPARE(log.warnings(),
             QStringList{"No builder registered for type \"Nothing\" [ \"COM1\" ]"});
    QVERIFY(children().isEmpty());
}

void tst_SourceRegistry::emptyBuilderThrows()
{
    const tcCaughtLog log;
    QVERIFY(tcSourceRegistry::registerBuilder("Empty", {}));
    QVERIFY_EXCEPTION_THROWN(tcSourceRegistry::createSource("Empty", "", nullptr),
                             std::bad_function_call);
}

void tst_SourceRegistry::builderMayReturnNothing()
{
    const tcCaughtLog log;
    QVERIFY(tcSourceRegistry::registerBuilder(
        "Null", [](const QString&, QObject*) -> tcDataSource* { return nullptr; }));
    QCOMPARE(log.debugs(), QStringList{"Adding builder for type  \"Null\""});
    QCOMPARE(tcSourceRegistry::createSource("Null", "", nullptr), nullptr);
    QCOMPARE(log.warnings(), QStringList());
}

void tst_SourceRegistry::builderGetsNameAndParent()
{
    const tcCaughtLog log;
    QString name;
    QObject* parent = nullptr;
    tcSourceRegistry::registerBuilder(
        "Asking", [&](const QString& acName, QObject* apParent) -> tcDataSource* {
            name = acName;
            parent = apParent;
            // A builder may itself register another; the running one is a copy.
            tcSourceRegistry::registerBuilder("Another", {});
            return nullptr;
        });
    tcSourceRegistry::createSource("Asking", "this one", this);
    QCOMPARE(name, QStringLiteral("this one"));
    QCOMPARE(parent, this);
}

void tst_SourceRegistry::createsTheBuiltInTypes()
{
    const tcCaughtLog log;
    QObject parent;
    tcDataSource* omega = tcSourceRegistry::createSource("Omega UTC", "COM3", &parent);
    tcDataSource* pico = tcSourceRegistry::createSource("Pico TC08", "CH3", &parent);
    QVERIFY(qobject_cast<tcOmegaTempMonitor*>(omega));
    QVERIFY(qobject_cast<tcPicoTC08Source*>(pico));
    QCOMPARE(omega->typeName(), QStringLiteral("Omega UTC"));
    QCOMPARE(pico->typeName(), QStringLiteral("Pico TC08"));
    QCOMPARE(parent.children(), (QObjectList{omega, pico}));
}

void tst_SourceRegistry::thermometerTakesThePortOfItsEntry_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("port") << "COM3"
                          << "Omega UTC COM3";
    QTest::newRow("entry") << "COM3 [ USB [ 2 ] ]"
                           << "Omega UTC COM3";
    QTest::newRow("nothing") << ""
                             << "Omega UTC ";
}

void tst_SourceRegistry::thermometerTakesThePortOfItsEntry()
{
    QFETCH(QString, name);
    const std::unique_ptr<tcDataSource> source(
        tcSourceRegistry::createSource("Omega UTC", name, nullptr));
    QTEST(source->displayName(), "title");
}

QTEST_GUILESS_MAIN(tst_SourceRegistry)
#include "tst_sourceregistry.moc"

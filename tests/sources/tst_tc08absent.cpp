#include "sources/tcPicoTC08Source.h"
#include "sources/tcTC08Ops.h"
#include "tests/sources/tcCaughtLog.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QtTest>

/// A computer without the logger's driver.
class tst_TC08Absent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySourceSaysSo();
    void nothingIsOfferedAndNothingRegisters();
    void driverInTheCurrentFolderIsNotTaken();
};

void tst_TC08Absent::everySourceSaysSo()
{
    const tcCaughtLog log;
    const tcPicoTC08Source first{QString()};
    QCOMPARE(log.warnings(), QStringList{"Unable to load \"usbtc08\""});
    const tcPicoTC08Source second(QStringLiteral("CH1"));
    QCOMPARE(log.warnings().size(), 2);
    QVERIFY(tcTC08Ops::instance());
    QVERIFY(!tcTC08Ops::instance()->worker());
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
}

void tst_TC08Absent::nothingIsOfferedAndNothingRegisters()
{
    tcPicoTC08Source source(QStringLiteral("CH1"));
    QCOMPARE(source.availableChannels(), QStringList());
    QCOMPARE(source.displayName(), QStringLiteral("Pico TC08 CH Pico TC08"));
    const tcCaughtLog log;
    source.start();
    source.stop();
    QCOMPARE(log.debugs(), QStringList());
    QCOMPARE(log.warnings(), QStringList());
}

void tst_TC08Absent::driverInTheCurrentFolderIsNotTaken()
{
#ifdef Q_OS_WIN
    QSKIP("here the program's start-up sees to it, with a test of its own");
#endif
    QTemporaryDir folder;
    const QString driver = QStringLiteral(TC08SIM_LIBRARY);
    QVERIFY(QFile::copy(driver, folder.filePath(QFileInfo(driver).fileName())));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const tcTC08Ops ops(QStringLiteral("usbtc08"));
    QDir::setCurrent(before);
    QVERIFY(!ops.isLoaded());
    // It would have been loaded, had it been asked for by its path.
    const tcTC08Ops byPath(folder.filePath(QFileInfo(driver).fileName()));
    QVERIFY(byPath.isLoaded());
}

QTEST_GUILESS_MAIN(tst_TC08Absent)
#include "tst_tc08absent.moc"

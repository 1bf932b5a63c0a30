#include "widgets/tcWholeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class tst_WholeFile : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> mFolder;

    QString path(const char* acName = "chart.csv") const { return mFolder->filePath(acName); }

    static QByteArray content(const QString& acPath)
    {
        QFile file(acPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
    }

    static void put(const QString& acPath, const QByteArray& acBytes)
    {
        QFile file(acPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(acBytes), qint64(acBytes.size()));
    }

private Q_SLOTS:
    void init() { mFolder = std::make_unique<QTemporaryDir>(); }

    void newFileIsThereAfterCommit()
    {
        tcWholeFile file(path());
        QVERIFY(file.open());
        QCOMPARE(file.device().write("new"), qint64(3));
        QVERIFY(!QFile::exists(path()));
        QVERIFY(file.commit());
        QCOMPARE(content(path()), QByteArray("new"));
    }

    void oldFileStandsUntilCommit()
    {
        put(path(), "old");
        tcWholeFile file(path());
        QVERIFY(file.open());
        QCOMPARE(file.device().write("new"), qint64(3));
        QCOMPARE(content(path()), QByteArray("old"));
        QVERIFY(file.commit());
        QCOMPARE(content(path()), QByteArray("new"));
    }

    void withoutCommitNothingIsLeftBehind()
    {
        put(path(), "old");
        {
            tcWholeFile file(path());
            QVERIFY(file.open());
            QCOMPARE(file.device().write("new"), qint64(3));
        }
        QCOMPARE(content(path()), QByteArray("old"));
        QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files), QStringList("chart.csv"));
    }

    void folderThatIsNotThere()
    {
        tcWholeFile file(mFolder->filePath("no/such/chart.csv"));
        QVERIFY(!file.open());
    }

    void folderInPlaceOfTheFile()
    {
        tcWholeFile file(mFolder->path());
        QVERIFY(!file.open());
    }

    void linkedFileIsWrittenWhereItIs()
    {
#ifdef Q_OS_WIN
        QSKIP("what Qt calls a link here is a shortcut, a file of its own");
#endif
        put(path("real.csv"), "old");
        QVERIFY(QFile::link(path("real.csv"), path("linked.csv")));
        tcWholeFile file(path("linked.csv"));
        QVERIFY(file.open());
        QCOMPARE(file.device().write("new"), qint64(3));
        QVERIFY(file.commit());
        QCOMPARE(content(path("real.csv")), QByteArray("new"));
        QVERIFY(QFileInfo(path("linked.csv")).isSymLink());
    }
};

QTEST_APPLESS_MAIN(tst_WholeFile)
#include "tst_wholefile.moc"

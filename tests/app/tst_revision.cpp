#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// What the build writes down of its revision, from a source archive, from git, and without
/// either.
class tst_Revision : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void subjectFromAnArchive_data() { subject_data(); }
    void subjectFromAnArchive();
    void subjectFromGit_data() { subject_data(); }
    void subjectFromGit();
    void neitherArchiveNorGit();
    void archiveThatWasNotFilledIn();
    void sameRevisionIsNotWrittenAnew();

private:
    static void subject_data();
    void archive(const QByteArray& acText) const;
    QByteArray header() const;
    QByteArray run(const QString& acProgram, const QStringList& acArguments) const;
    QString path(const char* acName) const { return mSource->filePath(acName); }

    std::unique_ptr<QTemporaryDir> mSource;
};

static const QByteArray cRevision = "0123456789abcdef0123456789abcdef01234567";

void tst_Revision::init()
{
    mSource = std::make_unique<QTemporaryDir>();
}

void tst_Revision::archive(const QByteArray& acText) const
{
    QVERIFY(QDir(mSource->path()).mkpath("app/logic"));
    QFile file(path("app/logic/Revision.archive"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(acText) == acText.size());
}

QByteArray tst_Revision::run(const QString& acProgram, const QStringList& acArguments) const
{
    QProcess process;
    process.setWorkingDirectory(mSource->path());
    process.start(acProgram, acArguments);
    process.waitForFinished(60000);
    return process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

QByteArray tst_Revision::header() const
{
    run(TARVIK_CMAKE,
        {"-DSOURCE_DIR=" + mSource->path(), "-DOUTPUT=" + path("Revision.h"), "-P",
         TARVIK_SOURCE_DIR "/cmake/GitRevision.cmake"});
    QFile file(path("Revision.h"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_Revision::subject_data()
{
    QTest::addColumn<QByteArray>("subject");
    QTest::newRow("plain") << QByteArray("Show the ports");
    QTest::newRow("marks that build scripts know")
        << QByteArray("Fix \"a;b\" [c \\n $HOME ${PATH} @D@ %1 (e)");
    QTest::newRow("beyond ASCII") << QByteArray("Gr\xC3\xBC\xC3\x9F"
                                                "e \xE2\x80\x94 end");
}

void tst_Revision::subjectFromAnArchive()
{
    QFETCH(QByteArray, subject);
    archive(cRevision + '\n' + subject + '\n');
    const QByteArray text = header();
    QVERIFY2(text.contains("#define TARVIK_REVISION \"" + cRevision + "\"\n"),
             text.constData());
    QVERIFY2(text.contains("R\"tarvik(" + subject + ")tarvik\"\n"), text.constData());
}

void tst_Revision::subjectFromGit()
{
    QFETCH(QByteArray, subject);
    const QStringList somebody{"-c", "user.name=Somebody", "-c",
                               "user.email=some@body.example"};
    if (run("git", {"init", "-q"}).isNull() && !QFile::exists(path(".git")))
        QSKIP("git is missing");
    run("git",
        somebody
            + QStringList{"commit", "-q", "--allow-empty", "-m", QString::fromUtf8(subject)});
    const QByteArray revision = run("git", {"rev-parse", "HEAD"}).trimmed();
    QCOMPARE(revision.size(), 40);
    const QByteArray text = header();
    QVERIFY2(text.contains("#define TARVIK_REVISION \"" + revision + "\"\n"), text.constData());
    QVERIFY2(text.contains("R\"tarvik(" + subject + ")tarvik\"\n"), text.constData());
}

void tst_Revision::neitherArchiveNorGit()
{
    const QByteArray text = header();
    QVERIFY2(text.contains('"' + QByteArray(40, '0') + '"'), text.constData());
    QVERIFY2(text.contains("no revision known"), text.constData());
}

void tst_Revision::archiveThatWasNotFilledIn()
{
    archive("$Format:%H$\n$Format:%s$\n");
    const QByteArray text = header();
    QVERIFY2(text.contains('"' + QByteArray(40, '0') + '"'), text.constData());
}

void tst_Revision::sameRevisionIsNotWrittenAnew()
{
    archive(cRevision + "\nsubject\n");
    QVERIFY(!header().isEmpty());
    QFile file(path("Revision.h"));
    QVERIFY(file.open(QIODevice::Append) && file.write("// still the same file\n") > 0);
    file.close();
    QVERIFY(header().endsWith("// still the same file\n"));
    archive(cRevision + "\nanother subject\n");
    QVERIFY(!header().contains("// still the same file\n"));
}

QTEST_GUILESS_MAIN(tst_Revision)
#include "tst_revision.moc"

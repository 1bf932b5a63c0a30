#include "camlink/logic/tcScriptFile.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class tst_ScriptFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_data();
    void bytes();
    void longestScript();
    void noScript_data();
    void noScript();

private:
    QString path(const char* acName) const { return mFolder.filePath(acName); }

    QTemporaryDir mFolder;
};

void tst_ScriptFile::bytes_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("as it is") << QByteArray("  <STOP>\n# \x01\xFF\n<STRT>")
                              << QByteArray("  <STOP>\n# \x01\xFF\n<STRT>");
    QTest::newRow("up to its first NUL")
        << QByteArray("<STOP>\n\0<RSET>\n\0", 16) << QByteArray("<STOP>\n");
    QTest::newRow("line ends of text")
        << QByteArray("<STOP>\r\n<STRT>\r\n") << QByteArray("<STOP>\n<STRT>\n");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
}

void tst_ScriptFile::bytes()
{
    QFETCH(QByteArray, written);
    QFile file(path("100%1 %s.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(written) == written.size());
    file.close();
    const auto script = tcScriptFile::read(file.fileName());
    QVERIFY(script);
    QTEST(*script, "sent");
}

void tst_ScriptFile::longestScript()
{
    QFile file(path("long.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(tcScriptFile::cMaxBytes));
    QCOMPARE(tcScriptFile::read(file.fileName()), QByteArray());
    QVERIFY(file.resize(tcScriptFile::cMaxBytes + 1));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("longer than 67108864 bytes.*long"));
    QVERIFY(!tcScriptFile::read(file.fileName()));
}

void tst_ScriptFile::noScript_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("why");
    QTest::newRow("absent") << path("absent.txt") << "(?!Unknown error).";
    QTest::newRow("a folder") << mFolder.path() << "not a regular file";
    QTest::newRow("no name") << QString() << "(?!Unknown error).";
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(path("pipe.txt").toLocal8Bit().constData(), 0600), 0);
    QTest::newRow("a pipe that nobody writes into") << path("pipe.txt") << "not a regular file";
    QTest::newRow("a device without an end") << QString("/dev/zero") << "not a regular file";
#endif
}

void tst_ScriptFile::noScript()
{
    QFETCH(QString, file);
    QFETCH(QString, why);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("^Script can't be read: .*\"" + why + "[^\"]*\"$"));
    QVERIFY(!tcScriptFile::read(file));
}

QTEST_GUILESS_MAIN(tst_ScriptFile)
#include "tst_scriptfile.moc"

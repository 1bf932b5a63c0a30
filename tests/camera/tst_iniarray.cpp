#include "camera/logic/tcIniArray.h"

#include <QTemporaryDir>
#include <QTest>

class tst_IniArray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyEntriesThatAreThere_data();
    void onlyEntriesThatAreThere();
};

void tst_IniArray::onlyEntriesThatAreThere_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<int>("size");
    QTest::addColumn<QVector<int>>("numbers");
    QTest::newRow("none") << QStringList() << 5 << QVector<int>();
    QTest::newRow("all") << QStringList({"1", "2"}) << 2 << QVector<int>({1, 2});
    QTest::newRow("by number, not by text")
        << QStringList({"10", "9", "1"}) << 10 << QVector<int>({1, 9, 10});
    QTest::newRow("beyond the size")
        << QStringList({"1", "2", "3"}) << 2 << QVector<int>({1, 2});
    QTest::newRow("absurd size") << QStringList({"2"}) << 2147483647 << QVector<int>({2});
    QTest::newRow("negative size") << QStringList({"1"}) << -3 << QVector<int>();
    QTest::newRow("no numbers") << QStringList({"x", "01", "-1", "0"}) << 9 << QVector<int>();
}

void tst_IniArray::onlyEntriesThatAreThere()
{
    QFETCH(QStringList, groups);
    QFETCH(int, size);
    QFETCH(QVector<int>, numbers);
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("array.ini"), QSettings::IniFormat);
    for (const QString& group : groups)
        settings.setValue("cmds/" + group + "/cmd", "x");
    settings.beginGroup("cmds");
    const std::vector<int> found = tcIniArray::entryNumbers(settings, size);
    QCOMPARE(QVector<int>(found.begin(), found.end()), numbers);
}

QTEST_GUILESS_MAIN(tst_IniArray)
#include "tst_iniarray.moc"

#include "sources/logic/tcPortEntry.h"

#include <QtTest>

class tst_PortEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void nameEndsBeforeTheFirstBracket_data();
    void nameEndsBeforeTheFirstBracket();
    void list_data();
    void list();
};

void tst_PortEntry::text_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("text");
    QTest::newRow("usual") << "COM3"
                           << "USB Serial Port"
                           << "COM3 [ USB Serial Port ]";
    QTest::newRow("no description") << "ttyS0"
                                    << ""
                                    << "ttyS0 [  ]";
    QTest::newRow("place marks") << "a%2"
                                 << "b%1"
                                 << "a%2 [ b%1 ]";
}

void tst_PortEntry::text()
{
    QFETCH(QString, name);
    QFETCH(QString, description);
    const QString text = tcPortEntry{name, description}.text();
    QTEST(text, "text");
    QCOMPARE(tcPortEntry::portName(text), name);
}

void tst_PortEntry::nameEndsBeforeTheFirstBracket_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("name");
    QTest::newRow("usual") << "COM3 [ Port ]"
                           << "COM3";
    QTest::newRow("brackets in the description") << "COM3 [ Port [ 2 ] ]"
                                                 << "COM3";
    QTest::newRow("a name alone") << "COM3"
                                  << "COM3";
    QTest::newRow("a path") << "/dev/pts/3 [ virtual ]"
                            << "/dev/pts/3";
    QTest::newRow("a bracket without blanks") << "COM[3] [ Port ]"
                                              << "COM[3]";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_PortEntry::nameEndsBeforeTheFirstBracket()
{
    QFETCH(QString, entry);
    QTEST(tcPortEntry::portName(entry), "name");
}

void tst_PortEntry::list_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("none") << "" << QStringList();
    QTest::newRow("separators alone") << " ; ;=description" << QStringList();
    QTest::newRow("one") << "/dev/pts/3=a thermometer"
                         << QStringList{"/dev/pts/3 [ a thermometer ]"};
    QTest::newRow("name alone") << "COM9" << QStringList{"COM9 [  ]"};
    QTest::newRow("two, in order")
        << "b=second; a = first ;" << QStringList{"b [ second ]", "a [ first ]"};
    QTest::newRow("equals sign in the description") << "a=b=c" << QStringList{"a [ b=c ]"};
}

void tst_PortEntry::list()
{
    QFETCH(QString, text);
    QStringList entries;
    for (const tcPortEntry& entry : tcPortEntry::parseList(text))
        entries.append(entry.text());
    QTEST(entries, "entries");
}

QTEST_APPLESS_MAIN(tst_PortEntry)
#include "tst_portentry.moc"

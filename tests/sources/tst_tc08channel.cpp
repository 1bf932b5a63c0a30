#include "sources/logic/tcTC08Channel.h"

#include <QtTest>

class tst_TC08Channel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inputsAreOneToEight();
    void number_data();
    void number();
    void eachChannelHasItsBit();
};

void tst_TC08Channel::inputsAreOneToEight()
{
    const QStringList names{"CH1", "CH2", "CH3", "CH4", "CH5", "CH6", "CH7", "CH8"};
    QCOMPARE(tcTC08Channel::inputNames(), names);
    QCOMPARE(tcTC08Channel::cCount, 9);
}

void tst_TC08Channel::number_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isInput");
    QTest::newRow("first") << "CH1" << 1 << true;
    QTest::newRow("third") << "CH3" << 3 << true;
    QTest::newRow("last") << "CH8" << 8 << true;
    QTest::newRow("cold junction is no input") << "CH0" << 0 << false;
    QTest::newRow("beyond") << "CH9" << 9 << false;
    QTest::newRow("two digits") << "CH12" << 12 << false;
    QTest::newRow("negative") << "CH-1" << -1 << false;
    QTest::newRow("any two characters") << "xx5" << 5 << true;
    QTest::newRow("no number") << "CHx" << 0 << false;
    QTest::newRow("two characters") << "CH" << 0 << false;
    QTest::newRow("one character") << "C" << 0 << false;
    QTest::newRow("empty") << "" << 0 << false;
    QTest::newRow("too large for a number") << "CH99999999999" << 0 << false;
}

void tst_TC08Channel::number()
{
    QFETCH(QString, name);
    QFETCH(bool, isInput);
    const int number = tcTC08Channel::number(name);
    QTEST(number, "number");
    QCOMPARE(tcTC08Channel::isInput(number), isInput);
}

void tst_TC08Channel::eachChannelHasItsBit()
{
    for (int flags = 0; flags < 0x200; ++flags) {
        for (int channel = 0; channel < tcTC08Channel::cCount; ++channel)
            QCOMPARE(tcTC08Channel::overflowed(qint16(flags), channel),
                     (flags >> channel & 1) == 1);
    }
}

QTEST_APPLESS_MAIN(tst_TC08Channel)
#include "tst_tc08channel.moc"

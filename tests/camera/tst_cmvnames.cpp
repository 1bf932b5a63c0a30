#include "camera/logic/tcCmvNames.h"

#include <QTest>

class tst_CmvNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void allTypesAreHere();
};

void tst_CmvNames::names_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("array");
    QTest::newRow("Cmv300") << 0 << "Vexa-K10"
                            << "Cmv300";
    QTest::newRow("Cmv2000") << 1 << "Vexa-K20"
                             << "Cmv2000";
    QTest::newRow("Cmv2000TEC") << 2 << "Vexa-K20 (Temp controlled)"
                                << "Cmv2000TEC";
    QTest::newRow("Cmv4000") << 3 << "Vexa-K30"
                             << "Cmv4000";
    QTest::newRow("Cmv8000") << 4 << "Vexa-K40"
                             << "Cmv8000";
    QTest::newRow("Cmv12000") << 5 << "Vexa-K50"
                              << "Cmv12000";
    QTest::newRow("no sensor type, as designed misspelled")
        << 6 << "ERROR! unkown CMV Type" << QString();
    QTest::newRow("negative") << -1 << "ERROR! unkown CMV Type" << QString();
}

void tst_CmvNames::names()
{
    QFETCH(int, type);
    QTEST(tcCmvNames::displayName(static_cast<teCmvType>(type)), "display");
    QTEST(tcCmvNames::presetArray(static_cast<teCmvType>(type)), "array");
}

void tst_CmvNames::allTypesAreHere()
{
    QCOMPARE(QMetaEnum::fromType<teCmvType>().keyCount(), 6);
}

QTEST_GUILESS_MAIN(tst_CmvNames)
#include "tst_cmvnames.moc"

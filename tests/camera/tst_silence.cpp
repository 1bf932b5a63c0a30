#include "camera/logic/tcSilence.h"

#include <QTest>

class tst_Silence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeSeconds_data();
    void wholeSeconds();
    void neverBeforeTheFirstData();
};

void tst_Silence::wholeSeconds_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<bool>("silent");
    QTest::newRow("just now") << qint64(0) << false;
    QTest::newRow("5.0 s") << qint64(5000) << false;
    QTest::newRow("5.9 s: five whole seconds") << qint64(5900) << false;
    QTest::newRow("5.999 s") << qint64(5999) << false;
    QTest::newRow("6 s") << qint64(6000) << true;
    QTest::newRow("a day") << qint64(86400000) << true;
    QTest::newRow("the clock was set back") << qint64(-3600000) << false;
}

void tst_Silence::wholeSeconds()
{
    QFETCH(qint64, ms);
    const QDateTime last(QDate(2024, 3, 31), QTime(1, 59, 57)); // over a clock change
    QTEST(tcSilence::isSilent(last, last.addMSecs(ms)), "silent");
}

void tst_Silence::neverBeforeTheFirstData()
{
    QVERIFY(!tcSilence::isSilent({}, QDateTime::currentDateTime()));
}

QTEST_GUILESS_MAIN(tst_Silence)
#include "tst_silence.moc"

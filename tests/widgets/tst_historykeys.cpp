#include "widgets/tcHistoryKeys.h"

#include <QLineEdit>
#include <QTest>

class tst_HistoryKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void upGoesBackDownComesForward();
    void draftIsKept();
    void typingStartsAnew();
    void returnStartsAnew();
    void escapeClears();
    void emptyHistory();
    void historyGrowsMeanwhile();
    void shortcutsPassThrough();
    void hundredThousandEntries();

private:
    void press(Qt::Key aeKey, int aTimes = 1);

    QStringList mHistory;
    QLineEdit mLine;
    tcHistoryKeys mKeys{&mLine, [this] { return mHistory; }};
};

void tst_HistoryKeys::init()
{
    mHistory = QStringList{"newest", "older", "oldest"};
    QTest::keyClick(&mLine, Qt::Key_Return);
    mLine.clear();
}

void tst_HistoryKeys::press(Qt::Key aeKey, int aTimes)
{
    for (int time = 0; time < aTimes; ++time)
        QTest::keyClick(&mLine, aeKey);
}

void tst_HistoryKeys::upGoesBackDownComesForward()
{
    press(Qt::Key_Up);
    QCOMPARE(mLine.text(), QString("newest"));
    press(Qt::Key_Up, 5);
    QCOMPARE(mLine.text(), QString("oldest"));
    press(Qt::Key_Down);
    QCOMPARE(mLine.text(), QString("older"));
    press(Qt::Key_Down, 5);
    QCOMPARE(mLine.text(), QString());
}

void tst_HistoryKeys::draftIsKept()
{
    QTest::keyClicks(&mLine, "SEX");
    press(Qt::Key_Up, 2);
    press(Qt::Key_Down, 2);
    QCOMPARE(mLine.text(), QString("SEX"));
}

void tst_HistoryKeys::typingStartsAnew()
{
    press(Qt::Key_Up, 2);
    QTest::keyClicks(&mLine, "!");
    QCOMPARE(mLine.text(), QString("older!"));
    press(Qt::Key_Up);
    QCOMPARE(mLine.text(), QString("newest"));
}

void tst_HistoryKeys::returnStartsAnew()
{
    press(Qt::Key_Up, 2);
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    QCOMPARE(mLine.text(), QString("newest"));
}

void tst_HistoryKeys::escapeClears()
{
    QTest::keyClicks(&mLine, "SEXP");
    press(Qt::Key_Escape);
    QCOMPARE(mLine.text(), QString());
}

void tst_HistoryKeys::emptyHistory()
{
    mHistory.clear();
    QTest::keyClicks(&mLine, "x");
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    QCOMPARE(mLine.text(), QString("x"));
}

void tst_HistoryKeys::historyGrowsMeanwhile()
{
    press(Qt::Key_Up, 3);
    mHistory = QStringList{"only"}; // cleared and begun anew behind the line's back
    press(Qt::Key_Up);
    QCOMPARE(mLine.text(), QString("oldest"));
    press(Qt::Key_Down);
    QCOMPARE(mLine.text(), QString("only"));
}

void tst_HistoryKeys::shortcutsPassThrough()
{
    QTest::keyClicks(&mLine, "x");
    QTest::keyClick(&mLine, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(mLine.text(), QString("x"));
}

void tst_HistoryKeys::hundredThousandEntries()
{
    mHistory.clear();
    for (int index = 0; index < 100000; ++index)
        mHistory.append(QString::number(index));
    press(Qt::Key_Up, 100);
    QCOMPARE(mLine.text(), QString("99"));
}

QTEST_MAIN(tst_HistoryKeys)
#include "tst_historykeys.moc"

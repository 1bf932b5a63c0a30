#include "stripchart/tcStatisticsDialog.h"
#include "tests/stripchart/tcChartProbe.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QtTest>

namespace
{
/// Eleven readings 0, 1, ... 10, one a second, which fill the times in view.
struct tcSummedChart : tcChartProbe
{
    tcSummedChart()
    {
        chart->stopUpdates();
        a = curve("A");
        key = chart->addCurve(a.get());
        for (int i = 0; i <= 10; ++i)
            a->addSample(cNow - 10000 + i * 1000, i);
        show();
        chart->setXRange(cNow - 10000.0, cNow);
        plot->replot();
    }
    tcStatisticsDialog* dialog() const { return chart->findChild<tcStatisticsDialog*>(); }
    tcStatisticsDialog* open() const
    {
        own("Statistics...")->trigger();
        dialog()->refresh();
        return dialog();
    }
    QTableWidget* table() const { return dialog()->findChild<QTableWidget*>(); }
    QComboBox* range() const { return dialog()->findChild<QComboBox*>(); }
    QStringList row(int anRow) const
    {
        QStringList texts;
        for (int column = 0; column < table()->columnCount(); ++column)
            texts.append(table()->item(anRow, column)->text());
        return texts;
    }

    std::unique_ptr<tcStripCurve> a;
    QUuid key;
};

const QString cNone = QStringLiteral("\u2013");
} // namespace

class tst_StatisticsDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void visibleRange();
    void timesOfSeveralDaysTellTheDay();
    void onlyWhatIsInView();
    void betweenTheCursors();
    void cursorsSwitchedOff();
    void followsTheCursors();
    void hiddenCurvesAreLeftOut();
    void curveWithoutReadings();
    void curvesComeAndGo();
    void noCurves();
    void copiedAsText();
    void titleWithTab();
    void openedOnceOnly();
    void notModal();
    void worksItselfOutAgain();
    void restsWhileHidden();
    void chartDestroyedWhileItIsOpen();
};

void tst_StatisticsDialog::visibleRange()
{
    tcSummedChart probe;
    probe.open();
    QCOMPARE(probe.table()->rowCount(), 1);
    QCOMPARE(probe.row(0),
             QStringList({"A", "11", "0.000", "10.000", "5.000", "3.317", "+60.000"}));
}

void tst_StatisticsDialog::timesOfSeveralDaysTellTheDay()
{
    tcSummedChart probe;
    const auto* times = probe.open()->findChild<QLabel*>();
    QCOMPARE(times->text(), QString("23:13:10.000 to 23:13:20.000 (10.000 s)"));
    constexpr double cDayMs = 24.0 * 3600 * 1000;
    probe.chart->setXRange(probe.cNow - cDayMs, probe.cNow);
    probe.dialog()->refresh();
    QVERIFY2(times->text().startsWith("2023-11-13 23:13:20.000 to 2023-11-14 23:13:20.000 ("),
             qPrintable(times->text()));
}

void tst_StatisticsDialog::onlyWhatIsInView()
{
    tcSummedChart probe;
    probe.open();
    probe.chart->setXRange(probe.cNow - 4000.0, probe.cNow - 2000.0);
    probe.dialog()->refresh();
    QCOMPARE(probe.row(0).mid(0, 5), QStringList({"A", "3", "6.000", "8.000", "7.000"}));
}

void tst_StatisticsDialog::betweenTheCursors()
{
    tcSummedChart probe;
    probe.own("Measuring Cursors")->trigger();
    probe.open();
    QCOMPARE(probe.range()->currentText(), QStringLiteral("Between the cursors"));
    QCOMPARE(probe.row(0).mid(0, 5), QStringList({"A", "3", "4.000", "6.000", "5.000"}));
    probe.range()->setCurrentIndex(0);
    probe.dialog()->refresh();
    QCOMPARE(probe.row(0).at(1), QStringLiteral("11"));
}

void tst_StatisticsDialog::cursorsSwitchedOff()
{
    tcSummedChart probe;
    probe.own("Measuring Cursors")->trigger();
    probe.open();
    probe.own("Measuring Cursors")->trigger();
    QCOMPARE(probe.range()->currentText(), QStringLiteral("Visible range"));
    const auto* model = qobject_cast<QStandardItemModel*>(probe.range()->model());
    QVERIFY(!model->item(1)->isEnabled());
}

void tst_StatisticsDialog::followsTheCursors()
{
    tcSummedChart probe;
    probe.open();
    QCOMPARE(probe.row(0).at(1), QStringLiteral("11"));
    probe.own("Measuring Cursors")->trigger();
    const auto* model = qobject_cast<QStandardItemModel*>(probe.range()->model());
    QTRY_VERIFY(model->item(1)->isEnabled());
}

void tst_StatisticsDialog::hiddenCurvesAreLeftOut()
{
    tcSummedChart probe;
    const auto b = probe.curve("B", 1);
    probe.chart->addCurve(b.get(), probe.key);
    probe.open();
    QCOMPARE(probe.table()->rowCount(), 2);
    probe.a->setVisible(false);
    probe.dialog()->refresh();
    QCOMPARE(probe.table()->rowCount(), 1);
    QCOMPARE(probe.row(0).at(0), QStringLiteral("B"));
}

void tst_StatisticsDialog::curveWithoutReadings()
{
    tcSummedChart probe;
    probe.a->clear();
    probe.open();
    QCOMPARE(probe.row(0), QStringList({"A", "0", cNone, cNone, cNone, cNone, cNone}));
}

void tst_StatisticsDialog::curvesComeAndGo()
{
    tcSummedChart probe;
    probe.open();
    probe.a.reset();
    probe.dialog()->refresh();
    QCOMPARE(probe.table()->rowCount(), 0);
    const auto b = probe.curve("B", 1);
    probe.chart->addCurve(b.get());
    probe.dialog()->refresh();
    QCOMPARE(probe.row(0).at(0), QStringLiteral("B"));
}

void tst_StatisticsDialog::noCurves()
{
    tcSummedChart probe;
    probe.a.reset();
    probe.open();
    QCOMPARE(probe.table()->rowCount(), 0);
    QCOMPARE(probe.dialog()->text().count('\n'), 1);
}

void tst_StatisticsDialog::copiedAsText()
{
    tcSummedChart probe;
    probe.open();
    for (QPushButton* button : probe.dialog()->findChildren<QPushButton*>())
        if (button->text() == QLatin1String("Copy"))
            button->click();
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("Curve\tCount\tSmallest\tLargest\tMean\tStd. deviation\tSlope/min\n"
                            "A\t11\t0.000\t10.000\t5.000\t3.317\t+60.000\n"));
}

void tst_StatisticsDialog::titleWithTab()
{
    tcSummedChart probe;
    probe.a->setTitle(QStringLiteral("cold\tfinger"));
    probe.open();
    QVERIFY(probe.dialog()->text().contains(QLatin1String("\ncold finger\t11\t")));
}

void tst_StatisticsDialog::openedOnceOnly()
{
    tcSummedChart probe;
    const QPointer<tcStatisticsDialog> first = probe.open();
    QCOMPARE(probe.open(), first.data());
    first->close();
    QTRY_VERIFY(!first);
    QVERIFY(probe.open());
}

void tst_StatisticsDialog::notModal()
{
    tcSummedChart probe;
    QVERIFY(!probe.open()->isModal());
}

void tst_StatisticsDialog::worksItselfOutAgain()
{
    tcSummedChart probe;
    probe.open();
    probe.a->addSample(probe.cNow - 500, 12.0);
    QTRY_COMPARE(probe.row(0).at(1), QStringLiteral("12"));
}

void tst_StatisticsDialog::restsWhileHidden()
{
    tcSummedChart probe;
    const auto* timer = probe.open()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive());
    probe.dialog()->hide();
    QVERIFY(!timer->isActive());
}

void tst_StatisticsDialog::chartDestroyedWhileItIsOpen()
{
    tcSummedChart probe;
    probe.own("Measuring Cursors")->trigger();
    const QPointer<tcStatisticsDialog> dialog = probe.open();
    probe.chart.reset();
    QVERIFY(!dialog);
}

QTEST_MAIN(tst_StatisticsDialog)
#include "tst_statisticsdialog.moc"

#include "stripchart/tcMarkerInfo.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcStripMarker.h"
#include "tests/stripchart/tcMarkedChart.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPen>
#include <QtTest>
#include <qwt_symbol.h>

#include <cmath>

namespace
{
constexpr double cT = tcMarkedChart::cT;

tcStripMarker* deepest(tcMarkerTable& arTable)
{
    return arTable.markers().isEmpty() ? nullptr : arTable.markers().last();
}
} // namespace

class tst_ChartMarkers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setApplicationDisplayName("Vexa Tarvik"); }
    void markerSnapsToANearSample_data();
    void markerSnapsToANearSample();
    void markerSnapsBelowTenPixels();
    void markerSnapsToTheNearestOfSeveral_data();
    void markerSnapsToTheNearestOfSeveral();
    void markerSnapsOnTheRightAxis();
    void markerIgnoresHiddenCurves();
    void markerLook();
    void textQuestion();
    void cancelledTextLeavesTheMarker();
    void chartDestroyedWhileAskingForText();
    void curveDestroyedWhileAskingForText();
    void markerDeletedWhileAskingForText();
    void markerOfADestroyedCurveStays();
    void orderAndUnloggedMarkers();
    void hitTest_data();
    void hitTest();
    void hitTestTakesTheSizeOfTheSymbol_data();
    void hitTestTakesTheSizeOfTheSymbol();
    void hitTestOfOverlappingMarkersTakesTheFirstKey();
    void deleteMenu();
    void lineMarker();
    void lineMarkerOfUnknownIdentifier();
    void markerListDialog();
    void markerListFollowsItsMarkers();
    void markerListDeletesByKeyboard();
    void markerListKeepsLines();
    void markerListSurvivesTheChart();
    void markerChangedOfUnknownNumber();
    void tenThousandMarkers();
};

void tst_ChartMarkers::markerSnapsToANearSample_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("snaps");
    QTest::newRow("on it") << QPoint(0, 0) << true;
    QTest::newRow("8 pixels beside") << QPoint(8, 0) << true;
    QTest::newRow("8 pixels below") << QPoint(0, 8) << true;
    QTest::newRow("8 and 8 pixels") << QPoint(8, 8) << false;
    QTest::newRow("12 pixels") << QPoint(12, 0) << false;
}

void tst_ChartMarkers::markerSnapsToANearSample()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, snaps);
    tcMarkedChart probe;
    const QPoint pos = probe.samplePixel() + offset;
    probe.chart->markerRequest(pos);
    const tcStripMarker* marker = probe.only();
    QCOMPARE(marker->curve(), snaps ? probe.a.get() : nullptr);
    if (snaps)
        QCOMPARE(marker->value(), QPointF(cT - 4000.0, 40.0));
    else
        QCOMPARE(marker->value(),
                 QPointF(probe.plot->invTransform(QwtPlot::xBottom, pos.x()),
                         probe.plot->invTransform(QwtPlot::yLeft, pos.y())));
    const QColor color = snaps ? probe.a->pen().color() : QColor(Qt::white);
    QCOMPARE(marker->symbol()->pen().color(), color);
    QCOMPARE(marker->symbol()->brush(), QBrush(color));
    QCOMPARE(marker->label().color(), color);
    QCOMPARE(probe.a->markers().size(), snaps ? 1 : 0);
}

void tst_ChartMarkers::markerSnapsBelowTenPixels()
{
    tcMarkedChart probe;
    const QPointF sample(probe.plot->transform(QwtPlot::xBottom, cT - 4000.0),
                         probe.plot->transform(QwtPlot::yLeft, 40.0));
    for (int dx = -11; dx <= 11; ++dx)
        for (const int dy : {-10, -9, 0, 9, 10}) {
            const QPoint pos = sample.toPoint() + QPoint(dx, dy);
            const bool near = std::hypot(sample.x() - pos.x(), sample.y() - pos.y()) < 10.0;
            const QUuid key = probe.chart->markers().place(pos);
            QCOMPARE(probe.chart->marker(key)->curve() != nullptr, near);
        }
}

void tst_ChartMarkers::markerSnapsToTheNearestOfSeveral_data()
{
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("nearest");
    QTest::newRow("the first sample") << 1 << 0;
    QTest::newRow("the second one") << 3 << 1;
    QTest::newRow("that of the other curve") << 5 << 2;
}

/// Three samples side by side, two pixels apart, of two curves.
void tst_ChartMarkers::markerSnapsToTheNearestOfSeveral()
{
    QFETCH(int, right);
    QFETCH(int, nearest);
    tcMarkedChart probe;
    const auto b = probe.curve("B", 1);
    probe.chart->addCurve(b.get(), probe.key);
    QCoreApplication::processEvents(); // the legend has grown
    const QPoint first = probe.samplePixel();
    const auto timeAt = [&](int anRight) {
        return qint64(probe.plot->invTransform(QwtPlot::xBottom, first.x() + anRight));
    };
    probe.a->clear();
    probe.a->addSample(timeAt(1), 40.0);
    probe.a->addSample(timeAt(3), 40.0);
    b->addSample(timeAt(5), 40.0);
    probe.chart->markerRequest(first + QPoint(right, 0));
    const tcStripCurve* curve = nearest == 2 ? b.get() : probe.a.get();
    QCOMPARE(probe.only()->curve(), curve);
    QCOMPARE(probe.only()->value(), curve->sample(nearest == 1 ? 1 : 0));
}

void tst_ChartMarkers::markerSnapsOnTheRightAxis()
{
    tcMarkedChart probe;
    probe.chart->setYRange(1, 0.0, 50.0);
    probe.chart->assignAxis(probe.a.get(), 1);
    QCoreApplication::processEvents();
    probe.plot->replot();
    const QPoint pos(qRound(probe.plot->transform(QwtPlot::xBottom, cT - 4000.0)),
                     qRound(probe.plot->transform(QwtPlot::yRight, 40.0)));
    probe.chart->markerRequest(pos);
    QCOMPARE(probe.only()->curve(), probe.a.get());
    QCOMPARE(probe.only()->yAxis(), int(QwtPlot::yRight));
    QCOMPARE(probe.chart->markers().markerAt(pos), probe.only());
}

void tst_ChartMarkers::markerIgnoresHiddenCurves()
{
    tcMarkedChart probe;
    probe.a->setVisible(false);
    probe.chart->markerRequest(probe.samplePixel());
    QVERIFY(!probe.only()->curve());
}

void tst_ChartMarkers::markerLook()
{
    tcMarkedChart probe;
    probe.dialogs.textAnswer = QString("hot");
    probe.chart->markerRequest(probe.samplePixel());
    const tcStripMarker* marker = probe.only();
    QVERIFY(dynamic_cast<const tcStripPointMarker*>(marker));
    QCOMPARE(marker->name(), QString());
    QCOMPARE(marker->symbol()->size(), QSize(9, 9));
    QCOMPARE(marker->label().text(), QString("hot"));
    QCOMPARE(marker->label().font().family(), QString("Helvetica"));
    QCOMPARE(marker->label().font().pointSize(), 10);
    QCOMPARE(marker->labelAlignment(), Qt::AlignRight | Qt::AlignTop);
}

void tst_ChartMarkers::textQuestion()
{
    tcMarkedChart probe;
    QString labelWhileOpen;
    probe.dialogs.whileOpen = [&] { labelWhileOpen = probe.only()->label().text(); };
    probe.chart->markerRequest(probe.samplePixel());
    QCOMPARE(probe.dialogs.asked.size(), 1);
    QCOMPARE(probe.dialogs.asked.first().kind, QString("text"));
    QCOMPARE(probe.dialogs.asked.first().title, QString("Vexa Tarvik"));
    QCOMPARE(probe.dialogs.asked.first().text, QString("Marker Text:"));
    QCOMPARE(labelWhileOpen, QString(" 1699999996000.000,40.000"));
}

void tst_ChartMarkers::cancelledTextLeavesTheMarker()
{
    tcMarkedChart probe;
    probe.chart->markerRequest(probe.samplePixel());
    QCOMPARE(probe.chart->markers().markers().size(), 1);
    QCOMPARE(probe.only()->label().text(), QString());
}

void tst_ChartMarkers::chartDestroyedWhileAskingForText()
{
    tcMarkedChart probe;
    probe.dialogs.textAnswer = QString("late");
    probe.dialogs.whileOpen = [&] { probe.chart.reset(); };
    probe.chart->markerRequest(probe.samplePixel());
    QVERIFY(!probe.chart);
    QVERIFY(probe.a->markers().isEmpty());
}

void tst_ChartMarkers::curveDestroyedWhileAskingForText()
{
    tcMarkedChart probe;
    probe.dialogs.textAnswer = QString("late");
    probe.dialogs.whileOpen = [&] { probe.a.reset(); };
    probe.chart->markerRequest(probe.samplePixel());
    QCOMPARE(probe.only()->label().text(), QString("late"));
    QCOMPARE(probe.only()->label().color(), QColor(Qt::white));
    QVERIFY(!probe.only()->curve());
}

void tst_ChartMarkers::markerDeletedWhileAskingForText()
{
    tcMarkedChart probe;
    probe.dialogs.textAnswer = QString("late");
    probe.dialogs.whileOpen
        = [&] { probe.chart->markers().remove(probe.chart->markers().order().first()); };
    probe.chart->markerRequest(probe.samplePixel());
    QVERIFY(probe.chart->markers().markers().isEmpty());
}

void tst_ChartMarkers::markerOfADestroyedCurveStays()
{
    tcMarkedChart probe;
    probe.chart->markerRequest(probe.samplePixel());
    probe.a.reset();
    QCOMPARE(probe.chart->markers().markers().size(), 1);
    QVERIFY(!probe.only()->curve());
    QCOMPARE(probe.only()->yValue(), 0.0);
    QVERIFY(!probe.chart->grab().isNull());
}

void tst_ChartMarkers::orderAndUnloggedMarkers()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    const QUuid first = table.place({30, 30});
    const QUuid second = table.place({80, 30});
    QCOMPARE(table.order(), (QVector<QUuid>{first, second}));
    QCOMPARE(table.unlogged(), (QVector<QUuid>{first, second}));
    // A log that writes while the question stands open writes the marker again with its text.
    probe.dialogs.whileOpen = [&] { table.setLogged(); };
    probe.chart->markerRequest({130, 30});
    QCOMPARE(table.unlogged(), QVector<QUuid>{table.order().last()});
    QCOMPARE(table.order().size(), 3);
    table.remove(first);
    QCOMPARE(table.order().size(), 2);
    QCOMPARE(table.order().first(), second);
}

void tst_ChartMarkers::hitTest_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("hit");
    QTest::newRow("centre") << QPoint(0, 0) << true;
    QTest::newRow("4 right") << QPoint(4, 0) << true;
    QTest::newRow("4 up") << QPoint(0, -4) << true;
    QTest::newRow("corner") << QPoint(-4, -4) << true;
    QTest::newRow("6 right") << QPoint(6, 0) << false;
    QTest::newRow("6 down") << QPoint(0, 6) << false;
}

void tst_ChartMarkers::hitTest()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, hit);
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    const QUuid key = table.place({200, 100});
    const tcStripMarker& marker = *table.find(key);
    const QPoint centre = probe.pixel(marker.xValue(), marker.yValue());
    QCOMPARE(table.markerAt(centre + offset), hit ? &marker : nullptr);
    QCOMPARE(table.keyAt(centre + offset), hit ? key : QUuid());
    table.find(key)->setVisible(false); // as with its curve
    QCOMPARE(table.keyAt(centre + offset), hit ? key : QUuid());
}

void tst_ChartMarkers::hitTestTakesTheSizeOfTheSymbol_data()
{
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("reach");
    QTest::newRow("large") << 21 << 10;
    QTest::newRow("small") << 5 << 2;
    QTest::newRow("none, as that of a point") << 0 << 4;
}

void tst_ChartMarkers::hitTestTakesTheSizeOfTheSymbol()
{
    QFETCH(int, pixels);
    QFETCH(int, reach);
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    const QPoint centre(200, 100);
    auto marker = std::make_unique<tcStripPointMarker>(QString());
    marker->setValue(probe.plot->invTransform(QwtPlot::xBottom, centre.x()),
                     probe.plot->invTransform(QwtPlot::yLeft, centre.y()));
    if (pixels > 0)
        marker->setSymbol(
            new QwtSymbol(QwtSymbol::Rect, Qt::red, QPen(Qt::red), QSize(pixels, pixels)));
    const QUuid key = table.add(std::move(marker));
    for (const QPoint& way : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
        QCOMPARE(table.keyAt(centre + way * reach), key);
        QCOMPARE(table.keyAt(centre + way * (reach + 1)), QUuid());
    }
}

void tst_ChartMarkers::hitTestOfOverlappingMarkersTakesTheFirstKey()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    table.place({200, 100});
    table.place({200, 100});
    QCOMPARE(table.markerAt({200, 100}), table.markers().first());
    QVERIFY(table.markerAt({200, 100}) != deepest(table));
}

void tst_ChartMarkers::deleteMenu()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    probe.dialogs.textAnswer = QString("hot & %1");
    probe.chart->markerRequest({200, 100});
    const auto menu = table.menuFor(table.order().first());
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QString("Delete Marker \"hot && %1\""));
    menu->actions().first()->trigger();
    QVERIFY(table.markers().isEmpty());
    QVERIFY(table.order().isEmpty());
    QVERIFY(probe.plot->itemList(QwtPlotItem::Rtti_PlotMarker).size() == 2); // min and max
    menu->actions().first()->trigger();
    QVERIFY(table.menuFor(QUuid::createUuid())->isEmpty());
}

void tst_ChartMarkers::lineMarker()
{
    tcMarkedChart probe;
    const QUuid id = probe.chart->addLineMarker("Set Point", 25.0);
    tcStripMarker* line = probe.chart->marker(id);
    QVERIFY(line);
    QCOMPARE(probe.chart->markers().markers().value(id), line);
    QCOMPARE(line->name(), QString("Set Point"));
    QCOMPARE(line->lineStyle(), QwtPlotMarker::HLine);
    QCOMPARE(line->label().text(), QString("Set Point 25.000"));
    QVERIFY(probe.chart->setLineMarker(id, 18.25, QPen(Qt::red, 0.0, Qt::DashLine)));
    QCOMPARE(line->yValue(), 18.25);
    QCOMPARE(line->linePen().color(), QColor(Qt::red));
    QCOMPARE(line->label().text(), QString("Set Point 18.250"));
}

void tst_ChartMarkers::lineMarkerOfUnknownIdentifier()
{
    tcMarkedChart probe;
    QVERIFY(!probe.chart->setLineMarker(QUuid::createUuid(), 1.0, QPen()));
    QVERIFY(!probe.chart->marker(QUuid()));
}

void tst_ChartMarkers::markerListDialog()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    probe.dialogs.textAnswer = QString("hot");
    probe.chart->markerRequest(probe.samplePixel());
    table.place({30, 30});
    probe.action("actionMarkers")->trigger();
    auto* dialog = probe.child<tcMarkerInfo>("tcMarkerInfo");
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    auto* rows = dialog->findChild<QFormLayout*>("formLayout");
    QCOMPARE(rows->rowCount(), 2);
    QSignalSpy reported(dialog, &tcMarkerInfo::markerChanged);
    const QList<QUuid> keys = table.markers().keys();
    for (int row = 0; row < 2; ++row) {
        const tcStripMarker& marker = *table.find(keys.at(row));
        auto* edit
            = qobject_cast<QLineEdit*>(rows->itemAt(row, QFormLayout::FieldRole)->widget());
        auto* label = qobject_cast<QLabel*>(rows->labelForField(edit));
        QCOMPARE(edit->text(), marker.label().text());
        QCOMPARE(edit->cursorPosition(), 0); // a long text shows its start
        if (marker.curve())
            QCOMPARE(label->text(), QString("at 23:13:16.000,40.000"));
        const QwtText before = marker.label();
        edit->setText(QString("text %1").arg(row));
        QCOMPARE(marker.label().text(), QString("text %1").arg(row));
        QCOMPARE(marker.label().color(), before.color());
        QCOMPARE(marker.label().font(), before.font());
        QCOMPARE(reported.size(), row + 1);
        QCOMPARE(reported.last().first().toInt(), table.order().indexOf(keys.at(row)));
    }
    probe.action("actionMarkers")->trigger();
    QCOMPARE(probe.chart->findChildren<tcMarkerInfo*>().size(), 1);
}

void tst_ChartMarkers::markerListFollowsItsMarkers()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    const QUuid first = table.place({30, 30});
    probe.action("actionMarkers")->trigger();
    auto* rows = probe.child<QFormLayout>("formLayout");
    const QUuid second = table.place({90, 30});
    QCOMPARE(rows->rowCount(), 2);
    table.remove(first);
    QCOMPARE(rows->rowCount(), 1);
    auto* edit = qobject_cast<QLineEdit*>(rows->itemAt(0, QFormLayout::FieldRole)->widget());
    table.setText(second, "renamed");
    QCOMPARE(edit->text(), QString("renamed"));
    edit->setText("again");
    QCOMPARE(table.find(second)->label().text(), QString("again"));
}

void tst_ChartMarkers::markerListDeletesByKeyboard()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    const QUuid marker = table.place({30, 30});
    table.setText(marker, "hot");
    probe.action("actionMarkers")->trigger();
    auto* dialog = probe.child<tcMarkerInfo>("tcMarkerInfo");
    auto* edit = dialog->findChild<QLineEdit*>();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QContextMenuEvent key(QContextMenuEvent::Keyboard, edit->rect().center(),
                          edit->mapToGlobal(edit->rect().center()));
    QApplication::sendEvent(edit, &key);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(menu->actions().size() > 5); // after what every such box offers
    QCOMPARE(menu->actions().last()->text(), QString("Delete Marker \"hot\""));
    QTest::keyClick(menu, Qt::Key_Up);
    QTest::keyClick(menu, Qt::Key_Return);
    QVERIFY(table.markers().isEmpty());
    QTRY_VERIFY(dialog->findChildren<QLineEdit*>().isEmpty());
    QTRY_VERIFY(dialog->findChildren<QMenu*>().isEmpty());
}

void tst_ChartMarkers::markerListKeepsLines()
{
    tcMarkedChart probe;
    probe.chart->addLineMarker("Set Point", 25.0);
    probe.action("actionMarkers")->trigger();
    auto* edit = probe.child<tcMarkerInfo>("tcMarkerInfo")->findChild<QLineEdit*>();
    // Which the mouse can't delete either: it follows the camera.
    QCOMPARE(edit->contextMenuPolicy(), Qt::DefaultContextMenu);
}

void tst_ChartMarkers::markerListSurvivesTheChart()
{
    tcMarkedChart probe;
    probe.chart->markers().place({30, 30});
    probe.action("actionMarkers")->trigger();
    probe.chart.reset();
    QVERIFY(!probe.a->plot());
}

void tst_ChartMarkers::markerChangedOfUnknownNumber()
{
    tcMarkedChart probe;
    probe.settle();
    tcPaintCounter counter(probe.plot->canvas());
    probe.chart->markerChanged(-1);
    probe.chart->markerChanged(7);
    QCoreApplication::processEvents();
    QCOMPARE(counter.count, 0);
    probe.chart->markers().place({30, 30});
    QTRY_COMPARE(counter.count, 1);
    probe.chart->markerChanged(0);
    QTRY_COMPARE(counter.count, 2);
}

void tst_ChartMarkers::tenThousandMarkers()
{
    tcMarkedChart probe;
    tcMarkerTable& table = probe.chart->markers();
    for (int i = 0; i < 10000; ++i) {
        auto marker = std::make_unique<tcStripPointMarker>(QString());
        marker->setPointWithLabel({cT - i, i / 100.0});
        table.add(std::move(marker));
    }
    QCOMPARE(table.order().size(), 10000);
    probe.chart->tick();
    QVERIFY(!probe.chart->grab().isNull());
    const QPoint pos = probe.pixel(cT - 5000, 50.0);
    QVERIFY(table.markerAt(pos));
    table.remove(table.keyAt(pos));
    QCOMPARE(table.markers().size(), 9999);
}

QTEST_MAIN(tst_ChartMarkers)
#include "tst_chartmarkers.moc"

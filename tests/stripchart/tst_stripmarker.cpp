#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"

#include <QPainter>
#include <QtTest>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <memory>

class tst_StripMarker : public QObject
{
    Q_OBJECT

    static std::unique_ptr<tcStripLineMarker> inTheMiddle(const QwtText& acLabel)
    {
        auto marker = std::make_unique<tcStripLineMarker>("Set Point");
        marker->setLabel(acLabel);
        marker->setYValueWithLabel(50.0);
        return marker;
    }

    /// Where a red label stands on a canvas of 300 x 100 pixels, for times from 0 to 300 and
    /// values from 0 to 100.
    static QRect labelInk(const tcStripMarker& acMarker)
    {
        QImage canvas(300, 100, QImage::Format_RGB32);
        canvas.fill(Qt::black);
        QPainter painter(&canvas);
        QwtScaleMap xMap;
        xMap.setScaleInterval(0, 300);
        xMap.setPaintInterval(0, 300);
        QwtScaleMap yMap;
        yMap.setScaleInterval(0, 100);
        yMap.setPaintInterval(100, 0);
        acMarker.draw(&painter, xMap, yMap, canvas.rect());
        QRect ink;
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                if (qRed(canvas.pixel(x, y)) > 60)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

private Q_SLOTS:
    void followingACurveTakesItsAxisAndColor()
    {
        tcStripCurve curve(0);
        curve.setTitle("Board");
        curve.setPen(Qt::magenta, 2.0);
        curve.setYAxis(QwtPlot::yRight);
        tcStripLineMarker marker("Min:");
        QTest::ignoreMessage(QtDebugMsg, "adding curve \"Board\"");
        marker.setCurve(&curve);
        QCOMPARE(marker.curve(), &curve);
        QCOMPARE(curve.markers(), QVector<tcStripMarker*>{&marker});
        QCOMPARE(marker.yAxis(), int(QwtPlot::yRight));
        QCOMPARE(marker.linePen().color(), QColor(Qt::magenta));
        QCOMPARE(marker.linePen().widthF(), 0.0);
        QCOMPARE(marker.linePen().style(), Qt::DotLine);
    }

    void leavingACurveSetsTheValueToZero()
    {
        tcStripCurve curve(0);
        curve.setTitle("Board");
        tcStripLineMarker marker("Min:");
        marker.setCurve(&curve);
        marker.setValue(3, 12);
        QTest::ignoreMessage(QtDebugMsg, "removing curve \"Board\"");
        QTest::ignoreMessage(QtDebugMsg, "removing curve null");
        marker.setCurve(nullptr);
        QVERIFY(!marker.curve());
        QVERIFY(curve.markers().isEmpty());
        QCOMPARE(marker.value(), QPointF(3, 0));
    }

    void changingTheCurveLeavesTheFirst()
    {
        tcStripCurve first(0);
        first.setTitle("A");
        tcStripCurve second(1);
        second.setTitle("B");
        tcStripPointMarker marker("");
        marker.setCurve(&first);
        marker.setYValue(12);
        QTest::ignoreMessage(QtDebugMsg, "removing curve \"A\"");
        QTest::ignoreMessage(QtDebugMsg, "adding curve \"B\"");
        marker.setCurve(&second);
        QVERIFY(first.markers().isEmpty());
        QCOMPARE(second.markers().size(), 1);
        QCOMPARE(marker.yValue(), 0.0);
    }

    void followingNoneFromTheStartKeepsTheValue()
    {
        tcStripPointMarker marker("");
        marker.setYValue(7);
        QTest::ignoreMessage(QtDebugMsg, "removing curve null");
        marker.setCurve(nullptr);
        QCOMPARE(marker.yValue(), 7.0);
    }

    void destroyedMarkerLeavesItsCurve()
    {
        tcStripCurve curve(0);
        {
            tcStripPointMarker marker("");
            marker.setCurve(&curve);
        }
        QVERIFY(curve.markers().isEmpty());
        curve.setVisible(false);
    }

    void valueWithLabel_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("label");
        QTest::newRow("three decimals") << "Min:" << 12.345 << "Min: 12.345";
        QTest::newRow("filled up") << "Max:" << -2.0 << "Max: -2.000";
        QTest::newRow("tie away from zero") << "Max:" << 0.0625 << "Max: 0.063";
        QTest::newRow("no name") << "" << 1.0 << " 1.000";
        QTest::newRow("name with a place mark") << "%2 %1" << 1.0 << "%2 %1 1.000";
        QTest::newRow("name like rich text") << "<b>a</b>" << 1.0 << "<b>a</b> 1.000";
    }

    void valueWithLabel()
    {
        QFETCH(QString, name);
        QFETCH(double, value);
        tcStripLineMarker marker(name);
        marker.setYValueWithLabel(value);
        QCOMPARE(marker.yValue(), value);
        QTEST(marker.label().text(), "label");
    }

    void lineLabelStaysOnTheCanvas_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("above");
        QTest::newRow("in the middle") << 50.0 << false;
        QTest::newRow("at the top") << 100.0 << false;
        QTest::newRow("at the bottom") << 0.0 << true;
        QTest::newRow("near the bottom") << 8.0 << true;
    }

    void lineLabelStaysOnTheCanvas()
    {
        QFETCH(double, value);
        tcStripLineMarker marker("Set Point");
        QwtText label(QString(), QwtText::PlainText);
        label.setColor(Qt::red);
        marker.setLabel(label);
        marker.setLinePen(Qt::green);
        marker.setYValueWithLabel(value);
        const QRect ink = labelInk(marker);
        const double line = 100.0 - value;
        QVERIFY(ink.height() >= 6);
        QCOMPARE(ink.height(), labelInk(*inTheMiddle(label)).height()); // nothing is cut off
        QTEST(ink.center().y() < line, "above");
    }

    void labelOfALineOffTheCanvasIsNotSeen()
    {
        tcStripLineMarker marker("Set Point");
        QwtText label(QString(), QwtText::PlainText);
        label.setColor(Qt::red);
        marker.setLabel(label);
        marker.setYValueWithLabel(-30.0);
        QVERIFY(labelInk(marker).isNull());
    }

    void pointLabelStaysOnTheCanvas_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("above");
        QTest::addColumn<bool>("rightOfIt");
        QTest::newRow("in the middle") << QPointF(100, 50) << true << true;
        QTest::newRow("at the right edge") << QPointF(299, 50) << true << false;
        QTest::newRow("at the top") << QPointF(100, 100) << false << true;
        QTest::newRow("in the corner") << QPointF(299, 100) << false << false;
    }

    void pointLabelStaysOnTheCanvas()
    {
        QFETCH(QPointF, point);
        tcStripPointMarker marker("");
        marker.setText("some text", Qt::red);
        marker.setSymbolColor(Qt::green);
        marker.setValue(100, 50);
        const QSize whole = labelInk(marker).size();
        marker.setValue(point);
        const QRect ink = labelInk(marker);
        QCOMPARE(ink.size(), whole); // nothing is cut off
        QTEST(ink.center().y() < 100.0 - point.y(), "above");
        QTEST(ink.left() > point.x(), "rightOfIt");
    }

    void labelOfAPointOffTheCanvasStaysWithIt()
    {
        tcStripPointMarker marker("");
        marker.setText("some text", Qt::red);
        marker.setValue(330, 50);
        QVERIFY(labelInk(marker).isNull());
    }

    void pointWithLabel()
    {
        tcStripPointMarker marker("hot");
        marker.setPointWithLabel({1000, 21.5});
        QCOMPARE(marker.value(), QPointF(1000, 21.5));
        QCOMPARE(marker.label().text(), QString("hot 1000.000,21.500"));
        marker.setName("cold");
        QCOMPARE(marker.name(), QString("cold"));
        marker.setPointWithLabel({1.5, -2});
        QCOMPARE(marker.label().text(), QString("cold 1.500,-2.000"));
    }

    void newTextKeepsFontAndColorOfTheLabel()
    {
        tcStripLineMarker marker("Set Point");
        QwtText label("x");
        label.setColor(Qt::red);
        label.setFont(QFont("Helvetica", 10));
        marker.setLabel(label);
        marker.setYValueWithLabel(3);
        QCOMPARE(marker.label().text(), QString("Set Point 3.000"));
        QCOMPARE(marker.label().color(), QColor(Qt::red));
        QCOMPARE(marker.label().font(), QFont("Helvetica", 10));
    }

    void lineMarkerIsAHorizontalLineLabelledRightBelow()
    {
        tcStripLineMarker marker("Min:");
        QCOMPARE(marker.lineStyle(), QwtPlotMarker::HLine);
        QCOMPARE(marker.labelAlignment(), Qt::AlignRight | Qt::AlignBottom);
        QCOMPARE(marker.name(), QString("Min:"));
    }

    void pointMarkerHasNoLine()
    {
        tcStripPointMarker marker("");
        QCOMPARE(marker.lineStyle(), QwtPlotMarker::NoLine);
    }
};

QTEST_MAIN(tst_StripMarker)
#include "tst_stripmarker.moc"

#include "widgets/LedIndicator.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <functional>

namespace
{

/// The lamp painted over white, without a window behind it.
QImage picture(LedIndicator& arLed)
{
    QImage image(arLed.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    arLed.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

/// A pixel inside the circle's visible part: down and right of the centre.
QColor lampColor(LedIndicator& arLed)
{
    const QImage image = picture(arLed);
    return image.pixelColor(image.width() - 3, image.height() - 3);
}

class tcPaintCount : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* apEvent) override
    {
        count += apEvent->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(LedIndicator&)>)

class tst_LedIndicator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newLampIsOffAndRed();
    void onIsGreen();
    void switchingTwiceReturnsToTheFirstColour();
    void toggleDoesTheSameAsTheSlot();
    void offColourCanBeSet();
    void sizeFollowsTheDiameter_data();
    void sizeFollowsTheDiameter();
    void circleStartsAtTheCentre();
    void circleIsAsLargeAsItsDiameter();
    void everyPixelAtFirst_data();
    void everyPixelAtFirst();
    void outlineIsThePaintersOwn();
    void everyChangeRepaints_data();
    void everyChangeRepaints();
};

void tst_LedIndicator::newLampIsOffAndRed()
{
    LedIndicator led;
    QVERIFY(!led.state());
    QCOMPARE(led.minimumSize(), QSize(28, 28));
    QCOMPARE(led.maximumSize(), QSize(28, 28));
    QCOMPARE(lampColor(led), QColor(Qt::red));
}

void tst_LedIndicator::onIsGreen()
{
    LedIndicator led;
    led.setState(true);
    QVERIFY(led.state());
    QCOMPARE(lampColor(led), QColor(Qt::green));
    led.setState(true);
    QVERIFY(led.state());
}

void tst_LedIndicator::switchingTwiceReturnsToTheFirstColour()
{
    LedIndicator led;
    QVERIFY(QMetaObject::invokeMethod(&led, "switchLedIndicator"));
    QCOMPARE(lampColor(led), QColor(Qt::green));
    led.switchLedIndicator();
    QCOMPARE(lampColor(led), QColor(Qt::red));
}

void tst_LedIndicator::toggleDoesTheSameAsTheSlot()
{
    LedIndicator led;
    led.toggle();
    QVERIFY(led.state());
    led.switchLedIndicator();
    QVERIFY(!led.state());
}

void tst_LedIndicator::offColourCanBeSet()
{
    LedIndicator led;
    led.setOffColor(Qt::gray);
    QCOMPARE(lampColor(led), QColor(Qt::gray));
    led.setState(true);
    QCOMPARE(lampColor(led), QColor(Qt::green));
}

void tst_LedIndicator::sizeFollowsTheDiameter_data()
{
    QTest::addColumn<int>("diameter");
    QTest::addColumn<int>("side");
    QTest::newRow("receive lamp") << 8 << 18;
    QTest::newRow("thirty") << 30 << 40;
    QTest::newRow("nothing") << 0 << 10;
}

void tst_LedIndicator::sizeFollowsTheDiameter()
{
    QFETCH(int, diameter);
    QFETCH(int, side);
    LedIndicator led;
    led.setLedSize(diameter);
    QCOMPARE(led.minimumSize(), QSize(side, side));
    QCOMPARE(led.maximumSize(), QSize(side, side));
}

// As designed: the circle's rectangle begins at the centre, so three quarters of the widget
// stay empty.
void tst_LedIndicator::circleStartsAtTheCentre()
{
    LedIndicator led;
    led.resize(28, 28);
    const QImage image = picture(led);
    for (int y = 0; y < 28; ++y) {
        for (int x = 0; x < 28; ++x) {
            if (x < 13 || y < 13)
                QVERIFY2(image.pixelColor(x, y) != QColor(Qt::red),
                         qPrintable(QStringLiteral("red at %1,%2").arg(x).arg(y)));
        }
    }
    QCOMPARE(image.pixelColor(24, 24), QColor(Qt::red));
    // Its corner is cut round: a square would be red here.
    QVERIFY(image.pixelColor(15, 15) != QColor(Qt::red));
}

void tst_LedIndicator::circleIsAsLargeAsItsDiameter()
{
    LedIndicator led;
    led.setLedSize(8);
    const QImage image = picture(led);
    // 18 x 18: the circle's box is 9..17, its middle 13.
    QCOMPARE(image.pixelColor(13, 13), QColor(Qt::red));
    QVERIFY(image.pixelColor(17, 9) != QColor(Qt::red));
    QVERIFY(image.pixelColor(17, 17) != QColor(Qt::red)); // a larger one would reach there
}

void tst_LedIndicator::everyPixelAtFirst_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QColor>("color");
    QTest::newRow("off") << false << QColor(Qt::red);
    QTest::newRow("on") << true << QColor(Qt::green);
}

void tst_LedIndicator::everyPixelAtFirst()
{
    QFETCH(bool, on);
    QFETCH(QColor, color);
    LedIndicator led;
    led.setState(on);
    QImage expected(28, 28, QImage::Format_RGB32);
    expected.fill(Qt::white);
    {
        QPainter painter(&expected);
        painter.setBrush(QBrush(color, Qt::SolidPattern));
        painter.drawEllipse(14, 14, 20, 20);
    }
    QCOMPARE(picture(led), expected);
}

void tst_LedIndicator::outlineIsThePaintersOwn()
{
    LedIndicator led;
    led.setLedSize(8);
    const QImage image = picture(led);
    for (const QPoint side : {QPoint(9, 13), QPoint(13, 9), QPoint(17, 13), QPoint(13, 17)})
        QCOMPARE(image.pixelColor(side), QColor(Qt::black));
}

void tst_LedIndicator::everyChangeRepaints_data()
{
    QTest::addColumn<std::function<void(LedIndicator&)>>("change");
    const auto row = [](const char* acName, std::function<void(LedIndicator&)> aChange) {
        QTest::newRow(acName) << std::move(aChange);
    };
    row("slot", [](LedIndicator& arLed) { arLed.switchLedIndicator(); });
    row("toggle", [](LedIndicator& arLed) { arLed.toggle(); });
    row("state", [](LedIndicator& arLed) { arLed.setState(true); });
    row("off colour", [](LedIndicator& arLed) { arLed.setOffColor(Qt::gray); });
    row("size", [](LedIndicator& arLed) { arLed.setLedSize(8); });
    row("size of the circle alone", [](LedIndicator& arLed) { arLed.setLedSize(18); });
}

void tst_LedIndicator::everyChangeRepaints()
{
    QFETCH(std::function<void(LedIndicator&)>, change);
    LedIndicator led;
    led.show();
    QVERIFY(QTest::qWaitForWindowExposed(&led));
    QCoreApplication::processEvents();
    tcPaintCount paints;
    led.installEventFilter(&paints);
    change(led);
    QTRY_VERIFY(paints.count > 0);
}

QTEST_MAIN(tst_LedIndicator)
#include "tst_ledindicator.moc"

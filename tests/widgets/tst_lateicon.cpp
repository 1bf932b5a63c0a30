#include "widgets/tcLateIcon.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QTest>
#include <QToolButton>

namespace
{

int sAsked = 0; ///< how often the style below was asked for the picture of a clear button

class tcCountingStyle : public QProxyStyle
{
public:
    QIcon standardIcon(StandardPixmap aeIcon, const QStyleOption* apOption,
                       const QWidget* apWidget) const override
    {
        sAsked += aeIcon == SP_LineEditClearButton ? 1 : 0;
        return QProxyStyle::standardIcon(aeIcon, apOption, apWidget);
    }
};

QIcon squares()
{
    QIcon icon;
    for (const int size : {16, 32}) {
        QPixmap pixmap(size, size);
        pixmap.fill(size == 16 ? Qt::red : Qt::blue);
        icon.addPixmap(pixmap);
    }
    return icon;
}

QToolButton* buttonOf(const QLineEdit& acLine)
{
    return acLine.findChild<QToolButton*>();
}

} // namespace

class tst_LateIcon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new tcCountingStyle); }

    void isMadeOnceAtTheFirstLook();
    void looksLikeTheIcon();
    void clearButtonIsThereFromTheStart();
    void clearButtonLooksLikeAnyOther();
    void lineKeepsAStyleOfItsOwn();
};

void tst_LateIcon::isMadeOnceAtTheFirstLook()
{
    int made = 0;
    const QIcon icon = tcLateIcon::of([&made] {
        ++made;
        return squares();
    });
    QVERIFY(!icon.isNull());
    QAction action;
    action.setIcon(icon);
    QCOMPARE(made, 0);
    QCOMPARE(icon.availableSizes(), squares().availableSizes());
    icon.pixmap(16, 16);
    icon.pixmap(32, 32);
    action.icon().pixmap(16, 16);
    QCOMPARE(made, 1);
}

void tst_LateIcon::looksLikeTheIcon()
{
    const QIcon late = tcLateIcon::of(&squares);
    for (const int size : {16, 32}) {
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
            const auto picture = [&](const QIcon& acIcon) {
                return acIcon.pixmap(QSize(size, size), mode)
                    .toImage()
                    .convertToFormat(QImage::Format_ARGB32);
            };
            QCOMPARE(picture(late), picture(squares()));
        }
    }
    QImage painted(16, 16, QImage::Format_ARGB32);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    late.paint(&painter, painted.rect());
    painter.end();
    QCOMPARE(painted.pixelColor(8, 8), QColor(Qt::red));
    // Where the icon is smaller, nothing is left of what the memory held before.
    const QImage large = late.pixmap(64, 64).toImage();
    QCOMPARE(large.pixelColor(large.width() / 2, large.height() / 2), QColor(Qt::blue));
    QVERIFY(large.width() == 32 || large.pixelColor(0, 0).alpha() == 0);
}

void tst_LateIcon::clearButtonIsThereFromTheStart()
{
    sAsked = 0;
    QLineEdit line;
    tcLateIcon::enableClearButton(&line);
    QVERIFY(line.isClearButtonEnabled());
    line.show();
    QVERIFY(QTest::qWaitForWindowExposed(&line));
    QVERIFY(!buttonOf(line)->isVisible());
    QCOMPARE(sAsked, 0);
    QTest::keyClicks(&line, "VERS");
    QVERIFY(buttonOf(line)->isVisible());
    line.grab();
    QCOMPARE(sAsked, 1);
    QTest::mouseClick(buttonOf(line), Qt::LeftButton);
    QCOMPARE(line.text(), QString());
    QTest::keyClicks(&line, "GEXP");
    line.grab();
    QCOMPARE(sAsked, 1);
}

void tst_LateIcon::clearButtonLooksLikeAnyOther()
{
    QLineEdit late;
    tcLateIcon::enableClearButton(&late);
    QLineEdit plain;
    plain.setClearButtonEnabled(true);
    QImage pictures[2];
    for (QLineEdit* line : {&late, &plain}) {
        line->resize(200, 30);
        line->setText("<SEXP 500>");
        line->show();
        QVERIFY(QTest::qWaitForWindowExposed(line));
        buttonOf(*line)->setFixedSize(buttonOf(*line)->size());
        pictures[line == &late ? 0 : 1]
            = buttonOf(*line)->icon().pixmap(16, 16).toImage().convertToFormat(
                QImage::Format_ARGB32);
        QCOMPARE(buttonOf(*line)->geometry(), buttonOf(late)->geometry());
    }
    QVERIFY(pictures[0].pixelColor(pictures[0].rect().center()).alpha() > 0);
    QCOMPARE(pictures[0], pictures[1]);
}

void tst_LateIcon::lineKeepsAStyleOfItsOwn()
{
    tcCountingStyle own;
    QLineEdit line;
    line.setStyle(&own);
    tcLateIcon::enableClearButton(&line);
    QCOMPARE(line.style(), static_cast<QStyle*>(&own));
    line.setStyle(nullptr);
    QLineEdit other;
    tcLateIcon::enableClearButton(&other);
    QCOMPARE(other.style(), QApplication::style());
    QVERIFY(!other.testAttribute(Qt::WA_SetStyle));
}

QTEST_MAIN(tst_LateIcon)
#include "tst_lateicon.moc"

#include "widgets/LedIndicator.h"

#include <QPainter>

namespace
{

constexpr int cFirstSize = 28;
constexpr int cMargin = 10; ///< by which the widget exceeds a diameter that was set

} // namespace

LedIndicator::LedIndicator(QWidget* apParent) : QWidget(apParent)
{
    setFixedSize(cFirstSize, cFirstSize);
}

void LedIndicator::setState(bool abOn)
{
    mState = abOn;
    update();
}

void LedIndicator::toggle()
{
    setState(!mState);
}

void LedIndicator::switchLedIndicator()
{
    toggle();
}

void LedIndicator::setOffColor(const QColor& acColor)
{
    mOffColor = acColor;
    update();
}

void LedIndicator::setLedSize(int anDiameter)
{
    mDiameter = anDiameter;
    setFixedSize(mDiameter + cMargin, mDiameter + cMargin);
    update();
}

void LedIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setBrush(mState ? QBrush(mOnColor, mOnPattern) : QBrush(mOffColor, mOffPattern));
    painter.drawEllipse(width() / 2, height() / 2, mDiameter, mDiameter);
}

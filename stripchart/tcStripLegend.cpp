#include "stripchart/tcStripLegend.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <qwt_dyngrid_layout.h>

#include <algorithm>

namespace
{
constexpr int cGap = 4;
constexpr int cLeastRows = 3; ///< that are seen without scrolling
constexpr int cUsualChars = 22;
const QColor cAlarmColor(178, 34, 34);
} // namespace

void tcLegendLabel::updateIndent()
{
    const int iconWidth = icon().isNull() ? 0 : icon().width() / icon().devicePixelRatio();
    setIndent(margin() + markWidth() + cGap + iconWidth + cGap);
}

void tcLegendLabel::setAlarm(bool abOn)
{
    if (abOn == mAlarm)
        return;
    mAlarm = abOn;
    setAccessibleDescription(abOn ? tr("Outside its limits") : QString());
    update();
}

void tcLegendLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (mAlarm)
        painter.fillRect(contentsRect(), cAlarmColor);
    const QRect inside = contentsRect().adjusted(margin(), 0, 0, 0);
    QStyleOptionButton mark;
    mark.initFrom(this);
    mark.state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
    const int markHeight = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this);
    mark.rect
        = QRect(inside.left(), inside.center().y() - markHeight / 2, markWidth(), markHeight);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &mark, &painter, this);

    const QSize iconSize = icon().size() / icon().devicePixelRatio();
    painter.drawPixmap(inside.left() + markWidth() + cGap,
                       inside.center().y() - iconSize.height() / 2, icon());
    const QRect textArea = inside.adjusted(indent() - margin(), 0, 0, 0);
    const QString name = text().text();
    const QString shown = fontMetrics().elidedText(name, Qt::ElideRight, textArea.width());
    QPalette colors = palette();
    if (mAlarm)
        colors.setColor(foregroundRole(), Qt::white);
    style()->drawItemText(&painter, textArea, Qt::AlignLeft | Qt::AlignVCenter, colors,
                          isEnabled(), shown, foregroundRole());
    setToolTip(shown == name ? QString() : name.toHtmlEscaped());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = contentsRect().adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

// A long name is cut where there is no room for it, instead of widening all entries.
QSize tcLegendLabel::sizeHint() const
{
    const int usual = fontMetrics().averageCharWidth() * cUsualChars;
    const int whole = fontMetrics().horizontalAdvance(text().text());
    return {indent() + std::min(whole, usual) + margin(),
            fontMetrics().height() + 2 * margin()};
}

int tcLegendLabel::markWidth() const
{
    return style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
}

tcStripLegend::tcStripLegend(QWidget* apParent) : QwtLegend(apParent)
{
    setMaxColumns(1);
    setDefaultItemMode(QwtLegendData::Checkable);
    auto* layout = qobject_cast<QwtDynGridLayout*>(contentsWidget()->layout());
    layout->setExpandingDirections(Qt::Horizontal);
    layout->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->setSpacing(0); // the entries' own margins part them, so no click goes between two
}

QSize tcStripLegend::minimumSizeHint() const
{
    return {0, cLeastRows * (fontMetrics().height() + 2 * cGap)};
}

QWidget* tcStripLegend::createWidget(const QwtLegendData&) const
{
    auto* label = new tcLegendLabel;
    label->setItemMode(defaultItemMode());
    label->setMargin(cGap);
    connect(label, &QwtLegendLabel::clicked, this, &tcStripLegend::itemClicked);
    connect(label, &QwtLegendLabel::checked, this, &tcStripLegend::itemChecked);
    return label;
}

void tcStripLegend::updateWidget(QWidget* apWidget, const QwtLegendData& acData)
{
    QwtLegend::updateWidget(apWidget, acData);
    if (auto* label = qobject_cast<tcLegendLabel*>(apWidget)) {
        label->updateIndent();
        label->setAccessibleName(label->text().text());
    }
}

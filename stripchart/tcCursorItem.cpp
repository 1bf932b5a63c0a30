#include "stripchart/tcCursorItem.h"

#include "stripchart/logic/tcMeasure.h"
#include "stripchart/tcCurveReading.h"
#include "stripchart/tcStripCurve.h"

#include <QCoreApplication>
#include <QPainter>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr double cAboveCurves = 100.0;
constexpr double cMsPerMinute = 60000.0;
constexpr int cInset = 8;   ///< pixels between the read-out and the canvas's edge
constexpr int cPadding = 6; ///< and between its frame and its text
constexpr int cGap = 12;    ///< between its columns
constexpr int cNameChars = 32;
constexpr double cFontPart = 0.85; ///< of the canvas's font, so that little is covered
const QColor cLineColor(255, 214, 102);
const QColor cShade(16, 18, 22, 205);
const QColor cFrameColor(90, 96, 104);
const QColor cTextColor(236, 236, 236);

tcCursorItem::tcRow rowOf(const tcStripCurve& acCurve, const QPair<double, double>& acSpan)
{
    constexpr double cNone = std::numeric_limits<double>::quiet_NaN();
    const auto before = tcCurveReading::valueAt(acCurve, acSpan.first);
    const auto after = tcCurveReading::valueAt(acCurve, acSpan.second);
    const double change = before && after ? *after - *before : cNone;
    const double minutes = (acSpan.second - acSpan.first) / cMsPerMinute;
    const double rate = minutes > 0.0 ? change / minutes : cNone;
    return {
        acCurve.pen().color(), acCurve.title().text(), tcMeasure::changeText(change),
        QCoreApplication::translate("tcCursorItem", "%1/min").arg(tcMeasure::changeText(rate))};
}

struct tcColumns
{
    int name = 0;
    int change = 0;
    int rate = 0;
    int width() const { return name + change + rate; }
};

tcColumns columnsOf(const QVector<tcCursorItem::tcRow>& acRows, const QFontMetrics& acMetrics,
                    int anRoom)
{
    tcColumns columns;
    for (const tcCursorItem::tcRow& row : acRows) {
        columns.change = std::max(columns.change, acMetrics.horizontalAdvance(row.change));
        columns.rate = std::max(columns.rate, acMetrics.horizontalAdvance(row.rate));
    }
    columns.change += cGap;
    columns.rate += cGap;
    // On a narrow canvas the names give way to the numbers, which stand nowhere else.
    columns.name
        = tcCursorItem::nameWidth(acRows, acMetrics, anRoom - columns.change - columns.rate);
    return columns;
}
} // namespace

tcCursorItem::tcCursorItem()
{
    setZ(cAboveCurves);
    setItemAttribute(QwtPlotItem::AutoScale, false);
}

int tcCursorItem::nameWidth(const QVector<tcRow>& acRows, const QFontMetrics& acMetrics,
                            int anRoom)
{
    // Not rounded, but up: a name that lacks the part of a pixel loses its last letters.
    const QFontMetricsF exact(acMetrics);
    double width = 0.0;
    for (const tcRow& row : acRows)
        width = std::max(width, exact.horizontalAdvance(row.name));
    const int most = std::min(anRoom, acMetrics.averageCharWidth() * cNameChars);
    return std::max(0, std::min(static_cast<int>(std::ceil(width)), most));
}

QPair<double, double> tcCursorItem::span() const
{
    return {std::min(mTimes[0], mTimes[1]), std::max(mTimes[0], mTimes[1])};
}

QVector<tcCursorItem::tcRow> tcCursorItem::rows() const
{
    const QPair<double, double> between = span();
    QVector<tcRow> rows{{QColor(), QStringLiteral("\u0394t"),
                         tcMeasure::durationText(std::llround(between.second - between.first)),
                         QString()}};
    if (!plot())
        return rows;
    const QwtPlotItemList items = plot()->itemList(tcStripCurve::cRtti);
    for (const QwtPlotItem* item : items)
        if (item->isVisible())
            rows.append(rowOf(static_cast<const tcStripCurve&>(*item), between));
    return rows;
}

void tcCursorItem::draw(QPainter* apPainter, const QwtScaleMap& acX, const QwtScaleMap&,
                        const QRectF& acCanvas) const
{
    apPainter->save();
    drawLines(*apPainter, acX, acCanvas);
    drawRows(*apPainter, acCanvas);
    apPainter->restore();
}

void tcCursorItem::drawLines(QPainter& arPainter, const QwtScaleMap& acX,
                             const QRectF& acCanvas) const
{
    arPainter.setRenderHint(QPainter::Antialiasing, false);
    for (int cursor = 0; cursor < cCount; ++cursor) {
        const double x = std::round(acX.transform(mTimes[cursor]));
        // Far outside, where the clock has left it behind, it is beyond what painters can do.
        if (!(x >= acCanvas.left() && x <= acCanvas.right()))
            continue;
        arPainter.setPen(QPen(cLineColor, cursor == mChosen ? 3.0 : 1.0, Qt::SolidLine));
        arPainter.drawLine(QPointF(x, acCanvas.top()), QPointF(x, acCanvas.bottom()));
    }
}

void tcCursorItem::drawRows(QPainter& arPainter, const QRectF& acCanvas) const
{
    QFont font = arPainter.font();
    font.setPointSizeF(font.pointSizeF() * cFontPart);
    arPainter.setFont(font);
    const QFontMetrics metrics(font, arPainter.device());
    const QVector<tcRow> all = rows();
    const int height = metrics.height() + 2;
    const int mark = metrics.height() / 2;
    const int beside = 2 * cInset + 3 * cPadding + mark;
    const tcColumns columns
        = columnsOf(all, metrics, static_cast<int>(acCanvas.width()) - beside);
    const int room = static_cast<int>(acCanvas.height()) - 2 * (cInset + cPadding);
    const int shown = std::min(all.size(), std::max(1, room / height));
    const QRect frame(
        static_cast<int>(acCanvas.left()) + cInset, static_cast<int>(acCanvas.top()) + cInset,
        2 * cPadding + mark + cPadding + columns.width(), 2 * cPadding + shown * height);
    arPainter.setPen(cFrameColor);
    arPainter.setBrush(cShade);
    arPainter.drawRect(frame);
    QRect line(frame.left() + cPadding, frame.top() + cPadding, mark, height);
    for (int i = 0; i < shown; ++i, line.translate(0, height)) {
        const tcRow& row = all.at(i);
        if (row.color.isValid())
            arPainter.fillRect(line.left(), line.center().y() - mark / 2, mark, mark,
                               row.color);
        arPainter.setPen(cTextColor);
        QRect cell(line.right() + 1 + cPadding, line.top(), columns.name, height);
        arPainter.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter,
                           metrics.elidedText(row.name, Qt::ElideRight, columns.name));
        cell = QRect(cell.right() + 1, line.top(), columns.change, height);
        arPainter.drawText(cell, Qt::AlignRight | Qt::AlignVCenter, row.change);
        cell = QRect(cell.right() + 1, line.top(), columns.rate, height);
        arPainter.drawText(cell, Qt::AlignRight | Qt::AlignVCenter, row.rate);
    }
}

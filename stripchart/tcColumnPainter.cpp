#include "stripchart/tcColumnPainter.h"

#include <QPainter>
#include <qwt_clipper.h>
#include <qwt_painter.h>

#include <algorithm>
#include <cmath>

namespace
{

/// How many pixels more the line goes up and down within a column than it needs to cross it,
/// before the column counts as filled.
constexpr int cExcess = 6;
/// Bars that are filled together.
constexpr int cGroup = 16;

bool isFull(const tcPixelColumn& acColumn)
{
    return acColumn.bottom - acColumn.top - std::abs(acColumn.last - acColumn.first) >= cExcess;
}

bool touch(const tcPixelColumn& acColumn, const tcPixelColumn& acNext)
{
    return acNext.joined && std::abs(acNext.x - acColumn.x) == 1;
}

/// A full column alone is a spike, and a line shows it as it is. Bars are for full neighbours.
bool isBar(const std::vector<tcPixelColumn>& acColumns, std::size_t anIndex)
{
    const tcPixelColumn& column = acColumns[anIndex];
    if (!isFull(column))
        return false;
    if (anIndex > 0 && isFull(acColumns[anIndex - 1]) && touch(acColumns[anIndex - 1], column))
        return true;
    return anIndex + 1 < acColumns.size() && isFull(acColumns[anIndex + 1])
        && touch(column, acColumns[anIndex + 1]);
}

} // namespace

tcColumnPainter::tcColumnPainter(QPainter& arPainter, const QRectF& acCanvas)
    : mPainter(arPainter)
{
    mClip = acCanvas;
    if (arPainter.hasClipping())
        mClip &= arPainter.clipBoundingRect();
    const int margin = reach(arPainter);
    mClip.adjust(-margin, -margin, margin, margin);
    mHairline = !arPainter.testRenderHint(QPainter::Antialiasing)
        && arPainter.pen().widthF() <= 1.0 && arPainter.device()->devicePixelRatioF() <= 1.0;
}

int tcColumnPainter::reach(const QPainter& acPainter)
{
    return static_cast<int>(std::ceil(acPainter.pen().widthF())) + 1;
}

void tcColumnPainter::paint(const std::vector<tcPixelColumn>& acColumns)
{
    const QPen pen = mPainter.pen();
    // Dashes and translucency show where a line runs twice.
    const bool bars = pen.isSolid() && pen.style() == Qt::SolidLine
        && pen.brush().style() == Qt::SolidPattern && pen.color().alpha() == 255;
    mLine.reserve(static_cast<int>(acColumns.size()) * 2);
    const tcPixelColumn* before = nullptr;
    bool barBefore = false;
    for (std::size_t i = 0; i < acColumns.size(); ++i) {
        const tcPixelColumn& column = acColumns[i];
        if (!column.joined) {
            before = nullptr;
            barBefore = false;
            endLine();
        }
        const bool bar = bars && isBar(acColumns, i);
        if (bar)
            addBar(column, before, barBefore);
        else
            addLine(column, barBefore ? before : nullptr);
        before = &column;
        barBefore = bar;
    }
    endLine();
    paintBars();
}

void tcColumnPainter::addLine(const tcPixelColumn& acColumn, const tcPixelColumn* apBarBefore)
{
    if (apBarBefore)
        addPoint(apBarBefore->x, apBarBefore->last);
    addPoint(acColumn.x, acColumn.first);
    if (acColumn.top == acColumn.bottom)
        return;
    // The nearer end first: the way that a line needs at least.
    if (acColumn.first - acColumn.top < acColumn.bottom - acColumn.first) {
        addPoint(acColumn.x, acColumn.top);
        addPoint(acColumn.x, acColumn.bottom);
    } else {
        addPoint(acColumn.x, acColumn.bottom);
        addPoint(acColumn.x, acColumn.top);
    }
    addPoint(acColumn.x, acColumn.last);
}

/// Bars side by side meet halfway of the line that joins them, as its ink does; the pixels of a
/// hairline lie in the left column up to its end.
void tcColumnPainter::addBar(const tcPixelColumn& acColumn, const tcPixelColumn* apBefore,
                             bool abBarBefore)
{
    tcBar bar{acColumn.x, acColumn.top, acColumn.bottom};
    if (abBarBefore && touch(*apBefore, acColumn)) {
        int middle = (apBefore->last + acColumn.first) / 2;
        if (mHairline)
            middle = apBefore->x < acColumn.x ? acColumn.first : apBefore->last;
        tcBar& previous = mBars.back();
        previous.top = std::min(previous.top, middle);
        previous.bottom = std::max(previous.bottom, middle);
        bar.top = std::min(bar.top, middle);
        bar.bottom = std::max(bar.bottom, middle);
    } else if (apBefore) {
        if (abBarBefore)
            addPoint(apBefore->x, apBefore->last);
        addPoint(acColumn.x, acColumn.first);
        endLine();
    }
    mBars.append(bar);
}

void tcColumnPainter::addPoint(int anX, int anY)
{
    const QPointF point(anX, anY);
    if (mLine.isEmpty() || mLine.last() != point)
        mLine.append(point);
}

void tcColumnPainter::endLine()
{
    if (mLine.size() > 1)
        QwtPainter::drawPolyline(&mPainter, QwtClipper::clipPolygonF(mClip, mLine, false));
    mLine.resize(0);
}

/// Where the pen leaves ink that goes up and down from the bar's top to its bottom.
QRectF tcColumnPainter::inked(const tcBar& acBar, bool abAntialiased) const
{
    const double width = std::max(mPainter.pen().widthF(), 1.0);
    const bool fine = mPainter.device()->devicePixelRatioF() > 1.0;
    // Where a broad line turns back it ends flat or, at a cut, with a cap: the middle of both.
    const double cap = width > 1.0 || fine ? width / 4 : 0.0;
    const double top = std::max(acBar.top - cap, mClip.top());
    const double height = std::min(acBar.bottom + cap, mClip.bottom()) - top;
    if (width > 1.0 || fine)
        return {acBar.x - width / 2, top, width, height};
    // A line one pixel wide lies on the corners between pixels: antialiased it covers half of
    // both its neighbours, and all of them when drawn over and over.
    if (abAntialiased)
        return {acBar.x - 1.0, top, 2.0, height};
    return {double(acBar.x), top, 1.0, height + 1.0};
}

void tcColumnPainter::paintBars()
{
    if (mBars.isEmpty())
        return;
    // Every hint: one of them alone keeps bars on whole pixels from being filled the fast way.
    const QPainter::RenderHints hints = mPainter.renderHints();
    const bool antialiased = hints.testFlag(QPainter::Antialiasing);
    mPainter.setRenderHints(hints, false);
    QVector<QRectF> group;
    for (const tcBar& bar : qAsConst(mBars)) {
        const QRectF rect = inked(bar, antialiased);
        if (rect.height() <= 0 || rect.right() <= mClip.left() || rect.left() >= mClip.right())
            continue;
        const bool apart
            = !group.isEmpty() && std::abs(rect.left() - group.last().left()) > rect.width();
        if (apart || group.size() == cGroup) {
            fill(group);
            group.clear();
        }
        group.append(rect);
    }
    fill(group);
    mPainter.setRenderHints(hints, true);
    mBars.clear();
}

/// What bars side by side have in common is filled at once, then what stands out of it.
void tcColumnPainter::fill(const QVector<QRectF>& acBars)
{
    if (acBars.isEmpty())
        return;
    const QColor color = mPainter.pen().color();
    QRectF all = acBars.first();
    double top = all.top();
    double bottom = all.bottom();
    for (const QRectF& bar : acBars) {
        all |= bar;
        top = std::max(top, bar.top());
        bottom = std::min(bottom, bar.bottom());
    }
    bottom = std::max(bottom, top);
    if (bottom > top)
        mPainter.fillRect(QRectF(all.left(), top, all.width(), bottom - top), color);
    for (const QRectF& bar : acBars) {
        if (bar.top() < top)
            mPainter.fillRect(QRectF(bar.left(), bar.top(), bar.width(),
                                     std::min(top, bar.bottom()) - bar.top()),
                              color);
        if (bar.bottom() > bottom) {
            const double from = std::max(bottom, bar.top());
            mPainter.fillRect(QRectF(bar.left(), from, bar.width(), bar.bottom() - from),
                              color);
        }
    }
}

#include "stripchart/tcColumnPainter.h"

#include <QPainter>
#include <qwt_clipper.h>
#include <qwt_painter.h>

#include <algorithm>
#include <cmath>

namespace
{

/// How many pixels more the line goes up and down within a column than it needs to cross it,
/// before the column counts as filled: soft edges hide more than hard ones.
constexpr int cExcess = 6;
constexpr int cSoftExcess = 2;
/// With soft edges a column this high looks the same as a point in its middle.
constexpr int cFlat = 1;
/// Bars that are filled together, and how much they must have in common for that.
constexpr int cGroup = 16;
constexpr double cWorthwhile = 8.0;

bool touch(const tcPixelColumn& acColumn, const tcPixelColumn& acNext)
{
    return acNext.joined && std::abs(acNext.x - acColumn.x) == 1;
}

/// How much further than from where it enters to where it leaves the line runs.
int excess(const tcPixelColumn& acColumn)
{
    return acColumn.bottom - acColumn.top - std::abs(acColumn.last - acColumn.first);
}

} // namespace

tcColumnPainter::tcColumnPainter(QPainter& arPainter, const QRectF& acCanvas)
    : mPainter(arPainter)
{
    mClip = acCanvas;
    if (arPainter.hasClipping())
        mClip &= arPainter.clipBoundingRect();
    const int margin = reach(arPainter);
    // Whole pixels: what is cut off there lies between them.
    mClip = QRectF(mClip.toAlignedRect().adjusted(-margin, -margin, margin, margin));
    const QPen& pen = arPainter.pen();
    // Dashes and translucency show where a line runs twice.
    mSolid = pen.isSolid() && pen.style() == Qt::SolidLine
        && pen.brush().style() == Qt::SolidPattern && pen.color().alpha() == 255;
    mSoft = arPainter.testRenderHint(QPainter::Antialiasing);
    mThin = pen.widthF() <= 1.0 && arPainter.device()->devicePixelRatioF() <= 1.0;
    mFull = mSoft ? cSoftExcess : cExcess;
}

int tcColumnPainter::reach(const QPainter& acPainter)
{
    return static_cast<int>(std::ceil(acPainter.pen().widthF())) + 1;
}

/// A full column alone is a spike, and a line shows it as it is. Bars are for full neighbours.
bool tcColumnPainter::isBar(const std::vector<tcPixelColumn>& acColumns,
                            std::size_t anIndex) const
{
    const tcPixelColumn& column = acColumns[anIndex];
    if (!mSolid || excess(column) < mFull)
        return false;
    if (anIndex > 0 && excess(acColumns[anIndex - 1]) >= mFull
        && touch(acColumns[anIndex - 1], column))
        return true;
    return anIndex + 1 < acColumns.size() && excess(acColumns[anIndex + 1]) >= mFull
        && touch(column, acColumns[anIndex + 1]);
}

void tcColumnPainter::paint(const std::vector<tcPixelColumn>& acColumns)
{
    mLine.reserve(acColumns.size() * 2);
    const tcPixelColumn* before = nullptr;
    bool barBefore = false;
    for (std::size_t i = 0; i < acColumns.size(); ++i) {
        const tcPixelColumn& column = acColumns[i];
        if (!column.joined) {
            before = nullptr;
            barBefore = false;
            endLine();
        }
        const bool bar = isBar(acColumns, i);
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
    if (acColumn.top == acColumn.bottom) {
        addPoint(acColumn.x, acColumn.first);
        return;
    }
    const bool simple = mSoft && mSolid;
    if (simple && acColumn.bottom - acColumn.top <= cFlat) {
        addPoint(acColumn.x, (acColumn.top + acColumn.bottom) / 2.0);
        return;
    }
    addPoint(acColumn.x, acColumn.first);
    if (!simple || excess(acColumn) >= mFull)
        addTurns(acColumn);
    addPoint(acColumn.x, acColumn.last);
}

/// The nearer end first: the way that a line needs at least.
void tcColumnPainter::addTurns(const tcPixelColumn& acColumn)
{
    if (acColumn.first - acColumn.top < acColumn.bottom - acColumn.first) {
        addPoint(acColumn.x, acColumn.top);
        addPoint(acColumn.x, acColumn.bottom);
    } else {
        addPoint(acColumn.x, acColumn.bottom);
        addPoint(acColumn.x, acColumn.top);
    }
}

/// Bars side by side meet halfway of the line that joins them, as its ink does; the pixels of a
/// hairline lie in the left column up to its end.
void tcColumnPainter::addBar(const tcPixelColumn& acColumn, const tcPixelColumn* apBefore,
                             bool abBarBefore)
{
    tcBar bar{acColumn.x, acColumn.top, acColumn.bottom};
    if (abBarBefore && touch(*apBefore, acColumn)) {
        int middle = (apBefore->last + acColumn.first) / 2;
        if (mThin && !mSoft)
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
    mBars.push_back(bar);
}

/// A line that goes on in its direction is one line. Without soft edges only upright and level
/// ones are: the pixels of others depend on where they start.
void tcColumnPainter::addPoint(double anX, double anY)
{
    const QPointF point(anX, anY);
    if (mLine.empty()) {
        mLine.push_back(point);
        return;
    }
    const QPointF step = point - mLine.back();
    if (step.x() == 0.0 && step.y() == 0.0)
        return;
    const bool straight = step.x() * mStep.y() == step.y() * mStep.x()
        && step.x() * mStep.x() + step.y() * mStep.y() > 0.0;
    if (mLine.size() > 1 && straight && (mSoft || step.x() == 0.0 || step.y() == 0.0)) {
        mLine.back() = point;
        return;
    }
    mStep = step;
    mLine.push_back(point);
}

void tcColumnPainter::endLine()
{
    if (mLine.size() > 1) {
        const auto outside = [this](const QPointF& acPoint) {
            return acPoint.x() < mClip.left() || acPoint.x() > mClip.right()
                || acPoint.y() < mClip.top() || acPoint.y() > mClip.bottom();
        };
        if (std::any_of(mLine.begin(), mLine.end(), outside)) {
            QPolygonF line(static_cast<int>(mLine.size()));
            std::copy(mLine.begin(), mLine.end(), line.begin());
            QwtPainter::drawPolyline(&mPainter, QwtClipper::clipPolygonF(mClip, line, false));
        } else {
            QwtPainter::drawPolyline(&mPainter, mLine.data(), static_cast<int>(mLine.size()));
        }
    }
    mLine.clear();
}

/// Where the pen leaves ink that goes up and down from the bar's top to its bottom.
QRectF tcColumnPainter::inked(const tcBar& acBar) const
{
    const double width = std::max(mPainter.pen().widthF(), 1.0);
    // Where a broad line turns back it ends flat or, at a cut, with a cap: the middle of both.
    const double cap = mThin ? 0.0 : width / 4;
    const double top = std::max(acBar.top - cap, mClip.top());
    const double height = std::min(acBar.bottom + cap, mClip.bottom()) - top;
    if (!mThin)
        return {acBar.x - width / 2, top, width, height};
    // A line one pixel wide lies on the corners between pixels: antialiased it covers half of
    // both its neighbours, and all of them when drawn over and over.
    if (mSoft)
        return {acBar.x - 1.0, top, 2.0, height};
    return {double(acBar.x), top, 1.0, height + 1.0};
}

void tcColumnPainter::paintBars()
{
    std::vector<QRectF> group;
    for (const tcBar& bar : mBars) {
        const QRectF rect = inked(bar);
        if (rect.height() <= 0 || rect.right() <= mClip.left() || rect.left() >= mClip.right())
            continue;
        const bool apart
            = !group.empty() && std::abs(rect.left() - group.back().left()) > rect.width();
        if (apart || group.size() == cGroup) {
            addRects(group);
            group.clear();
        }
        group.push_back(rect);
    }
    addRects(group);
    mBars.clear();
    fillRects();
}

/// What bars side by side have in common is filled at once, then what stands out of it.
void tcColumnPainter::addRects(const std::vector<QRectF>& acBars)
{
    if (acBars.empty())
        return;
    QRectF all = acBars.front();
    double top = all.top();
    double bottom = all.bottom();
    for (const QRectF& bar : acBars) {
        all |= bar;
        top = std::max(top, bar.top());
        bottom = std::min(bottom, bar.bottom());
    }
    if (bottom - top < cWorthwhile) {
        mRects.insert(mRects.end(), acBars.begin(), acBars.end());
        return;
    }
    mRects.emplace_back(all.left(), top, all.width(), bottom - top);
    for (const QRectF& bar : acBars) {
        if (bar.top() < top)
            mRects.emplace_back(bar.left(), bar.top(), bar.width(), top - bar.top());
        if (bar.bottom() > bottom)
            mRects.emplace_back(bar.left(), bottom, bar.width(), bar.bottom() - bottom);
    }
}

void tcColumnPainter::fillRects()
{
    if (mRects.empty())
        return;
    const QPen pen = mPainter.pen();
    const QBrush brush = mPainter.brush();
    // Every hint: one of them alone keeps rectangles on whole pixels from the fast way.
    const QPainter::RenderHints hints = mPainter.renderHints();
    mPainter.setRenderHints(hints, false);
    if (mThin) {
        std::vector<QRect> whole;
        whole.reserve(mRects.size());
        for (const QRectF& rect : mRects)
            whole.emplace_back(static_cast<int>(rect.left()), static_cast<int>(rect.top()),
                               static_cast<int>(rect.width()), static_cast<int>(rect.height()));
        mPainter.setPen(Qt::NoPen);
        mPainter.setBrush(pen.color());
        mPainter.drawRects(whole.data(), static_cast<int>(whole.size()));
        mPainter.setPen(pen);
        mPainter.setBrush(brush);
    } else {
        for (const QRectF& rect : mRects)
            mPainter.fillRect(rect, pen.color());
    }
    mPainter.setRenderHints(hints, true);
    mRects.clear();
}

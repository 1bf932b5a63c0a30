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
/// With soft edges a column this high looks the same as a point in its middle, and up to the
/// second height a slope looks the same through the middles of its steps.
constexpr int cFlat = 1;
constexpr int cSlope = 3;
/// Bars that are filled together, and how many rows they must have in common for that.
constexpr std::size_t cGroup = 16;
constexpr int cWorthwhile = 8;

bool touch(const tcPixelColumn& acColumn, const tcPixelColumn& acNext)
{
    return acNext.joined && std::abs(acNext.x - acColumn.x) == 1;
}

/// How much further than from where it enters to where it leaves the line runs.
int excess(const tcPixelColumn& acColumn)
{
    return acColumn.bottom - acColumn.top - std::abs(acColumn.last - acColumn.first);
}

/// The same ink in rectangles of fewer rows: what those side by side have in common becomes
/// one, then what stands out of it.
template <class Rect>
std::vector<Rect> joined(const std::vector<Rect>& acRects)
{
    std::vector<Rect> result;
    result.reserve(acRects.size() * 2);
    for (std::size_t first = 0, end = 0; first < acRects.size(); first = end) {
        auto top = acRects[first].y();
        auto bottom = top + acRects[first].height();
        auto left = acRects[first].x();
        auto right = left;
        for (end = first; end < acRects.size() && end - first < cGroup; ++end) {
            const Rect& rect = acRects[end];
            if (end > first && std::abs(rect.x() - acRects[end - 1].x()) > rect.width())
                break;
            top = std::max(top, rect.y());
            bottom = std::min(bottom, rect.y() + rect.height());
            left = std::min(left, rect.x());
            right = std::max(right, rect.x() + rect.width());
        }
        if (bottom - top < cWorthwhile) {
            result.insert(result.end(), acRects.begin() + first, acRects.begin() + end);
            continue;
        }
        result.emplace_back(left, top, right - left, bottom - top);
        for (; first < end; ++first) {
            const Rect& rect = acRects[first];
            const auto low = rect.y() + rect.height();
            if (rect.y() < top)
                result.emplace_back(rect.x(), rect.y(), rect.width(), top - rect.y());
            if (low > bottom)
                result.emplace_back(rect.x(), bottom, rect.width(), low - bottom);
        }
    }
    return result;
}

/// Whether the line goes through the column in the direction in which it comes and goes on.
bool isPassing(const std::vector<tcPixelColumn>& acColumns, std::size_t anIndex)
{
    const tcPixelColumn& column = acColumns[anIndex];
    const int way = column.last - column.first;
    if (std::abs(way) != column.bottom - column.top || anIndex == 0
        || anIndex + 1 == acColumns.size())
        return false;
    const tcPixelColumn& before = acColumns[anIndex - 1];
    const tcPixelColumn& after = acColumns[anIndex + 1];
    const int in = column.first - before.last;
    const int out = after.first - column.last;
    return touch(before, column) && touch(column, after)
        && (way > 0 ? in >= 0 && out >= 0 : in <= 0 && out <= 0);
}

} // namespace

tcColumnPainter::tcColumnPainter(QPainter& arPainter, const QRectF& acCanvas)
    : mPainter(arPainter)
{
    QRectF clip = acCanvas;
    if (arPainter.hasClipping())
        clip &= arPainter.clipBoundingRect();
    const int margin = reach(arPainter);
    // Whole pixels: what is cut off there lies between them.
    mClip = clip.toAlignedRect().adjusted(-margin, -margin, margin, margin);
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

/// A full column alone is a spike, and a line shows it as it is. Bars are for full neighbours,
/// and for what lies between two of them.
void tcColumnPainter::findBars(const std::vector<tcPixelColumn>& acColumns)
{
    mIsBar.assign(acColumns.size(), 0);
    if (!mSolid)
        return;
    bool before = false; // the column before is full
    bool gap = false;    // and so is the one before that, at the least
    for (std::size_t i = 0; i < acColumns.size(); ++i) {
        const bool full = excess(acColumns[i]) >= mFull;
        const bool near = i > 0 && touch(acColumns[i - 1], acColumns[i]);
        if (near && full && before)
            mIsBar[i - 1] = mIsBar[i] = 1;
        else if (near && full && gap)
            mIsBar[i - 2] = mIsBar[i - 1] = mIsBar[i] = 1;
        gap = near && before && !full;
        before = full;
    }
}

void tcColumnPainter::paint(const std::vector<tcPixelColumn>& acColumns)
{
    findBars(acColumns);
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
        const bool bar = mIsBar[i] != 0;
        if (bar)
            addBar(column, before, barBefore);
        else
            addLine(acColumns, i, barBefore);
        before = &column;
        barBefore = bar;
    }
    endLine();
    paintBars();
}

void tcColumnPainter::addLine(const std::vector<tcPixelColumn>& acColumns, std::size_t anIndex,
                              bool abBarBefore)
{
    const tcPixelColumn& column = acColumns[anIndex];
    if (abBarBefore)
        addPoint(acColumns[anIndex - 1].x, acColumns[anIndex - 1].last);
    const int height = column.bottom - column.top;
    if (height == 0) {
        addPoint(column.x, column.first);
        return;
    }
    const bool simple = mSoft && mSolid;
    if (simple && (height <= cFlat || (height <= cSlope && isPassing(acColumns, anIndex)))) {
        addPoint(column.x, (column.top + column.bottom) / 2.0);
        return;
    }
    addPoint(column.x, column.first);
    if (!simple || excess(column) >= mFull)
        addTurns(column);
    addPoint(column.x, column.last);
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
        const QRectF clip = mClip;
        const auto outside = [&clip](const QPointF& acPoint) {
            return acPoint.x() < clip.left() || acPoint.x() > clip.right()
                || acPoint.y() < clip.top() || acPoint.y() > clip.bottom();
        };
        if (std::any_of(mLine.begin(), mLine.end(), outside)) {
            QPolygonF line(static_cast<int>(mLine.size()));
            std::copy(mLine.begin(), mLine.end(), line.begin());
            QwtPainter::drawPolyline(&mPainter, QwtClipper::clipPolygonF(clip, line, false));
        } else {
            QwtPainter::drawPolyline(&mPainter, mLine.data(), static_cast<int>(mLine.size()));
        }
    }
    mLine.clear();
}

/// Where a pen one pixel wide leaves ink that goes up and down from the bar's top to its
/// bottom. It lies on the corners between pixels: antialiased it covers half of both its
/// neighbours, and all of them when drawn over and over.
void tcColumnPainter::setInk(const tcBar& acBar, QRect& arRect) const
{
    const int top = std::max(acBar.top, mClip.y());
    const int bottom = std::min(acBar.bottom, mClip.y() + mClip.height());
    if (mSoft)
        arRect.setRect(acBar.x - 1, top, 2, bottom - top);
    else
        arRect.setRect(acBar.x, top, 1, bottom - top + 1);
}

/// The same for a broad pen. Where its line turns back it ends flat or, at a cut, with a cap:
/// the middle of both.
void tcColumnPainter::setInk(const tcBar& acBar, QRectF& arRect) const
{
    const double width = std::max(mPainter.pen().widthF(), 1.0);
    const double top = std::max<double>(acBar.top - width / 4, mClip.y());
    const double bottom
        = std::min<double>(acBar.bottom + width / 4, mClip.y() + mClip.height());
    arRect.setRect(acBar.x - width / 2, top, width, bottom - top);
}

/// What bars side by side have in common is filled at once, then what stands out of it.
template <class Rect>
std::vector<Rect> tcColumnPainter::barRects() const
{
    std::vector<Rect> rects;
    rects.reserve(mBars.size() * 2);
    Rect rect;
    for (const tcBar& bar : mBars) {
        setInk(bar, rect);
        if (rect.height() > 0 && rect.x() + rect.width() > mClip.x()
            && rect.x() < mClip.x() + mClip.width())
            rects.push_back(rect);
    }
    return rects;
}

void tcColumnPainter::paintBars()
{
    if (mBars.empty())
        return;
    const QPen pen = mPainter.pen();
    const QBrush brush = mPainter.brush();
    // Every hint: one of them alone keeps rectangles on whole pixels from the fast way.
    const QPainter::RenderHints hints = mPainter.renderHints();
    mPainter.setRenderHints(hints, false);
    if (mThin) {
        mPainter.setPen(Qt::NoPen);
        mPainter.setBrush(pen.color());
        const std::vector<QRect> rects = joined(barRects<QRect>());
        mPainter.drawRects(rects.data(), static_cast<int>(rects.size()));
        mPainter.setPen(pen);
        mPainter.setBrush(brush);
    } else {
        for (const QRectF& rect : joined(barRects<QRectF>()))
            mPainter.fillRect(rect, pen.color());
    }
    mPainter.setRenderHints(hints, true);
    mBars.clear();
}

#include "stripchart/logic/tcReplay.h"

#include <algorithm>
#include <cmath>
#include <numeric>

tcReplay::tcReplay(std::vector<tcColumn> aColumns, int anSpeed, qint64 anNow)
    : mSpeed(std::clamp(anSpeed, cMinSpeed, cMaxSpeed)), mStart(anNow)
{
    mColumns.reserve(aColumns.size());
    for (tcColumn& column : aColumns)
        mColumns.push_back(sorted(std::move(column)));
    if (const tcCursor* first = earliest())
        mFirst = first->times.front();
}

tcReplay::tcCursor tcReplay::sorted(tcColumn aColumn)
{
    if (std::is_sorted(aColumn.times.begin(), aColumn.times.end()))
        return {aColumn.title, std::move(aColumn.times), std::move(aColumn.values), 0};
    std::vector<size_t> order(aColumn.times.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::stable_sort(order.begin(), order.end(), [&aColumn](size_t anLeft, size_t anRight) {
        return aColumn.times[anLeft] < aColumn.times[anRight];
    });
    tcCursor cursor;
    cursor.title = aColumn.title;
    cursor.times.reserve(order.size());
    cursor.values.reserve(order.size());
    for (const size_t i : order) {
        cursor.times.push_back(aColumn.times[i]);
        cursor.values.push_back(aColumn.values[i]);
    }
    return cursor;
}

tcReplay::tcCursor* tcReplay::earliest()
{
    tcCursor* found = nullptr;
    for (tcCursor& column : mColumns) {
        if (column.next < column.times.size()
            && (!found || column.times[column.next] < found->times[found->next]))
            found = &column;
    }
    return found;
}

void tcReplay::restart(qint64 anNow)
{
    mStart = anNow;
    for (tcCursor& column : mColumns)
        column.next = 0;
}

qint64 tcReplay::duration() const
{
    qint64 last = mStart;
    for (const tcCursor& column : mColumns) {
        if (!column.times.empty())
            last = std::max(last, dueAt(column.times.back()));
    }
    return last - mStart;
}

qint64 tcReplay::dueAt(double anTime) const
{
    // A file may hold any numbers for times; a sum of moments must stay one.
    constexpr double cFarthest = 4e18;
    const double wait = std::min((anTime - mFirst) / mSpeed, cFarthest);
    return mStart + static_cast<qint64>(std::llround(wait));
}

bool tcReplay::step(qint64 anNow, const tcSink& acSink)
{
    int left = cMaxPerStep;
    tcCursor* column = earliest();
    while (column && left-- > 0) {
        const qint64 due = dueAt(column->times[column->next]);
        if (due > anNow)
            break;
        const double value = column->values[column->next++];
        acSink(static_cast<size_t>(column - mColumns.data()), due, value);
        column = earliest();
    }
    return column != nullptr;
}

#pragma once

#include <QFontMetrics>
#include <QPair>
#include <QVector>
#include <qwt_plot_item.h>

/// Two vertical lines on the plot and, in a corner, what lies between them: the time, and for
/// each visible curve the change of its value and the rate per minute. Everything is read when
/// it is drawn, so it is never older than the picture.
class tcCursorItem : public QwtPlotItem
{
public:
    static constexpr int cCount = 2;

    tcCursorItem();

    void draw(QPainter* apPainter, const QwtScaleMap& acX, const QwtScaleMap& acY,
              const QRectF& acCanvas) const override;

    double time(int anCursor) const { return mTimes[anCursor]; } ///< ms since the epoch
    void setTime(int anCursor, double anTimeMs) { mTimes[anCursor] = anTimeMs; }
    int chosen() const { return mChosen; } ///< -1 for none
    void choose(int anCursor) { mChosen = anCursor; }
    /// The two times, the earlier one first.
    QPair<double, double> span() const;

    /// A line of the read-out.
    struct tcRow
    {
        QColor color; ///< of the curve; invalid in the first row
        QString name;
        QString change;
        QString rate;
    };
    /// First the time between the lines, then the visible curves.
    QVector<tcRow> rows() const;
    /// Of the names in pixels: all of each, but for one that is long beyond measure, within the
    /// room that there is.
    static int nameWidth(const QVector<tcRow>& acRows, const QFontMetrics& acMetrics,
                         int anRoom);

private:
    void drawLines(QPainter& arPainter, const QwtScaleMap& acX, const QRectF& acCanvas) const;
    void drawRows(QPainter& arPainter, const QRectF& acCanvas) const;

    double mTimes[cCount] = {0.0, 0.0};
    int mChosen = -1;
};

#pragma once

#include <QCursor>
#include <QObject>
#include <QPair>

#include <memory>

class QKeyEvent;
class QMouseEvent;
class QwtPlot;
class tcCursorItem;
class tcReplotRequest;

/// Puts two measuring lines on the plot and lets the operator move them: with the left button,
/// grabbed within a few pixels, and by Left and Right (with Shift ten pixels at once) the one
/// that was clicked last or chosen by the keys 1 and 2, until Escape or a click elsewhere lets
/// go of it. What is not meant for a line goes on to the other mouse tools.
class tcMeasuringCursors : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the cursors.
    tcMeasuringCursors(QwtPlot& arPlot, tcReplotRequest& arReplot);
    ~tcMeasuringCursors() override;

    bool isShown() const { return mShown; }
    /// They come up at a third and two thirds of the times in view.
    void setShown(bool abOn);

    /// Times in ms since the epoch, the earlier one first.
    QPair<double, double> span() const;
    const tcCursorItem& item() const { return *mItem; }

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

Q_SIGNALS:
    void changed(); ///< shown, hidden or moved

private:
    bool press(const QMouseEvent& acEvent);
    bool move(const QMouseEvent& acEvent);
    bool release(const QMouseEvent& acEvent);
    bool key(const QKeyEvent& acEvent);
    int cursorAt(int anX) const; ///< -1 when none is near the pixel
    void choose(int anCursor);
    void moveTo(int anCursor, double anX);
    void setGrip(bool abOn); ///< the shape of the mouse pointer over a line

    QwtPlot& mPlot;
    tcReplotRequest& mReplot;
    std::unique_ptr<tcCursorItem> mItem;
    QCursor mPointer; ///< of the canvas, while it is another over a line
    bool mGrip = false;
    bool mShown = false;
    bool mHadTracking = false;
    int mDragged = -1;
};

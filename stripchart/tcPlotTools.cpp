#include "stripchart/tcPlotTools.h"

#include "stripchart/TimeScalePicker.h"
#include "stripchart/tcStripMagnifier.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPen>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_zoomer.h>

namespace
{
constexpr int cEdge = 6; ///< pixels that keep the outermost labels off the window's edge
const QColor cMajorGridColor(58, 64, 72);
const QColor cMinorGridColor(36, 40, 46);
const QColor cZoomBandColor(230, 230, 230);
const QColor cFocusColor(77, 171, 247);
constexpr double cAboveAll = 1000.0;

/// Around the canvas while the keyboard works on it. The style's own mark would tint the
/// curves.
class tcFocusFrame : public QwtPlotItem
{
public:
    tcFocusFrame()
    {
        setZ(cAboveAll);
        setItemAttribute(QwtPlotItem::AutoScale, false);
    }
    void draw(QPainter* apPainter, const QwtScaleMap&, const QwtScaleMap&,
              const QRectF& acCanvas) const override
    {
        apPainter->setRenderHint(QPainter::Antialiasing, false);
        apPainter->setPen(QPen(cFocusColor, 0.0));
        apPainter->setBrush(Qt::NoBrush);
        apPainter->drawRect(acCanvas.adjusted(0.0, 0.0, -1.0, -1.0));
    }
};
} // namespace

tcPlotTools::tcPlotTools(QwtPlot& arPlot)
    : mPlot(arPlot)
    , mGrid(std::make_unique<QwtPlotGrid>())
    , mFocusFrame(std::make_unique<tcFocusFrame>())
{
    mPlot.setContentsMargins(2, cEdge, cEdge, 2);
    mPlot.plotLayout()->setAlignCanvasToScales(true);
    static_cast<QwtPlotCanvas*>(mPlot.canvas())->setFrameStyle(QFrame::NoFrame);
    mPlot.canvas()->installEventFilter(this);
    mGrid->setMajorPen(cMajorGridColor, 0.0, Qt::SolidLine);
    mGrid->setMinorPen(cMinorGridColor, 0.0, Qt::DotLine);
    mGrid->attach(&mPlot);
}

tcPlotTools::~tcPlotTools() = default;

void tcPlotTools::prepareMouse(tcMarkerTable& arMarkers)
{
    mZoomer = new QwtPlotZoomer(mPlot.canvas());
    mZoomer->setRubberBandPen(QPen(cZoomBandColor, 0.0, Qt::DashLine));
    mZoomer->setTrackerMode(QwtPicker::AlwaysOff);
    // Left to the zoomer, Escape would give the axes other steps where nothing is zoomed.
    mZoomer->setKeyPattern(QwtEventPattern::KeyHome, 0);
    mZoomer->setMousePattern(QwtEventPattern::MouseSelect2, Qt::RightButton, Qt::ShiftModifier);
    connect(mZoomer, &QwtPlotZoomer::zoomed, this, &tcPlotTools::zoomed);
    connect(mZoomer, &QwtPicker::activated, this, &tcPlotTools::keepZoomBase);

    auto* picker = new TimeScalePicker(mPlot.canvas(), arMarkers);
    connect(picker, &TimeScalePicker::markerRequest, this, &tcPlotTools::markerRequest);

    auto* magnifier = new tcStripMagnifier(mPlot.canvas());
    for (const int axis : {QwtPlot::yRight, QwtPlot::xBottom, QwtPlot::xTop})
        magnifier->setAxisEnabled(axis, false);
}

/// Whoever comes by keyboard sees where the arrow keys go; for the mouse there is the pointer.
void tcPlotTools::takeFocus(const QFocusEvent& acEvent)
{
    const bool comes = acEvent.gotFocus();
    const Qt::FocusReason reason = acEvent.reason();
    // A menu or another window takes the keys for a while, and gives them back.
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
        mByKeyboard = comes;
    else if (reason == Qt::MouseFocusReason)
        mByKeyboard = false;
    const bool shown = mFocusFrame->plot() != nullptr;
    if (shown != mByKeyboard) {
        mFocusFrame->attach(mByKeyboard ? &mPlot : nullptr);
        mPlot.replot();
    }
}

bool tcPlotTools::eventFilter(QObject* apObject, QEvent* apEvent)
{
    if (apEvent->type() == QEvent::FocusIn || apEvent->type() == QEvent::FocusOut) {
        takeFocus(*static_cast<QFocusEvent*>(apEvent));
    } else if (apEvent->type() == QEvent::KeyPress && mZoomer) {
        const auto& key = *static_cast<QKeyEvent*>(apEvent);
        if (key.key() == Qt::Key_Escape && key.modifiers() == Qt::NoModifier && isZoomed())
            zoomOut();
    }
    return QObject::eventFilter(apObject, apEvent);
}

void tcPlotTools::showGrid(bool abOn)
{
    mGrid->setVisible(abOn);
    mPlot.replot();
}

void tcPlotTools::showMinorGrid(bool abOn)
{
    mGrid->enableXMin(abOn);
    mGrid->enableYMin(abOn);
    mPlot.replot();
}

bool tcPlotTools::isZoomed() const
{
    return mZoomer->zoomRectIndex() > 0;
}

void tcPlotTools::zoomOut()
{
    if (isZoomed())
        mZoomer->zoom(0);
    mPlot.replot();
}

void tcPlotTools::keepZoomBase()
{
    if (mZoomer->zoomRectIndex() == 0)
        mZoomer->setZoomBase(false);
}

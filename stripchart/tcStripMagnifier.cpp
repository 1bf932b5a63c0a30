#include "stripchart/tcStripMagnifier.h"

#include <QDebug>
#include <QKeyEvent>
#include <QWheelEvent>
#include <qwt_plot.h>
#include <qwt_scale_div.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double cNarrowest = 1e-4;     ///< what the boxes of the left panel can show
constexpr double cNarrowestPart = 1e-9; ///< of the values' own magnitude
constexpr double cWidest = 1e15;
} // namespace

tcStripMagnifier::tcStripMagnifier(QWidget* apCanvas) : QwtPlotMagnifier(apCanvas)
{
    // The right button opens menus; a zoom that began under one would never end.
    setMouseButton(Qt::NoButton);
}

bool tcStripMagnifier::eventFilter(QObject* apObject, QEvent* apEvent)
{
    if (apObject == canvas() && apEvent->type() == QEvent::Wheel && wheelFactor() != 0.0) {
        const auto* wheel = static_cast<QWheelEvent*>(apEvent);
        const QPoint way = canvas()->rect().center() - wheel->position().toPoint();
        pan(way.x(), way.y());
    }
    if (apObject == canvas() && apEvent->type() == QEvent::KeyPress
        && zoomByKey(*static_cast<QKeyEvent*>(apEvent)))
        return true;
    return QwtPlotMagnifier::eventFilter(apObject, apEvent);
}

/// Plus is typed with Shift on many keyboards, and there is another among the digits. The
/// zoomer must not see these keys: it would put back at once what was shown before.
bool tcStripMagnifier::zoomByKey(const QKeyEvent& acEvent)
{
    if (acEvent.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    if (acEvent.key() != Qt::Key_Plus && acEvent.key() != Qt::Key_Minus)
        return false;
    rescale(acEvent.key() == Qt::Key_Plus ? keyFactor() : 1.0 / keyFactor());
    return true;
}

void tcStripMagnifier::pan(int anDx, int anDy)
{
    if (anDx == 0 && anDy == 0)
        return;
    const bool autoReplot = plot()->autoReplot();
    plot()->setAutoReplot(false);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        panAxis(axis, anDx, anDy);
    plot()->setAutoReplot(autoReplot);
    plot()->replot();
}

void tcStripMagnifier::panAxis(int anAxis, int anDx, int anDy)
{
    const QString name = QStringLiteral("Axis %1").arg(anAxis);
    if (!isAxisEnabled(anAxis)) {
        qDebug() << name << "not enabled";
        return;
    }
    const QwtScaleMap map = plot()->canvasMap(anAxis);
    const bool isValueAxis = anAxis == QwtPlot::yLeft || anAxis == QwtPlot::yRight;
    const double p1 = map.transform(plot()->axisScaleDiv(anAxis).lowerBound());
    const double p2 = map.transform(plot()->axisScaleDiv(anAxis).upperBound());
    const double d = isValueAxis ? anDy : anDx;
    const double d1 = map.invTransform(p1 - d);
    const double d2 = map.invTransform(p2 - d);
    qDebug() << name << "dx=" << anDx << "dy=" << anDy << "p1=" << p1 << "p2=" << p2
             << "d1=" << d1 << "d2=" << d2;
    plot()->setAxisScale(anAxis, d1, d2);
}

void tcStripMagnifier::rescale(double anFactor)
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        if (!isAxisEnabled(axis))
            continue;
        const QwtInterval shown = plot()->axisInterval(axis);
        const double magnitude
            = std::max(std::abs(shown.minValue()), std::abs(shown.maxValue()));
        const double width = shown.width() * std::abs(anFactor);
        if (width < std::max(cNarrowest, magnitude * cNarrowestPart) || width > cWidest)
            return;
    }
    QwtPlotMagnifier::rescale(anFactor);
}

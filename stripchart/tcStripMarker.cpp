#include "stripchart/tcStripMarker.h"

#include "app/logic/tcPointText.h"
#include "stripchart/tcStripCurve.h"

#include <QDebug>
#include <QPainter>
#include <QPen>
#include <qwt_symbol.h>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int cTextPointSize = 10;
} // namespace

tcStripMarker::tcStripMarker(const QString& acName) : mName(acName) { }

tcStripMarker::~tcStripMarker()
{
    if (mCurve)
        mCurve->removeMarker(this);
}

void tcStripMarker::setCurve(tcStripCurve* apCurve)
{
    if (mCurve) {
        qDebug() << "removing curve" << mCurve->title().text();
        mCurve->removeMarker(this);
        setYValue(0.0);
    }
    mCurve = apCurve;
    if (!mCurve) {
        qDebug() << "removing curve"
                 << "null";
        return;
    }
    mCurve->addMarker(this);
    setYAxis(mCurve->yAxis());
    setLinePen(mCurve->pen().color(), 0.0, Qt::DotLine);
    qDebug() << "adding curve" << mCurve->title().text();
}

void tcStripMarker::setYValueWithLabel(double anY)
{
    setYValue(anY);
    setLabelText(QString::number(anY, 'f', 3));
}

void tcStripMarker::setPointWithLabel(const QPointF& acPoint)
{
    setValue(acPoint);
    setLabelText(tcPointText::pair(acPoint.x(), acPoint.y(), 3));
}

void tcStripMarker::setText(const QString& acText, const QColor& acColor)
{
    QwtText text(acText, QwtText::PlainText);
    text.setFont(QFont(QStringLiteral("Helvetica"), cTextPointSize));
    text.setColor(acColor);
    setLabel(text);
}

void tcStripMarker::setLabelText(const QString& acText)
{
    // The label is changed, not replaced, for the sake of its font and colour; plain text,
    // since a name may hold whatever the operator likes.
    QwtText text = label();
    text.setText(QStringLiteral("%1 %2").arg(mName, acText), QwtText::PlainText);
    setLabel(text);
}

tcStripLineMarker::tcStripLineMarker(const QString& acName) : tcStripMarker(acName)
{
    setLineStyle(QwtPlotMarker::HLine);
    setLabelAlignment(Qt::AlignRight | Qt::AlignBottom);
}

void tcStripLineMarker::drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                                  const QPointF& acAt) const
{
    QPointF at = acAt;
    const double room = label().textSize(apPainter->font()).height() + spacing();
    const bool onCanvas = at.y() >= acCanvas.top() && at.y() <= acCanvas.bottom();
    if (labelAlignment().testFlag(Qt::AlignBottom) && onCanvas
        && at.y() + room > acCanvas.bottom())
        at.ry() -= room + spacing();
    tcStripMarker::drawLabel(apPainter, acCanvas, at);
}

tcStripPointMarker::tcStripPointMarker(const QString& acName) : tcStripMarker(acName)
{
    setLineStyle(QwtPlotMarker::NoLine);
    setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
}

void tcStripPointMarker::drawLabel(QPainter* apPainter, const QRectF& acCanvas,
                                   const QPointF& acAt) const
{
    QPointF at = acAt;
    if (acCanvas.contains(acAt)) {
        const QSizeF size = label().textSize(apPainter->font());
        const double gap = (symbol() ? (cSymbolPixels + 1) / 2.0 : 0.0) + spacing();
        const double right = at.x() + gap + size.width() + spacing();
        at.rx() -= std::min(std::max(std::ceil(right - acCanvas.right()), 0.0),
                            at.x() + gap - acCanvas.left());
        if (at.y() - gap - size.height() < acCanvas.top())
            at.ry() += size.height() + 2.0 * gap;
    }
    tcStripMarker::drawLabel(apPainter, acCanvas, at);
}

void tcStripPointMarker::setSymbolColor(const QColor& acColor)
{
    setSymbol(new QwtSymbol(QwtSymbol::Diamond, acColor, acColor,
                            QSize(cSymbolPixels, cSymbolPixels)));
}

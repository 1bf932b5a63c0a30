#include "stripchart/tcMarkerTable.h"

#include "stripchart/logic/tcChartNames.h"
#include "stripchart/tcClosestSample.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripMarker.h"
#include "widgets/tcDialogs.h"

#include <QGuiApplication>
#include <QMenu>
#include <QPen>
#include <QPointer>
#include <qwt_plot.h>
#include <qwt_symbol.h>

namespace
{
constexpr double cSnapPixels = 10.0;

QColor colorOf(const tcStripMarker& acMarker)
{
    return acMarker.curve() ? acMarker.curve()->pen().color() : QColor(Qt::white);
}

QSizeF sizeOf(const tcStripMarker& acMarker)
{
    return acMarker.symbol()
        ? QSizeF(acMarker.symbol()->size())
        : QSizeF(tcStripPointMarker::cSymbolPixels, tcStripPointMarker::cSymbolPixels);
}
} // namespace

tcMarkerTable::tcMarkerTable(QwtPlot& arPlot) : mPlot(arPlot) { }

tcMarkerTable::~tcMarkerTable()
{
    for (tcStripMarker* marker : qAsConst(mMarkers))
        delete marker;
}

QUuid tcMarkerTable::add(std::unique_ptr<tcStripMarker> apMarker)
{
    const QUuid key = QUuid::createUuid();
    tcStripMarker* marker = apMarker.release();
    mMarkers.insert(key, marker);
    mOrder.append(key);
    mUnlogged.append(key);
    marker->attach(&mPlot);
    Q_EMIT added(key);
    return key;
}

QUuid tcMarkerTable::addLogged(std::unique_ptr<tcStripMarker> apMarker)
{
    const QUuid key = add(std::move(apMarker));
    mUnlogged.removeOne(key);
    return key;
}

QUuid tcMarkerTable::addLine(const QString& acName, double anValue)
{
    auto line = std::make_unique<tcStripLineMarker>(acName);
    line->setLinePen(Qt::white, 0.0, Qt::DashLine);
    QwtText label;
    label.setColor(Qt::white);
    line->setLabel(label);
    line->setYValueWithLabel(anValue);
    return add(std::move(line));
}

bool tcMarkerTable::setLine(const QUuid& acKey, double anValue, const QPen& acPen)
{
    tcStripMarker* line = find(acKey);
    if (!line)
        return false;
    QwtText label = line->label();
    label.setColor(acPen.color());
    line->setLabel(label);
    line->setLinePen(acPen);
    line->setYValueWithLabel(anValue);
    Q_EMIT textChanged(acKey);
    return true;
}

QUuid tcMarkerTable::place(const QPoint& acPos)
{
    auto marker = std::make_unique<tcStripPointMarker>(QString());
    QPointF point(mPlot.invTransform(QwtPlot::xBottom, acPos.x()),
                  mPlot.invTransform(QwtPlot::yLeft, acPos.y()));
    const tcClosestSample closest = tcClosestSample::find(mPlot, acPos);
    if (closest.curve && closest.distance < cSnapPixels) {
        marker->setCurve(closest.curve);
        point = closest.sample;
    }
    const QColor color = colorOf(*marker);
    QwtText label;
    label.setColor(color);
    marker->setLabel(label);
    marker->setPointWithLabel(point);
    marker->setSymbolColor(color);
    const QUuid key = add(std::move(marker));
    mPlot.replot();
    return key;
}

void tcMarkerTable::askText(tcMarkerTable* apTable, const QUuid& acKey)
{
    const QPointer<tcMarkerTable> table(apTable);
    const auto text
        = tcDialogs::current().text(&table->mPlot, QGuiApplication::applicationDisplayName(),
                                    tr("Marker Text:"), QString());
    if (table)
        table->showText(acKey, text.value_or(QString()));
}

void tcMarkerTable::showText(const QUuid& acKey, const QString& acText)
{
    tcStripMarker* marker = find(acKey);
    if (!marker)
        return;
    marker->setText(acText, colorOf(*marker));
    if (!mOrder.contains(acKey))
        mOrder.append(acKey);
    // A log that wrote the marker while the question stood open writes it again with its text.
    if (!mUnlogged.contains(acKey))
        mUnlogged.append(acKey);
    Q_EMIT textChanged(acKey);
    mPlot.replot();
}

QUuid tcMarkerTable::keyAt(const QPoint& acPos) const
{
    for (auto it = mMarkers.cbegin(); it != mMarkers.cend(); ++it) {
        const tcStripMarker& marker = **it;
        const QPointF centre(mPlot.transform(marker.xAxis(), marker.xValue()),
                             mPlot.transform(marker.yAxis(), marker.yValue()));
        QRectF area(QPointF(0.0, 0.0), sizeOf(marker));
        area.moveCenter(centre);
        if (area.contains(acPos))
            return it.key();
    }
    return {};
}

void tcMarkerTable::setText(const QUuid& acKey, const QString& acText)
{
    tcStripMarker* marker = find(acKey);
    if (!marker)
        return;
    QwtText label = marker->label();
    label.setText(acText, QwtText::PlainText);
    marker->setLabel(label);
    Q_EMIT textChanged(acKey);
}

void tcMarkerTable::remove(const QVector<QUuid>& acKeys)
{
    bool any = false;
    for (const QUuid& key : acKeys) {
        tcStripMarker* marker = mMarkers.take(key);
        if (!marker)
            continue;
        any = true;
        mOrder.removeAll(key);
        delete marker;
        Q_EMIT removed(key);
    }
    if (any)
        mPlot.replot();
}

std::unique_ptr<QMenu> tcMarkerTable::menuFor(const QUuid& acKey)
{
    auto menu = std::make_unique<QMenu>(&mPlot);
    addDeleteEntry(*menu, acKey);
    return menu;
}

void tcMarkerTable::addDeleteEntry(QMenu& arMenu, const QUuid& acKey)
{
    const tcStripMarker* marker = find(acKey);
    if (!marker)
        return;
    const QString text = tcChartNames::menuText(marker->label().text());
    QAction* action = arMenu.addAction(tr("Delete Marker \"%1\"").arg(text));
    connect(action, &QAction::triggered, this, [this, acKey] { remove(acKey); });
}

#include "stripchart/tcLegendControl.h"

#include "stripchart/logic/tcChartNames.h"
#include "stripchart/tcChartAccess.h"
#include "stripchart/tcCurveRef.h"
#include "stripchart/tcStripCurve.h"
#include "stripchart/tcStripLegend.h"
#include "widgets/tcDialogs.h"

#include <QBoxLayout>
#include <QGuiApplication>
#include <QMenu>
#include <qwt_plot.h>

tcLegendControl::tcLegendControl(QwtPlot& arPlot, QBoxLayout& arLayout)
    : mPlot(arPlot), mLegend(new tcStripLegend)
{
    mLegend->setObjectName(QStringLiteral("legend"));
    mLegend->setContextMenuPolicy(Qt::CustomContextMenu);
    arLayout.addWidget(mLegend);
    connect(&mPlot, &QwtPlot::legendDataChanged, mLegend, &QwtLegend::updateLegend);
}

void tcLegendControl::setItemVisible(QwtPlotItem& arItem, bool abOn)
{
    arItem.setVisible(abOn);
    const QVariant info = mPlot.itemToInfo(&arItem);
    if (auto* label = qobject_cast<QwtLegendLabel*>(mLegend->legendWidget(info))) {
        label->setChecked(abOn);
        tcChartAccess::tellChecked(*label);
    }
    Q_EMIT visibilityChanged();
    mPlot.replot();
}

void tcLegendControl::showAll(bool abOn)
{
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items)
        setItemVisible(*item, abOn);
}

void tcLegendControl::showOnly(const QwtPlotItem& acItem)
{
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (QwtPlotItem* item : items)
        if (item != &acItem)
            setItemVisible(*item, false);
}

QwtPlotItem* tcLegendControl::itemOf(const QVariant& acItemInfo) const
{
    QwtPlotItem* item = mPlot.infoToItem(acItemInfo);
    return mPlot.itemList().contains(item) ? item : nullptr;
}

QwtPlotItem* tcLegendControl::itemAt(const QPoint& acPos) const
{
    for (QWidget* widget = mLegend->childAt(acPos); widget && widget != mLegend;
         widget = widget->parentWidget())
        if (qobject_cast<QwtLegendLabel*>(widget))
            return itemOf(mLegend->itemInfo(widget));
    return nullptr;
}

std::unique_ptr<QMenu> tcLegendControl::menuAt(const QPoint& acPos)
{
    auto menu = std::make_unique<QMenu>(mLegend);
    connect(menu->addAction(tr("Hide all")), &QAction::triggered, this,
            [this] { showAll(false); });
    connect(menu->addAction(tr("Show all")), &QAction::triggered, this,
            [this] { showAll(true); });
    if (QwtPlotItem* item = itemAt(acPos))
        addItemEntries(*menu, *item);
    return menu;
}

void tcLegendControl::addItemEntries(QMenu& arMenu, QwtPlotItem& arItem)
{
    // By its information, which leads nowhere once the item has left the plot.
    const QVariant info = mPlot.itemToInfo(&arItem);
    const QString text
        = tr("Hide all except %1").arg(tcChartNames::menuText(arItem.title().text()));
    connect(arMenu.addAction(text), &QAction::triggered, this, [this, info] {
        if (const QwtPlotItem* item = itemOf(info))
            showOnly(*item);
    });
    if (arItem.rtti() == tcStripCurve::cRtti)
        addCurveEntries(arMenu, static_cast<tcStripCurve&>(arItem));
}

void tcLegendControl::addCurveEntries(QMenu& arMenu, tcStripCurve& arCurve)
{
    const QString title = tcChartNames::menuText(arCurve.title().text());
    auto* ref = new tcCurveRef(mPlot, &arCurve, &arMenu);
    connect(ref, &tcCurveRef::gone, &arMenu, &QWidget::close);
    const auto add = [&](const QString& acText, auto acAction) {
        connect(arMenu.addAction(acText.arg(title)), &QAction::triggered, this,
                [ref, acAction] {
                    if (ref->get())
                        acAction(*ref->get());
                });
    };
    add(tr("Show Min/Max markers for %1"),
        [this](tcStripCurve& arThis) { Q_EMIT minMaxWanted(&arThis); });
    add(tr("Reset Min/Max markers for %1"),
        [this](tcStripCurve&) { Q_EMIT minMaxResetWanted(); });
    add(tr("Autoscale for %1"),
        [this](tcStripCurve& arThis) { Q_EMIT autoscaleWanted(&arThis); });
    add(tr("Rename %1"), [this](tcStripCurve& arThis) { rename(arThis); });
}

void tcLegendControl::rename(tcStripCurve& arCurve)
{
    // While the question stands open, the curve may go, and the chart with it.
    const tcCurveRef curve(mPlot, &arCurve);
    const auto title
        = tcDialogs::current().text(mLegend, QGuiApplication::applicationDisplayName(),
                                    tr("Curve Title:"), arCurve.title().text());
    if (curve.get() && title && !title->isEmpty())
        curve.get()->setTitle(QwtText(*title, QwtText::PlainText));
}

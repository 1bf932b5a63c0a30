#pragma once

#include <QObject>

#include <memory>

class QBoxLayout;
class QMenu;
class QPoint;
class QVariant;
class QwtLegend;
class QwtPlot;
class QwtPlotItem;
class tcStripCurve;

/// The legend beside the plot: which curves are shown, and the menu that opens on it.
class tcLegendControl : public QObject
{
    Q_OBJECT

public:
    /// Puts the legend into arLayout; arPlot outlives the control.
    tcLegendControl(QwtPlot& arPlot, QBoxLayout& arLayout);

    QwtLegend& legend() const { return *mLegend; }

    /// Shows or hides the item with what follows it, and its check mark.
    void setItemVisible(QwtPlotItem& arItem, bool abOn);
    void showAll(bool abOn);                  ///< of the strip curves
    void showOnly(const QwtPlotItem& acItem); ///< hides every other strip curve

    /// The item that the legend's information names; null once it has left the plot.
    QwtPlotItem* itemOf(const QVariant& acItemInfo) const;
    /// acPos in pixels of the legend, as for the menu.
    QwtPlotItem* itemAt(const QPoint& acPos) const;

    /// Belongs to the caller, its parent is the legend. It closes when its curve goes.
    std::unique_ptr<QMenu> menuAt(const QPoint& acPos);

Q_SIGNALS:
    void visibilityChanged();
    void minMaxWanted(tcStripCurve* apCurve);
    void minMaxResetWanted();
    void autoscaleWanted(tcStripCurve* apCurve);

private:
    void addItemEntries(QMenu& arMenu, QwtPlotItem& arItem);
    void addCurveEntries(QMenu& arMenu, tcStripCurve& arCurve);
    void rename(tcStripCurve& arCurve);

    QwtPlot& mPlot;
    QwtLegend* mLegend; ///< owned by the widget of the layout
};

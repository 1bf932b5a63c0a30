#pragma once

#include "stripchart/tcStripChart.h"
#include "stripchart/tcStripCurve.h"

#include <QAction>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <memory>

/// Counts the paint events of a widget.
class tcPaintCounter : public QObject
{
public:
    explicit tcPaintCounter(QWidget* apWidget) { apWidget->installEventFilter(this); }
    bool eventFilter(QObject* apObject, QEvent* apEvent) override
    {
        if (apEvent->type() == QEvent::Paint)
            ++count;
        return QObject::eventFilter(apObject, apEvent);
    }
    int count = 0;
};

/// A chart with its parts at hand and a clock that stands until it is set.
class tcChartProbe
{
public:
    static constexpr qint64 cNow = 1700000000000; ///< 2023-11-14 23:13:20 in Berlin

    tcChartProbe()
    {
        chart = std::make_unique<tcStripChart>();
        chart->setClock([this] { return now; });
        plot = chart->findChild<QwtPlot*>(QStringLiteral("qwtPlot"));
        legend = chart->findChild<QwtLegend*>();
    }

    std::unique_ptr<tcStripCurve> curve(const QString& acTitle, int anIndex = 0)
    {
        auto made = std::make_unique<tcStripCurve>(anIndex);
        made->setTitle(acTitle);
        made->setPen(tcStripCurve::stripCurveColor(anIndex));
        return made;
    }
    template <class T>
    T* child(const char* apName) const
    {
        return chart->findChild<T*>(QString::fromLatin1(apName));
    }
    QAction* action(const char* apName) const { return child<QAction>(apName); }
    /// One of the chart's own actions, or of their menus; null when there is none.
    QAction* own(const char* apText) const
    {
        QList<QAction*> actions = chart->actions();
        for (QAction* action : chart->actions())
            if (action->menu())
                actions += action->menu()->actions();
        for (QAction* action : qAsConst(actions))
            if (action->text() == QLatin1String(apText))
                return action;
        return nullptr;
    }
    QDoubleSpinBox* box(const char* apName) const { return child<QDoubleSpinBox>(apName); }
    QwtInterval shown(int anAxis) const { return plot->axisInterval(anAxis); }
    QList<double> ticks(int anAxis) const
    {
        return plot->axisScaleDiv(anAxis).ticks(QwtScaleDiv::MajorTick);
    }
    QwtLegendLabel* label(QwtPlotItem* apItem) const
    {
        return qobject_cast<QwtLegendLabel*>(legend->legendWidget(plot->itemToInfo(apItem)));
    }
    /// Canvas pixel of a point on the left axis.
    QPoint pixel(double anX, double anY) const
    {
        return {qRound(plot->transform(QwtPlot::xBottom, anX)),
                qRound(plot->transform(QwtPlot::yLeft, anY))};
    }
    void show(const QSize& acSize = QSize(900, 600))
    {
        chart->resize(acSize);
        chart->show();
        QCoreApplication::processEvents();
        plot->replot();
        QCoreApplication::processEvents();
    }

    /// Stops the timer and waits until all that was asked for has been painted.
    void settle()
    {
        chart->stopUpdates();
        tcPaintCounter counter(plot->canvas());
        int before = -1;
        while (before != counter.count) {
            before = counter.count;
            QTest::qWait(40);
        }
    }

    qint64 now = cNow;
    std::unique_ptr<tcStripChart> chart;
    QwtPlot* plot = nullptr;
    QwtLegend* legend = nullptr;
};

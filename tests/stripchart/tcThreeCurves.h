#pragma once

#include "tests/stripchart/tcChartProbe.h"
#include "tests/support/tcScriptedDialogs.h"

#include <QApplication>
#include <QMenu>

// What tests of the chart's menus and legend share.

constexpr const char* cSeparator = "-";

inline QStringList texts(const QMenu& acMenu)
{
    QStringList result;
    for (const QAction* action : acMenu.actions())
        result += action->isSeparator() ? cSeparator : action->text();
    return result;
}

inline QAction* entry(const QMenu& acMenu, const QString& acText)
{
    for (QAction* action : acMenu.actions())
        if (action->text() == acText)
            return action;
    return nullptr;
}

struct tcThreeCurves : tcChartProbe
{
    tcThreeCurves()
    {
        a = curve("A", 0);
        b = curve("B", 1);
        c = curve("C", 2);
        key = chart->addCurve(a.get());
        chart->addCurve(b.get(), key);
        chart->addCurve(c.get(), key);
        show();
    }
    QPoint at(QwtPlotItem* apItem) const
    {
        return label(apItem)->mapTo(legend, label(apItem)->rect().center());
    }
    std::unique_ptr<QMenu> menuOf(QwtPlotItem* apItem) const
    {
        return chart->legendMenu(at(apItem));
    }
    QPoint beside() const { return legend->rect().bottomLeft() - QPoint(-2, 2); }

    std::unique_ptr<tcStripCurve> a;
    std::unique_ptr<tcStripCurve> b;
    std::unique_ptr<tcStripCurve> c;
    QUuid key;
    tcScriptedDialogs dialogs;
};

/// The menu that stands open, wherever it came from.
inline QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

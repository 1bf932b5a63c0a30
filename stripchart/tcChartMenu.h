#pragma once

#include <QList>
#include <QObject>

#include <memory>

class QAction;
class QMenu;
class QPoint;
namespace Ui
{
class StripChart;
}

/// The menu of the plot: the form's actions and a few entries of its own.
class tcChartMenu : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the menu.
    tcChartMenu(Ui::StripChart& arForm, QAction& arLogAction);

    struct tcContext
    {
        bool hasMinMaxCurve = false; ///< the lines of smallest and largest value follow a curve
        QList<QAction*> ownActions;  ///< of the chart widget; they end the menu
    };
    /// acPos in pixels of the plot. Belongs to the caller, its parent is the plot.
    std::unique_ptr<QMenu> menuAt(const QPoint& acPos, const tcContext& acContext);

    void copyPicture() const; ///< of the whole plot, to the clipboard

Q_SIGNALS:
    void axisChooserWanted();
    void markerWanted(const QPoint& acCanvasPos);
    void pictureWanted();
    void resetWanted();

private:
    Ui::StripChart& mForm;
    QAction& mLogAction;
};

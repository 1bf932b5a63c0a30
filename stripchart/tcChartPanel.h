#pragma once

class QAction;
class tcPlotTools;
namespace Ui
{
class StripChart;
}

/// The buttons of the chart's left panel, each of which stands for an action.
namespace tcChartPanel
{
/// arLogAction belongs to the chart, which makes it beside the form's own actions.
void connectButtons(Ui::StripChart& arForm, QAction& arLogAction);
/// The action that the load button shows and does from now on, and no other.
void setLoadAction(Ui::StripChart& arForm, QAction* apAction);
/// The actions that concern nothing but the tools on the plot.
void connectTools(Ui::StripChart& arForm, tcPlotTools& arTools);
} // namespace tcChartPanel

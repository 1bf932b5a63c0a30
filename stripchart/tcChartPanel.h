#pragma once

class QAction;
namespace Ui
{
class StripChart;
}

/// The buttons of the chart's left panel, each of which stands for an action.
namespace tcChartPanel
{
/// arLogAction belongs to the chart, which makes it beside the form's own actions.
void connectButtons(Ui::StripChart& arForm, QAction& arLogAction);
} // namespace tcChartPanel

#pragma once

class QWidget;

/// Tells screen readers what the chart's own widgets are: the entries of the legend are check
/// boxes, and the canvas is a chart. Otherwise they are frames, of which nobody expects
/// anything.
namespace tcChartAccess
{

void install(); ///< once or many times

/// After each change of a legend entry's check mark.
void tellChecked(QWidget& arLabel);

} // namespace tcChartAccess

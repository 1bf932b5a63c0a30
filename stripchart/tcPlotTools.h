#pragma once

#include <QObject>

#include <memory>

class QFocusEvent;
class QPoint;
class QRectF;
class QwtPlot;
class QwtPlotGrid;
class QwtPlotItem;
class QwtPlotZoomer;
class tcMarkerTable;

/// The mouse tools and the grid of the plot.
class tcPlotTools : public QObject
{
    Q_OBJECT

public:
    /// arPlot outlives the tools; the markers are given once they are there.
    explicit tcPlotTools(QwtPlot& arPlot);
    ~tcPlotTools() override;

    /// Puts zoomer, picker and magnifier on the canvas, which owns them.
    void prepareMouse(tcMarkerTable& arMarkers);

    QwtPlotGrid& grid() const { return *mGrid; }
    void showGrid(bool abOn);
    void showMinorGrid(bool abOn);

    bool isZoomed() const;
    void zoomOut(); ///< to what was shown before the first zoom
    /// Notes what is shown now as what zooming out goes back to, unless a zoom is in force.
    void keepZoomBase();

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

Q_SIGNALS:
    void zoomed(const QRectF& arRect);
    void markerRequest(const QPoint& pos); ///< pixels of the canvas

private:
    void takeFocus(const QFocusEvent& acEvent);

    QwtPlot& mPlot;
    std::unique_ptr<QwtPlotGrid> mGrid;
    std::unique_ptr<QwtPlotItem> mFocusFrame; ///< on the plot while the keyboard works on it
    bool mByKeyboard = false;
    QwtPlotZoomer* mZoomer = nullptr; ///< owned by the canvas
};

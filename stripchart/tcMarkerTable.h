#pragma once

#include <QMap>
#include <QObject>
#include <QPointF>
#include <QUuid>
#include <QVector>

#include <memory>

class QMenu;
class QPen;
class QPoint;
class QwtPlot;
class tcStripMarker;

/// The operator's markers, and lines that the chart's maker put there. Owns them all. Positions
/// are pixels of the canvas.
class tcMarkerTable : public QObject
{
    Q_OBJECT

public:
    /// arPlot outlives the table.
    explicit tcMarkerTable(QwtPlot& arPlot);
    ~tcMarkerTable() override;

    /// Puts a marker on the plot and returns its key.
    QUuid add(std::unique_ptr<tcStripMarker> apMarker);
    /// The same for one that stands in a file already, so that no log writes it again.
    QUuid addLogged(std::unique_ptr<tcStripMarker> apMarker);
    /// A horizontal line across the canvas with a label that tells name and value.
    QUuid addLine(const QString& acName, double anValue);
    /// Moves a line, with its label, and gives it another pen; false for an unknown key.
    bool setLine(const QUuid& acKey, double anValue, const QPen& acPen);

    /// Puts a point on the sample nearest to the position, or on the position itself when no
    /// sample is within ten pixels.
    QUuid place(const QPoint& acPos);
    /// Asks the operator for the text of a marker. The event loop runs meanwhile; whatever is
    /// gone when the answer comes is left alone.
    static void askText(tcMarkerTable* apTable, const QUuid& acKey);

    tcStripMarker* find(const QUuid& acKey) const { return mMarkers.value(acKey); }
    const QMap<QUuid, tcStripMarker*>& markers() const { return mMarkers; }
    const QVector<QUuid>& order() const { return mOrder; } ///< as they were made
    QUuid keyAt(const QPoint& acPos) const;                ///< null where no marker is
    tcStripMarker* markerAt(const QPoint& acPos) const { return find(keyAt(acPos)); }

    /// Changes the label's text, not its look.
    void setText(const QUuid& acKey, const QString& acText);
    void remove(const QUuid& acKey) { remove(QVector<QUuid>{acKey}); } ///< deletes the marker
    void remove(const QVector<QUuid>& acKeys);                         ///< the same for each

    /// The entry that deletes the marker; empty for an unknown key. Belongs to the caller, its
    /// parent is the plot.
    std::unique_ptr<QMenu> menuFor(const QUuid& acKey);
    void addDeleteEntry(QMenu& arMenu, const QUuid& acKey); ///< the same in another menu

    /// Keys of markers that a running log has not written yet, some of which may be deleted.
    QVector<QUuid> unlogged() const { return mUnlogged; }
    void setLogged() { mUnlogged.clear(); }

Q_SIGNALS:
    void added(const QUuid& acKey);
    void removed(const QUuid& acKey);
    void textChanged(const QUuid& acKey);

private:
    void showText(const QUuid& acKey, const QString& acText);

    QwtPlot& mPlot;
    QMap<QUuid, tcStripMarker*> mMarkers; ///< owned
    QVector<QUuid> mOrder;
    QVector<QUuid> mUnlogged;
};

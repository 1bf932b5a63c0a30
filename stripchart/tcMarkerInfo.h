#pragma once

#include <QDialog>
#include <QMap>
#include <QUuid>

class QFormLayout;
class QLineEdit;
class tcMarkerTable;

/// Lists the markers and lets the operator change their texts, at once. It follows markers that
/// come, change or go meanwhile.
class tcMarkerInfo : public QDialog
{
    Q_OBJECT

public:
    /// arMarkers outlives the dialog.
    tcMarkerInfo(tcMarkerTable& arMarkers, QWidget* apParent);

Q_SIGNALS:
    void markerChanged(int marker_id); ///< place of the marker in the order they were made

private:
    void addRow(const QUuid& acKey);
    void removeRow(const QUuid& acKey);
    void showMenu(const QUuid& acKey, const QPoint& acPos);
    void showText(const QUuid& acKey);
    void takeText(const QUuid& acKey, const QString& acText);

    tcMarkerTable& mMarkers;
    QFormLayout* mRows;
    QMap<QUuid, QLineEdit*> mEdits;
};

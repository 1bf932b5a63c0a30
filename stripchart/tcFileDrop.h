#pragma once

#include <QObject>

class QMimeData;
class QWidget;

/// Lets a CSV file be dropped on a window. Of several the first counts; whatever holds none is
/// refused while it is still being dragged. GUI thread only.
class tcFileDrop : public QObject
{
    Q_OBJECT

public:
    /// The window outlives this.
    explicit tcFileDrop(QWidget& arWindow);

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

    /// The first CSV file of this computer among what is dragged; empty when there is none.
    static QString fileIn(const QMimeData& acDragged);

Q_SIGNALS:
    /// Comes after the drop is over, so that whoever dragged the file need not wait.
    void dropped(const QString& acFile);
};

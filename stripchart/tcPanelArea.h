#pragma once

#include <QScrollArea>

/// As wide as its content needs while there is room, and scrolled where the window is too low
/// or too narrow for it.
class tcPanelArea : public QScrollArea
{
    Q_OBJECT

public:
    using QScrollArea::QScrollArea;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    int neededWidth() const; ///< so that nothing is scrolled sideways

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

Q_SIGNALS:
    void contentChanged(); ///< and with it the width that it needs
};

#pragma once

#include <QScrollArea>

/// As wide as its content needs, and scrolled up and down where the window is too low for it.
class tcPanelArea : public QScrollArea
{
    Q_OBJECT

public:
    using QScrollArea::QScrollArea;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    bool eventFilter(QObject* apObject, QEvent* apEvent) override;

private:
    int neededWidth() const;
};

#pragma once

#include <qwt_legend.h>
#include <qwt_legend_label.h>

/// A legend entry with a check mark instead of a pressed frame.
class tcLegendLabel : public QwtLegendLabel
{
    Q_OBJECT

public:
    explicit tcLegendLabel(QWidget* apParent = nullptr) : QwtLegendLabel(apParent) { }

    /// Makes room for the check mark; after each change of the entry's icon.
    void updateIndent();

    /// Stands out, as for a curve that left its limits.
    void setAlarm(bool abOn);
    bool isAlarm() const { return mAlarm; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* apEvent) override;

private:
    int markWidth() const;

    bool mAlarm = false;
};

/// One column of checkable entries, aligned to the left.
class tcStripLegend : public QwtLegend
{
    Q_OBJECT

public:
    explicit tcStripLegend(QWidget* apParent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    QWidget* createWidget(const QwtLegendData& acData) const override;
    void updateWidget(QWidget* apWidget, const QwtLegendData& acData) override;
};

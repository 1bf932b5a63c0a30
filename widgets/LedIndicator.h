#pragma once

#include <QColor>
#include <QWidget>

/// Lamp that is one colour when on and another when off.
///
/// As designed: the circle starts at the widget's centre, so that only its upper left part
/// shows.
class LedIndicator : public QWidget
{
    Q_OBJECT

public:
    explicit LedIndicator(QWidget* apParent = nullptr);

    bool state() const { return mState; }
    void setState(bool abOn);
    void toggle();
    void setOffColor(const QColor& acColor);
    /// Diameter in pixels; the widget becomes ten pixels wider and higher than that.
    void setLedSize(int anDiameter);

public Q_SLOTS:
    void switchLedIndicator();

protected:
    void paintEvent(QPaintEvent* apEvent) override;

private:
    bool mState = false;
    QColor mOnColor = Qt::green;
    QColor mOffColor = Qt::red;
    Qt::BrushStyle mOnPattern = Qt::SolidPattern;
    Qt::BrushStyle mOffPattern = Qt::SolidPattern;
    int mDiameter = 20;
};

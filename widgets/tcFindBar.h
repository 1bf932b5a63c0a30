#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

/// One line to type what to look for, with buttons to go on and back. Says nothing of where.
class tcFindBar : public QWidget
{
    Q_OBJECT

public:
    explicit tcFindBar(QWidget* apParent = nullptr);

    QString wanted() const;
    /// Shows the bar with its text selected, ready to be typed over.
    void beginTyping();
    void showFound(bool abFound);

Q_SIGNALS:
    void wantedChanged();
    void next();
    void previous();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* apEvent) override;

private:
    QLineEdit* mLine; ///< by Qt parenthood, as the label
    QLabel* mVerdict;
};

#pragma once

#include <QComboBox>

/// A combo box that says when its list is about to drop down, so that the list can be read
/// again just before somebody looks at it.
class tcPortBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    void showPopup() override
    {
        Q_EMIT aboutToShow();
        QComboBox::showPopup();
    }

Q_SIGNALS:
    void aboutToShow();
};

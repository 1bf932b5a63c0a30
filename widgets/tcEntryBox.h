#pragma once

#include <QComboBox>

/// A combo box whose entries never widen the window: its width hint is that of
/// minimumContentsLength() characters. It also says when its list is about to drop down, so
/// that the list can be brought up to date just before somebody looks at it.
///
/// The list is made when it first drops down. The base's way to the same hints, a size adjust
/// policy, makes it at once, which costs more than all else of a box, and few are ever opened.
class tcEntryBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void showPopup() override;

Q_SIGNALS:
    void aboutToShow();
};

#pragma once

#include <QStyledItemDelegate>

/// Shows what stands before and behind an entry's tabs in two columns, however wide the letters
/// are; the entry's text stays as it is.
class tcHelpDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* apPainter, const QStyleOptionViewItem& acOption,
               const QModelIndex& acIndex) const override;
    QSize sizeHint(const QStyleOptionViewItem& acOption,
                   const QModelIndex& acIndex) const override;

private:
    int descriptionStart(const QStyleOptionViewItem& acOption,
                         const QModelIndex& acIndex) const;

    mutable int mSyntaxWidth = 0; ///< of the widest entry in the font below, in pixels
    mutable QFont mMeasured;
};

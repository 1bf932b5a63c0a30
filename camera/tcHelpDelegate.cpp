#include "camera/tcHelpDelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace
{

constexpr int cMargin = 6;  ///< left and right of a row
constexpr int cGap = 16;    ///< between the columns
constexpr int cPadding = 2; ///< above and below a row

struct tcColumns
{
    QString syntax;
    QString description;
};

tcColumns columns(const QModelIndex& acIndex)
{
    const QString text = acIndex.data().toString();
    const int tab = text.indexOf('\t');
    return {text.left(tab), tab < 0 ? QString() : text.mid(tab).trimmed()};
}

} // namespace

int tcHelpDelegate::descriptionStart(const QStyleOptionViewItem& acOption,
                                     const QModelIndex& acIndex) const
{
    if (mSyntaxWidth == 0 || mMeasured != acOption.font) {
        mSyntaxWidth = 0;
        mMeasured = acOption.font;
        for (int row = 0; row < acIndex.model()->rowCount(); ++row) {
            const QString syntax = columns(acIndex.sibling(row, acIndex.column())).syntax;
            mSyntaxWidth
                = std::max(mSyntaxWidth, acOption.fontMetrics.horizontalAdvance(syntax));
        }
    }
    return cMargin + mSyntaxWidth + cGap;
}

void tcHelpDelegate::paint(QPainter* apPainter, const QStyleOptionViewItem& acOption,
                           const QModelIndex& acIndex) const
{
    QStyleOptionViewItem option = acOption;
    initStyleOption(&option, acIndex);
    option.text.clear();
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, apPainter, option.widget);

    const tcColumns text = columns(acIndex);
    const int start = descriptionStart(acOption, acIndex);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    apPainter->save();
    apPainter->setFont(option.font);
    apPainter->setPen(option.palette.color(
        QPalette::Active, selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect row = option.rect.adjusted(cMargin, 0, -cMargin, 0);
    const QRect description = option.rect.adjusted(start, 0, -cMargin, 0);
    apPainter->drawText(row, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                        text.syntax);
    apPainter->drawText(
        description, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(text.description, Qt::ElideRight, description.width()));
    apPainter->restore();
}

QSize tcHelpDelegate::sizeHint(const QStyleOptionViewItem& acOption,
                               const QModelIndex& acIndex) const
{
    const int description
        = acOption.fontMetrics.horizontalAdvance(columns(acIndex).description);
    return {descriptionStart(acOption, acIndex) + description + cMargin,
            acOption.fontMetrics.height() + 2 * cPadding};
}

#include "widgets/tcEntryBox.h"

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>

QSize tcEntryBox::sizeHint() const
{
    // With room for an icon, as boxes beside it have that show one.
    constexpr int cIconGap = 4;
    constexpr int cMargin = 2;
    const QFontMetrics metrics = fontMetrics();
    const QSize contents(minimumContentsLength() * metrics.horizontalAdvance('X')
                             + iconSize().width() + cIconGap,
                         std::max(metrics.height(), iconSize().height()) + cMargin);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

void tcEntryBox::showPopup()
{
    Q_EMIT aboutToShow();
    QComboBox::showPopup();
}

#include "widgets/tcLateIcon.h"

#include <QCommonStyle>
#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionFrame>

#include <utility>

namespace
{

class tcLateIconEngine : public QIconEngine
{
public:
    explicit tcLateIconEngine(std::function<QIcon()> aMake) : mMake(std::move(aMake)) { }

    QIconEngine* clone() const override { return new tcLateIconEngine(*this); }

    void paint(QPainter* apPainter, const QRect& acRect, QIcon::Mode aeMode,
               QIcon::State aeState) override
    {
        icon().paint(apPainter, acRect, Qt::AlignCenter, aeMode, aeState);
    }

    /// The size is in pixels of the device already, so that the icon's own pixmap(), which
    /// scales for the screen, would be too large.
    QPixmap pixmap(const QSize& acSize, QIcon::Mode aeMode, QIcon::State aeState) override
    {
        QPixmap pixmap(acSize);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), aeMode, aeState);
        return pixmap;
    }

    QList<QSize> availableSizes(QIcon::Mode aeMode, QIcon::State aeState) const override
    {
        return icon().availableSizes(aeMode, aeState);
    }

private:
    const QIcon& icon() const
    {
        if (mMake)
            mIcon = std::exchange(mMake, nullptr)();
        return mIcon;
    }

    mutable std::function<QIcon()> mMake; ///< empty once it has been asked
    mutable QIcon mIcon;
};

QIcon clearIcon(const QPointer<QLineEdit>& apLine)
{
    if (!apLine)
        return {};
    QStyleOptionFrame option;
    option.initFrom(apLine);
    return apLine->style()->standardIcon(QStyle::SP_LineEditClearButton, &option, apLine);
}

/// What a line asks for while its clear button is made.
class tcLateIconStyle : public QCommonStyle
{
public:
    QIcon standardIcon(StandardPixmap aeIcon, const QStyleOption* apOption,
                       const QWidget* apWidget) const override
    {
        auto* line = qobject_cast<QLineEdit*>(const_cast<QWidget*>(apWidget));
        if (aeIcon != SP_LineEditClearButton || !line)
            return QCommonStyle::standardIcon(aeIcon, apOption, apWidget);
        return tcLateIcon::of([owner = QPointer<QLineEdit>(line)] { return clearIcon(owner); });
    }
};

} // namespace

QIcon tcLateIcon::of(std::function<QIcon()> aMake)
{
    return QIcon(new tcLateIconEngine(std::move(aMake)));
}

void tcLateIcon::enableClearButton(QLineEdit* apLine)
{
    QStyle* own = apLine->testAttribute(Qt::WA_SetStyle) ? apLine->style() : nullptr;
    tcLateIconStyle style;
    apLine->setStyle(&style);
    apLine->setClearButtonEnabled(true);
    apLine->setStyle(own);
}

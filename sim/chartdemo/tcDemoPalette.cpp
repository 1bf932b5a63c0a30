#include "sim/chartdemo/tcDemoPalette.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace
{
QPalette palette(const QColor& acWindow, const QColor& acBase, const QColor& acText,
                 const QColor& acFaint)
{
    QPalette result(acWindow, acWindow);
    result.setColor(QPalette::Base, acBase);
    result.setColor(QPalette::AlternateBase, acWindow);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        result.setColor(role, acText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        result.setColor(QPalette::Disabled, role, acFaint);
    result.setColor(QPalette::ToolTipBase, acBase);
    result.setColor(QPalette::Highlight, QColor(42, 130, 218));
    result.setColor(QPalette::HighlightedText, Qt::white);
    return result;
}
} // namespace

bool tcDemoPalette::apply(const QString& acName)
{
    if (acName.isEmpty())
        return true;
    if (acName != QLatin1String("light") && acName != QLatin1String("dark"))
        return false;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (acName == QLatin1String("dark"))
        QApplication::setPalette(palette(QColor(48, 50, 54), QColor(32, 34, 37),
                                         QColor(228, 228, 228), QColor(128, 128, 128)));
    else
        QApplication::setPalette(
            palette(QColor(240, 240, 240), Qt::white, Qt::black, QColor(150, 150, 150)));
    return true;
}

#include "stripchart/tcRowsDialog.h"

#include <QDialog>
#include <QFormLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tcRowsDialog
{
QFormLayout* prepare(QDialog& arDialog, const QSize& acSize)
{
    auto* area = new QScrollArea;
    area->setObjectName(QStringLiteral("rows"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus); // that of a row brings it into sight
    auto* rows = new QWidget;
    auto* layout = new QFormLayout(rows);
    layout->setObjectName(QStringLiteral("formLayout"));
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    area->setWidget(rows);
    auto* outer = new QVBoxLayout(&arDialog);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);
    arDialog.resize(acSize);
    return layout;
}

void fit(QDialog& arDialog)
{
    const auto* area = arDialog.findChild<QScrollArea*>(QStringLiteral("rows"));
    const QScreen* screen = arDialog.screen();
    const QSize most = screen ? screen->availableSize() * 3 / 4 : QSize(800, 600);
    QSize need = area->widget()->minimumSizeHint().expandedTo(area->widget()->sizeHint());
    if (need.height() > most.height())
        need.rwidth() += area->verticalScrollBar()->sizeHint().width();
    arDialog.resize(arDialog.size().expandedTo(need).boundedTo(most));
}
} // namespace tcRowsDialog

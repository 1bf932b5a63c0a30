#include "stripchart/tcLimitsDialog.h"

#include "stripchart/tcLimitAlarm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>

namespace
{
constexpr double cMost = 1e9;
constexpr int cDecimals = 3;

QDoubleSpinBox* box(double anValue, double anLeast, const QString& acName)
{
    auto* made = new QDoubleSpinBox;
    made->setDecimals(cDecimals);
    made->setRange(anLeast, cMost);
    made->setValue(anValue);
    made->setMaximumWidth(140);
    // The 1 of a 12 to be typed is no limit.
    made->setKeyboardTracking(false);
    made->setAccessibleName(acName);
    return made;
}

std::optional<double> limit(const QCheckBox& acSwitch, const QDoubleSpinBox& acBox)
{
    if (!acSwitch.isChecked())
        return std::nullopt;
    return acBox.value();
}
} // namespace

tcLimitsDialog::tcLimitsDialog(tcLimitAlarm& arAlarm, const QStringList& acCurves,
                               QWidget* apParent)
    : QDialog(apParent), mAlarm(arAlarm)
{
    setWindowTitle(tr("Limits"));
    auto* content = new QWidget;
    auto* rows = new QGridLayout(content);
    const QStringList head{tr("Curve"), tr("Lower"), tr("Upper"), tr("Hysteresis")};
    const int columns[] = {0, 1, 3, 5};
    for (int i = 0; i < head.size(); ++i)
        rows->addWidget(new QLabel(head.at(i)), 0, columns[i], 1, i == 1 || i == 2 ? 2 : 1);
    for (int i = 0; i < acCurves.size(); ++i)
        addRow(*rows, i + 1, acCurves.at(i));
    rows->setColumnStretch(0, 1);
    rows->setRowStretch(acCurves.size() + 1, 1);
    auto* area = new QScrollArea;
    area->setAccessibleName(windowTitle());
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    auto* beep = new QCheckBox(tr("Sound the bell when a reading leaves its limits"));
    beep->setChecked(mAlarm.beeps());
    connect(beep, &QCheckBox::toggled, this, [this](bool abOn) { mAlarm.setBeeps(abOn); });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area, 1);
    layout->addWidget(beep);
    layout->addWidget(buttons);
    const QSize need = content->sizeHint();
    resize(qBound(420, need.width() + 48, 900), qBound(160, need.height() + 110, 600));
}

void tcLimitsDialog::addRow(QGridLayout& arRows, int anRow, const QString& acCurve)
{
    const tcLimits limits = mAlarm.limits(acCurve);
    const tcLimits proposed = mAlarm.proposal(acCurve);
    auto* name = new QLabel(acCurve);
    name->setTextFormat(Qt::PlainText);
    auto* lowerOn = new QCheckBox;
    lowerOn->setAccessibleName(tr("Watch the lower limit of %1").arg(acCurve));
    lowerOn->setChecked(limits.lower.has_value());
    auto* lower = box(limits.lower.value_or(*proposed.lower), -cMost,
                      tr("Lower limit of %1").arg(acCurve));
    auto* upperOn = new QCheckBox;
    upperOn->setAccessibleName(tr("Watch the upper limit of %1").arg(acCurve));
    upperOn->setChecked(limits.upper.has_value());
    auto* upper = box(limits.upper.value_or(*proposed.upper), -cMost,
                      tr("Upper limit of %1").arg(acCurve));
    auto* hysteresis = box(limits.hysteresis, 0.0, tr("Hysteresis of %1").arg(acCurve));
    hysteresis->setToolTip(tr("How far a reading must come back to count as within limits"));
    QWidget* const cells[] = {name, lowerOn, lower, upperOn, upper, hysteresis};
    for (int column = 0; column < 6; ++column)
        arRows.addWidget(cells[column], anRow, column);
    const auto apply = [=] {
        mAlarm.setLimits(
            acCurve, {limit(*lowerOn, *lower), limit(*upperOn, *upper), hysteresis->value()});
    };
    for (QCheckBox* each : {lowerOn, upperOn})
        connect(each, &QCheckBox::toggled, this, apply);
    for (QDoubleSpinBox* each : {lower, upper, hysteresis})
        connect(each, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, apply);
}

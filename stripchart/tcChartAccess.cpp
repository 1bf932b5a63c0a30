#include "stripchart/tcChartAccess.h"

#include "stripchart/tcStripLegend.h"

#include <QAccessibleWidget>

namespace
{

class tcLegendEntry : public QAccessibleWidget
{
public:
    explicit tcLegendEntry(tcLegendLabel* apLabel)
        : QAccessibleWidget(apLabel, QAccessible::CheckBox)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = label().isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& acAction) override
    {
        if (acAction != toggleAction())
            return QAccessibleWidget::doAction(acAction);
        // What a click does; the call alone tells nobody.
        label().setChecked(!label().isChecked());
        Q_EMIT label().checked(label().isChecked());
    }

private:
    tcLegendLabel& label() const { return *static_cast<tcLegendLabel*>(widget()); }
};

QAccessibleInterface* make(const QString& acClass, QObject* apObject)
{
    if (acClass == QLatin1String("QwtPlotCanvas"))
        return new QAccessibleWidget(qobject_cast<QWidget*>(apObject), QAccessible::Chart);
    if (auto* label = qobject_cast<tcLegendLabel*>(apObject))
        return new tcLegendEntry(label);
    return nullptr;
}

} // namespace

void tcChartAccess::install()
{
    QAccessible::installFactory(make);
}

void tcChartAccess::tellChecked(QWidget& arLabel)
{
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&arLabel, changed);
    QAccessible::updateAccessibility(&event);
}

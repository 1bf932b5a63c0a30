#include "stripchart/tcAxisChooser.h"

#include "stripchart/tcCurveRef.h"
#include "stripchart/tcRowsDialog.h"
#include "stripchart/tcStripCurve.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <qwt_plot.h>

tcAxisChooser::tcAxisChooser(const QwtPlot& acPlot, const QVector<tcStripCurve*>& acCurves,
                             QWidget* apParent)
    : QDialog(apParent), mRows(tcRowsDialog::prepare(*this, QSize(145, 109)))
{
    setObjectName(QStringLiteral("tcAxisChooser"));
    setWindowTitle(tr("Assign Axis"));
    for (tcStripCurve* curve : acCurves)
        addRow(acPlot, *curve);
    tcRowsDialog::fit(*this);
}

void tcAxisChooser::addRow(const QwtPlot& acPlot, tcStripCurve& arCurve)
{
    auto* box = new QComboBox;
    box->addItems({tr("Left"), tr("Right")});
    box->setCurrentIndex(arCurve.yAxis() == QwtPlot::yRight ? 1 : 0);
    box->setProperty("curve", QVariant::fromValue(&arCurve));
    // No buddy of the box, for which an ampersand in the title would stand for a key.
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    mRows->addRow(label, box);
    const auto show = [label, box](const tcStripCurve& acCurve) {
        label->setText(acCurve.title().text());
        box->setAccessibleName(label->text());
    };
    show(arCurve);

    auto* ref = new tcCurveRef(acPlot, &arCurve, box);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, ref](int anAxis) {
                if (ref->get())
                    Q_EMIT axisChosen(ref->get(), anAxis);
            });
    connect(&acPlot, &QwtPlot::legendDataChanged, label, [ref, show] {
        if (ref->get())
            show(*ref->get());
    });
    connect(ref, &tcCurveRef::gone, this, [this, box] { mRows->removeRow(box); });
}

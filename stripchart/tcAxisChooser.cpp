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
    auto* label = new QLabel(arCurve.title().text());
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(box);
    mRows->addRow(label, box);

    auto* ref = new tcCurveRef(acPlot, &arCurve, box);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, ref](int anAxis) {
                if (ref->get())
                    Q_EMIT axisChosen(ref->get(), anAxis);
            });
    connect(&acPlot, &QwtPlot::legendDataChanged, label, [ref, label] {
        if (ref->get())
            label->setText(ref->get()->title().text());
    });
    connect(ref, &tcCurveRef::gone, this, [this, box] { mRows->removeRow(box); });
}

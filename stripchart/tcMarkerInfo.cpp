#include "stripchart/tcMarkerInfo.h"

#include "app/logic/tcPointText.h"
#include "stripchart/tcMarkerTable.h"
#include "stripchart/tcRowsDialog.h"
#include "stripchart/tcStripMarker.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>

#include <iterator>

tcMarkerInfo::tcMarkerInfo(tcMarkerTable& arMarkers, QWidget* apParent)
    : QDialog(apParent)
    , mMarkers(arMarkers)
    , mRows(tcRowsDialog::prepare(*this, QSize(400, 120)))
{
    setObjectName(QStringLiteral("tcMarkerInfo"));
    setWindowTitle(tr("Markers"));
    const QList<QUuid> keys = mMarkers.markers().keys();
    for (const QUuid& key : keys)
        addRow(key);
    connect(&mMarkers, &tcMarkerTable::added, this, &tcMarkerInfo::addRow);
    connect(&mMarkers, &tcMarkerTable::removed, this, &tcMarkerInfo::removeRow);
    connect(&mMarkers, &tcMarkerTable::textChanged, this, &tcMarkerInfo::showText);
    tcRowsDialog::fit(*this);
}

void tcMarkerInfo::addRow(const QUuid& acKey)
{
    const tcStripMarker& marker = *mMarkers.find(acKey);
    auto* edit = new QLineEdit(marker.label().text());
    edit->setCursorPosition(0); // a long text shows its start
    const auto place = mEdits.insert(acKey, edit);
    const int row = static_cast<int>(std::distance(mEdits.begin(), place));
    mRows->insertRow(row, tr("at %1").arg(tcPointText::timed(marker.xValue(), marker.yValue())),
                     edit);
    connect(edit, &QLineEdit::textChanged, this,
            [this, acKey](const QString& acText) { takeText(acKey, acText); });
    if (dynamic_cast<const tcStripPointMarker*>(&marker)) {
        edit->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(edit, &QWidget::customContextMenuRequested, this,
                [this, acKey](const QPoint& acPos) { showMenu(acKey, acPos); });
    }
}

/// The keyboard's way to what a right click on the marker offers in the plot.
void tcMarkerInfo::showMenu(const QUuid& acKey, const QPoint& acPos)
{
    QLineEdit* edit = mEdits.value(acKey);
    if (!edit)
        return;
    QMenu* menu = edit->createStandardContextMenu();
    menu->setParent(this, menu->windowFlags()); // the box goes with its marker
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    mMarkers.addDeleteEntry(*menu, acKey);
    menu->popup(edit->mapToGlobal(acPos));
}

void tcMarkerInfo::removeRow(const QUuid& acKey)
{
    if (QLineEdit* edit = mEdits.take(acKey))
        mRows->removeRow(edit);
}

void tcMarkerInfo::showText(const QUuid& acKey)
{
    QLineEdit* edit = mEdits.value(acKey);
    const tcStripMarker* marker = mMarkers.find(acKey);
    if (!edit || !marker || edit->text() == marker->label().text())
        return;
    const QSignalBlocker blocker(edit);
    edit->setText(marker->label().text());
    edit->setCursorPosition(0);
}

void tcMarkerInfo::takeText(const QUuid& acKey, const QString& acText)
{
    mMarkers.setText(acKey, acText);
    Q_EMIT markerChanged(mMarkers.order().indexOf(acKey));
}

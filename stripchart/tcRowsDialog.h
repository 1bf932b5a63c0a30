#pragma once

#include <QSize>

class QDialog;
class QFormLayout;

/// What the dialogs have in common that hold one row per curve or marker: as large as their
/// rows need, and scrollable when there are too many for the screen.
namespace tcRowsDialog
{
/// The layout for the rows, named "formLayout". The dialog has acSize until rows need more.
QFormLayout* prepare(QDialog& arDialog, const QSize& acSize);

/// Grows the dialog to its rows.
void fit(QDialog& arDialog);
} // namespace tcRowsDialog

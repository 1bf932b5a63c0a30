#include "stripchart/tcSkippedRows.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{

constexpr QSize cDialogSize(560, 360);

enum teColumn
{
    LineColumn,
    ReasonColumn,
    TextColumn
};

} // namespace

tcSkippedRows::tcSkippedRows(QWidget& arChart)
    : mChart(arChart), mAction(new QAction(tr("Skipped Rows..."), &arChart))
{
    mAction->setEnabled(false);
    connect(mAction, &QAction::triggered, this, &tcSkippedRows::show);
}

tcSkippedRows::~tcSkippedRows()
{
    delete mDialog;
}

void tcSkippedRows::setReport(const tcCsvReport& acReport)
{
    mReport = acReport;
    mAction->setEnabled(mReport.skipped() > 0);
    if (!mDialog)
        return;
    if (mReport.skipped() > 0)
        fill();
    else
        mDialog->close();
}

void tcSkippedRows::show()
{
    if (!mDialog) {
        mDialog = new QDialog(&mChart);
        mDialog->setAttribute(Qt::WA_DeleteOnClose);
        mDialog->setWindowTitle(tr("Skipped Rows"));
        mDialog->resize(cDialogSize);
        auto* layout = new QVBoxLayout(mDialog);
        auto* summary = new QLabel;
        summary->setObjectName(QStringLiteral("summary"));
        summary->setWordWrap(true);
        layout->addWidget(summary);
        auto* cases = new QTreeWidget;
        cases->setObjectName(QStringLiteral("cases"));
        cases->setAccessibleName(tr("Skipped Rows"));
        cases->setRootIsDecorated(false);
        cases->setUniformRowHeights(true);
        cases->setHeaderLabels({tr("Line"), tr("Reason"), tr("Text")});
        layout->addWidget(cases);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        connect(buttons, &QDialogButtonBox::rejected, mDialog.data(), &QDialog::close);
        layout->addWidget(buttons);
    }
    fill();
    mDialog->show();
    mDialog->raise();
    mDialog->activateWindow();
}

void tcSkippedRows::fill() const
{
    const auto reason = [](tcCsvReport::teReason aReason) {
        switch (aReason) {
        case tcCsvReport::teReason::TooFewFields:
            return tr("Row has no value");
        case tcCsvReport::teReason::BadTime:
            return tr("Row has no time stamp");
        case tcCsvReport::teReason::BadValue:
            return tr("Field is no number");
        case tcCsvReport::teReason::TooManyFields:
            return tr("Field beyond the last column");
        case tcCsvReport::teReason::BadMarker:
            return tr("Marker has no time or value");
        case tcCsvReport::teReason::TooManyMarkers:
            return tr("More markers than a chart shows");
        }
        return QString();
    };
    const QLocale locale;
    QString text
        = tr("Skipped: rows %1, fields %2, markers %3. Rows read: %4.")
              .arg(locale.toString(mReport.skippedRows), locale.toString(mReport.skippedFields),
                   locale.toString(mReport.skippedMarkers), locale.toString(mReport.rows));
    if (mReport.cases.size() < mReport.skipped())
        text += ' ' + tr("The first %1 are listed.").arg(mReport.cases.size());
    mDialog->findChild<QLabel*>(QStringLiteral("summary"))->setText(text);
    auto* cases = mDialog->findChild<QTreeWidget*>(QStringLiteral("cases"));
    cases->clear();
    for (const tcCsvReport::tcCase& skipped : mReport.cases) {
        auto* item = new QTreeWidgetItem(cases);
        item->setText(LineColumn, QString::number(skipped.line));
        item->setTextAlignment(LineColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(ReasonColumn, reason(skipped.reason));
        item->setText(TextColumn, QString::fromLocal8Bit(skipped.text));
    }
    cases->resizeColumnToContents(LineColumn);
    cases->resizeColumnToContents(ReasonColumn);
}

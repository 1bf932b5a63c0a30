#include "stripchart/tcStatisticsDialog.h"

#include "stripchart/logic/tcMeasure.h"
#include "stripchart/tcCurveReading.h"
#include "stripchart/tcMeasuringCursors.h"
#include "stripchart/tcStripCurve.h"

#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <qwt_plot.h>

#include <algorithm>
#include <cmath>

namespace
{
enum teRange
{
    cVisible,
    cBetweenCursors,
};

constexpr int cIntervalMs = 1000;
constexpr int cRestFactor = 10; ///< the chart has the other nine tenths of the time
constexpr qint64 cSwiftMs = 20; ///< a refresh that may follow the mouse
constexpr int cMarkSize = 10;
constexpr int cLeastColumn = 84;

QString timeText(const QDateTime& acTime, bool abWithDay)
{
    return acTime.toString(abWithDay ? QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")
                                     : QStringLiteral("hh:mm:ss.zzz"));
}

QTableWidgetItem& cell(QTableWidget& arTable, int anRow, int anColumn)
{
    if (QTableWidgetItem* item = arTable.item(anRow, anColumn))
        return *item;
    auto* item = new QTableWidgetItem;
    item->setTextAlignment((anColumn == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    arTable.setItem(anRow, anColumn, item);
    return *item;
}
} // namespace

tcStatisticsDialog::tcStatisticsDialog(const QwtPlot& acPlot,
                                       const tcMeasuringCursors& acCursors, QWidget* apParent)
    : QDialog(apParent)
    , mPlot(acPlot)
    , mCursors(acCursors)
    , mRange(new QComboBox)
    , mTimes(new QLabel)
    , mTable(new QTableWidget)
{
    setWindowTitle(tr("Statistics"));
    mRange->addItems({tr("Visible range"), tr("Between the cursors")});
    mRange->setCurrentIndex(mCursors.isShown() ? cBetweenCursors : cVisible);
    mRange->setAccessibleName(tr("Range"));
    mTable->setAccessibleName(windowTitle());
    mTimes->setTextInteractionFlags(Qt::TextSelectableByMouse);
    buildTable();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* copyButton = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    copyButton->setToolTip(tr("Copy the table as text, its columns parted by tabs"));
    auto* head = new QHBoxLayout;
    head->addWidget(mRange);
    head->addWidget(mTimes, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(mTable, 1);
    layout->addWidget(buttons);
    // Made before the box had a window, the buttons left one of them out of the order.
    setTabOrder(mTable, copyButton);
    setTabOrder(copyButton, buttons->button(QDialogButtonBox::Close));
    mTimer.setSingleShot(true);
    connect(&mTimer, &QTimer::timeout, this, &tcStatisticsDialog::refresh);
    connect(mRange, QOverload<int>::of(&QComboBox::activated), this,
            &tcStatisticsDialog::refresh);
    connect(&mCursors, &tcMeasuringCursors::changed, this, &tcStatisticsDialog::takeCursors);
    connect(copyButton, &QPushButton::clicked, this, &tcStatisticsDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    refresh();
    mTable->resizeColumnsToContents();
    const QSize need = mTable->horizontalHeader()->sizeHint();
    resize(std::max(560, mTable->horizontalHeader()->length() + 48),
           160 + mTable->rowCount() * need.height());
}

void tcStatisticsDialog::buildTable()
{
    const QStringList head{tr("Curve"), tr("Count"),          tr("Smallest"), tr("Largest"),
                           tr("Mean"),  tr("Std. deviation"), tr("Slope/min")};
    mTable->setColumnCount(head.size());
    mTable->setHorizontalHeaderLabels(head);
    mTable->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    mTable->horizontalHeader()->setMinimumSectionSize(cLeastColumn);
    // Bold over a selected row, a title would need more room than it has.
    mTable->horizontalHeader()->setHighlightSections(false);
    mTable->verticalHeader()->hide();
    mTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTable->setTabKeyNavigation(false); // the buttons below it could not be reached
    mTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    mTable->setIconSize(QSize(cMarkSize, cMarkSize));
}

void tcStatisticsDialog::refresh()
{
    QElapsedTimer watch;
    watch.start();
    const QPair<double, double> range = span();
    const auto from = QDateTime::fromMSecsSinceEpoch(std::llround(range.first));
    const auto to = QDateTime::fromMSecsSinceEpoch(std::llround(range.second));
    const bool withDay = from.date() != to.date(); // a day later the clock shows the same
    mTimes->setText(
        tr("%1 to %2 (%3)")
            .arg(timeText(from, withDay), timeText(to, withDay),
                 tcMeasure::durationText(std::llround(range.second - range.first))));
    int row = 0;
    const QwtPlotItemList items = mPlot.itemList(tcStripCurve::cRtti);
    for (const QwtPlotItem* item : items) {
        if (!item->isVisible())
            continue;
        mTable->setRowCount(std::max(mTable->rowCount(), row + 1));
        showCurve(row++, static_cast<const tcStripCurve&>(*item), range);
    }
    mTable->setRowCount(row);
    mCostMs = watch.elapsed();
    if (isVisible())
        mTimer.start(std::max(cIntervalMs, static_cast<int>(mCostMs) * cRestFactor));
}

QPair<double, double> tcStatisticsDialog::span()
{
    auto* model = qobject_cast<QStandardItemModel*>(mRange->model());
    model->item(cBetweenCursors)->setEnabled(mCursors.isShown());
    if (!mCursors.isShown())
        mRange->setCurrentIndex(cVisible);
    if (mRange->currentIndex() == cBetweenCursors)
        return mCursors.span();
    const QwtInterval shown = mPlot.axisInterval(QwtPlot::xBottom);
    return {shown.minValue(), shown.maxValue()};
}

void tcStatisticsDialog::showCurve(int anRow, const tcStripCurve& acCurve,
                                   const QPair<double, double>& acSpan)
{
    const tcStatistics sums = tcCurveReading::statistics(acCurve, acSpan.first, acSpan.second);
    const QStringList texts{acCurve.title().text(),
                            QString::number(sums.count()),
                            tcMeasure::valueText(sums.smallest()),
                            tcMeasure::valueText(sums.largest()),
                            tcMeasure::valueText(sums.mean()),
                            tcMeasure::valueText(sums.deviation()),
                            tcMeasure::changeText(sums.slopePerMinute())};
    for (int column = 0; column < texts.size(); ++column)
        cell(*mTable, anRow, column).setText(texts.at(column));
    QPixmap mark(cMarkSize, cMarkSize);
    mark.fill(acCurve.pen().color());
    cell(*mTable, anRow, 0).setIcon(mark);
}

/// Follows the mouse where the samples are few; otherwise the next round takes it along.
void tcStatisticsDialog::takeCursors()
{
    if (isVisible() && mCostMs <= cSwiftMs)
        refresh();
}

QString tcStatisticsDialog::text() const
{
    QStringList lines;
    for (int row = -1; row < mTable->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < mTable->columnCount(); ++column) {
            const QTableWidgetItem* item
                = row < 0 ? mTable->horizontalHeaderItem(column) : mTable->item(row, column);
            // A title may hold anything, also what parts cells and lines.
            cells.append(item->text().replace('\t', ' ').replace('\n', ' '));
        }
        lines.append(cells.join('\t') + '\n');
    }
    return lines.join(QString());
}

void tcStatisticsDialog::copy() const
{
    QGuiApplication::clipboard()->setText(text());
}

void tcStatisticsDialog::showEvent(QShowEvent* apEvent)
{
    QDialog::showEvent(apEvent);
    mTimer.start(0);
}

void tcStatisticsDialog::hideEvent(QHideEvent* apEvent)
{
    mTimer.stop();
    QDialog::hideEvent(apEvent);
}

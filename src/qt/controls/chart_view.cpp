#include "qt/controls/chart_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMimeData>
#include <utility>

#include "qt/controls/printed_chart.h"
#include "qt/print/print_button.h"
#include "qt/surface/field.h"

namespace velmora::qt {

namespace {

constexpr int viewSpacing = 6;

QTableWidget* makeValueTable() {
    auto* table = new QTableWidget;
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 2 * viewSpacing);
    table->horizontalHeader()->setHighlightSections(false);
    return table;
}

QTableWidgetItem* makeCell(const QString& text, bool isNumber) {
    auto* cell = new QTableWidgetItem(text);
    cell->setToolTip(text);
    cell->setTextAlignment(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft));
    return cell;
}

QPushButton* makeSmallButton(const QString& caption, const QString& toolTip) {
    auto* button = new QPushButton(caption);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

ChartView::ChartView(Chart& field, UserHand& hand, QWidget* parent)
    : QWidget(parent),
      regional_(hand.regional()),
      chart_(new ChartWidget(hand.regional())),
      table_(makeValueTable()),
      pages_(new QStackedWidget),
      showTable_(
          makeSmallButton(QStringLiteral("&Table"), QStringLiteral("Show the values as a table"))),
      copy_(makeSmallButton(QStringLiteral("&Copy"),
                            QStringLiteral("Copy the chart as a picture and as text"))),
      buttons_(new QHBoxLayout) {
    layOut();
    showTable_->setCheckable(true);
    connect(showTable_, &QPushButton::toggled, pages_, [this](bool on) { showPage(on); });
    connect(copy_, &QPushButton::clicked, this, [this] { copy(); });
    bindField(this, field, [this, &field] { refresh(field); });
    nameParts();
    fillTable();
}

void ChartView::layOut() {
    pages_->addWidget(chart_);
    pages_->addWidget(table_);
    buttons_->setSpacing(viewSpacing);
    buttons_->addStretch(1);
    buttons_->addWidget(showTable_);
    buttons_->addWidget(copy_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(viewSpacing);
    all->addWidget(pages_, 1);
    all->addLayout(buttons_);
}

void ChartView::nameParts() {
    const auto name = [this](QWidget* part, const char* suffix, const QString& words) {
        part->setObjectName(objectName() + QLatin1String(suffix));
        part->setAccessibleName(words);
    };
    name(chart_, ".Chart", accessibleName());
    name(table_, ".Table", QStringLiteral("%1, as a table").arg(accessibleName()));
    name(showTable_, ".ShowTable", QStringLiteral("Show as a table"));
    name(copy_, ".Copy", QStringLiteral("Copy"));
}

void ChartView::offerPrinting(Printing& printing, UserHand& hand,
                              std::function<PrintedWords()> words) {
    print_ = makePrintButton(printing, hand, [this, words = std::move(words)] {
        return Printout{.words = words(),
                        .picture = printedChart(chart_->content(), regional_),
                        .table = tableOf(chart_->content(), regional_, true)};
    });
    print_->setObjectName(objectName() + QStringLiteral(".Print"));
    print_->setEnabled(!chart_->content().isEmpty());
    buttons_->addWidget(print_);
}

void ChartView::refresh(const Chart& field) {
    const ChartData content = chartDataOf(field);
    if (chart_->content() == content) return;
    chart_->setContent(content);
    fillTable();
    if (print_ != nullptr) print_->setEnabled(!content.isEmpty());
}

void ChartView::fillTable() {
    const TextTable content = tableOf(chart_->content(), regional_, true);
    table_->setColumnCount(static_cast<int>(content.headings.size()));
    table_->setHorizontalHeaderLabels(content.headings);
    table_->setRowCount(static_cast<int>(content.rows.size()));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const QStringList& cells = content.rows[static_cast<std::size_t>(row)];
        for (int i = 0; i < cells.size(); ++i) table_->setItem(row, i, makeCell(cells[i], i > 0));
    }
    for (int i = 0; i < table_->columnCount(); ++i) {
        table_->horizontalHeaderItem(i)->setTextAlignment(Qt::AlignVCenter |
                                                          (i > 0 ? Qt::AlignRight : Qt::AlignLeft));
        table_->horizontalHeader()->setSectionResizeMode(
            i, i == 0 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    }
}

void ChartView::showPage(bool ofTable) {
    pages_->setCurrentIndex(ofTable ? 1 : 0);
    showTable_->setText(ofTable ? QStringLiteral("C&hart") : QStringLiteral("&Table"));
    showTable_->setToolTip(ofTable ? QStringLiteral("Show the values as a chart")
                                   : QStringLiteral("Show the values as a table"));
}

void ChartView::copy() const {
    auto* content = new QMimeData;
    content->setImageData(chart_->picture());
    content->setText(tabSeparated(tableOf(chart_->content(), regional_, false)));
    QGuiApplication::clipboard()->setMimeData(content);
}

}  // namespace velmora::qt

#include "qt/controls/list_view_widget.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "qt/controls/file_drops.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Pixels: the space between the texts of two columns, and the width of a column without texts.
constexpr int columnGap = 4;
constexpr int leastColumn = 56;

}  // namespace

ListViewWidget::ListViewWidget(ListView& list, ListViewModel::Pictures pictures, const Look& look,
                               UserHand& hand, QWidget* parent)
    : QTreeView(parent),
      list_(list),
      look_(look),
      hand_(hand),
      model_(new ListViewModel(list, std::move(pictures), this)) {
    model_->setHasTicks(look.ticks);
    setModel(model_);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideMiddle);
    setMouseTracking(true);
    header()->setStretchLastSection(false);
    header()->setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(40);
    bindField(this, list, [this] {
        showColumns();
        showSortMark();
    });
    connectField();
}

void ListViewWidget::connectField() {
    connect(model_, &ListViewModel::ticked, this,
            [this](int row, bool on) { hand_.does([&] { list_.userTick(row, on); }); });
    connect(model_, &ListViewModel::published, this, [this](bool reset) {
        showColumns();
        showSortMark();
        if (look_.fits) fitColumns();
        if (std::exchange(selectionWaits_, false) && !reset) {
            reportSelection();
        } else if (reset) {
            showSelection();
        }
    });
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
        hand_.does([&] { list_.userClickPart(column + 1); });
        showSortMark();
    });
    follow(list_.SelectionChanged, this, [this] { showSelection(); });
    takeDrops(viewport(), list_, hand_);
}

void ListViewWidget::showColumns() {
    const int columns = model_->columnCount();
    if (shownColumns_ == columns) return;
    shownColumns_ = columns;
    for (int i = 0; i < columns; ++i) {
        setColumnWidth(i, list_.ColumnHeaders(i + 1).Width / twipsPerPixel);
        header()->setSectionResizeMode(
            i, i == look_.stretchedColumn ? QHeaderView::Stretch : QHeaderView::Interactive);
    }
}

// The stretched column takes the remaining width. After the first time columns only get wider: they
// would change their width with every figure.
void ListViewWidget::fitColumns() {
    if (!isVisible()) return;
    for (int i = 0; i < shownColumns_; ++i) {
        if (i == look_.stretchedColumn) continue;
        const int wanted = std::max(sizeHintForColumn(i) + columnGap, leastColumn);
        if (wanted > columnWidth(i) || !fitted_) setColumnWidth(i, wanted);
    }
    fitted_ = fitted_ || model_->rowCount() > 0;
}

void ListViewWidget::showSortMark() {
    header()->setSortIndicatorShown(list_.Sorted());
    if (!list_.Sorted()) return;
    header()->setSortIndicator(list_.SortKey(),
                               list_.SortOrder() == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ListViewWidget::showSelection() {
    if (model_->rowCount() != list_.Count()) return;  // shown after the next publishing
    const QScopedValueRollback<bool> showing(showingSelection_, true);
    QItemSelection rows;
    for (int i = 1; i <= list_.Count(); ++i) {
        if (!list_.ListItems(i).Selected()) continue;
        const QModelIndex index = model_->index(i - 1, 0);
        rows.select(index, index.siblingAtColumn(model_->columnCount() - 1));
    }
    if (rows != selectionModel()->selection()) {
        selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    }
}

void ListViewWidget::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (showingSelection_) return;
    // Some rows are not shown yet, so that the numbers differ: reported once they are.
    selectionWaits_ = model_->rowCount() != list_.Count();
    if (!selectionWaits_) reportSelection();
}

void ListViewWidget::reportSelection() {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(index.row() + 1);
    hand_.does([&] { list_.userSelect(rows); });
}

// The field has its own sizes of rows and columns, which differ from those of the screen.
void ListViewWidget::pointTo(const QPoint& place) {
    const QModelIndex index = indexAt(place);
    float x = -1;
    float y = -1;
    if (index.isValid() && index.column() < list_.ColumnCount()) {
        const int column = index.column() + 1;
        x = static_cast<float>(list_.columnLeft(column) + list_.ColumnHeaders(column).Width / 2);
        y = static_cast<float>(list_.rowTop(index.row() + 1) + ListView::rowHeight / 2);
    }
    hand_.does([&] { list_.MouseMove(x, y); });
}

void ListViewWidget::mouseMoveEvent(QMouseEvent* event) {
    pointTo(event->position().toPoint());
    QTreeView::mouseMoveEvent(event);
}

void ListViewWidget::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) hand_.does([this] { list_.RightClick(); });
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    pointTo(event->position().toPoint());
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid()) {
        hand_.does([this] { list_.DblClick(); });
    }
}

void ListViewWidget::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        currentIndex().isValid()) {
        pointTo(visualRect(currentIndex()).center());
        hand_.does([this] { list_.DblClick(); });
        return;
    }
    QTreeView::keyPressEvent(event);
}

// By the menu key only: the mouse's right button is reported when it is released.
void ListViewWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Mouse) hand_.does([this] { list_.RightClick(); });
    event->accept();
}

}  // namespace velmora::qt

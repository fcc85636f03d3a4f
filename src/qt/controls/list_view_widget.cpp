#include "qt/controls/list_view_widget.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "qt/colours/colours.h"
#include "qt/controls/accessible_list.h"
#include "qt/controls/chart_paint.h"
#include "qt/controls/file_drops.h"
#include "qt/surface/field.h"
#include "qt/surface/menu_place.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Pixels: the space between the texts of two columns, and beside a heading.
constexpr int columnGap = 4;
constexpr int headingMargin = 6;
// Pixels above and below the text of a row, together, and around the words of an empty list.
constexpr int rowMargin = 6;
constexpr int emptyMargin = 12;

// Keys that only move within a list.
bool movesAlong(int key) {
    switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

class RoomyRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return size.expandedTo({0, option.fontMetrics.height() + rowMargin});
    }
};

}  // namespace

ListViewWidget::ListViewWidget(ListView& list, ListViewModel::Pictures pictures, const Look& look,
                               UserHand& hand, QWidget* parent)
    : QTreeView(parent),
      list_(list),
      look_(look),
      hand_(hand),
      model_(new ListViewModel(list, std::move(pictures), this)) {
    model_->setHasTicks(look.ticks);
    model_->setRowWords(look.rowWords);
    makeAccessible(*this);
    setModel(model_);
    setItemDelegate(new RoomyRows(this));
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
    // Rows out of view are measured when they come into view: a long list is published often.
    header()->setResizeContentsPrecision(0);
    header()->setTextElideMode(Qt::ElideRight);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setMinimumSectionSize(0);
    // A check disables the list for a while: the focus must not go to a button meanwhile.
    bindField(
        this, list,
        [this] {
            showColumns();
            showSortMark();
            showEnabled();
        },
        WhenDisabled::keepsFocus);
    connectField();
}

void ListViewWidget::connectField() {
    connect(model_, &ListViewModel::ticked, this, [this](int row, bool on) {
        hand_.does(list_, [&] { list_.userTick(row, on); });
        reportTick(*this, model_->indexOf(row));
    });
    connect(model_, &ListViewModel::published, this, [this](bool reset, int onTop) {
        showColumns();
        showSortMark();
        noteTexts(onTop > 0 ? onTop : model_->rowCount());
        noteWidths();
        fitColumns();
        if (std::exchange(selectionWaits_, false) && !reset) {
            reportSelection();
        } else if (reset) {
            showSelection();
        }
    });
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
        hand_.does(list_, [&] { list_.userClickPart(column + 1); });
        showSortMark();
    });
    connect(header(), &QHeaderView::sectionResized, this, [this] {
        // By the user's hand: the widths stay from now on.
        if (!fitting_ && QGuiApplication::mouseButtons() != Qt::NoButton) sizedByUser_ = true;
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        noteWidths();
        fitColumns();
    });
    follow(list_.SelectionChanged, this, [this] { showSelection(); });
    takeDrops(viewport(), list_, hand_);
}

void ListViewWidget::showColumns() {
    const int columns = model_->columnCount();
    if (shownColumns_ == columns) return;
    shownColumns_ = columns;
    const auto count = static_cast<std::size_t>(columns);
    widest_.assign(count, 0);
    isFilled_.assign(count, false);
    sizedByUser_ = false;
    noteTexts(model_->rowCount());
    fitColumns();
}

// Of the first rows; the others are known.
void ListViewWidget::noteTexts(int rows) {
    for (int column = 0; column < shownColumns_; ++column) {
        std::vector<bool>::reference filled = isFilled_[static_cast<std::size_t>(column)];
        for (int row = 0; row < rows && !filled; ++row) {
            filled = !model_->index(row, column).data().toString().isEmpty();
        }
    }
}

// Columns only get wider: they would change their width with every figure.
void ListViewWidget::noteWidths() {
    for (int column = 0; column < shownColumns_; ++column) {
        int& widest = widest_[static_cast<std::size_t>(column)];
        widest = std::max(widest, sizeHintForColumn(column) + columnGap);
    }
}

int ListViewWidget::headingWidth(int column, bool inOneLine) const {
    const QString heading = shown(list_.ColumnHeaders(column + 1).Text);
    const QFontMetrics metrics(header()->font());
    int width = metrics.horizontalAdvance(heading);
    if (!inOneLine) {
        const auto blank = heading.lastIndexOf(QLatin1Char(' '));
        width = std::max(metrics.horizontalAdvance(heading.left(std::max<qsizetype>(blank, 0))),
                         metrics.horizontalAdvance(heading.mid(blank + 1)));
    }
    const bool isSorted = list_.Sorted() && list_.SortKey() == column;
    const int mark = isSorted ? style()->pixelMetric(QStyle::PM_HeaderMarkSize) : 0;
    return width + 2 * headingMargin + mark;
}

std::vector<ColumnNeed> ListViewWidget::columnNeeds(bool headingsInOneLine) const {
    std::vector<ColumnNeed> needs;
    for (int column = 0; column < shownColumns_; ++column) {
        const auto place = static_cast<std::size_t>(column);
        ColumnNeed need{.wanted = widest_[place],
                        .least = headingWidth(column, headingsInOneLine),
                        .isEmpty = model_->rowCount() > 0 && !isFilled_[place]};
        if (column == look_.stretchedColumn) {
            need.isEmpty = false;
            need.least =
                std::max(need.least, fontMetrics().averageCharWidth() * look_.stretchedLetters);
        }
        needs.push_back(need);
    }
    return needs;
}

void ListViewWidget::fitColumns() {
    if (sizedByUser_ || shownColumns_ == 0) return;
    const QScopedValueRollback<bool> fitting(fitting_, true);
    const int room = viewport()->width();
    const auto fit = [&](const std::vector<ColumnNeed>& needs) {
        return fittedWidths(needs, room, look_.stretchedColumn, look_.stretchedShare);
    };
    const std::vector<ColumnNeed> inOneLine = columnNeeds(true);
    std::vector<int> widths = fit(inOneLine);
    const bool wraps = isTight(inOneLine, widths, room, look_.stretchedColumn);
    if (wraps) widths = fit(columnNeeds(false));
    model_->setWrapsHeadings(wraps);
    for (int column = 0; column < shownColumns_; ++column) {
        const int width = widths[static_cast<std::size_t>(column)];
        setColumnHidden(column, width == 0);
        if (width > 0) setColumnWidth(column, width);
    }
}

void ListViewWidget::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitColumns();
}

void ListViewWidget::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    std::fill(widest_.begin(), widest_.end(), 0);
    noteWidths();
    fitColumns();
}

void ListViewWidget::showEnabled() {
    if (isHeld_ == !list_.Enabled()) return;
    isHeld_ = !list_.Enabled();
    header()->setEnabled(!isHeld_);
    viewport()->update();
}

// A list that is held still shows what is under the arrow keys, but nothing is selected by them.
QItemSelectionModel::SelectionFlags ListViewWidget::selectionCommand(const QModelIndex& index,
                                                                     const QEvent* event) const {
    return isHeld_ ? QItemSelectionModel::NoUpdate : QTreeView::selectionCommand(index, event);
}

void ListViewWidget::initViewItemOption(QStyleOptionViewItem* option) const {
    QTreeView::initViewItemOption(option);
    if (isHeld_) option->state &= ~QStyle::State_Enabled;
}

// What was published while the list was hidden is fitted now.
void ListViewWidget::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    noteWidths();
    fitColumns();
}

void ListViewWidget::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (model_->rowCount() > 0 || look_.emptyWords.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(quietInk(palette()));
    const QMargins around(emptyMargin, emptyMargin, emptyMargin, emptyMargin);
    painter.drawText(viewport()->rect().marginsRemoved(around), Qt::AlignCenter | Qt::TextWordWrap,
                     look_.emptyWords);
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
    if (rows == selectionModel()->selection()) return;
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    // The keys act on what is selected, and it is scrolled to.
    if (!rows.isEmpty() && !rows.contains(currentIndex())) {
        selectionModel()->setCurrentIndex(rows.first().topLeft(), QItemSelectionModel::NoUpdate);
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
    hand_.does(list_, [&] { list_.userSelect(rows); });
    if (isHeld_) showSelection();
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
    hand_.does(list_, [&] { list_.MouseMove(x, y); });
}

void ListViewWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!isHeld_) pointTo(event->position().toPoint());
    QTreeView::mouseMoveEvent(event);
}

void ListViewWidget::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    if (isHeld_ || event->button() != Qt::RightButton) return;
    const MenuPlace place(event->globalPosition().toPoint());
    hand_.does(list_, [this] { list_.RightClick(); });
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (isHeld_) return;
    pointTo(event->position().toPoint());
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid()) {
        hand_.does(list_, [this] { list_.DblClick(); });
    }
}

void ListViewWidget::keyPressEvent(QKeyEvent* event) {
    if (takesKey(*event)) return;
    if (isHeld_ && !movesAlong(event->key())) {
        event->ignore();
        return;
    }
    QTreeView::keyPressEvent(event);
}

bool ListViewWidget::takesKey(const QKeyEvent& event) {
    if (isHeld_ || !currentIndex().isValid()) return false;
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!list_.DblClick.connected()) return false;
            pointTo(visualRect(currentIndex()).center());
            hand_.does(list_, [this] { list_.DblClick(); });
            return true;
        case Qt::Key_Space:
            if (!look_.ticks) return false;
            if (isPlain) {
                tickSelected();
            } else {
                selectionModel()->select(currentIndex(), selectionCommand(currentIndex(), &event));
            }
            return true;
        default:
            return false;
    }
}

// All selected rows get the same tick; the current row, when it is not one of them, gets it alone.
void ListViewWidget::tickSelected() {
    const QModelIndex current = currentIndex().siblingAtColumn(0);
    const bool isOn = current.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    QList<QPersistentModelIndex> rows;
    if (selectionModel()->isSelected(current)) {
        for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(index);
    } else {
        rows.push_back(current);
    }
    for (const QPersistentModelIndex& row : rows) {
        // A handler may have removed it.
        if (row.isValid())
            model_->setData(row, isOn ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
}

// A screen reader is told of the list, and then of the row in it.
void ListViewWidget::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    QMetaObject::invokeMethod(this, &ListViewWidget::reportCurrent, Qt::QueuedConnection);
}

void ListViewWidget::reportCurrent() {
    if (!QAccessible::isActive() || !hasFocus() || !currentIndex().isValid()) return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(accessibleChild(*this, currentIndex()));
    QAccessible::updateAccessibility(&focus);
}

// By the menu key only: the mouse's right button is reported when it is released.
void ListViewWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (isHeld_ || event->reason() == QContextMenuEvent::Mouse) return;
    const MenuPlace place(*viewport(), visualRect(currentIndex()));
    hand_.does(list_, [this] { list_.RightClick(); });
}

}  // namespace velmora::qt

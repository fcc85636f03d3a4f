#include "qt/controls/accessible_list.h"

#include <QAccessibleWidget>
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTreeView>

#include "qt/controls/accessible_part.h"
#include "qt/controls/check_list.h"
#include "qt/controls/list_view_widget.h"

namespace velmora::qt {

namespace {

const QHeaderView* headerOf(const QAbstractItemView& view) {
    const auto* tree = qobject_cast<const QTreeView*>(&view);
    return tree == nullptr ? nullptr : tree->header();
}

int headerRows(const QAbstractItemView& view) {
    return headerOf(view) == nullptr ? 0 : 1;
}

using ListPart = AccessiblePart<QAbstractItemView>;

class ListHeading : public ListPart {
  public:
    ListHeading(QAbstractItemView* view, int column) : ListPart(view), column_(column) {}

    bool isValid() const override {
        return owner() != nullptr && column_ < owner()->model()->columnCount();
    }
    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !isValid()) return {};
        return owner()->model()->headerData(column_, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    QRect rect() const override {
        if (!isValid()) return {};
        const QHeaderView* header = headerOf(*owner());
        const QPoint corner(header->sectionViewportPosition(column_), 0);
        return {header->viewport()->mapToGlobal(corner),
                QSize(header->sectionSize(column_), header->height())};
    }
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override {
        QAccessible::State all;
        all.invisible = isValid() && !headerOf(*owner())->isVisible();
        return all;
    }
    int column() const { return column_; }

  private:
    int column_;
};

class ListCell : public ListPart,
                 public QAccessibleTableCellInterface,
                 public QAccessibleActionInterface {
  public:
    ListCell(QAbstractItemView* view, const QModelIndex& index) : ListPart(view), index_(index) {}

    const QPersistentModelIndex& index() const { return index_; }

    void* interface_cast(QAccessible::InterfaceType kind) override {
        switch (kind) {
            case QAccessible::TableCellInterface:
                return static_cast<QAccessibleTableCellInterface*>(this);
            case QAccessible::ActionInterface:
                return static_cast<QAccessibleActionInterface*>(this);
            default:
                return nullptr;
        }
    }
    bool isValid() const override { return owner() != nullptr && index_.isValid(); }
    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        switch (kind) {
            case QAccessible::Name:
                return index_.data(Qt::DisplayRole).toString();
            case QAccessible::Description:
                return index_.data(Qt::AccessibleDescriptionRole).toString();
            default:
                return {};
        }
    }
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = owner()->visualRect(index_);
        return {owner()->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override {
        return owner() != nullptr && headerOf(*owner()) != nullptr ? QAccessible::Cell
                                                                   : QAccessible::ListItem;
    }
    QAccessible::State state() const override {
        QAccessible::State all;
        if (!isValid()) {
            all.invalid = true;
            return all;
        }
        all.selectable = true;
        all.focusable = true;
        all.selected = isSelected();
        all.extSelectable = owner()->selectionMode() == QAbstractItemView::ExtendedSelection;
        all.focused = owner()->hasFocus() && owner()->currentIndex() == index_;
        all.checkable = isTicked().isValid();
        all.checked = isTicked().toInt() == Qt::Checked;
        all.invisible = !owner()->isVisible() || owner()->visualRect(index_).isEmpty();
        all.offscreen = !owner()->viewport()->rect().intersects(owner()->visualRect(index_));
        return all;
    }

    bool isSelected() const override {
        return isValid() && owner()->selectionModel()->isSelected(index_);
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        if (!isValid() || headerRows(*owner()) == 0) return {};
        return {parent()->child(index_.column())};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return index_.column(); }
    int rowIndex() const override { return index_.row(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override {
        QStringList names{setFocusAction()};
        if (isValid() && isTicked().isValid()) names.prepend(toggleAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (!isValid()) return;
        if (name == setFocusAction()) {
            owner()->setFocus();
            owner()->setCurrentIndex(index_);
        } else if (name == toggleAction() && owner()->isEnabled() && isTicked().isValid()) {
            const bool on = isTicked().toInt() == Qt::Checked;
            owner()->model()->setData(index_, on ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        }
    }
    QStringList keyBindingsForAction(const QString& name) const override {
        return name == toggleAction() ? QStringList{QStringLiteral("Space")} : QStringList{};
    }

  private:
    // Not valid where there is no tick box.
    QVariant isTicked() const { return index_.data(Qt::CheckStateRole); }

    QPersistentModelIndex index_;
};

// The children are the headings and then the cells, row by row.
class AccessibleList : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit AccessibleList(QAbstractItemView* view)
        : QAccessibleWidget(view,
                            headerOf(*view) == nullptr ? QAccessible::List : QAccessible::Table) {}
    void* interface_cast(QAccessible::InterfaceType kind) override {
        if (kind == QAccessible::TableInterface) {
            return static_cast<QAccessibleTableInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State all = QAccessibleWidget::state();
        all.extSelectable = view()->selectionMode() == QAbstractItemView::ExtendedSelection;
        return all;
    }

    int childCount() const override { return (rowCount() + headerRows(*view())) * columnCount(); }
    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= childCount()) return nullptr;
        const int column = number % columnCount();
        const int row = number / columnCount() - headerRows(*view());
        if (row >= 0) return cellAt(row, column);
        return headings_.find(column, [&] { return new ListHeading(view(), column); });
    }
    int indexOfChild(const QAccessibleInterface* part) const override {
        if (const auto* cell = dynamic_cast<const ListCell*>(part)) {
            return cell->isValid() ? accessibleChild(*view(), cell->index()) : -1;
        }
        const auto* heading = dynamic_cast<const ListHeading*>(part);
        return heading == nullptr ? -1 : heading->column();
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return cellOf(view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return view()->hasFocus() ? cellOf(view()->currentIndex()) : nullptr;
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        return cellOf(model().index(row, column));
    }
    int rowCount() const override { return model().rowCount(); }
    int columnCount() const override { return model().columnCount(); }
    QString columnDescription(int column) const override {
        return model().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    QString rowDescription(int row) const override {
        return model().index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
    }

    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        for (const QModelIndex& index : selection().selectedIndexes()) cells << cellOf(index);
        return cells;
    }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override {
        QList<int> rows;
        for (const QModelIndex& index : selection().selectedRows()) rows << index.row();
        return rows;
    }
    bool isRowSelected(int row) const override { return selection().isRowSelected(row); }
    bool selectRow(int row) override { return select(row, QItemSelectionModel::Select); }
    bool unselectRow(int row) override { return select(row, QItemSelectionModel::Deselect); }
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }

    // A cell stays with its row wherever that goes.
    void modelChange(QAccessibleTableModelChangeEvent*) override {
        cells_.forget([](const ListCell& cell) { return !cell.isValid(); });
        headings_.forget([](const ListHeading& heading) { return !heading.isValid(); });
    }

  private:
    QAbstractItemView* view() const { return static_cast<QAbstractItemView*>(widget()); }
    QAbstractItemModel& model() const { return *view()->model(); }
    QItemSelectionModel& selection() const { return *view()->selectionModel(); }

    bool select(int row, QItemSelectionModel::SelectionFlags how) {
        const QModelIndex index = model().index(row, 0);
        if (!index.isValid() || !view()->isEnabled()) return false;
        if (view()->selectionMode() == QAbstractItemView::SingleSelection) {
            how |= QItemSelectionModel::Clear;
        }
        selection().select(index, how | QItemSelectionModel::Rows);
        return true;
    }

    QAccessibleInterface* cellOf(const QModelIndex& index) const {
        if (!index.isValid()) return nullptr;
        return cells_.find(QPersistentModelIndex(index),
                           [&] { return new ListCell(view(), index); });
    }

    mutable AccessibleParts<QPersistentModelIndex, ListCell> cells_;
    mutable AccessibleParts<int, ListHeading> headings_;
};

QAccessibleInterface* makeListInterface(const QString&, QObject* object) {
    const bool isList = qobject_cast<ListViewWidget*>(object) != nullptr ||
                        qobject_cast<CheckList*>(object) != nullptr;
    return isList ? new AccessibleList(static_cast<QAbstractItemView*>(object)) : nullptr;
}

}  // namespace

int accessibleChild(const QAbstractItemView& view, const QModelIndex& index) {
    return (index.row() + headerRows(view)) * view.model()->columnCount() + index.column();
}

void reportTick(QAbstractItemView& view, const QModelIndex& index) {
    if (!QAccessible::isActive() || !index.isValid()) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(&view, changed);
    event.setChild(accessibleChild(view, index));
    QAccessible::updateAccessibility(&event);
}

void makeAccessible(QAbstractItemView& list) {
    QAccessible::installFactory(makeListInterface);
    if (!QAccessible::isActive()) return;
    // While its base class was constructed it may have become known as one of that.
    QAccessibleInterface* known = QAccessible::queryAccessibleInterface(&list);
    if (known != nullptr) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

}  // namespace velmora::qt

#include "qt/controls/list_view_model.h"

#include <QFont>
#include <QIcon>
#include <QMetaObject>
#include <algorithm>
#include <cstddef>
#include <string>

#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// A cell is one line, so nobody reads more of it; all of an alert of a megabyte would be laid out
// at each painting.
constexpr std::size_t mostShown = 4000;  // bytes

// The row keeps the rest.
QString beginningOf(const std::string& text) {
    if (text.size() <= mostShown) return shown(text);
    std::size_t end = mostShown;
    // Not within a letter.
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return shown(text.substr(0, end)) + QChar(u'\u2026');
}

// At its last blank.
QString inTwoLines(QString heading) {
    const qsizetype blank = heading.lastIndexOf(QLatin1Char(' '));
    if (blank > 0) heading[blank] = QLatin1Char('\n');
    return heading;
}

}  // namespace

ListViewModel::ListViewModel(ListView& list, Pictures pictures, QObject* parent)
    : QAbstractTableModel(parent),
      list_(list),
      pictures_(std::move(pictures)),
      rows_(list.Count()),
      columns_(list.ColumnCount()) {
    const auto keep = [this](Connection connection) { connections_.emplace_back(connection); };
    keep(list.RowInserted.connect([this](int index) { rowInserted(index); }));
    keep(list.RowRemoved.connect([this](int) { gather(Pending::everything); }));
    keep(list.RowsReset.connect([this] { gather(Pending::everything); }));
    keep(list.RowChanged.connect([this](const ListItem&) { gather(Pending::contents); }));
    keep(list.Changed.connect([this] {
        columnsChanged_ = true;
        gather(Pending::contents);
    }));
}

void ListViewModel::gather(Pending what) {
    // A pending change covers lesser ones; changed contents do not cover rows at the top.
    pending_ = std::max(pending_, what);
    if (scheduled_) return;
    scheduled_ = true;
    QMetaObject::invokeMethod(this, &ListViewModel::publish, Qt::QueuedConnection);
}

void ListViewModel::rowInserted(int index) {
    if (index == 1 && pending_ <= Pending::onTop) {
        ++onTop_;
        gather(Pending::onTop);
    } else {
        gather(Pending::everything);
    }
}

void ListViewModel::publish() {
    scheduled_ = false;
    if (!listExists()) return;
    const Pending pending = std::exchange(pending_, Pending::nothing);
    const bool reset = pending == Pending::everything || columns_ != list_.ColumnCount();
    const int onTop = pending == Pending::onTop && !reset ? onTop_ : 0;
    if (reset) {
        publishEverything();
    } else if (pending == Pending::onTop) {
        publishOnTop();
    } else if (rows_ > 0 && columns_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    }
    if (std::exchange(columnsChanged_, false) && columns_ > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    }
    emit published(reset, onTop);
}

void ListViewModel::publishOnTop() {
    beginInsertRows({}, 0, onTop_ - 1);
    rows_ += std::exchange(onTop_, 0);
    endInsertRows();
    emit dataChanged(index(0, 0), index(rows_ - 1, std::max(0, columns_ - 1)));
}

void ListViewModel::publishEverything() {
    beginResetModel();
    rows_ = list_.Count();
    columns_ = list_.ColumnCount();
    onTop_ = 0;
    endResetModel();
}

int ListViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListViewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

const ListItem* ListViewModel::rowAt(int published) const {
    const int row = published + onTop_ + 1;
    if (!listExists()) return nullptr;
    return row >= 1 && row <= list_.Count() ? &list_.ListItems(row) : nullptr;
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
    const ListItem* row = index.isValid() ? rowAt(index.row()) : nullptr;
    if (row == nullptr || index.column() >= list_.ColumnCount()) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return text(*row, index.column());
        case Qt::DecorationRole:
            return picture(*row, index.column());
        case Qt::CheckStateRole:
            if (!hasTicks_ || index.column() != 0) return {};
            return row->Checked() ? Qt::Checked : Qt::Unchecked;
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        case Qt::AccessibleDescriptionRole:
            if (index.column() != 0 || !rowWords_) return {};
            return rowWords_(*row);
        case Qt::FontRole:
            if (bold(*row, index.column())) {
                QFont font;
                font.setBold(true);
                return font;
            }
            return {};
        default:
            return {};
    }
}

QVariant ListViewModel::text(const ListItem& row, int column) const {
    // A cell is one line: alerts may hold several.
    QString line = beginningOf(column == 0 ? row.Text() : row.SubItems(column));
    return withVisibleControls(line.replace(QLatin1String("\r\n"), QLatin1String(" ")));
}

QVariant ListViewModel::picture(const ListItem& row, int column) const {
    const std::string& key = column == 0 ? row.SmallIcon() : row.ListSubItems(column).ReportIcon();
    if (key.empty() || key == "0") return {};
    const QIcon icon = pictures_(key);
    return icon.isNull() ? QVariant() : QVariant(icon);
}

bool ListViewModel::bold(const ListItem& row, int column) const {
    return column == 0 ? row.Bold() : row.ListSubItems(column).Bold();
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!listExists() || orientation != Qt::Horizontal || section < 0 ||
        section >= list_.ColumnCount())
        return {};
    const ColumnHeader& column = list_.ColumnHeaders(section + 1);
    if (role == Qt::DisplayRole && wrapsHeadings_) return inTwoLines(shown(column.Text));
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) {
        return shown(column.Text);
    }
    // Left-aligned also over figures: in a narrow column the beginning of a heading says most.
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft);
    return {};
}

void ListViewModel::setWrapsHeadings(bool wraps) {
    if (std::exchange(wrapsHeadings_, wraps) == wraps || columns_ == 0) return;
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
}

int ListViewModel::alignment(int column) const {
    const bool right = list_.ColumnHeaders(column + 1).alignment == Alignment::right;
    return static_cast<int>(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (hasTicks_ && index.column() == 0) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || rowAt(index.row()) == nullptr) return false;
    emit ticked(index.row() + onTop_ + 1, value.toInt() == Qt::Checked);
    return true;
}

}  // namespace velmora::qt

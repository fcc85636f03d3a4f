// The rows of a list for Qt's views: a model over the field, without a copy of its rows. Changes
// are gathered and published in the next round of the event loop, so that a hundred thousand rows
// inserted at the top cost a view one insertion.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "controls/list_view.h"

namespace velmora::qt {

class ListViewModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// The picture of a key (of a row's small icon, or of a sub-item's state).
    using Pictures = std::function<QIcon(const std::string& key)>;
    /// The state of a row in words.
    using RowWords = std::function<QString(const ListItem& row)>;

    ListViewModel(ListView& list, Pictures pictures, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Whether rows have tick boxes.
    void setHasTicks(bool has) { hasTicks_ = has; }
    /// Whether headings of several words take two lines.
    void setWrapsHeadings(bool wraps);
    /// The row of the field behind an index; null when there is none any more.
    const ListItem* rowOf(const QModelIndex& index) const {
        return index.isValid() ? rowAt(index.row()) : nullptr;
    }
    /// What describes a row to a screen reader; empty for nothing.
    void setRowWords(RowWords words) { rowWords_ = std::move(words); }
    /// The first cell of a row of the field, from 1; not valid while the row isn't published.
    QModelIndex indexOf(int row) const { return index(row - onTop_ - 1, 0); }
    /// Publishes the changes that were gathered.
    void publish();

  signals:
    /// The user ticked a row, which counts from 1.
    void ticked(int row, bool on);
    /// The gathered changes are published. After a `reset` a view has lost its selection. `onTop`
    /// rows are new and nothing else has changed; 0 for any other change.
    void published(bool reset, int onTop);

  private:
    enum class Pending { nothing, contents, onTop, everything };

    void gather(Pending what);
    /// False once the field is gone: then there is nothing to show.
    bool listExists() const { return connections_.front().connected(); }
    void rowInserted(int index);
    void publishOnTop();
    void publishEverything();
    /// The row of the field for a published one; null when it was removed and that is not published
    /// yet.
    const ListItem* rowAt(int published) const;
    QVariant text(const ListItem& row, int column) const;
    QVariant picture(const ListItem& row, int column) const;
    bool bold(const ListItem& row, int column) const;
    int alignment(int column) const;

    ListView& list_;
    Pictures pictures_;
    RowWords rowWords_;
    int rows_ = 0;     // published
    int columns_ = 0;  // published
    int onTop_ = 0;    // rows inserted at the top since the last publishing
    Pending pending_ = Pending::nothing;
    bool scheduled_ = false;
    bool columnsChanged_ = false;
    bool hasTicks_ = false;
    bool wrapsHeadings_ = false;
    std::vector<ScopedConnection> connections_;
};

}  // namespace velmora::qt

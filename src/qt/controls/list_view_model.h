// The rows of a list as Qt's views know them: a model over the field, never a copy of its rows.
// Changes are gathered and published when the event loop comes round, so that a hundred thousand
// rows put on top cost a view one insertion.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "controls/list_view.h"

namespace velmora::qt {

class ListViewModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// The picture of a key (of a row's small icon, or of a sub-item's state).
    using Pictures = std::function<QIcon(const std::string& key)>;

    ListViewModel(ListView& list, Pictures pictures, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Publishes what has gathered.
    void publish();

  signals:
    /// The user ticked a row, which counts from 1.
    void ticked(int row, bool on);
    /// What had gathered is published; with `anew` a view has forgotten which rows are selected.
    void published(bool anew);

  private:
    enum class Pending { nothing, contents, onTop, everything };

    void gather(Pending what);
    void rowInserted(int index);
    void rowRemoved(int index);
    void publishOnTop();
    void publishEverything();
    /// The row behind a published one; null while it waits for being published as gone.
    const ListItem* rowAt(int published) const;
    QVariant text(const ListItem& row, int column) const;
    QVariant picture(const ListItem& row, int column) const;
    bool bold(const ListItem& row, int column) const;
    int alignment(int column) const;

    ListView& list_;
    Pictures pictures_;
    int rows_ = 0;     // published
    int columns_ = 0;  // published
    int onTop_ = 0;    // rows put on top since the last publishing
    Pending pending_ = Pending::nothing;
    bool scheduled_ = false;
    bool columnsChanged_ = false;
    bool hasTicks_ = false;

  public:
    /// Whether rows have tick boxes.
    void setHasTicks(bool has) { hasTicks_ = has; }
};

}  // namespace velmora::qt

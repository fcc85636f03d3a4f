// The watch list: its cells show at a glance how full each drive is, and where it is mounted.
#pragma once

#include <QStyledItemDelegate>
#include <functional>
#include <map>
#include <string>

#include "forms/form1.h"
#include "monitor/row_usage.h"
#include "qt/controls/list_view_widget.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// Paints a bar below the free space: its filled part is the used share, its mark the place of the
/// minimum, its colour the row's state. Behind a path it writes the path of the host where that is
/// another one.
class WatchCells : public QStyledItemDelegate {
    Q_OBJECT
  public:
    WatchCells(const Form1& form, const UserHand& hand, ListViewWidget& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    std::optional<RowUsage> usageAt(const QModelIndex& index) const;
    QString hostPathOf(const std::string& path) const;
    void paintFreeSpace(QPainter& painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const;
    static void paintBar(QPainter& painter, const QStyleOptionViewItem& option,
                         const RowUsage& usage);
    void paintHostPath(QPainter& painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const;
    QString explain(const QModelIndex& index) const;

    const Form1& form_;
    const UserHand& hand_;
    ListViewModel& model_;
    mutable std::map<std::string, QString> hostPaths_;
};

/// The colour that a state is painted in, with a contrast of at least 3 to 1 to the ground.
QColor stateColour(RowState state, const QPalette& palette);

/// Where the parts of a bar lie in its cell.
struct SpaceBar {
    QRectF track;
    QRectF used;
    double mark = -1;  ///< x of the minimum, -1 for none
};
SpaceBar laySpaceBar(const QRectF& cell, const RowUsage& usage);

/// "97,936,998 KB free of 499,331,891 KB", the same in GB or MB with the used share, the minimum,
/// and the state in words; a line each.
QString usageInWords(const RowUsage& usage, const Regional& regional);

ListViewWidget* makeWatchListView(Form1& form, ListViewModel::Pictures pictures, UserHand& hand);

}  // namespace velmora::qt

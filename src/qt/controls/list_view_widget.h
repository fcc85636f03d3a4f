// A list of rows in columns, shown over the field's own rows.
#pragma once

#include <QTreeView>
#include <vector>

#include "controls/list_view.h"
#include "qt/controls/column_fit.h"
#include "qt/controls/list_view_model.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class ListViewWidget : public QTreeView {
    Q_OBJECT
  public:
    struct Look {
        bool ticks = false;        ///< rows have tick boxes
        int stretchedColumn = -1;  ///< takes the remaining width; -1 for none
        /// The part of the width, and the letters, that the stretched column never loses to others.
        double stretchedShare = 0.35;
        int stretchedLetters = 10;
        QSize preferred{300, 120};
        ListViewModel::RowWords rowWords{};  ///< the state of a row, for a screen reader
        QString emptyWords{};                ///< what is shown in a list without rows
    };

    ListViewWidget(ListView& list, ListViewModel::Pictures pictures, const Look& look,
                   UserHand& hand, QWidget* parent = nullptr);

    QSize sizeHint() const override { return look_.preferred; }
    ListViewModel& listModel() { return *model_; }

  protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void initViewItemOption(QStyleOptionViewItem* option) const override;

  private:
    void connectField();
    void showEnabled();
    bool takesKey(const QKeyEvent& event);
    void tickSelected();
    void reportCurrent();
    void showColumns();
    void showSortMark();
    void fitColumns();
    void noteTexts(int rows);
    void noteWidths();
    int headingWidth(int column, bool inOneLine) const;
    std::vector<ColumnNeed> columnNeeds(bool headingsInOneLine) const;
    void showSelection();
    void reportSelection();
    void pointTo(const QPoint& place);

    ListView& list_;
    Look look_;
    UserHand& hand_;
    ListViewModel* model_;
    bool showingSelection_ = false;
    bool selectionWaits_ = false;  // the user's, still to be reported
    int shownColumns_ = 0;
    std::vector<int> widest_;     // the greatest width that a column's texts have had
    std::vector<bool> isFilled_;  // whether a column has ever had a text
    bool fitting_ = false;
    bool sizedByUser_ = false;
    bool fitted_ = false;
    bool isHeld_ = false;  // the field is disabled; the focus stays
};

}  // namespace velmora::qt

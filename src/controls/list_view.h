// A list of rows in columns. Rows count from 1, columns from 1, sub-items from 1 (the second
// column). Rows keep their address until they are removed; inserting at the top of a list of any
// length costs the same.
#pragma once

#include <deque>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/list_item.h"

namespace velmora {

enum class Alignment { left, right };

struct ColumnHeader {
    std::string Text;
    int Width = 1440;  ///< twips
    Alignment alignment = Alignment::left;
};

class ListView : public Control {
  public:
    /// A row's height and the height of the header, in twips.
    static constexpr int rowHeight = 255;
    static constexpr int headerHeight = 300;

    explicit ListView(Form& form, std::string name);
    ~ListView() override;

    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    /// Error 35600 for a column that isn't there.
    const ColumnHeader& ColumnHeaders(int index) const;
    void addColumn(ColumnHeader column);
    void setColumnText(int index, std::string text);

    int Count() const { return static_cast<int>(rows_.size()); }
    /// Error 35600 for a row that isn't there.
    ListItem& ListItems(int index);
    const ListItem& ListItems(int index) const;
    /// Adds a row at the end, or at an index from 1 to Count() + 1; error 35600 for others.
    ListItem& Add(std::string text = {});
    ListItem& Add(int index, std::string text);
    void Remove(int index);
    void Clear();

    /// The first selected row, from the top; null when none is.
    ListItem* SelectedItem();

    /// Sorting puts the present rows in order once, by the text of the column `SortKey` (from 0)
    /// without regard to case; rows added later stay where they are inserted.
    int SortKey() const { return sortKey_; }
    int SortOrder() const { return sortOrder_; }
    bool Sorted() const { return sorted_; }
    void sortBy(int key, int order);

    /// Left edge of a column and top edge of a row, in twips within the list.
    int columnLeft(int index) const;
    int rowTop(int index) const { return headerHeight + (index - 1) * rowHeight; }
    /// The row under a point in twips within the list; null when there is none.
    ListItem* HitTest(float x, float y);

    Event<ListItem&> ItemCheck;
    Event<int> ColumnClick;  ///< column from 1
    Event<> DblClick;
    Event<float, float> MouseMove;
    Event<> RightClick;                           ///< the right button was released
    Event<const std::vector<std::string>&> Drop;  ///< drive paths

    Notice<int> RowInserted;  ///< index of the new row
    Notice<int> RowRemoved;   ///< the index that it had
    Notice<> RowsReset;       ///< cleared or sorted
    Notice<const ListItem&> RowChanged;
    Notice<> SelectionChanged;  ///< a row in the list was selected or deselected

    void userTick(int index, bool on);
    /// Selects these rows and no others.
    void userSelect(const std::vector<int>& indexes);
    /// A click on a column's header.
    void userClickPart(int index) override;
    /// Paths dropped on the list; refused where nothing takes them.
    void userDrop(const std::vector<std::string>& paths);
    /// Whether paths may be dropped now.
    bool takesDrops() const { return Drop.connected() && (Enabled() || dropsWhileDisabled_); }
    /// Lets paths be dropped while the list is disabled, for a handler that asks first.
    void allowDropsWhileDisabled() { dropsWhileDisabled_ = true; }
    /// Moves the pointer over the middle of that cell and double-clicks; selects nothing.
    void userDoubleClickOn(int row, int column);
    void userDoubleClick() override;

    std::string mainProperty() const override { return "Count"; }
    Properties properties() override;
    Properties partProperties(int index) override;

  private:
    int selectedIndex() const;
    void refuseWithoutRow(int index) const;

    using Made = std::list<ListItem>;

    std::vector<ColumnHeader> columns_;
    // As they were made, which is mostly their order in memory: so a list that was sorted is
    // cleared as fast as another.
    Made made_;
    std::deque<Made::iterator> rows_;  // as they are shown
    int sortKey_ = 0;
    int sortOrder_ = 0;
    bool sorted_ = false;
    bool dropsWhileDisabled_ = false;
};

}  // namespace velmora

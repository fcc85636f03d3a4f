// One row of a list view. Kept small, since the alert list holds a million of them: sub-items are
// created when they are first written, and fields that few rows have are stored separately.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class ListView;

/// A sub-item: its text and, rarely, a tag, a key, an icon and the bold face.
class ListSubItem {
  public:
    std::string Text;

    const std::string& Tag() const;
    const std::string& Key() const;
    /// Key of an image; empty for none.
    const std::string& ReportIcon() const;
    bool Bold() const { return extras_ && extras_->bold; }

  private:
    friend class ListItem;
    struct Extras {
        std::string tag, key, icon;
        bool bold = false;
    };
    Extras& extras();
    std::unique_ptr<Extras> extras_;
};

class ListItem {
  public:
    explicit ListItem(ListView& owner) : owner_(owner) {}
    ListItem(const ListItem&) = delete;
    ListItem& operator=(const ListItem&) = delete;

    const std::string& Text() const { return text_; }
    void setText(std::string text);
    const std::string& Tag() const { return tag_ ? *tag_ : empty(); }
    void setTag(std::string_view tag);
    /// Key of the image in front of the row's text; empty for none.
    const std::string& SmallIcon() const { return icon_ ? *icon_ : empty(); }
    void setSmallIcon(std::string icon);
    bool Checked() const { return checked_; }
    void setChecked(bool checked);
    bool Selected() const { return selected_; }
    void setSelected(bool selected);
    bool Bold() const { return bold_; }
    void setBold(bool bold);

    /// Sub-items count from 1 to the number of columns less one; error 35600 for others.
    const std::string& SubItems(int index) const { return sub(index).Text; }
    void setSubItems(int index, std::string text);
    const ListSubItem& ListSubItems(int index) const { return sub(index); }
    int SubItemCount() const;
    void setSubTag(int index, std::string_view tag);
    void setSubKey(int index, std::string_view key);
    void setReportIcon(int index, std::string_view icon);
    void setSubBold(int index, bool bold);

  private:
    static const std::string& empty();
    const ListSubItem& sub(int index) const;
    ListSubItem& writable(int index);
    void setExtra(int index, std::string ListSubItem::Extras::*field, std::string_view value);
    void checkIndex(int index) const;
    void changed();

    ListView& owner_;
    std::string text_;
    std::unique_ptr<std::string> tag_;
    std::unique_ptr<std::string> icon_;
    std::vector<ListSubItem> subs_;
    bool checked_ = false;
    bool selected_ = false;
    bool bold_ = false;
};

}  // namespace velmora

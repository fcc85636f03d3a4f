// A specified file or folder: the fields of one entry by name, over a row of LVFile.
// `ConstListedFile` reads, `ListedFile` writes too. Both hold a reference to the row.
#pragma once

#include <string>
#include <utility>

#include "base/text.h"
#include "controls/list_item.h"
#include "rows/size_text.h"

namespace velmora {

class ConstListedFile {
  public:
    explicit ConstListedFile(const ListItem& item) : item_(item) {}

    const std::string& name() const { return item_.Text(); }
    /// The full path, by which all actions go.
    const std::string& path() const { return item_.Tag(); }
    /// What the path is taken to have as the root of its drive: its first three characters.
    std::string root() const { return mid(path(), 1, 3); }
    /// A number of KB and " KB", or "n/a"; empty when it couldn't be read.
    const std::string& size() const { return item_.SubItems(columnSize); }
    /// The same as a number of bytes; empty where the size is none.
    const std::string& bytes() const { return item_.ListSubItems(columnSize).Tag(); }
    const std::string& created() const { return item_.SubItems(columnCreated); }
    const std::string& type() const { return item_.SubItems(columnType); }

  protected:
    // Sub-items.
    static constexpr int columnSize = 1;
    static constexpr int columnLocation = 2;
    static constexpr int columnAccessed = 3;
    static constexpr int columnModified = 4;
    static constexpr int columnCreated = 5;
    static constexpr int columnType = 6;

  private:
    const ListItem& item_;
};

class ListedFile : public ConstListedFile {
  public:
    explicit ListedFile(ListItem& item) : ConstListedFile(item), item_(item) {}

    void setPath(std::string path) { item_.setTag(std::move(path)); }
    /// The size of what doesn't exist, or isn't measured.
    void setNoSize() { item_.setSubItems(columnSize, "n/a"); }
    /// `text` is shown; the number of bytes, as text too, is kept with it.
    void setSize(std::string text, std::string bytes) {
        item_.setSubItems(columnSize, std::move(text));
        item_.setSubTag(columnSize, std::move(bytes));
    }
    void setLocation(std::string folder) { item_.setSubItems(columnLocation, std::move(folder)); }
    void setAccessed(std::string date) { item_.setSubItems(columnAccessed, std::move(date)); }
    void setModified(std::string date) { item_.setSubItems(columnModified, std::move(date)); }
    void setCreated(std::string date) { item_.setSubItems(columnCreated, std::move(date)); }
    void setType(std::string type) { item_.setSubItems(columnType, std::move(type)); }

  private:
    ListItem& item_;
};

}  // namespace velmora

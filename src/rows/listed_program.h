// A specified program: the fields of one entry by name, over a row of LVProg.
// `ConstListedProgram` reads, `ListedProgram` writes too. Both hold a reference to the row.
#pragma once

#include <string>
#include <utility>

#include "controls/list_item.h"

namespace velmora {

class ConstListedProgram {
  public:
    explicit ConstListedProgram(const ListItem& item) : item_(item) {}

    /// The full path, by which it is run.
    const std::string& path() const { return item_.Tag(); }
    /// What is done with it.
    const std::string& action() const { return item_.SubItems(columnAction); }
    const std::string& location() const { return item_.SubItems(columnLocation); }
    const std::string& type() const { return item_.SubItems(columnType); }

  protected:
    // Sub-items.
    static constexpr int columnAction = 1;
    static constexpr int columnLocation = 2;
    static constexpr int columnType = 3;

  private:
    const ListItem& item_;
};

class ListedProgram : public ConstListedProgram {
  public:
    explicit ListedProgram(ListItem& item) : ConstListedProgram(item), item_(item) {}

    void setPath(std::string path) { item_.setTag(std::move(path)); }
    void setAction(std::string action) { item_.setSubItems(columnAction, std::move(action)); }
    void setLocation(std::string folder) { item_.setSubItems(columnLocation, std::move(folder)); }
    void setType(std::string type) { item_.setSubItems(columnType, std::move(type)); }

  private:
    ListItem& item_;
};

}  // namespace velmora

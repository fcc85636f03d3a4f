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

  private:
    const ListItem& item_;
};

class ListedProgram : public ConstListedProgram {
  public:
    explicit ListedProgram(ListItem& item) : ConstListedProgram(item), item_(item) {}

    void setPath(std::string path) { item_.setTag(std::move(path)); }
    void setAction(std::string action) { item_.setSubItems(1, std::move(action)); }
    void setLocation(std::string folder) { item_.setSubItems(2, std::move(folder)); }
    void setType(std::string type) { item_.setSubItems(3, std::move(type)); }

  private:
    ListItem& item_;
};

}  // namespace velmora

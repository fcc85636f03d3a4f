// Lists of the setup wizard whose rows and entries stand for those of the main window. What was
// added and removed in the wizard is added and removed there; all else there stays.
#pragma once

#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/list_view.h"
#include "shell/wizard/mirror.h"

namespace velmora {

/// What is in the first list and not in the second, each occurrence counted by itself; in order.
std::vector<std::string> withoutThose(const std::vector<std::string>& from,
                                      std::vector<std::string> taken);

/// The texts, tags and ticks of a row, as far as the other list has its columns.
void copyRow(const ListItem& from, ListItem& to);

/// The entries of a box.
class EntriesMirror final : public Mirror {
  public:
    EntriesMirror(ComboBox& mine, ComboBox& theirs) : mine_(mine), theirs_(theirs) {}

    void read() override;
    bool touched() const override;
    void write() override;

  private:
    ComboBox& mine_;
    ComboBox& theirs_;
    std::vector<std::string> asRead_;
};

/// The rows of a list, known by the paths in their tags.
class RowsMirror final : public Mirror {
  public:
    RowsMirror(ListView& mine, ListView& theirs) : mine_(mine), theirs_(theirs) {}

    void read() override;
    bool touched() const override;
    void write() override;

  private:
    ListView& mine_;
    ListView& theirs_;
    std::vector<std::string> asRead_;
};

}  // namespace velmora

// The history's window and its export. The checks feed it; no drive is asked for it.
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "forms/forms.h"
#include "monitor/history/space_history.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "rows/watch_row.h"

namespace velmora {

class HistoryView {
  public:
    /// Connects its handlers to the forms. All of the arguments must outlive it.
    HistoryView(Forms& forms, Platform& platform, Host& host);
    HistoryView(const HistoryView&) = delete;
    HistoryView& operator=(const HistoryView&) = delete;

    /// Takes the free space of each watched row that is available, up to the row at that index. To
    /// be called once a check.
    void recordRows(int last = std::numeric_limits<int>::max());
    const SpaceHistory& history() const { return history_; }

  private:
    void open();
    void fillPaths();
    void showChosen();
    void showPath(const std::string& path);
    void showAll();
    void cmdExport_Click();
    std::int64_t now() const;
    std::optional<double> triggerOf(const std::string& path) const;

    FrmHistory& form_;
    Form1& form1_;
    Platform& platform_;
    Host& host_;
    SpaceHistory history_;
    std::vector<std::string> listed_;  // the paths to choose from
};

}  // namespace velmora

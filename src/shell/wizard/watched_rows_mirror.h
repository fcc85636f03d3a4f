// The wizard's list of drives and paths, which stands for the watch list.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "controls/list_view.h"
#include "controls/timer.h"
#include "monitor/watch_list_commands.h"
#include "shell/wizard/mirror.h"

namespace velmora {

class WatchedRowsMirror final : public Mirror {
  public:
    /// `timer` is the watch's own.
    WatchedRowsMirror(ListView& mine, ListView& theirs, Timer& timer, WatchListCommands& commands)
        : mine_(mine), theirs_(theirs), timer_(timer), commands_(commands) {}

    /// Gives the wizard's list its columns too.
    void read() override;
    bool touched() const override;
    /// Ticks, removes, then adds, by the steps of the watch list's own commands. Asks first while a
    /// check runs; refused then, it stays touched. A watch that runs goes on, also when a path
    /// isn't found.
    void write() override;

  private:
    /// The ticks of the rows of each path, from the top.
    using Ticks = std::map<std::string, std::vector<bool>>;
    struct Added {
        std::string path;
        bool ticked;
    };

    static Ticks ticksOf(const ListView& list);
    void addColumns();
    void tickRows(const Ticks& now);
    void tick(ListItem& row, bool ticked);
    void removeRows(const Ticks& now);
    std::vector<Added> addedRows() const;
    void add(const Added& added);

    ListView& mine_;
    ListView& theirs_;
    Timer& timer_;
    WatchListCommands& commands_;
    Ticks asRead_;
};

}  // namespace velmora

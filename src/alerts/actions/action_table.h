// The actions by their place in lstAct. The check runs the actions of this table and has none of
// its own; a place without an entry does nothing.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <utility>

#include "alerts/actions/shortage.h"
#include "forms/action_entries.h"

namespace velmora {

class ActionTable {
  public:
    /// Errors go to the check, whose fault path ends the pass; what an action did before the error
    /// isn't undone.
    using Handler = std::function<void(Shortage&)>;

    /// `place` is one of namespace act.
    void set(int place, Handler handler) {
        handlers_.at(static_cast<std::size_t>(place)) = std::move(handler);
    }

    /// Runs the action of that place; any number may be given.
    void run(int place, Shortage& shortage) const {
        const auto index = static_cast<std::size_t>(place);
        if (place >= 0 && index < handlers_.size() && handlers_[index]) handlers_[index](shortage);
    }

  private:
    std::array<Handler, actionEntries.size()> handlers_;
};

}  // namespace velmora

// What is kept for the user, in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/user_state.h"

namespace velmora::fake {

class FakeUserState final : public UserState {
  public:
    std::optional<std::string> read(const std::string& name) override {
        const auto found = kept.find(name);
        if (!hasFolder || found == kept.end()) return std::nullopt;
        return found->second;
    }
    bool write(const std::string& name, std::string_view content) override {
        if (!hasFolder || !isUserStateName(name) || content.size() > mostUserState) return false;
        if (writesUntilFull && writes >= *writesUntilFull) return false;
        kept[name] = content;
        ++writes;
        return true;
    }
    bool move(const std::string& from, const std::string& to) override {
        const auto found = kept.find(from);
        const bool isAllowed = hasFolder && isUserStateName(from) && isUserStateName(to);
        if (!isAllowed || found == kept.end()) return false;
        if (movesUntilStuck && moves >= *movesUntilStuck) return false;
        ++moves;
        if (from == to) return true;
        kept[to] = found->second;
        kept.erase(from);
        return true;
    }
    std::string placeOf(const std::string& name) override { return "the user's " + name; }

    std::map<std::string, std::string> kept;
    int writes = 0;         ///< those that were done
    bool hasFolder = true;  ///< the folder can be made and is the user's own
    /// After as many writes there is no room for more.
    std::optional<int> writesUntilFull;
    int moves = 0;  ///< those that were done
    /// After as many moves no more can be done.
    std::optional<int> movesUntilStuck;
};

}  // namespace velmora::fake

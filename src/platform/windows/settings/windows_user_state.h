// The folder of the user's own state on this host.
#pragma once

#include "platform/user_state.h"

namespace velmora::windows {

class WindowsUserState final : public UserState {
  public:
    std::optional<std::string> read(const std::string& name) override;
    bool write(const std::string& name, std::string_view content) override;
    bool move(const std::string& from, const std::string& to) override;
    std::string placeOf(const std::string& name) override;
};

}  // namespace velmora::windows

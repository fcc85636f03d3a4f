// The last settings that the program has started with, kept in the user's own folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/user_state.h"

namespace velmora {

class GoodCopies {
  public:
    explicit GoodCopies(UserState& state) : state_(state) {}

    /// As many are kept for each settings file.
    static constexpr int most = 5;

    struct Copy {
        std::string content;
        std::string place;  ///< the file in which it lies, as the host writes it
    };

    /// Keeps what the settings file held when the program had started with it. The same content
    /// once more keeps nothing. Where nothing can be kept, nothing happens.
    void keep(const std::string& settingsPath, std::string_view content);
    /// The newest copy that differs from what the file holds now, which may be nothing.
    std::optional<Copy> newestOtherThan(const std::string& settingsPath,
                                        const std::optional<std::string>& present);
    /// Keeps what is about to be replaced by a copy, apart from the copies. Gives its place; empty
    /// where it can't be kept.
    std::string keepReplaced(const std::string& settingsPath, std::string_view content);

  private:
    UserState& state_;
};

}  // namespace velmora

#include "persist/recovery/good_copies.h"

#include <utility>

#include "base/text.h"
#include "platform/path_sum.h"

namespace velmora {

namespace {

// The settings of one program folder are told from those of another.
std::string nameOf(const std::string& settingsPath, const std::string& which) {
    return "set-" + sumOfPath(lowerCase(settingsPath)) + "-" + which + ".dat";
}

// The newest is 1.
std::string nameOf(const std::string& settingsPath, int number) {
    return nameOf(settingsPath, std::to_string(number));
}

}  // namespace

void GoodCopies::keep(const std::string& settingsPath, std::string_view content) {
    if (state_.read(nameOf(settingsPath, 1)) == content) return;
    // A run that is ended in between leaves one copy twice, and loses none but the oldest.
    for (int number = most; number > 1; --number) {
        const auto newer = state_.read(nameOf(settingsPath, number - 1));
        if (newer) state_.write(nameOf(settingsPath, number), *newer);
    }
    state_.write(nameOf(settingsPath, 1), content);
}

std::optional<GoodCopies::Copy> GoodCopies::newestOtherThan(
    const std::string& settingsPath, const std::optional<std::string>& present) {
    for (int number = 1; number <= most; ++number) {
        const std::string name = nameOf(settingsPath, number);
        auto content = state_.read(name);
        if (content && content != present) {
            return Copy{.content = *std::move(content), .place = state_.placeOf(name)};
        }
    }
    return std::nullopt;
}

std::string GoodCopies::keepReplaced(const std::string& settingsPath, std::string_view content) {
    const std::string name = nameOf(settingsPath, "replaced");
    return state_.write(name, content) ? state_.placeOf(name) : std::string{};
}

}  // namespace velmora

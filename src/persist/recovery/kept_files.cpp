#include "persist/recovery/kept_files.h"

namespace velmora {

std::vector<KeptFiles::Kept> KeptFiles::newestFirst() {
    std::vector<Kept> all;
    for (int number = 1; number <= most; ++number) {
        const std::string name = nameOf(number);
        if (auto content = state_.read(name)) {
            all.push_back({.content = *std::move(content), .place = state_.placeOf(name)});
        }
    }
    return all;
}

std::string KeptFiles::keep(std::string_view content) {
    if (state_.read(nameOf(1)) == content) return place();
    // A run that is ended in between leaves one file twice, and loses none but the oldest.
    for (int number = most; number > 1; --number) {
        const auto newer = state_.read(nameOf(number - 1));
        if (newer) state_.write(nameOf(number), *newer);
    }
    return state_.write(nameOf(1), content) ? place() : std::string{};
}

}  // namespace velmora

#include "persist/recovery/kept_files.h"

namespace velmora {

namespace {

// The number of one that waits for its place.
constexpr int waiting = 0;

constexpr int none = -1;

}  // namespace

std::vector<KeptFiles::Kept> KeptFiles::newestFirst() {
    std::vector<Kept> all;
    for (int number = waiting; number <= most; ++number) {
        const std::string name = nameOf(number);
        if (auto content = state_.read(name)) {
            all.push_back({.content = *std::move(content), .place = state_.placeOf(name)});
        }
    }
    return all;
}

int KeptFiles::numberOf(std::string_view content) {
    for (int number = waiting; number <= most; ++number) {
        if (state_.read(nameOf(number)) == content) return number;
    }
    return none;
}

int KeptFiles::firstFree() {
    int number = 1;
    while (number < most && state_.read(nameOf(number))) ++number;
    return number;
}

// Only the first step needs room, and none loses a content but the last, which drops the oldest
// when all have a place. Who is ended in between has one more file for a while.
std::string KeptFiles::keep(std::string_view content) {
    const int number = numberOf(content);
    if (number == 1) return place();
    if (number != waiting && state_.read(nameOf(waiting)) && !bringToFront()) return {};
    const bool isKept = number == none
                            ? state_.write(nameOf(waiting), content)
                            : number == waiting || state_.move(nameOf(number), nameOf(waiting));
    if (!isKept) return {};
    return bringToFront() ? place() : state_.placeOf(nameOf(waiting));
}

// The one that waits becomes the newest.
bool KeptFiles::bringToFront() {
    for (int number = firstFree(); number > waiting; --number) {
        if (!state_.move(nameOf(number - 1), nameOf(number))) return false;
    }
    return true;
}

}  // namespace velmora

#include "controls/line_index.h"

#include <algorithm>
#include <utility>

namespace velmora {

bool LineIndex::Reader::read(char character) {
    if (character == '\n') {
        sum_ = 0;
        isInEnd_ = true;
        return false;
    }
    if (!isInEnd_) return false;
    // An odd factor with bits in all bytes: the upper half depends on every character.
    sum_ = (sum_ + static_cast<unsigned char>(character) + 1) * 0x9E3779B97F4A7C15U;
    sum_ ^= sum_ >> 29;
    if (character != '/') return false;
    isInEnd_ = false;
    return true;
}

void LineIndex::prepend(std::string_view text) {
    for (auto character = text.rbegin(); character != text.rend(); ++character) {
        if (reader_.read(*character)) insert(reader_.number());
    }
}

// Where the text occurs, the reader of the whole meets its line feeds and what is before each of
// them, and so has put the same numbers in.
bool LineIndex::mayContain(std::string_view text) const {
    Reader reader;
    return std::none_of(text.rbegin(), text.rend(), [&](char character) {
        return reader.read(character) && !has(reader.number());
    });
}

bool LineIndex::knows(std::string_view text) {
    Reader reader;
    return std::any_of(text.rbegin(), text.rend(),
                       [&reader](char character) { return reader.read(character); });
}

// 0 stands for an empty place.
std::size_t LineIndex::placeOf(std::uint32_t number) const {
    std::size_t place = number & (places_.size() - 1);
    while (places_[place] != 0 && places_[place] != number)
        place = (place + 1) & (places_.size() - 1);
    return place;
}

bool LineIndex::has(std::uint32_t number) const {
    number = std::max(number, 1U);
    return !places_.empty() && places_[placeOf(number)] == number;
}

void LineIndex::insert(std::uint32_t number) {
    if (used_ * 2 >= places_.size()) grow();
    number = std::max(number, 1U);
    std::uint32_t& place = places_[placeOf(number)];
    if (place == 0) ++used_;
    place = number;
}

void LineIndex::grow() {
    constexpr std::size_t least = 64;
    const auto former =
        std::exchange(places_, std::vector<std::uint32_t>(std::max(least, places_.size() * 2)));
    for (const std::uint32_t number : former) {
        if (number != 0) places_[placeOf(number)] = number;
    }
}

}  // namespace velmora

#include "controls/property.h"

#include <charconv>

#include "base/text.h"

namespace velmora {

bool readSwitch(const std::string& text) {
    const std::string word = lowerCase(trim(text));
    if (word == "on" || word == "true" || word == "1" || word == "-1") return true;
    if (word == "off" || word == "false" || word == "0") return false;
    throw Refused("not a switch (on or off): " + text);
}

std::int64_t readWhole(const std::string& text, std::int64_t least, std::int64_t most) {
    const std::string digits = trim(text);
    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, value);
    if (read.ec != std::errc{} || read.ptr != end || digits.empty()) {
        throw Refused("not a whole number: " + text);
    }
    if (value < least || value > most) {
        throw Refused("not from " + std::to_string(least) + " to " + std::to_string(most) + ": " +
                      text);
    }
    return value;
}

}  // namespace velmora

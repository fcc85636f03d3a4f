#include "platform/beside_name.h"

#include <charconv>

namespace velmora {

namespace {

std::optional<std::uint32_t> numberIn(std::string_view text) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number == 0) return std::nullopt;
    return number;
}

}  // namespace

std::string besideName(std::string_view name, std::uint32_t process) {
    return '.' + std::string(name) + '.' + std::to_string(process);
}

std::optional<std::uint32_t> writerBeside(std::string_view file, std::string_view name) {
    const auto point = file.rfind('.');
    if (!file.starts_with('.') || point < 2) return std::nullopt;
    const bool isOfName = name.empty() || file.substr(1, point - 1) == name;
    return isOfName ? numberIn(file.substr(point + 1)) : std::nullopt;
}

}  // namespace velmora

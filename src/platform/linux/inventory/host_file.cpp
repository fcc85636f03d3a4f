#include "platform/linux/inventory/host_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

constexpr std::string_view fieldBlanks = " \t\r";

// The word at the front, which is taken away with the blanks before it.
std::string_view takeWord(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(fieldBlanks), line.size()));
    const auto word = line.substr(0, line.find_first_of(fieldBlanks));
    line.remove_prefix(word.size());
    return word;
}

template <typename Number>
std::optional<Number> numberIn(std::string_view text) {
    const auto word = takeWord(text);
    Number value = 0;
    const auto read = std::from_chars(word.data(), word.data() + word.size(), value);
    if (word.empty() || read.ec != std::errc() || read.ptr != word.data() + word.size() ||
        text.find_first_not_of(fieldBlanks) != std::string_view::npos)
        return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::string> readHostFile(int folder, const std::string& name) {
    const UniqueFd file(openat(folder, name.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return std::nullopt;
    std::string content;
    char bytes[8192];
    while (content.size() < longestHostFile) {
        const auto size = read(file.get(), bytes, sizeof bytes);
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return std::nullopt;
        if (size == 0) break;
        content.append(bytes, static_cast<std::size_t>(size));
    }
    return content;
}

std::optional<std::string> readHostFile(const std::string& path) {
    return readHostFile(AT_FDCWD, path);
}

std::optional<std::int64_t> signedNumber(std::string_view text) {
    return numberIn<std::int64_t>(text);
}

std::optional<std::uint64_t> unsignedNumber(std::string_view text) {
    return numberIn<std::uint64_t>(text);
}

std::map<std::string, std::uint64_t, std::less<>> namedNumbers(std::string_view text) {
    std::map<std::string, std::uint64_t, std::less<>> numbers;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        auto name = takeWord(line);
        if (name.ends_with(':')) name.remove_suffix(1);
        const auto value = unsignedNumber(takeWord(line));
        if (value && !name.empty()) numbers.emplace(name, *value);
    }
    return numbers;
}

}  // namespace velmora::linuxhost

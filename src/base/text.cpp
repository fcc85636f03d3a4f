#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/runtime_error.h"

namespace velmora {

namespace {

constexpr std::size_t wordSize = sizeof(std::uint64_t);

bool isAsciiWord(const char* bytes) {
    std::uint64_t word;
    std::memcpy(&word, bytes, wordSize);
    return (word & 0x8080808080808080u) == 0;
}

bool isAscii(std::string_view text) {
    std::size_t at = 0;
    for (; at + wordSize <= text.size(); at += wordSize)
        if (!isAsciiWord(text.data() + at)) return false;
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The byte after `count` characters from the byte `at`, at most the end of the text.
std::size_t skipCharacters(std::string_view text, std::size_t at, std::size_t count) {
    while (count > 0 && at < text.size()) {
        if (count >= wordSize && at + wordSize <= text.size() && isAsciiWord(text.data() + at)) {
            at += wordSize;
            count -= wordSize;
        } else {
            at += characterSize(text, at);
            --count;
        }
    }
    return at;
}

/// The number of bytes that a lead byte announces, 1 for one that is no lead byte. C0, C1 and F5
/// to FF never begin a character.
std::size_t announcedSize(unsigned char lead) {
    if (lead < 0xC2 || lead > 0xF4) return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Whether the second byte keeps its character out of overlong forms, surrogates and values above
/// U+10FFFF.
bool allowedSecond(unsigned char lead, unsigned char second) {
    switch (lead) {
        case 0xE0:
            return second >= 0xA0;
        case 0xED:
            return second < 0xA0;
        case 0xF0:
            return second >= 0x90;
        case 0xF4:
            return second < 0x90;
        default:
            return true;
    }
}

}  // namespace

std::size_t characterSize(std::string_view text, std::size_t at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t size = announcedSize(lead);
    if (size == 1 || at + size > text.size()) return 1;
    for (std::size_t i = 1; i < size; ++i)
        if ((static_cast<unsigned char>(text[at + i]) & 0xC0) != 0x80) return 1;
    return allowedSecond(lead, static_cast<unsigned char>(text[at + 1])) ? size : 1;
}

std::size_t length(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        const bool word = at + wordSize <= text.size() && isAsciiWord(text.data() + at);
        at += word ? wordSize : characterSize(text, at);
        count += word ? wordSize : 1;
    }
    return count;
}

std::string mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start == 0) throw RuntimeError(error::invalidCall);
    const std::size_t from = skipCharacters(text, 0, start - 1);
    return std::string(text.substr(from, skipCharacters(text, from, count) - from));
}

std::string left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, skipCharacters(text, 0, count)));
}

std::string right(std::string_view text, std::size_t count) {
    const std::size_t total = isAscii(text) ? text.size() : length(text);
    if (count >= total) return std::string(text);
    return std::string(text.substr(skipCharacters(text, 0, total - count)));
}

std::size_t position(std::string_view text, std::string_view what) {
    const std::size_t at = text.empty() ? std::string_view::npos : text.find(what);
    return at == std::string_view::npos ? 0 : length(text.substr(0, at)) + 1;
}

std::size_t lastPosition(std::string_view text, std::string_view what) {
    if (what.empty()) return length(text);
    const std::size_t at = text.rfind(what);
    return at == std::string_view::npos ? 0 : length(text.substr(0, at)) + 1;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(what, from)) != std::string_view::npos;) {
        result.append(text.substr(from, at - from)).append(with);
        from = at + what.size();
    }
    return result.append(text.substr(from));
}

std::string trim(std::string_view text) {
    return std::string(trimmed(text));
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string asciiUpperCase(std::string_view text) {
    constexpr char distance = 'a' - 'A';
    std::string upper(text);
    for (char& letter : upper) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - distance);
    }
    return upper;
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    if (!separator.empty()) {
        for (std::size_t at; (at = text.find(separator, from)) != std::string_view::npos;) {
            parts.emplace_back(text.substr(from, at - from));
            from = at + separator.size();
        }
    }
    parts.emplace_back(text.substr(from));
    return parts;
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text, at);
        if (size == 1 && static_cast<unsigned char>(text[at]) >= 0x80) return false;
        at += size;
    }
    return true;
}

}  // namespace velmora

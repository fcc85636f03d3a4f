#include "platform/linux/paths/path_names.h"

#include <vector>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

constexpr unsigned backSlashStandIn = 0xF05C;
constexpr unsigned quoteStandIn = 0xF022;
constexpr unsigned firstByteStandIn = 0xF700;

// The three-byte form that every stand-in has; 0 for other characters.
unsigned codePointOf(std::string_view character) {
    if (character.size() != 3) return 0;
    const auto bits = [&character](std::size_t i, unsigned mask) {
        return static_cast<unsigned char>(character[i]) & mask;
    };
    return bits(0, 0x0F) << 12 | bits(1, 0x3F) << 6 | bits(2, 0x3F);
}

void appendCode(std::string& text, unsigned code) {
    text += static_cast<char>(0xE0 | code >> 12);
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
}

bool standsForByte(unsigned code) {
    return code >= firstByteStandIn + 0x80 && code <= firstByteStandIn + 0xFF;
}

bool isStandIn(unsigned code) {
    return code == backSlashStandIn || code == quoteStandIn || standsForByte(code);
}

void appendDriveCharacter(std::string& text, std::string_view character) {
    const auto byte = static_cast<unsigned char>(character[0]);
    if (character == "/") {
        text += '\\';
    } else if (character == "\\") {
        appendCode(text, backSlashStandIn);
    } else if (character == "\"") {
        appendCode(text, quoteStandIn);
    } else if (character.size() == 1 && byte >= 0x80) {
        appendCode(text, firstByteStandIn + byte);
    } else if (isStandIn(codePointOf(character))) {
        for (const char part : character)
            appendCode(text, firstByteStandIn + static_cast<unsigned char>(part));
    } else {
        text += character;
    }
}

void appendHostCharacter(std::string& text, std::string_view character) {
    const unsigned code = codePointOf(character);
    if (character == "\\") {
        text += '/';
    } else if (code == backSlashStandIn) {
        text += '\\';
    } else if (code == quoteStandIn) {
        text += '"';
    } else if (standsForByte(code)) {
        text += static_cast<char>(code - firstByteStandIn);
    } else {
        text += character;
    }
}

// The text with what `append` makes of each character.
template <typename Append>
std::string withEach(std::string_view text, const Append& append) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto size = characterSize(text, at);
        append(result, text.substr(at, size));
        at += size;
    }
    return result;
}

}  // namespace

std::string toDriveNames(std::string_view hostPath) {
    return withEach(hostPath, appendDriveCharacter);
}

std::string toHostNames(std::string_view driveNames) {
    return withEach(driveNames, appendHostCharacter);
}

std::string normalized(std::string_view path, std::string_view separators, char separator) {
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const auto end = path.find_first_of(separators);
        const auto name = path.substr(0, end);
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
        if (name.empty() || name == ".") continue;
        if (name != "..") {
            names.push_back(name);
        } else if (!names.empty()) {
            names.pop_back();
        }
    }
    std::string text;
    for (const auto name : names) {
        if (!text.empty()) text += separator;
        text += name;
    }
    return text;
}

bool isDots(std::string_view name) {
    return name == "." || name == "..";
}

bool isWithin(std::string_view path, std::string_view folder) {
    if (folder == "/") return !path.empty() && path[0] == '/';
    if (path.substr(0, folder.size()) != folder) return false;
    return path.size() == folder.size() || path[folder.size()] == '/';
}

}  // namespace velmora::linuxhost

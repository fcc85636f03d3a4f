#include "platform/linux/inventory/record_text.h"

#include <algorithm>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

// U+0000 to U+001F, and U+007F to U+009F.
bool isControlCharacter(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    return character.size() == 2 && first == 0xC2 &&
           static_cast<unsigned char>(character[1]) < 0xA0;
}

// U+2028 and U+2029 end a line and a paragraph.
bool isUnicodeLineEnd(std::string_view character) {
    return character == "\xE2\x80\xA8" || character == "\xE2\x80\xA9";
}

std::string_view allowedForm(std::string_view character) {
    if (!isValidUtf8(character)) return replacementCharacter;
    return isControlCharacter(character) ? "?" : character;
}

// The bytes up to the first that needs a look.
std::string_view plainStart(std::string_view text) {
    const auto isPlain = [](char byte) { return byte >= ' ' && byte <= '~'; };
    const auto end = std::find_if_not(text.begin(), text.end(), isPlain);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

// The bytes of a line end at the place, 0 when there is none.
std::size_t lineEndSize(std::string_view text) {
    if (text.starts_with('\n')) return 1;
    return text.starts_with(lineEnd) ? lineEnd.size() : 0;
}

}  // namespace

std::string oneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (const auto plain = plainStart(text.substr(at)); !plain.empty()) {
            line += plain;
            at += plain.size();
            continue;
        }
        const auto character = text.substr(at, characterSize(text, at));
        line += isUnicodeLineEnd(character) ? "?" : allowedForm(character);
        at += character.size();
    }
    return line;
}

std::string severalLines(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (const auto plain = plainStart(text.substr(at)); !plain.empty()) {
            lines += plain;
            at += plain.size();
            continue;
        }
        if (const std::size_t size = lineEndSize(text.substr(at)); size > 0) {
            lines += lineEnd;
            at += size;
            continue;
        }
        const auto character = text.substr(at, characterSize(text, at));
        lines += character == "\t" ? character : allowedForm(character);
        at += character.size();
    }
    return lines;
}

}  // namespace velmora::linuxhost

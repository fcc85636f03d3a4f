#include "platform/windows/desktop/shortcut_fields.h"

#include <windows.h>
// After the one above, which it needs.
#include <commctrl.h>

#include <charconv>
#include <map>

#include "base/text.h"

namespace velmora::windows {

namespace {

unsigned functionKeyOf(const std::string& name) {
    unsigned number = 0;
    const char* end = name.data() + name.size();
    const auto read = std::from_chars(name.data() + 1, end, number);
    const bool isKey = read.ec == std::errc{} && read.ptr == end && number >= 1 && number <= 24;
    return isKey ? VK_F1 + number - 1 : 0;
}

unsigned keyOf(const std::string& name) {
    if (name.size() > 1 && name[0] == 'f') return functionKeyOf(name);
    if (name.size() != 1) return 0;
    // Letters and digits have the numbers of their upper-case characters.
    const char key = name[0];
    if (key >= 'a' && key <= 'z') return static_cast<unsigned>(key - 'a' + 'A');
    return key >= '0' && key <= '9' ? static_cast<unsigned>(key) : 0;
}

}  // namespace

std::uint16_t hotKeyOf(std::string_view text) {
    static const std::map<std::string, unsigned> modifiers{{"shift", HOTKEYF_SHIFT},
                                                           {"ctrl", HOTKEYF_CONTROL},
                                                           {"alt", HOTKEYF_ALT},
                                                           {"ext", HOTKEYF_EXT},
                                                           {"control", HOTKEYF_CONTROL}};
    unsigned pressed = 0;
    unsigned key = 0;
    for (const std::string& part : split(lowerCase(text), "+")) {
        const std::string name = trim(part);
        if (const auto modifier = modifiers.find(name); modifier != modifiers.end()) {
            pressed |= modifier->second;
        } else if (key != 0 || (key = keyOf(name)) == 0) {
            return 0;
        }
    }
    return key == 0 ? 0 : static_cast<std::uint16_t>(pressed << 8 | key);
}

std::pair<std::string, int> iconOf(const std::string& location) {
    const auto comma = location.rfind(',');
    if (comma == std::string::npos) return {location, 0};
    const std::string digits = trim(std::string_view(location).substr(comma + 1));
    int index = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, index);
    if (read.ec != std::errc{} || read.ptr != end) return {location, 0};
    return {location.substr(0, comma), index};
}

}  // namespace velmora::windows

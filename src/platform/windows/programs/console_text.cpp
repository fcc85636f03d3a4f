#include "platform/windows/programs/console_text.h"

#include <windows.h>

#include <algorithm>

#include "base/text.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

constexpr std::size_t longestCut = 3;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

bool isBeyondAscii(char byte) {
    return (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

/// How many bytes at the end may begin a character that isn't there as a whole.
std::size_t bytesOfCutCharacter(const std::string& bytes) {
    std::size_t count = 1;
    while (count <= longestCut && count < bytes.size() &&
           isContinuation(bytes[bytes.size() - count]))
        ++count;
    return std::min(count, bytes.size());
}

std::string fromConsoleCodePage(const std::string& bytes) {
    const auto size = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(CP_OEMCP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_OEMCP, 0, bytes.data(), size, wide.data(), needed);
    return toUtf8(wide);
}

// Plain letters before a last byte that isn't one are no sign of UTF-8.
std::string utf8Of(const std::string& bytes) {
    if (isValidUtf8(bytes)) return bytes;
    const std::string whole = bytes.substr(0, bytes.size() - bytesOfCutCharacter(bytes));
    const bool isUtf8 =
        isValidUtf8(whole) && std::any_of(whole.begin(), whole.end(), isBeyondAscii);
    return isUtf8 ? whole : fromConsoleCodePage(bytes);
}

}  // namespace

std::string consoleText(const std::string& bytes) {
    std::string lines;
    for (const char c : utf8Of(bytes)) {
        if (c == '\n' && !lines.ends_with('\r')) lines += '\r';
        lines += c;
    }
    return lines;
}

}  // namespace velmora::windows

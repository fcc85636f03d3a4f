#include "persist/shell_links.h"

#include "base/text.h"

namespace velmora {

namespace {

// The record's flags: the verb acts on an item list, with the window's own messages.
constexpr std::uint32_t propertiesMask = 1100;

std::string orElse(const std::optional<std::string>& text, const std::string& otherwise) {
    return text ? *text : otherwise;
}

}  // namespace

std::string ShellLinks::fSpecialFolder(std::int32_t id) {
    ItemIdList list;
    if (platform_.shell32.SHGetSpecialFolderLocation(id, list) != 0) return {};
    std::string buffer(255, ' ');
    if (!platform_.shell32.SHGetPathFromIDListA(list, buffer)) return {};
    return buffer.substr(0, buffer.find('\0'));
}

bool ShellLinks::fCreateShortcut(std::string file, const ShortcutTexts& texts) {
    const std::string end = lowerCase(right(file, 4));
    if (end != ".lnk" && end != ".url") file += ".lnk";
    const auto shortcut = platform_.wscriptShell.CreateShortcut(file);
    if (shortcut == nullptr) return false;
    if (texts.arguments) shortcut->Arguments = *texts.arguments;
    shortcut->Description = texts.description;
    if (texts.hotkey) shortcut->HotKey = *texts.hotkey;
    shortcut->IconLocation = orElse(texts.icon, texts.target + ",1");
    shortcut->TargetPath = texts.target;
    shortcut->WindowStyle = texts.windowStyle;
    shortcut->WorkingDirectory = orElse(texts.directory, texts.target);
    shortcut->Save();
    return true;
}

void ShellLinks::prcShowProperties(const std::string& path, const std::string& owner) {
    platform_.shell32.ShellExecuteEx(
        {.mask = propertiesMask, .owner = owner, .verb = "properties", .file = path});
}

}  // namespace velmora

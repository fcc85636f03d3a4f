#include "persist/shell_links.h"

#include "base/text.h"

namespace velmora {

namespace {

// Folders of the file system only, and none below a domain.
constexpr std::uint32_t browseFlags = 3;
constexpr std::size_t browseRoom = 260;  // characters, the closing one of code 0 included

std::string orElse(const std::optional<std::string>& text, const std::string& otherwise) {
    return text ? *text : otherwise;
}

}  // namespace

std::string ShellLinks::fSpecialFolder(std::int32_t id) {
    ItemIdList list;
    if (shell32_.SHGetSpecialFolderLocation(id, list) != 0) return {};
    std::string buffer(255, ' ');
    if (!shell32_.SHGetPathFromIDListA(list, buffer)) return {};
    return buffer.substr(0, buffer.find('\0'));
}

bool ShellLinks::fCreateShortcut(std::string file, const ShortcutTexts& texts) {
    const std::string end = lowerCase(right(file, 4));
    if (end != ".lnk" && end != ".url") file += ".lnk";
    const auto shortcut = wscriptShell_.CreateShortcut(file);
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

std::optional<std::string> ShellLinks::prcBrowseForFolder(const std::string& owner,
                                                          const std::string& title,
                                                          const std::function<void()>& whileOpen) {
    ItemIdList list;
    const BrowseInfo info{
        .owner = owner, .title = title, .flags = browseFlags, .whileOpen = whileOpen};
    switch (shell32_.SHBrowseForFolder(info, list)) {
        case Browse::unavailable:
            return std::nullopt;
        case Browse::dismissed:
            return "";
        case Browse::chosen:
            break;
    }
    // The room is counted in characters, of which one takes up to four bytes.
    std::string buffer(browseRoom * 4, '\0');
    if (!shell32_.SHGetPathFromIDListA(list, buffer)) return "";
    buffer.resize(buffer.find('\0'));
    return length(buffer) < browseRoom ? buffer : "";
}

}  // namespace velmora

#include "platform/linux/paths/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "platform/linux/system/read_whole.h"

namespace velmora::linuxhost {

namespace {

std::string withoutEndingSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

// The variable's absolute path, or nothing.
std::string pathVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && value[0] == '/' ? withoutEndingSlash(value) : std::string{};
}

std::string baseFolder(const char* variable, const char* name) {
    std::string path = pathVariable(variable);
    return path.empty() ? homeFolder() + '/' + name : path;
}

// The text between the first two quotes, with a back-slash before a character that is meant itself.
std::string unquoted(std::string_view text) {
    std::string value;
    for (std::size_t at = 1; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        value += text[at];
    }
    return value;
}

}  // namespace

std::string homeFolder() {
    std::string home = pathVariable("HOME");
    if (!home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    return user && user->pw_dir && user->pw_dir[0] == '/' ? withoutEndingSlash(user->pw_dir) : "/";
}

std::string configFolder() {
    return baseFolder("XDG_CONFIG_HOME", ".config");
}

std::string dataFolder() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

std::string stateFolder() {
    return baseFolder("XDG_STATE_HOME", ".local/state");
}

std::string userFolderIn(const std::string& text, const std::string& key, const std::string& home) {
    constexpr std::string_view homeVariable = "$HOME";
    std::string found;
    for (const std::string& each : split(text, "\n")) {
        const std::string line = trim(each);
        if (!line.starts_with(key + "=\"")) continue;
        std::string path = unquoted(std::string_view(line).substr(key.size() + 1));
        if (path == homeVariable || path.starts_with("$HOME/"))
            path.replace(0, homeVariable.size(), home);
        found = path.starts_with('/') ? withoutEndingSlash(path) : std::string{};
    }
    return found;
}

std::string userFolder(const std::string& key, const std::string& name) {
    const std::string text = contentOfFile(configFolder() + "/user-dirs.dirs");
    const std::string path = userFolderIn(text, key, homeFolder());
    return path.empty() ? homeFolder() + '/' + name : path;
}

}  // namespace velmora::linuxhost

#include "platform/linux/settings/linux_data_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/linux/entries/left_writings.h"
#include "platform/linux/entries/private_folder.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/system/private_file.h"
#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

constexpr const char* settingsName = "set.dat";
constexpr std::size_t mostSettings = 64 * 1024 * 1024;  // bytes

bool isThere(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

UniqueFd openFolder(const std::string& path) {
    return UniqueFd(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::string withoutLinks(const std::string& path) {
    std::error_code failure;
    const auto resolved = std::filesystem::weakly_canonical(path, failure);
    std::string text = failure ? path : resolved.string();
    while (text.size() > 1 && text.ends_with('/')) text.pop_back();
    return text;
}

// One user's settings are no other's, also when a program with all rights has that user's home.
bool isOfThisUser(const UniqueFd& folder) {
    struct stat status {};
    return fstat(folder.get(), &status) == 0 && status.st_uid == geteuid();
}

bool make(const std::string& path) {
    return mkdir(path.c_str(), S_IRWXU) == 0 || errno == EEXIST;
}

UniqueFd openOrMake(const DataFolders& folders, const std::string& path) {
    if (!folders.chosen.empty()) {
        return isThere(path) || make(path) ? openFolder(path) : UniqueFd();
    }
    UniqueFd folder = openFolder(path);
    if (!folder.isOpen()) makePrivateFolder(path, folder);
    return folder.isOpen() && isOfThisUser(folder) ? std::move(folder) : UniqueFd();
}

// Of two programs that begin at once the first one's stay. A filesystem that knows neither way has
// only the name to give.
bool putInPlace(int folder, const char* made) {
    if (linkat(folder, made, folder, settingsName, 0) == 0 || errno == EEXIST) return true;
    const int failure = renameat2(folder, made, folder, settingsName, RENAME_NOREPLACE);
    if (failure == 0 || errno == EEXIST) return true;
    return errno == EINVAL && renameat(folder, made, folder, settingsName) == 0;
}

bool layFirst(int folder, std::string_view content) {
    const std::string made = ownBesideName(settingsName);
    // They may hold a password later; and after a power failure they are whole or not there.
    const bool isDone = writePrivateFile(folder, made, content) && putInPlace(folder, made.c_str());
    unlinkat(folder, made.c_str(), 0);
    return isDone;
}

}  // namespace

DataFolders dataFoldersOf(const std::string& program, const std::string& chosen) {
    DataFolders folders{.program = program};
    folders.isInstalled = isThere(program + '/' + installedMarker);
    if (folders.isInstalled) folders.ofUser = withoutLinks(dataFolder() + "/velmora");
    if (chosen.empty()) return folders;
    std::error_code failure;
    const auto whole = std::filesystem::absolute(chosen, failure);
    // The working folder can be gone.
    folders.isUnknown = static_cast<bool>(failure);
    if (!failure) folders.chosen = withoutLinks(whole.string());
    return folders;
}

DataFolderState prepareDataFolder(const DataFolders& folders) {
    const std::string path = chooseDataFolder(folders);
    if (folders.isUnknown || path.empty()) return DataFolderState::notMade;
    if (path == folders.program) return DataFolderState::ready;
    const UniqueFd folder = openOrMake(folders, path);
    if (!folder.isOpen()) return DataFolderState::notMade;
    removeLeftWritings(folder.get(), settingsName);
    struct stat status {};
    if (fstatat(folder.get(), settingsName, &status, AT_SYMLINK_NOFOLLOW) == 0)
        return DataFolderState::ready;
    const std::string first = folders.program + '/' + settingsName;
    const UniqueFd source(open(first.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    // Without them the start says what is missing.
    if (!source.isOpen() && errno == ENOENT) return DataFolderState::ready;
    std::string content;
    const bool isDone = source.isOpen() && readWhole(source.get(), mostSettings, content) == 0 &&
                        layFirst(folder.get(), content);
    return isDone ? DataFolderState::ready : DataFolderState::notFilled;
}

}  // namespace velmora::linuxhost

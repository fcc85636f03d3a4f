#include "platform/linux/settings/linux_user_state.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <utility>

#include "platform/linux/entries/left_writings.h"
#include "platform/linux/entries/private_folder.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/system/private_file.h"
#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

// Asked each time: the folder may have been removed meanwhile.
std::string ownFolder() {
    return stateFolder() + "/velmora";
}

bool isOwnFile(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

}  // namespace

std::optional<std::string> LinuxUserState::read(const std::string& name) {
    UniqueFd folder;
    if (!isUserStateName(name) || openPrivateFolder(ownFolder(), folder) != 0) return std::nullopt;
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    const UniqueFd file(openat(folder.get(), name.c_str(), flags));
    std::string content;
    const bool isRead = file.isOpen() && isOwnFile(file.get()) &&
                        readWhole(file.get(), mostUserState, content) == 0;
    return isRead ? std::optional(std::move(content)) : std::nullopt;
}

bool LinuxUserState::write(const std::string& name, std::string_view content) {
    UniqueFd folder;
    const bool isAllowed = isUserStateName(name) && content.size() <= mostUserState;
    if (!isAllowed || makePrivateFolder(ownFolder(), folder) != 0) return false;
    const std::string beside = ownBesideName(name);
    // After a power failure there is the old content or the new one.
    const bool isDone = writePrivateFile(folder.get(), beside, content) &&
                        renameat(folder.get(), beside.c_str(), folder.get(), name.c_str()) == 0;
    if (!isDone) unlinkat(folder.get(), beside.c_str(), 0);
    return isDone;
}

bool LinuxUserState::move(const std::string& from, const std::string& to) {
    UniqueFd folder;
    return isUserStateName(from) && isUserStateName(to) &&
           openPrivateFolder(ownFolder(), folder) == 0 &&
           renameat(folder.get(), from.c_str(), folder.get(), to.c_str()) == 0;
}

std::string LinuxUserState::placeOf(const std::string& name) {
    return ownFolder() + '/' + name;
}

void removeLeftUserState() {
    UniqueFd folder;
    if (openPrivateFolder(ownFolder(), folder) != 0) return;
    removeLeftWritings(folder.get(), "");
}

}  // namespace velmora::linuxhost

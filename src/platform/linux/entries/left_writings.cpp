#include "platform/linux/entries/left_writings.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <limits>
#include <vector>

#include "platform/beside_name.h"
#include "platform/linux/entries/open_folder.h"

namespace velmora::linuxhost {

namespace {

bool isDead(std::uint32_t process) {
    const bool isId = process <= static_cast<std::uint32_t>(std::numeric_limits<pid_t>::max());
    return isId && kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

}  // namespace

std::string ownBesideName(std::string_view name) {
    return besideName(name, static_cast<std::uint32_t>(getpid()));
}

void removeLeftWritings(int folder, std::string_view name) {
    std::vector<std::string> files;
    static_cast<void>(namesIn(OpenFolder(folder, "."), files));
    for (const std::string& file : files) {
        const auto writer = writerBeside(file, name);
        if (writer && isDead(*writer)) unlinkat(folder, file.c_str(), 0);
    }
}

}  // namespace velmora::linuxhost

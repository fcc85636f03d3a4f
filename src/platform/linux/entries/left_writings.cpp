#include "platform/linux/entries/left_writings.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <vector>

#include "platform/linux/entries/open_folder.h"

namespace velmora::linuxhost {

namespace {

bool isOfDeadProcess(std::string_view number) {
    pid_t process = 0;
    const char* end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, process);
    const bool isNumber = read.ec == std::errc() && read.ptr == end && process > 0;
    return isNumber && kill(process, 0) != 0 && errno == ESRCH;
}

bool isLeft(std::string_view file, std::string_view name) {
    const auto point = file.rfind('.');
    if (!file.starts_with('.') || point == 0) return false;
    const bool isOfName = name.empty() || file.substr(1, point - 1) == name;
    return isOfName && isOfDeadProcess(file.substr(point + 1));
}

}  // namespace

// By its number no other process writes to the same file.
std::string besideName(std::string_view name) {
    return '.' + std::string(name) + '.' + std::to_string(getpid());
}

void removeLeftWritings(int folder, std::string_view name) {
    std::vector<std::string> files;
    static_cast<void>(namesIn(OpenFolder(folder, "."), files));
    for (const std::string& file : files) {
        if (isLeft(file, name)) unlinkat(folder, file.c_str(), 0);
    }
}

}  // namespace velmora::linuxhost

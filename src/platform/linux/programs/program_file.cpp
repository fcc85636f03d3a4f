#include "platform/linux/programs/program_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

#include "base/text.h"

namespace velmora::linuxhost {

namespace {

bool isFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string pathWithoutExtension(const std::string& path) {
    const auto name = path.rfind('/') + 1;
    return path.substr(0, name) + withoutExtension(path.substr(name));
}

}  // namespace

std::string executablePath() {
    std::string path(4096, '\0');
    const auto size = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    // What the kernel adds while an update has replaced the file.
    constexpr std::string_view replaced = " (deleted)";
    if (path.ends_with(replaced)) path.resize(path.size() - replaced.size());
    return path;
}

std::string withoutExtension(std::string name) {
    const auto point = name.rfind('.');
    if (point != std::string::npos && point > 0) name.resize(point);
    return name;
}

std::string programFile(const std::string& hostPath) {
    if (isFile(hostPath)) return hostPath;
    std::string bare = hostPath;
    if (lowerCase(bare).ends_with(".exe")) bare.resize(bare.size() - 4);
    if (isFile(bare)) return bare;
    std::string own = executablePath();
    return !own.empty() && bare == pathWithoutExtension(own) ? own : hostPath;
}

}  // namespace velmora::linuxhost

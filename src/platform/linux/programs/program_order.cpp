#include "platform/linux/programs/program_order.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/programs/shell_script.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

std::string fileInPath(const std::string& name) {
    const char* folders = std::getenv("PATH");
    for (const std::string& folder : split(folders ? folders : "", ":")) {
        if (!folder.starts_with('/')) continue;
        std::string path = folder + '/' + name;
        struct stat status {};
        if (stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
            access(path.c_str(), X_OK) == 0)
            return path;
    }
    return {};
}

}  // namespace

ProgramOrder programOrder(const std::string& commandLine) {
    constexpr const char* blanks = " \t";
    const auto start = commandLine.find_first_not_of(blanks);
    if (start == std::string::npos) return {};
    const std::string text =
        commandLine.substr(start, commandLine.find_last_not_of(blanks) + 1 - start);
    const bool isQuoted = text[0] == '"';
    const auto end = isQuoted ? text.find('"', 1) : text.find_first_of(blanks);
    const std::size_t from = isQuoted ? 1 : 0;
    if (end == std::string::npos) return {text.substr(from), {}};
    const auto rest = text.find_first_not_of(blanks, end + from);
    return {text.substr(from, end - from), rest == std::string::npos ? "" : text.substr(rest)};
}

std::vector<std::string> hostArguments(const std::string& text,
                                       const std::vector<DriveRoot>& roots) {
    auto arguments = shortcutArguments(text);
    for (std::string& argument : arguments) {
        if (driveNameOf(argument).empty()) continue;
        if (std::string path = hostPathOf(argument, roots); !path.empty())
            argument = std::move(path);
    }
    return arguments;
}

bool isProgram(const std::string& hostPath) {
    if (access(hostPath.c_str(), X_OK) != 0) return false;
    const UniqueFd file(open(hostPath.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return false;
    struct stat status {};
    std::array<char, 4> start{};
    const bool isFile = fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
    const auto size = isFile ? read(file.get(), start.data(), start.size()) : 0;
    if (size < 2) return false;
    const std::string_view text(start.data(), static_cast<std::size_t>(size));
    return text.starts_with("#!") || text ==
                                         "\x7f"
                                         "ELF";
}

std::string programInPath(const std::string& name) {
    if (name.empty() || name.find('/') != std::string::npos) return {};
    std::string path = fileInPath(name);
    if (path.empty() && lowerCase(name).ends_with(".exe"))
        path = fileInPath(name.substr(0, name.size() - 4));
    return path;
}

bool isTextEditor(const std::string& program) {
    const std::string name = lowerCase(fileNameOf(program));
    return name == "notepad" || name == "notepad.exe";
}

}  // namespace velmora::linuxhost

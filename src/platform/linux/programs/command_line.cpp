#include "platform/linux/programs/command_line.h"

#include <fstream>
#include <iterator>

#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/paths/path_names.h"
#include "platform/start_options.h"

namespace velmora::linuxhost {

namespace {

std::string asDrivePath(const std::string& argument, Volumes& volumes) {
    if (argument.empty()) return {};
    if (!driveNameOf(argument).empty()) return drivePathWithoutLinks(argument, volumes);
    const std::string path = argument[0] == '/' ? argument : workingFolder() + '/' + argument;
    if (volumes.kindOf(path) == FileKind::none) return {};
    return drivePathOf(withoutLinksAbove(path, volumes), volumes.roots());
}

}  // namespace

std::vector<std::string> argumentsIn(std::string_view commandLine) {
    std::vector<std::string> arguments;
    while (!commandLine.empty()) {
        const auto end = commandLine.find('\0');
        arguments.emplace_back(commandLine.substr(0, end));
        commandLine.remove_prefix(end == std::string_view::npos ? commandLine.size() : end + 1);
    }
    if (!arguments.empty()) arguments.erase(arguments.begin());
    return arguments;
}

std::string commandText(const std::vector<std::string>& arguments, Volumes& volumes) {
    std::string text;
    bool arePaths = false;
    for (const std::string& argument : arguments) {
        arePaths = arePaths || !isStartOption(argument);
        std::string path = arePaths ? asDrivePath(argument, volumes) : argument;
        if (path.empty()) path = replaceAll(argument, "\"", toDriveNames("\""));
        text += (text.empty() ? "\"" : " \"") + path + '"';
    }
    return text;
}

std::string ownCommand(Volumes& volumes) {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    const std::string commandLine{std::istreambuf_iterator<char>(file), {}};
    return commandText(argumentsIn(commandLine), volumes);
}

}  // namespace velmora::linuxhost

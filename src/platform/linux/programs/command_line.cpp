#include "platform/linux/programs/command_line.h"

#include <algorithm>

#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/paths/path_names.h"
#include "platform/start_options.h"

namespace velmora::linuxhost {

namespace {

// Where on this host a path lies; empty for a drive path.
std::string placeOf(const std::string& argument) {
    if (argument.empty() || !driveNameOf(argument).empty()) return {};
    return argument[0] == '/' ? argument : workingFolder() + '/' + argument;
}

std::string drivePathOfPlace(const std::string& path, Volumes& volumes) {
    if (path.empty() || volumes.kindOf(path) == FileKind::none) return {};
    return drivePathOf(withoutLinksAbove(path, volumes), volumes.roots());
}

std::string asDrivePath(const std::string& argument, Volumes& volumes) {
    if (!driveNameOf(argument).empty()) return drivePathWithoutLinks(argument, volumes);
    return drivePathOfPlace(placeOf(argument), volumes);
}

void appendQuoted(std::string& text, const std::string& path, const std::string& argument) {
    const std::string shown = path.empty() ? replaceAll(argument, "\"", toDriveNames("\"")) : path;
    text += (text.empty() ? "\"" : " \"") + shown + '"';
}

// Each is closed by a NUL.
std::vector<std::string> closedTexts(std::string_view text) {
    std::vector<std::string> texts;
    while (!text.empty()) {
        const auto end = text.find('\0');
        texts.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return texts;
}

// How many arguments the options in front of the first path take.
std::size_t wordsOfOptions(const std::vector<std::string>& arguments) {
    std::size_t count = 0;
    while (count < arguments.size()) {
        const std::size_t length = startOptionLength(arguments[count]);
        if (length == 0) break;
        count += length;
    }
    return std::min(count, arguments.size());
}

std::vector<std::string>& ownArguments() {
    static std::vector<std::string> arguments;
    return arguments;
}

// The C library hands these over before the program begins. To read them from /proc can fail, and
// options that are lost change which folder is written to.
__attribute__((constructor)) void keepArguments(int count, char** words, char** /*environment*/) {
    for (int i = 1; i < count; ++i) ownArguments().emplace_back(words[i]);
}

}  // namespace

std::string commandText(const std::vector<std::string>& arguments, Volumes& volumes) {
    std::string text;
    const std::size_t firstPath = wordsOfOptions(arguments);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        appendQuoted(text, i < firstPath ? "" : asDrivePath(argument, volumes), argument);
    }
    return text;
}

std::string ownCommand(Volumes& volumes) {
    return commandText(ownArguments(), volumes);
}

std::string textForOthers(const std::vector<std::string>& arguments, Volumes& volumes) {
    std::string text;
    for (std::size_t i = wordsOfOptions(arguments); i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const std::string place = placeOf(argument);
        const bool isThere = !place.empty() && volumes.kindOf(place) != FileKind::none;
        text += (isThere ? place : argument) + '\0';
    }
    return text;
}

std::string ownTextForOthers(Volumes& volumes) {
    return textForOthers(ownArguments(), volumes);
}

std::string commandFromOther(std::string_view text, Volumes& volumes) {
    std::string command;
    for (const std::string& argument : closedTexts(text)) {
        const bool isRelative = driveNameOf(argument).empty() && !argument.starts_with('/');
        appendQuoted(command, isRelative ? std::string{} : asDrivePath(argument, volumes),
                     argument);
    }
    return command;
}

}  // namespace velmora::linuxhost

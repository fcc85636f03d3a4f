// Orders to start a program, as the other system's programs give them, in the terms of this host.
#pragma once

#include <string>
#include <vector>

#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

/// A command line taken apart: the program, which may be in double quotes, and the rest without the
/// blanks around it.
struct ProgramOrder {
    std::string program;
    std::string rest;
};
ProgramOrder programOrder(const std::string& commandLine);

/// The arguments in a text, as shortcuts hold them; drive paths among them become paths of the
/// host.
std::vector<std::string> hostArguments(const std::string& text,
                                       const std::vector<DriveRoot>& roots);

/// Whether a file is a program: the user may execute it, and it begins as programs or scripts do.
/// On some filesystems every file may be executed.
bool isProgram(const std::string& hostPath);

/// The path of a program that PATH leads to by its name, which may carry an ".exe" that the file
/// here doesn't have; empty when there is none.
std::string programInPath(const std::string& name);

/// Whether the program is the other system's editor of text files, at any path.
bool isTextEditor(const std::string& program);

}  // namespace velmora::linuxhost

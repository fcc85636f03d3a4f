// Programs by the names that the other system gives them.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// Path of the running program's file; empty when the kernel doesn't know it.
std::string executablePath();

/// The name of a program's file without its extension.
std::string withoutExtension(std::string name);

/// The program that a path of the host means, which may lack the extension or carry an ".exe" that
/// the file here doesn't have: the path itself when it is a file, else the path without ".exe",
/// else the running program when that is its path without extension. The path itself when none of
/// them is there.
std::string programFile(const std::string& hostPath);

}  // namespace velmora::linuxhost

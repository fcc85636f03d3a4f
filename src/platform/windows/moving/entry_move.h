// Moving files and folders of this machine.
#pragma once

#include <windows.h>

#include <string>

namespace velmora::windows {

/// Moves a file, a folder or a link to a new path at which nothing lies; a file to another drive
/// too. No link leads to either path: the folders of both are held open, step by step, meanwhile.
/// The system's error code, 0 for success; after a failure everything is where it was.
DWORD moveEntry(const std::string& from, const std::string& to);

}  // namespace velmora::windows

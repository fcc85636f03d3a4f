// The program's arguments as the other system's programs get them: one text, with paths as drive
// paths.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

/// Each argument in double quotes, blanks between them. Options stay as they are; one behind them
/// that names something that is there becomes its drive path; in any other a double quote is
/// carried as in drive paths, so that splitting at the quotes gives every argument whole.
std::string commandText(const std::vector<std::string>& arguments, Volumes& volumes);

/// The text for this process.
std::string ownCommand(Volumes& volumes);

/// The arguments behind the options for another process, whose drives can have other letters and
/// whose working folder is another one: each closed by a NUL, what is there as its whole path on
/// this host. The rest stays as it is, drive paths too: their letters are those that the user sees
/// in the other process's window.
std::string textForOthers(const std::vector<std::string>& arguments, Volumes& volumes);

/// The text of this process for others.
std::string ownTextForOthers(Volumes& volumes);

/// What `commandText` would give in this process for the text of another one. A path that isn't a
/// whole one was not found there and isn't looked for here.
std::string commandFromOther(std::string_view text, Volumes& volumes);

}  // namespace velmora::linuxhost
